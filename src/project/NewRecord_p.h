#pragma once

#include "scene/base/whoami.h"

#include <QString>

#include <vector>

namespace Plotka
{

/// A new record of the class without a name: the original for all containers that lack one. Never destroyed.
template <typename Record>
const Record *newRecord()
{
    // A record is made by who is running, and a program may change its name.
    static std::vector<const Record *> &originals = *new std::vector<const Record *>;
    const QString creator = whoami::progName();
    for (const Record *known : originals) {
        if (known->creator() == creator)
            return known;
    }
    originals.push_back(new Record(QString()));
    return originals.back();
}

} // namespace Plotka
