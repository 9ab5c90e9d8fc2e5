#include "project/ObjectPrivate_p.h"

namespace Plotka
{

ObjectPrivate::~ObjectPrivate() = default;

const AT_FrameBlock &ObjectPrivate::findBlock() const
{
    const TUSeqTimedValue *timeline = timedValue.get();
    return timeline ? timeline->blockOf(id) : AT_FrameBlock::none();
}

const AT_FrameBlock &ObjectPrivate::remember(const AT_FrameBlock &block) const
{
    m_block = &block;
    m_foundAt = UT_Edition::current();
    return block;
}

} // namespace Plotka
