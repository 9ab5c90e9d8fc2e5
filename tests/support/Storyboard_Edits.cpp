#include "support/Storyboard.h"

#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_SceneInfo.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "tracking/PKC_SceneChangeManager.h"

namespace
{

bool isFree(const TUSeqTimedValue &tv, unsigned int fromFrame, unsigned int frames)
{
    if (fromFrame == 0 || frames == 0 || tv.blockCountAt(fromFrame) != 0)
        return false;
    const AT_FrameBlock &next = tv.nextBlockAfter(fromFrame);
    return !next.isValid() || fromFrame + frames <= next.fromFrame();
}

/// Inserts a block with a sequence that is deleted when it is refused.
bool insertOrDelete(TUSeqTimedValue &tv, unsigned int fromFrame, unsigned int frames, TUSeq *seq)
{
    if (tv.insertBlock(fromFrame, frames, seq))
        return true;
    delete seq;
    return false;
}

/// Gives a block more or fewer frames and moves what follows by the difference.
void resizeBlock(TUSeqTimedValue &tv, const AT_FrameBlock &block, unsigned int frames)
{
    const int delta = int(frames) - int(block.key.frameCount);
    const AT_FrameBlock next = tv.nextBlock(block.key);
    if (delta > 0 && next.isValid())
        tv.moveBlocks(next.fromFrame(), delta);
    tv.setBlockRange(block.key, block.fromFrame(), frames);
    if (delta < 0 && next.isValid())
        tv.moveBlocks(next.fromFrame(), delta);
}

bool setWarp(const AT_FrameBlock &block, double start, double end)
{
    AT_TimeWarpSeq *const warp = AT_TimeWarpSeq::toTimeWarp(block.seq());
    if (!warp)
        return false;
    warp->setRange(start, end);
    return true;
}

} // namespace

void Storyboard::notify()
{
    m_session->changeManager()->notify();
}

bool Storyboard::addShot(const std::string &name, unsigned int frames, unsigned int gapBefore)
{
    return placeShot(name, timeline().nFrames() + 1 + gapBefore, frames);
}

bool Storyboard::placeShot(const std::string &name, unsigned int fromFrame, unsigned int frames)
{
    if (!isFree(timeline(), fromFrame, frames))
        return false;
    TUScene *const scene = sceneProject().addScene();
    TUScene *const panel = sceneProject().addScene();
    TUSeqTimedValue *const track = scene->addSeqTimedValue(QStringLiteral("Panels"));
    insertOrDelete(*track, 1, frames, new AT_TimeWarpSeq(panel, 1.0, double(frames)));
    insertOrDelete(timeline(), fromFrame, frames, new AT_TimeWarpSeq(scene, 1.0, double(frames)));
    PIO_MetadataAccess<PKC_SceneInfo>(scene->metadatas(), QString())
        .getOrCreate()
        ->name()
        .setValue(QString::fromStdString(name));
    return true;
}

bool Storyboard::liftShot(unsigned int shot)
{
    return timeline().removeBlock(shotBlock(shot).key);
}

bool Storyboard::moveShots(unsigned int shot, int delta)
{
    const AT_FrameBlock block = shotBlock(shot);
    return block.isValid() && timeline().moveBlocks(block.fromFrame(), delta);
}

bool Storyboard::trimShot(unsigned int shot, unsigned int fromFrame, unsigned int frames)
{
    return timeline().setBlockRange(shotBlock(shot).key, fromFrame, frames);
}

bool Storyboard::canResize(unsigned int shot, long long frames) const
{
    const AT_FrameBlock block = shotBlock(shot);
    return block.isValid() && frames >= 1 && !timeline().previousBlock(block.key).key.isTransition
        && !timeline().nextBlock(block.key).key.isTransition;
}

void Storyboard::resizeShot(unsigned int shot, unsigned int frames)
{
    resizeBlock(timeline(), shotBlock(shot), frames);
}

bool Storyboard::addPanel(unsigned int shot, unsigned int frames)
{
    TUSeqTimedValue *const track = panelTrack(shot);
    const unsigned int shotFrames = shotBlock(shot).key.frameCount;
    if (!track || frames == 0 || !canResize(shot, (long long)(shotFrames) + frames))
        return false;
    placePanel(shot, track->nFrames() + 1, frames);
    resizeShot(shot, shotFrames + frames);
    return true;
}

bool Storyboard::placePanel(unsigned int shot, unsigned int tvFrame, unsigned int frames)
{
    TUSeqTimedValue *const track = panelTrack(shot);
    if (!track || !isFree(*track, tvFrame, frames))
        return false;
    return insertOrDelete(*track, tvFrame, frames, new AT_TimeWarpSeq(sceneProject().addScene(), 1.0, double(frames)));
}

