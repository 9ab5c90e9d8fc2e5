#include "support/Printers.h"
#include "support/Records.h"
#include "support/Storyboard.h"

#include "project/ObjectIds.h"

#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_ExposurePoints.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/timeline/AT_SceneSeq.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "tracking/PKC_Tracking.h"

#include <gtest/gtest.h>

namespace Plotka
{

/// Looks at what a video clip keeps to itself.
class VideoClipProbe
{
public:
    static bool isRemembering(const VideoClip &clip) { return clip.isUsingFrameBlockCache(); }
    static void remember(const VideoClip &clip, bool on) { clip.useFrameBlockCache(on); }
    static bool hasRemembered(const VideoClip &clip) { return clip.m_cachedBlock.isValid(); }
};

} // namespace Plotka

using namespace Plotka;

namespace
{

/// A storyboard and a track beside it with one clip over frames 11 to 30 that shows 1 to 20.
class ClipHandles : public ::testing::Test
{
protected:
    ClipHandles() : board("A(24,12)")
    {
        track = board.topScene().addSeqTimedValue(QStringLiteral("V1"));
        scene = board.sceneProject().addScene();
        EXPECT_TRUE(track->insertBlock(11, 20, new AT_TimeWarpSeq(scene, 1.0, 20.0)));
        board.notify();
    }

    void addElement(const QString &name)
    {
        scene->getRootGroup()->addNode(new MO_ElementModule(scene->sceneCommon(), name));
    }

    Storyboard board;
    TUSeqTimedValue *track;
    TUScene *scene;
};

} // namespace

TEST(VideoClipHandle, IsInvalidByDefaultAndAnswersNeutrally)
{
    const VideoClip none;
    EXPECT_TRUE(none.isInvalid());
    EXPECT_EQ(none, VideoClip::invalid);
    EXPECT_EQ(none.id(), invalidId);
    EXPECT_EQ(none.symbol(), nullptr);
    EXPECT_EQ(none.tv(), nullptr);
    EXPECT_TRUE(none.track().isInvalid());
    EXPECT_EQ(none.firstFrame(), 0u);
    EXPECT_EQ(none.objNumOfFrame(), 0u);
    EXPECT_TRUE(none.name().isNull());
    EXPECT_EQ(none.clipInfo(), nullptr);
    EXPECT_EQ(none.videoClipFrameToProjectFrame(7.0), 1u);
    EXPECT_EQ(none.projectFrameToVideoClipFrame(7), 1.0);
}

TEST_F(ClipHandles, VideoClipTellsItsPlace)
{
    const VideoClip clip(track, scene, VideoTrack());
    EXPECT_EQ(clip.firstFrame(), 11u);
    EXPECT_EQ(clip.lastFrame(), 30u);
    EXPECT_EQ(clip.objNumOfFrame(), 20u);
    EXPECT_EQ(clip.id(), scene->objectId());
    EXPECT_EQ(clip.sceneId(), scene->sceneId());
    EXPECT_EQ(clip.tv(), track);
    EXPECT_EQ(clip.symbol(), scene);
}

TEST_F(ClipHandles, VideoClipOfANullSceneHasTheNullId)
{
    const VideoClip clip(track, nullptr, VideoTrack());
    EXPECT_TRUE(clip.isValid());
    EXPECT_EQ(clip.id(), SC_Id());
    EXPECT_EQ(clip.clipInfo(), nullptr);
}

TEST_F(ClipHandles, VideoClipGivesItsSceneTheRecordsItLacks)
{
    EXPECT_EQ(scene->metadatas()->begin(), scene->metadatas()->end());
    const VideoClip clip(track, scene, VideoTrack());
    EXPECT_EQ(typesOf(*scene), "tracking panelInfo");
    EXPECT_TRUE(scene->metadatas()->contains(clip.clipInfo()));
    EXPECT_TRUE(scene->metadatas()->contains(clip.tracking()));
}

