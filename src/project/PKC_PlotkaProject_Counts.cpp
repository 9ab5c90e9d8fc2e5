#include "project/PKC_PlotkaProject.h"

#include "project/PKC_PlotkaProject_p.h"
#include "project/TimelineWalk_p.h"
#include "scene/base/UT_Numbers.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

#include <algorithm>

using namespace Plotka;

namespace
{

template <typename T>
unsigned int countOf(TimelineWalk<T> walk)
{
    unsigned int count = 0;
    for (; !walk.isAtEnd(); walk.step())
        ++count;
    return count;
}

} // namespace

unsigned int PKC_PlotkaProject::shotCount() const
{
    if (!topMainTv()) // first: a timeline chosen anew drops what is remembered
        return 0;
    if (!d->cacheOn || d->caches.shotCount == 0)
        d->caches.shotCount = countOf(ShotWalk(this));
    return d->caches.shotCount;
}

unsigned int PKC_PlotkaProject::panelCount() const
{
    if (!topMainTv())
        return 0;
    if (!d->cacheOn || d->caches.panelCount == 0)
        d->caches.panelCount = countOf(PanelWalk(this));
    return d->caches.panelCount;
}

unsigned int PKC_PlotkaProject::transCount() const
{
    if (!topMainTv())
        return 0;
    if (d->cacheOn && d->caches.transCount != 0)
        return d->caches.transCount;
    unsigned int count = 0;
    for (auto transition = beginTrans(); transition != endTrans(); ++transition)
        ++count;
    d->caches.transCount = count;
    return count;
}

unsigned int PKC_PlotkaProject::panelCount(const Shot_t &shot) const
{
    if (shot.isInvalid())
        return 0;
    const AT_FrameBlock &shotBlock = shot.frameBlock();
    const TUSeqTimedValue *panels = sceneMainTv(d->sceneOf(shotBlock));
    const AT_TimeWarpSeq *warp = AT_TimeWarpSeq::toTimeWarp(shotBlock.seq());
    if (!panels || !warp)
        return 0;
    // Signed, unlike other frames: before frame 1 there is no panel to begin with, and none that ends there.
    const int firstFrame = UT_Numbers::toInt(warp->start);
    const int lastFrame = UT_Numbers::toInt(warp->end);
    if (firstFrame < 1)
        return 0;
    const auto begin = panels->blockIteratorAt(static_cast<unsigned int>(firstFrame));
    const auto end = std::find_if(begin, panels->endBlock(),
        [lastFrame](const AT_FrameBlock &block) { return qint64(block.toFrame()) > lastFrame; });
    return static_cast<unsigned int>(end - begin);
}

unsigned int PKC_PlotkaProject::getNumOfFrames() const
{
    return last(Shot_t()).lastFrame();
}

unsigned int PKC_PlotkaProject::getNumOfAudioFrames(bool all) const
{
    const TUScene *top = topScene();
    if (!top)
        return 0;
    long longest = 0;
    for (const TUTimedValue *timedValue : top->timedValues()) {
        const TUSoundTimedValue *sound = dynamic_cast<const TUSoundTimedValue *>(timedValue);
        if (!sound || (!all && (!sound->audible || sound->muted)) || sound->isExcluded())
            continue;
        longest = std::max(longest, sound->getEndFrame());
    }
    return static_cast<unsigned int>(longest);
}
