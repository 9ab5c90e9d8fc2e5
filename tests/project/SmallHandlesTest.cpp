#include "support/Printers.h"
#include "support/Storyboard.h"

#include "project/ObjectIds.h"
#include "project/PanelTrans_t.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/timeline/AT_SceneSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"

#include <gtest/gtest.h>

using namespace Plotka;

TEST(Space, IsInvalidByDefault)
{
    const Space_t none;
    EXPECT_EQ(none, Space_t::invalid);
    EXPECT_EQ(none.firstFrame(), 1u);
    EXPECT_EQ(none.lastFrame(), 0u);
    EXPECT_TRUE(none.isInvalid());
    EXPECT_FALSE(none.isValid());
    EXPECT_FALSE(none.isInShot());
    EXPECT_EQ(none.length(), 0u);
}

TEST(Space, TellsItsLength)
{
    EXPECT_EQ(Space_t(5, 4).length(), 0u);
    EXPECT_EQ(Space_t(5, 5).length(), 1u);
    EXPECT_EQ(Space_t(5, 14).length(), 10u);
    const Space_t endless(5, 0xFFFFFFFF);
    EXPECT_EQ(endless.length(), 0xFFFFFFFFu);
    EXPECT_TRUE(endless.isSpaceAtEnd());
    EXPECT_TRUE(endless.isValid());
    EXPECT_FALSE(Space_t(5, 14).isSpaceAtEnd());
}

TEST(Space, ComparesShotAndFramesAndIsOrderedByFirstFrameAlone)
{
    Storyboard board("A(24)");
    const Shot_t shot = board->getShotByNdx(0);
    const Space_t inShot(shot, 5, 9);
    EXPECT_TRUE(inShot.isInShot());
    EXPECT_EQ(inShot.shot(), shot);
    EXPECT_EQ(inShot, Space_t(shot, 5, 9));
    EXPECT_NE(inShot, Space_t(5, 9));
    EXPECT_NE(inShot, Space_t(shot, 5, 8));
    EXPECT_NE(inShot, Space_t(shot, 4, 9));
    EXPECT_TRUE(Space_t(4, 100) < Space_t(5, 6));
    EXPECT_FALSE(Space_t(5, 6) < Space_t(5, 9));
}

TEST(Track, IsInvalidByDefault)
{
    const VideoTrack none;
    EXPECT_EQ(none, VideoTrack::invalid);
    EXPECT_FALSE(none.isValid());
    EXPECT_FALSE(none.isPanelTrack());
    EXPECT_EQ(none.type(), VideoTrack::TrackNone);
    EXPECT_EQ(none.node(), nullptr);
    EXPECT_EQ(none.tv(), nullptr);
    EXPECT_EQ(VideoTrack::kInvalidIndex, std::size_t(-1));
}

TEST(Track, IsValidWithATypeATimedValueAndANodeDeadOrAlive)
{
    Storyboard board("A(24)");
    TUGroup *const group = board.topScene().getRootGroup();
    const UT_SharedPtr<MO_Node> node(new MO_ElementModule(board.topScene().sceneCommon(), QStringLiteral("V")));
    group->addNode(node);
    TUSeqTimedValue *const tv = board.topScene().addSeqTimedValue(QStringLiteral("V"));
    EXPECT_TRUE(VideoTrack(node.get(), tv, VideoTrack::TrackVideo).isValid());
    EXPECT_FALSE(VideoTrack(node.get(), tv, VideoTrack::TrackNone).isValid());
    EXPECT_FALSE(VideoTrack(node.get(), nullptr, VideoTrack::TrackVideo).isValid());
    EXPECT_FALSE(VideoTrack(nullptr, tv, VideoTrack::TrackVideo).isValid());
    EXPECT_TRUE(VideoTrack(node.get(), tv, VideoTrack::TrackPanel).isPanelTrack());

    MO_Node *const doomed = new MO_ElementModule(board.topScene().sceneCommon(), QStringLiteral("W"));
    VideoTrack track;
    {
        const UT_SharedPtr<MO_Node> held(doomed);
        track = VideoTrack(doomed, tv, VideoTrack::TrackVideo);
    }
    EXPECT_EQ(track.node(), nullptr);
    EXPECT_TRUE(track.isValid());
    board.topScene().removeTimedValue(tv);
    EXPECT_EQ(track.tv(), nullptr);
    EXPECT_FALSE(track.isValid());
}