TEST_F(ClipHandles, ClipGivesItsSceneTheRecordsItLacks)
{
    const VideoClip video(track, scene, VideoTrack());
    const Clip ofVideo(video);
    EXPECT_EQ(typesOf(*scene), "tracking panelInfo layerInfos exposurePoints");
    EXPECT_TRUE(scene->metadatas()->contains(ofVideo.layerInfos()));
    EXPECT_TRUE(scene->metadatas()->contains(ofVideo.exposurePoints()));
    const Clip copy(ofVideo);
    EXPECT_EQ(copy.layerInfos(), ofVideo.layerInfos());

    const Panel_t panel = board->getPanelByNdx(0);
    const Clip ofPanel(panel);
    EXPECT_EQ(ofPanel.layerInfos(), panel.layerInfos());
    EXPECT_EQ(ofPanel.exposurePoints(), panel.exposurePoints());
    EXPECT_EQ(Clip().layerInfos(), nullptr);
    EXPECT_EQ(Clip().exposurePoints(), nullptr);
}

TEST_F(ClipHandles, ClipThatIsAssignedAddsNoRecord)
{
    const Clip clip(board->getPanelByNdx(0));
    ASSERT_TRUE(board.panelScene(0, 0)->metadatas()->remove(clip.layerInfos()));
    Clip other;
    other = clip;
    EXPECT_EQ(clip.layerInfos(), nullptr);
    EXPECT_EQ(other.layerInfos(), nullptr);
    EXPECT_NE(Clip(clip).layerInfos(), nullptr); // a copy does
    EXPECT_NE(other.layerInfos(), nullptr);
}

TEST_F(ClipHandles, SceneOfAPanelAndOfAVideoClipCarriesTheRecordsOfBoth)
{
    const VideoClip video(track, scene, VideoTrack());
    const Panel_t panel(board.panelTrack(0), scene, board->getShotByNdx(0), nullptr);
    const std::string all = "tracking panelInfo infoFields exposurePoints layerInfos soundAnnotation pdfOptions";
    EXPECT_EQ(typesOf(*scene), all);
    EXPECT_EQ(panel.tracking(), video.tracking());
    ASSERT_TRUE(scene->metadatas()->remove(video.tracking()));
    const VideoClip again(track, scene, VideoTrack());
    EXPECT_EQ(typesOf(*scene), "panelInfo infoFields exposurePoints layerInfos soundAnnotation pdfOptions tracking");
    EXPECT_EQ(panel.tracking(), again.tracking());
}

TEST_F(ClipHandles, ClipHasNoRecordsOnceItsSceneIsGone)
{
    const Clip clip(board->getPanelByNdx(1));
    ASSERT_NE(clip.layerInfos(), nullptr);
    ASSERT_TRUE(board.deletePanelScene(0, 1));
    EXPECT_EQ(clip.layerInfos(), nullptr);
    EXPECT_EQ(clip.exposurePoints(), nullptr);
    EXPECT_EQ(Clip(clip).layerInfos(), nullptr);
}

TEST_F(ClipHandles, VideoClipMapsFramesThroughItsTimeWarp)
{
    const VideoClip clip(track, scene, VideoTrack());
    EXPECT_EQ(clip.videoClipFrameToProjectFrame(1.0), 11u);
    EXPECT_EQ(clip.videoClipFrameToProjectFrame(2.4), 12u);
    EXPECT_EQ(clip.videoClipFrameToProjectFrame(2.5), 13u); // halves away from zero
    EXPECT_EQ(clip.videoClipFrameToProjectFrame(-3.0), 11u);
    EXPECT_EQ(clip.videoClipFrameToProjectFrame(99.0), 30u);
    EXPECT_EQ(clip.projectFrameToVideoClipFrame(11), 1.0);
    EXPECT_EQ(clip.projectFrameToVideoClipFrame(30), 20.0);
    EXPECT_EQ(clip.projectFrameToVideoClipFrame(5), 1.0);
    EXPECT_EQ(clip.projectFrameToVideoClipFrame(31), 20.0);
}

TEST_F(ClipHandles, VideoClipWithoutATimeWarpMapsToItsFirstFrameAndToOne)
{
    TUScene *const plain = board.sceneProject().addScene();
    ASSERT_TRUE(track->insertBlock(51, 10, new AT_SceneSeq(plain)));
    const VideoClip clip(track, plain, VideoTrack());
    EXPECT_EQ(clip.videoClipFrameToProjectFrame(5.0), 51u);
    EXPECT_EQ(clip.projectFrameToVideoClipFrame(55), 1.0);
}

