#include "scene/timeline/TUSeq.h"

#include "scene/timeline/AT_TransitionSeq.h"

TUSeq::~TUSeq() = default;

const SC_Id &TUSeq::objectId() const
{
    if (const TUSeq *identified = identifiedSeq())
        return identified->id;
    if (const AT_TransitionSeq *transition = transitionView())
        return transition->id;
    return SC_Id::nullSceneId();
}

void TUSeq::letGo() const
{
    Q_ASSERT(m_holders > 0);
    if (m_holders > 0 && --m_holders == 0)
        delete this;
}