TEST(Track, IsOrderedByAPlainChainOfThreeTests)
{
    Storyboard board("A(24)");
    MO_Node *nodes[2];
    TUSeqTimedValue *tvs[2];
    UT_SharedPtr<MO_Node> held[2];
    for (int i = 0; i < 2; ++i) {
        held[i] = UT_SharedPtr<MO_Node>(new MO_ElementModule(board.topScene().sceneCommon(), QStringLiteral("V")));
        nodes[i] = held[i].get();
        tvs[i] = board.topScene().addSeqTimedValue(QStringLiteral("V"));
    }
    if (nodes[1] < nodes[0])
        std::swap(nodes[0], nodes[1]);
    if (tvs[1] < tvs[0])
        std::swap(tvs[0], tvs[1]);
    const auto track = [&](MO_Node *node, TUSeqTimedValue *tv, VideoTrack::Type type) {
        return VideoTrack(node, tv, type);
    };
    EXPECT_TRUE(track(nodes[0], tvs[1], VideoTrack::TrackPanel) < track(nodes[1], tvs[0], VideoTrack::TrackVideo));
    // A later field decides even when an earlier one is greater.
    EXPECT_TRUE(track(nodes[1], tvs[0], VideoTrack::TrackPanel) < track(nodes[0], tvs[1], VideoTrack::TrackVideo));
    EXPECT_TRUE(track(nodes[1], tvs[1], VideoTrack::TrackVideo) < track(nodes[0], tvs[0], VideoTrack::TrackPanel));
    EXPECT_FALSE(track(nodes[1], tvs[1], VideoTrack::TrackPanel) < track(nodes[0], tvs[0], VideoTrack::TrackVideo));
    // The node does not count when the right one was never given any.
    EXPECT_FALSE(track(nodes[0], tvs[0], VideoTrack::TrackVideo) < track(nullptr, tvs[0], VideoTrack::TrackVideo));
    EXPECT_TRUE(track(nullptr, tvs[0], VideoTrack::TrackVideo) < track(nodes[0], tvs[0], VideoTrack::TrackVideo));
}

TEST(PanelOrTransition, HoldsOneOfTheTwo)
{
    Storyboard board("A(20) ~2+2~ B(15)");
    const Panel_t panel = board->getPanelByNdx(1);
    const Trans_t transition = board->getTransByNdx(0);
    const PanelTrans_t ofPanel(panel);
    const PanelTrans_t ofTransition(transition);
    EXPECT_TRUE(PanelTrans_t().isInvalid());
    EXPECT_EQ(PanelTrans_t(), PanelTrans_t::invalid);
    EXPECT_TRUE(ofPanel.isPanel());
    EXPECT_FALSE(ofPanel.isTrans());
    EXPECT_TRUE(ofTransition.isTrans());
    EXPECT_FALSE(ofTransition.isPanel());
    EXPECT_EQ(ofPanel.firstFrame(), panel.firstFrame());
    EXPECT_EQ(ofPanel.lastFrame(), panel.lastFrame());
    EXPECT_EQ(ofPanel.frameBlock().key, panel.frameBlock().key);
    EXPECT_EQ(ofTransition.firstFrame(), 17u);
    EXPECT_EQ(ofTransition.lastFrame(), 20u);
    EXPECT_EQ(ofTransition.objNumOfFrame(), 4u);
    EXPECT_EQ(ofTransition.frameBlock().key, transition.frameBlock().key);
    EXPECT_EQ(ofTransition.name(), transition.name());
    EXPECT_EQ(ofPanel.name(), panel.name());

    EXPECT_NE(ofPanel, ofTransition);
    EXPECT_NE(ofPanel, PanelTrans_t());
    EXPECT_EQ(ofPanel, PanelTrans_t(board->getPanelByNdx(1)));
    EXPECT_NE(ofPanel, PanelTrans_t(board->getPanelByNdx(0)));
    EXPECT_EQ(ofTransition, PanelTrans_t(board->getTransByNdx(0)));
    EXPECT_TRUE(ofPanel == panel);
    EXPECT_FALSE(ofPanel == transition);
    EXPECT_TRUE(ofTransition == transition);
    EXPECT_TRUE(ofTransition != panel);

    PanelTrans_t assigned;
    assigned = ofTransition;
    EXPECT_EQ(assigned, ofTransition);
    PanelTrans_t &alias = assigned;
    assigned = alias;
    EXPECT_EQ(assigned, ofTransition);
    assigned = ofPanel;
    EXPECT_EQ(assigned, ofPanel);
}

TEST(ObjectId, IsThatOfTheSceneOrTransitionThatABlockPlaces)
{
    Storyboard board("A(20) ~2+2~ B(15) ?4 %5");
    EXPECT_EQ(objectId(static_cast<const TUScene *>(nullptr)), invalidId);
    EXPECT_EQ(objectId(static_cast<const TUSeq *>(nullptr)), invalidId);
    EXPECT_EQ(objectId(AT_FrameBlock()), invalidId);
    EXPECT_EQ(objectId(board.shotScene(0)), board.shotScene(0)->objectId());
    EXPECT_EQ(objectId(board.shotBlock(0)), board.shotScene(0)->objectId());
    EXPECT_EQ(objectId(board.shotBlock(0).seq()), board.shotScene(0)->objectId());
    EXPECT_EQ(objectId(board.transitionBlock(0)), AT_TransitionSeq::toTransition(board.transitionBlock(0).seq())->id);
    EXPECT_TRUE(board.shotBlock(2).isValid());
    EXPECT_EQ(objectId(board.shotBlock(2)), invalidId); // no sequence
    EXPECT_EQ(objectId(board.shotBlock(3)), invalidId); // neither a scene nor a transition
    EXPECT_EQ(&objectId(AT_FrameBlock()), &invalidId);
}