TEST_F(ClipHandles, VideoClipTakesItsNameFromItsFirstElementOnceAndForAll)
{
    const VideoClip clip(track, scene, VideoTrack());
    EXPECT_TRUE(clip.name().isNull()); // no element yet
    scene->getRootGroup()->addNode(
        new MO_AnimatedModule(scene->sceneCommon(), QStringLiteral("X"), QStringLiteral("no element")));
    EXPECT_TRUE(clip.name().isNull());
    addElement(QStringLiteral("100%1"));
    EXPECT_EQ(clip.name(), QStringLiteral("100%1"));
    EXPECT_EQ(clip.clipInfo()->name().value(), QStringLiteral("100%1"));
    (*std::prev(scene->getRootGroup()->subNodesEnd()))->setInstanceName(QStringLiteral("renamed"));
    EXPECT_EQ(clip.name(), QStringLiteral("100%1"));
    clip.clipInfo()->name().setValue(QStringLiteral("own"));
    EXPECT_EQ(clip.name(), QStringLiteral("own"));
}

TEST_F(ClipHandles, VideoClipAnswersNeutrallyOnceItsSceneIsGone)
{
    addElement(QStringLiteral("e"));
    const VideoClip clip(track, scene, VideoTrack());
    ASSERT_EQ(clip.firstFrame(), 11u);
    const SC_Id id = clip.id();
    board.sceneProject().removeScene(scene);
    EXPECT_TRUE(clip.isValid());
    EXPECT_EQ(clip.id(), id);
    EXPECT_EQ(clip.symbol(), nullptr);
    EXPECT_EQ(clip.firstFrame(), 0u);
    EXPECT_EQ(clip.clipInfo(), nullptr);
    EXPECT_TRUE(clip.name().isNull());
}

TEST_F(ClipHandles, VideoClipForgetsItsPlaceWithItsTimedValue)
{
    const VideoClip clip(track, scene, VideoTrack());
    ASSERT_EQ(clip.firstFrame(), 11u); // asked before: the place is remembered
    ASSERT_TRUE(board.topScene().removeTimedValue(track));
    EXPECT_EQ(clip.firstFrame(), 0u);
    EXPECT_EQ(clip.lastFrame(), 0u);
    EXPECT_EQ(clip.symbol(), scene) << "the scene stays";
}

TEST_F(ClipHandles, ClipIsAPanelOrAVideoClipOrNone)
{
    const Panel_t panel = board->getPanelByNdx(1);
    const VideoClip video(track, scene, VideoTrack());
    const Clip ofPanel(panel);
    const Clip ofVideo(video);
    EXPECT_TRUE(ofPanel.isValid());
    EXPECT_TRUE(ofPanel.isPanel());
    EXPECT_FALSE(ofPanel.isVideoClip());
    EXPECT_TRUE(ofVideo.isValid());
    EXPECT_FALSE(ofVideo.isPanel());
    EXPECT_TRUE(ofVideo.isVideoClip());
    EXPECT_TRUE(Clip().isInvalid());
    EXPECT_EQ(Clip(), Clip::invalid);
    EXPECT_EQ(Clip(), Clip(Panel_t()));

    EXPECT_NE(ofPanel, ofVideo);
    EXPECT_NE(ofPanel, Clip());
    EXPECT_NE(Clip(), ofVideo);
    EXPECT_EQ(ofPanel, Clip(board->getPanelByNdx(1)));
    EXPECT_NE(ofPanel, Clip(board->getPanelByNdx(0)));
    EXPECT_TRUE(ofPanel == panel);
    EXPECT_FALSE(ofPanel == video);
    EXPECT_TRUE(ofVideo == video);
    EXPECT_TRUE(ofVideo != panel);
}