bool Storyboard::setPanelLength(unsigned int shot, unsigned int panel, unsigned int frames)
{
    const AT_FrameBlock block = panelBlock(shot, panel);
    const long long shotFrames = (long long)(shotBlock(shot).key.frameCount) + frames - block.key.frameCount;
    if (!block.isValid() || frames == 0 || !canResize(shot, shotFrames))
        return false;
    resizeBlock(*panelTrack(shot), block, frames);
    resizeShot(shot, static_cast<unsigned int>(shotFrames));
    return true;
}

bool Storyboard::removePanel(unsigned int shot, unsigned int panel)
{
    const AT_FrameBlock block = panelBlock(shot, panel);
    const long long shotFrames = (long long)(shotBlock(shot).key.frameCount) - block.key.frameCount;
    if (!block.isValid())
        return false;
    if (panelTrack(shot)->blockCount() == 1)
        return canResize(shot, 1) && liftShot(shot);
    if (!canResize(shot, shotFrames))
        return false;
    const AT_FrameBlock next = panelTrack(shot)->nextBlock(block.key);
    panelTrack(shot)->removeBlock(block.key);
    if (next.isValid())
        panelTrack(shot)->moveBlocks(next.fromFrame(), -int(block.key.frameCount));
    resizeShot(shot, static_cast<unsigned int>(shotFrames));
    return true;
}

bool Storyboard::liftPanel(unsigned int shot, unsigned int panel)
{
    return panelTrack(shot) && panelTrack(shot)->removeBlock(panelBlock(shot, panel).key);
}

bool Storyboard::rollPanels(unsigned int shot, unsigned int panel, int delta)
{
    const AT_FrameBlock left = panelBlock(shot, panel);
    const AT_FrameBlock right = panelBlock(shot, panel + 1);
    if (!left.isValid() || !right.isValid() || left.toFrame() + 1 != right.fromFrame()
        || int(left.key.frameCount) + delta < 1 || int(right.key.frameCount) - delta < 1)
        return false;
    const unsigned int leftFrames = static_cast<unsigned int>(int(left.key.frameCount) + delta);
    const unsigned int rightFrames = static_cast<unsigned int>(int(right.key.frameCount) - delta);
    TUSeqTimedValue *const track = panelTrack(shot);
    if (delta < 0)
        track->setBlockRange(left.key, left.fromFrame(), leftFrames);
    track->setBlockRange(right.key, left.fromFrame() + leftFrames, rightFrames);
    if (delta > 0)
        track->setBlockRange(left.key, left.fromFrame(), leftFrames);
    return true;
}

bool Storyboard::addTransition(unsigned int shot, unsigned int framesBeforeCut, unsigned int framesAfterCut)
{
    const AT_FrameBlock second = shotBlock(shot + 1);
    if (!second.isValid())
        return false;
    auto *const transition =
        new AT_TransitionSeq(sceneProject().projectCommon()->createId(), AT_TransitionSeq::Dissolve);
    if (timeline().insertTransition(second.fromFrame(), framesBeforeCut, framesAfterCut, transition))
        return true;
    delete transition;
    return false;
}

bool Storyboard::removeTransition(unsigned int transition)
{
    return timeline().removeTransition(transitionBlock(transition).key);
}

bool Storyboard::setShotWarp(unsigned int shot, double start, double end)
{
    return setWarp(shotBlock(shot), start, end);
}

bool Storyboard::setPanelWarp(unsigned int shot, unsigned int panel, double start, double end)
{
    return setWarp(panelBlock(shot, panel), start, end);
}

bool Storyboard::deleteShotScene(unsigned int shot)
{
    return shotScene(shot) && sceneProject().removeScene(shotScene(shot));
}

bool Storyboard::deletePanelScene(unsigned int shot, unsigned int panel)
{
    return panelScene(shot, panel) && sceneProject().removeScene(panelScene(shot, panel));
}

bool Storyboard::deletePanelTrack(unsigned int shot)
{
    return panelTrack(shot) && shotScene(shot)->removeTimedValue(panelTrack(shot));
}

bool Storyboard::nameShot(unsigned int shot, const std::string &name)
{
    TUScene *const scene = shotScene(shot);
    if (!scene)
        return false;
    PKC_ObjectName &given = PIO_MetadataAccess<PKC_SceneInfo>(scene->metadatas(), QString()).getOrCreate()->name();
    given.setValue(QString::fromStdString(name));
    given.setFlag(given.flag() | PKC_ObjectName::customBit);
    return true;
}

bool Storyboard::namePanel(unsigned int shot, unsigned int panel, const std::string &name, bool locked)
{
    TUScene *const scene = panelScene(shot, panel);
    if (!scene)
        return false;
    PKC_ObjectName &given = PIO_MetadataAccess<PKC_ClipInfo>(scene->metadatas(), QString()).getOrCreate()->name();
    given.setValue(QString::fromStdString(name));
    given.setFlag(PKC_ObjectName::customBit | (locked ? PKC_ObjectName::lockedBit : 0));
    return true;
}
