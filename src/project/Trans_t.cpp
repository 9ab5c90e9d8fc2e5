#include "project/Trans_t.h"

#include "project/ObjectIds.h"
#include "project/SharedPtr_p.h"
#include "project/TransPrivate_p.h"

namespace Plotka
{

template class SharedPtr<TransPrivate>;

TransPrivate::TransPrivate(const TUSeqTimedValue *owningTimedValue, const AT_TransitionSeq *heldTransition) :
    ObjectPrivate(owningTimedValue, objectId(heldTransition)), transition(heldTransition)
{
    if (transition)
        transition->hold();
}

TransPrivate::~TransPrivate()
{
    if (transition)
        transition->letGo();
}

Trans_t::Trans_t() = default;

Trans_t::Trans_t(const TUSeqTimedValue *timedValue, const AT_TransitionSeq *transition) :
    SharedPtr(new TransPrivate(timedValue, transition))
{
}

Trans_t::Trans_t(const Trans_t &) = default;
Trans_t &Trans_t::operator=(const Trans_t &) = default;
Trans_t::~Trans_t() = default;

const SC_Id &Trans_t::id() const
{
    return object()->id;
}

const AT_TransitionSeq *Trans_t::transitionSeq() const
{
    return object()->transition;
}

const AT_FrameBlock &Trans_t::frameBlock() const
{
    return object()->block();
}

unsigned int Trans_t::firstFrame() const
{
    return frameBlock().fromFrame();
}

unsigned int Trans_t::lastFrame() const
{
    return frameBlock().toFrame();
}

unsigned int Trans_t::objNumOfFrame() const
{
    return lastFrame() + 1 - firstFrame();
}

QString Trans_t::name() const
{
    if (object()->name.isNull() && object()->transition)
        object()->name = object()->transition->typeString();
    return object()->name;
}

int Trans_t::type() const
{
    return object()->transition ? object()->transition->type : -1;
}

int Trans_t::angle() const
{
    return object()->transition ? object()->transition->angle : 0;
}

bool Trans_t::reverse() const
{
    return object()->transition && object()->transition->reverse;
}

} // namespace Plotka
