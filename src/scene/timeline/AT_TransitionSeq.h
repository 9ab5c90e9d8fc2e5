#pragma once

#include "scene/base/UT_SharedWeakBase.h"
#include "scene/timeline/TUSeq.h"

#include <QString>

/// The passage from one shot into the next.
///
/// It lives by the count of UT_SharedWeakBase alone: blocks and handles both use IncRef and DecRef,
/// so a handle keeps a transition alive after its block has gone.
class PLOTKA_SCENE_EXPORT AT_TransitionSeq : public TUSeq, public UT_SharedWeakBase
{
public:
    /// Kinds of transition with a name of their own; any other number is allowed. Saved by number.
    enum Type { Dissolve = 0, EdgeWipe = 1, ClockWipe = 2, Slide = 3, Custom = 4 };

    /// The id comes from SC_ProjectCommon::createId(); the angle is in degrees.
    AT_TransitionSeq(SC_Id transitionId, int transitionType, int transitionAngle = 0, bool reversed = false);

    /// The sequence as a transition, or null; null for null.
    static AT_TransitionSeq *toTransition(TUSeq *seq);
    static bool isTransition(const TUSeq *seq);

    int type;
    int angle;
    bool reverse;

    /// "Dissolve", "Edge Wipe", "Clock Wipe", "Slide", else "Transition".
    QString typeString() const;

    /// @name Edits
    /// They queue the change of the timed value that holds the sequence. Setting what stands already queues nothing.
    /// @{
    void setType(int transitionType);
    void setAngle(int degrees);
    void setReverse(bool reversed);
    /// @}

    /// Frames of the transition that lie before the cut. Set when it is inserted.
    unsigned int framesBeforeCut() const { return m_framesBeforeCut; }

    const AT_TransitionSeq *transitionView() const override { return this; }
    void hold() const override { IncRef(); }
    void letGo() const override;

private:
    friend class TUSeqTimedValue;

    void queueChange();

    unsigned int m_framesBeforeCut = 0;
};
