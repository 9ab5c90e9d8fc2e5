#include "project/PKC_PlotkaProject.h"

#include "project/PKC_PlotkaProject_p.h"
#include "scene/timeline/AT_TransitionSeq.h"

using namespace Plotka;

namespace
{

bool answerGap(const Space_t &found, Space_t *space)
{
    if (space)
        *space = found;
    return !found.isInvalid();
}

} // namespace

bool PKC_PlotkaProject::isFollowedBySpace(const Panel_t &panel, Space_t *space) const
{
    return panel.isValid() && answerGap(getSpaceAt(panel.lastFrame() + 1), space);
}

bool PKC_PlotkaProject::isFollowedBySpace(const Shot_t &shot, Space_t *space) const
{
    return shot.isValid() && answerGap(getSpaceAt(shot.lastFrame() + 1), space);
}

bool PKC_PlotkaProject::isPrecededBySpace(const Panel_t &panel, Space_t *space) const
{
    return panel.isValid() && answerGap(getSpaceAt(panel.firstFrame() - 1), space);
}

bool PKC_PlotkaProject::isPrecededBySpace(const Shot_t &shot, Space_t *space) const
{
    return shot.isValid() && answerGap(getSpaceAt(shot.firstFrame() - 1), space);
}

bool PKC_PlotkaProject::isFollowedByTrans(const Panel_t &panel, Trans_t *transition) const
{
    if (transition)
        *transition = Trans_t();
    const TUSeqTimedValue *timeline = topMainTv();
    if (!timeline || panel.lastFrame() != panel.shot().lastFrame())
        return false;
    const auto after = timeline->nextBlockIterator(timeline->blockIteratorAt(panel.shot().frameBlock().key));
    if (after == timeline->endBlock() || !after->key.isTransition)
        return false;
    const AT_TransitionSeq *found = AT_TransitionSeq::toTransition(after->seq());
    if (transition && found)
        *transition = Trans_t(timeline, found);
    return true;
}

bool PKC_PlotkaProject::isFollowedByTrans(const Shot_t &shot, Trans_t *transition) const
{
    return isFollowedByTrans(getPanelIn(shot, shot.objNumOfFrame(), /*nearest*/ true, /*forward*/ true), transition);
}

bool PKC_PlotkaProject::isPrecededByTrans(const Panel_t &panel, Trans_t *transition) const
{
    if (transition)
        *transition = Trans_t();
    const TUSeqTimedValue *timeline = topMainTv();
    if (!timeline || panel.firstFrame() != panel.shot().firstFrame())
        return false;
    const auto before = timeline->previousBlockIterator(timeline->blockIteratorAt(panel.shot().frameBlock().key));
    if (before == timeline->endBlock() || !before->key.isTransition)
        return false;
    if (transition)
        *transition = getTransAt(panel.firstFrame());
    return true;
}

bool PKC_PlotkaProject::isPrecededByTrans(const Shot_t &shot, Trans_t *transition) const
{
    return isPrecededByTrans(getPanelIn(shot, 1, /*nearest*/ true, /*forward*/ true), transition);
}
