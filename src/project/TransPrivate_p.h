#pragma once

#include "project/ObjectPrivate_p.h"
#include "scene/timeline/AT_TransitionSeq.h"

#include <QString>

namespace Plotka
{

/// Holds its transition strongly: it stays readable after its block has gone.
class TransPrivate : public ObjectPrivate
{
public:
    TransPrivate() = default;
    TransPrivate(const TUSeqTimedValue *owningTimedValue, const AT_TransitionSeq *heldTransition);
    TransPrivate(const TransPrivate &) = delete;
    TransPrivate &operator=(const TransPrivate &) = delete;
    ~TransPrivate() override;

    const AT_FrameBlock &block() const
    {
        const AT_FrameBlock *known = knownBlock();
        return known ? *known : remember(findBlock());
    }

    const AT_TransitionSeq *const transition = nullptr;
    QString name; ///< null until first asked for
};

} // namespace Plotka
