#pragma once

#include "plotka_export.h"
#include "project/SharedPtr.h"
#include "scene/base/SC_Id.h"

#include <QString>

class AT_FrameBlock;
class AT_TransitionSeq;
class TUSeqTimedValue;

namespace Plotka
{

class PLOTKA_EXPORT TransPrivate;

/// One transition of the timeline. It keeps its transition alive; its place follows edits.
class PLOTKA_EXPORT Trans_t : public SharedPtr<TransPrivate>
{
public:
    static const Trans_t invalid;

    Trans_t();
    /// One more handle on the same object; null gives the invalid one.
    explicit Trans_t(TransPrivate *object) : SharedPtr(object) {}
    /// Shares in the ownership of the transition. A null one gives invalidId.
    Trans_t(const TUSeqTimedValue *timedValue, const AT_TransitionSeq *transition);
    Trans_t(const Trans_t &);
    Trans_t &operator=(const Trans_t &);
    virtual ~Trans_t();

    const SC_Id &id() const;
    const AT_TransitionSeq *transitionSeq() const;

    bool operator==(const Trans_t &other) const { return id() == other.id(); }
    bool operator!=(const Trans_t &other) const { return id() != other.id(); }
    bool operator<(const Trans_t &other) const { return id() < other.id(); }

    /// @name Place
    /// In project frames; 0 once its block has gone.
    /// @{
    const AT_FrameBlock &frameBlock() const;
    unsigned int firstFrame() const;
    unsigned int lastFrame() const;
    /// lastFrame() + 1 - firstFrame(), 1 once its block has gone.
    unsigned int objNumOfFrame() const;
    /// @}

    /// The text of its type, remembered from the first call on; a null text without a transition.
    QString name() const;
    /// -1 without a transition.
    int type() const;
    /// In degrees; 0 without a transition.
    int angle() const;
    bool reverse() const;
};

} // namespace Plotka
