#pragma once

#include "project/ObjectNameHelper.h"
#include "scene/base/SC_Id.h"
#include "scene/base/UT_ShareBase.h"
#include "scene/base/UT_SharedWeakPtr.h"
#include "scene/timeline/TUSeqTimedValue.h"

#include <limits>

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

    /// The first block of the timed value that places the object; the invalid block without one.
    const AT_FrameBlock &findBlock() const
    {
        const TUSeqTimedValue *timeline = timedValue.get();
        if (!timeline)
            return AT_FrameBlock::none();
        if (timeline->revision() != m_foundAtRevision) {
            m_foundIndex = timeline->blockIteratorOf(id) - timeline->beginBlock();
            m_foundAtRevision = timeline->revision();
        }
        return m_foundIndex < timeline->endBlock() - timeline->beginBlock() ? timeline->beginBlock()[m_foundIndex]
                                                                            : AT_FrameBlock::none();
    }

    const UT_SharedWeakPtr<TUSeqTimedValue> timedValue{};
    const SC_Id id{};

private:
    // Where the block stood when last looked for; good until the timed value is edited.
    mutable std::ptrdiff_t m_foundIndex = 0;
    mutable quint64 m_foundAtRevision = std::numeric_limits<quint64>::max();
};

} // namespace Plotka
