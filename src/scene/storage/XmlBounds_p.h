#pragma once

#include "scene/storage/LoadReport_p.h"

#include <QByteArray>
#include <QString>

/// What makes an XML text too expensive to read, found in one pass that costs next to nothing.
///
/// A reader spends time that grows with the square of the attributes of one element, memory for every
/// element that stands open, and both for what a document type declares.
namespace XmlBounds
{

constexpr int depthLimit = 1000;
constexpr int attributeLimit = 256;

struct Excess {
    FilePlace place;
    QString message; ///< empty when there is none
};

/// The first excess of a text in UTF-8 or another encoding that has ASCII in it as it is.
Excess find(const QByteArray &text);

} // namespace XmlBounds
