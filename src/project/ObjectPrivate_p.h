#pragma once

#include "project/ObjectNameHelper.h"
#include "scene/base/SC_Id.h"
#include "scene/base/UT_Edition.h"
#include "scene/base/UT_ShareBase.h"
#include "scene/base/UT_SharedWeakPtr.h"
#include "scene/timeline/TUSeqTimedValue.h"

class TUScene;

namespace Plotka
{

/// What all handles keep: the timed value whose block places the object, and the object's id.
class ObjectPrivate : public UT_ShareBase
{
public:
    ObjectPrivate() = default;
    ObjectPrivate(const TUSeqTimedValue *owningTimedValue, const SC_Id &objectId) :
        timedValue(owningTimedValue), id(objectId)
    {
    }
    ~ObjectPrivate() override;

    const UT_SharedWeakPtr<TUSeqTimedValue> timedValue{};
    const SC_Id id{};

protected:
    /// Where the object was last found, or null when something has changed since.
    const AT_FrameBlock *knownBlock() const { return m_foundAt == UT_Edition::current() ? m_block : nullptr; }
    /// Looks for the first block of the timed value that places the object; the invalid block without one.
    const AT_FrameBlock &findBlock() const;
    const AT_FrameBlock &remember(const AT_FrameBlock &block) const;

private:
    mutable const AT_FrameBlock *m_block = nullptr; // not owned, good until the edition advances
    mutable quint64 m_foundAt = 0;
};

} // namespace Plotka
