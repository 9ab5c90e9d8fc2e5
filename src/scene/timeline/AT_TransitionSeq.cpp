#include "scene/timeline/AT_TransitionSeq.h"

#include "scene/timeline/TUSeqTimedValue.h"

#include <utility>

AT_TransitionSeq::AT_TransitionSeq(SC_Id transitionId, int transitionType, int transitionAngle, bool reversed) :
    TUSeq(transitionId), type(transitionType), angle(transitionAngle), reverse(reversed)
{
}

AT_TransitionSeq *AT_TransitionSeq::toTransition(TUSeq *seq)
{
    return seq ? const_cast<AT_TransitionSeq *>(seq->transitionView()) : nullptr;
}

bool AT_TransitionSeq::isTransition(const TUSeq *seq)
{
    return seq && seq->transitionView();
}

QString AT_TransitionSeq::typeString() const
{
    switch (type) {
    case Dissolve:
        return QStringLiteral("Dissolve");
    case EdgeWipe:
        return QStringLiteral("Edge Wipe");
    case ClockWipe:
        return QStringLiteral("Clock Wipe");
    case Slide:
        return QStringLiteral("Slide");
    default:
        return QStringLiteral("Transition");
    }
}

void AT_TransitionSeq::setType(int transitionType)
{
    if (std::exchange(type, transitionType) != transitionType)
        queueChange();
}

void AT_TransitionSeq::setAngle(int degrees)
{
    if (std::exchange(angle, degrees) != degrees)
        queueChange();
}

void AT_TransitionSeq::setReverse(bool reversed)
{
    if (std::exchange(reverse, reversed) != reversed)
        queueChange();
}

void AT_TransitionSeq::letGo() const
{
    const bool wasHeld = isHeld();
    if (DecRef() == 0 && wasHeld)
        delete this;
}

void AT_TransitionSeq::queueChange()
{
    if (timedValue())
        timedValue()->queueChange(/*placesScene*/ false);
}