TEST_F(ClipHandles, ClipAnswersForWhatItHolds)
{
    const Clip ofPanel(board->getPanelByNdx(1));
    const Clip ofVideo(VideoClip(track, scene, VideoTrack()));
    EXPECT_EQ(ofPanel.firstFrame(), 25u);
    EXPECT_EQ(ofPanel.lastFrame(), 36u);
    EXPECT_EQ(ofPanel.objNumOfFrame(), 12u);
    EXPECT_EQ(ofPanel.symbol(), board.panelScene(0, 1));
    EXPECT_EQ(ofPanel.sceneId(), board.panelScene(0, 1)->sceneId());
    EXPECT_EQ(ofPanel.id(), board.panelId(0, 1));
    EXPECT_EQ(ofVideo.firstFrame(), 11u);
    EXPECT_EQ(ofVideo.lastFrame(), 30u);
    EXPECT_EQ(ofVideo.symbol(), scene);
    EXPECT_EQ(ofVideo.sceneId(), scene->sceneId());
    EXPECT_TRUE(ofPanel.isInRange(25));
    EXPECT_TRUE(ofPanel.isInRange(36));
    EXPECT_FALSE(ofPanel.isInRange(24));
    EXPECT_FALSE(ofPanel.isInRange(37));
    EXPECT_TRUE(ofVideo.isInRange(11));
    EXPECT_FALSE(ofVideo.isInRange(31));
    EXPECT_EQ(ofPanel.clipFrameToProjectFrame(2.0), 26u);
    EXPECT_EQ(ofPanel.projectFrameToClipFrame(26), 2u);
    EXPECT_EQ(ofVideo.clipFrameToProjectFrame(2.0), 12u);
    EXPECT_EQ(ofVideo.projectFrameToClipFrame(12), 2u);
    EXPECT_EQ(Clip().objNumOfFrame(), 1u);
}

TEST_F(ClipHandles, ClipCopiesItsBody)
{
    Clip clip(board->getPanelByNdx(0));
    const Clip copy(clip);
    clip = VideoClip(track, scene, VideoTrack());
    EXPECT_TRUE(clip.isVideoClip());
    EXPECT_TRUE(copy.isPanel());
    clip = board->getPanelByNdx(1);
    EXPECT_TRUE(clip.isPanel());
    Clip &alias = clip;
    clip = alias;
    EXPECT_EQ(clip, board->getPanelByNdx(1));
    clip = Clip();
    EXPECT_TRUE(clip.isInvalid());
}

TEST_F(ClipHandles, VideoClipRemembersItsBlockOnlyWhileTold)
{
    const VideoClip clip(track, scene, VideoTrack());
    VideoClipProbe::remember(clip, true);
    ASSERT_EQ(clip.firstFrame(), 11u);
    ASSERT_TRUE(track->setBlockRange(clip.frameBlock().key, 15, 20));
    EXPECT_EQ(clip.firstFrame(), 11u); // as remembered
    const VideoClip copy(clip);
    EXPECT_FALSE(VideoClipProbe::isRemembering(copy));
    EXPECT_EQ(copy.firstFrame(), 15u);
    VideoClip target;
    VideoClipProbe::remember(target, true);
    target = clip;
    EXPECT_TRUE(VideoClipProbe::isRemembering(target));
    EXPECT_FALSE(VideoClipProbe::hasRemembered(target));
    EXPECT_EQ(target.firstFrame(), 15u);
    VideoClipProbe::remember(clip, false);
    EXPECT_FALSE(VideoClipProbe::hasRemembered(clip));
    EXPECT_EQ(clip.firstFrame(), 15u);
}

TEST_F(ClipHandles, ClipCutsTheFrameOfItsInnerRange)
{
    TUScene *const slow = board.sceneProject().addScene();
    ASSERT_TRUE(track->insertBlock(51, 10, new AT_TimeWarpSeq(slow, 1.0, 5.5)));
    const Clip clip(VideoClip(track, slow, VideoTrack()));
    EXPECT_EQ(clip.videoClip().projectFrameToVideoClipFrame(52), 1.5);
    EXPECT_EQ(clip.projectFrameToClipFrame(52), 1u);
    EXPECT_EQ(clip.projectFrameToClipFrame(60), 5u);
}

TEST(ClipOfAPanel, IsNotInRangeBeforeItsShot)
{
    Storyboard board("-10- A(24,12)");
    const Clip clip(board->getPanelByNdx(0));
    EXPECT_FALSE(clip.isInRange(10));
    EXPECT_FALSE(clip.isInRange(0));
    EXPECT_TRUE(clip.isInRange(11));
}
