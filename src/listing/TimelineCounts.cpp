#include "listing/TimelineCounts.h"

#include "scene/project/SC_Project.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

#include <algorithm>

namespace
{

/// The panels of a shot and the gaps among them. Gaps end with the shot, panels may reach beyond it.
void countContents(const TUSeqTimedValue *panels, unsigned int shotFrames, TimelineCounts &counts)
{
    unsigned int nextFrame = 1;
    if (panels) {
        for (auto block = panels->beginBlock(); block != panels->endBlock(); ++block) {
            if (nextFrame < std::min(block->fromFrame(), shotFrames + 1))
                ++counts.gaps;
            nextFrame = std::max(nextFrame, block->toFrame() + 1);
            if (!block->key.isTransition)
                ++counts.panels;
        }
    }
    if (nextFrame <= shotFrames)
        ++counts.gaps;
}

} // namespace

TimelineCounts countTimeline(const SC_Project &project, const TUSeqTimedValue *timeline)
{
    TimelineCounts counts;
    if (!timeline)
        return counts;
    counts.frames = timeline->nFrames();
    const SC_SceneManager *const scenes = project.projectCommon()->sceneManager();
    unsigned int nextFrame = 1;
    for (auto block = timeline->beginBlock(); block != timeline->endBlock(); ++block) {
        if (nextFrame < block->fromFrame())
            ++counts.gaps;
        nextFrame = std::max(nextFrame, block->toFrame() + 1);
        if (block->key.isTransition) {
            ++counts.transitions;
            continue;
        }
        ++counts.shots;
        if (const TUScene *shot = sceneOfBlock(scenes, *block))
            countContents(sceneMainTv(shot), block->key.frameCount, counts);
    }
    return counts;
}
