#include "support/Printers.h"
#include "support/Records.h"
#include "support/Storyboard.h"

#include "project/ObjectIds.h"

#include "infofields/PKC_InfoFieldList.h"
#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_ExposurePoints.h"
#include "metadata/PKC_SoundAnnotation.h"
#include "pdf/PKC_PdfOptions.h"
#include "project/ObjectNameHelper.h"
#include "project/PanelCacheScope.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "tracking/PKC_Tracking.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>

namespace Plotka
{

/// Looks at what a panel keeps to itself.
class PanelHandleProbe
{
public:
    static bool isRemembering(const Panel_t &panel) { return panel.isUsingFrameBlockCache(); }
    static void remember(const Panel_t &panel, bool on) { panel.useFrameBlockCache(on); }
    static bool hasRemembered(const Panel_t &panel) { return panel.m_cachedBlock.isValid(); }
};

} // namespace Plotka

using namespace Plotka;

namespace
{

class FixedNames : public ObjectNameHelper
{
public:
    QString getPanelName(const Panel_t &panel) const override
    {
        return QStringLiteral("panel at %1").arg(panel.firstFrame());
    }
    QString getSceneName(const Shot_t &) const override { return QString(); }
};

} // namespace

TEST(PanelHandle, IsInvalidByDefaultAndAnswersNeutrally)
{
    const Panel_t none;
    EXPECT_TRUE(none.isInvalid());
    EXPECT_EQ(none, Panel_t::invalid);
    EXPECT_EQ(none.id(), invalidId);
    EXPECT_EQ(none.shot(), Shot_t::invalid);
    EXPECT_TRUE(none.shot().isInvalid());
    EXPECT_EQ(none.firstFrame(), 0u);
    EXPECT_EQ(none.lastFrame(), 0u);
    EXPECT_EQ(none.objNumOfFrame(), 0u);
    EXPECT_EQ(none.symbol(), nullptr);
    EXPECT_EQ(none.node(), nullptr);
    EXPECT_TRUE(none.name().isNull());
    EXPECT_TRUE(none.shotName().isNull());
    EXPECT_EQ(none.sequenceName(), QStringLiteral("0"));
    EXPECT_EQ(none.actName(), QStringLiteral("0"));
    EXPECT_EQ(none.clipInfo(), nullptr);
    EXPECT_EQ(none.sceneId(), SC_Id());
    EXPECT_EQ(none.panelFrameToShotFrame(5.0), 1.0);
    EXPECT_EQ(none.shotFrameToPanelFrame(5.0), 1.0);
}

TEST(PanelHandle, TellsItsPlaceInTheProjectAndInItsShot)
{
    // frame:  1        11          35      47
    //         | (gap)  |A0         |A1     |
    Storyboard board("-10- A(24,12)");
    const Panel_t panel = board->getPanelByNdx(1);
    EXPECT_EQ(panel.firstFrame(), 35u);
    EXPECT_EQ(panel.lastFrame(), 46u);
    EXPECT_EQ(panel.objNumOfFrame(), 12u);
    EXPECT_EQ(panel.relativeFirstFrame(), 25u);
    EXPECT_EQ(panel.relativeLastFrame(), 36u);
    EXPECT_FALSE(panel.isFirstOfShot());
    EXPECT_TRUE(panel.isLastOfShot());
    EXPECT_FALSE(panel.hasMorePKPanelInCurPKScene(/*forward*/ true));
    EXPECT_TRUE(panel.hasMorePKPanelInCurPKScene(/*forward*/ false));
    const Panel_t firstPanel = board->getPanelByNdx(0);
    EXPECT_TRUE(firstPanel.isFirstOfShot());
    EXPECT_FALSE(firstPanel.isLastOfShot());
    EXPECT_TRUE(firstPanel.hasMorePKPanelInCurPKScene(/*forward*/ true));
    EXPECT_FALSE(firstPanel.hasMorePKPanelInCurPKScene(/*forward*/ false));
}

TEST(PanelHandle, CountsProjectFramesOnItsOwnBlockWhateverTheShotShows)
{
    // The shot shows frames 5 to 28 of its panel; the panel's frames do not move with that.
    Storyboard board("-10- A[5..28](40)");
    const Panel_t panel = board->getPanelByNdx(0);
    EXPECT_EQ(panel.firstFrame(), 11u);
    EXPECT_EQ(panel.lastFrame(), 50u);
}

TEST(PanelHandle, KnowsItsShotItsSceneAndTheNodeThatShowsIt)
{
    Storyboard board("A(24,12)");
    MO_ElementModule *const element = new MO_ElementModule(board.shotScene(0)->sceneCommon(), QStringLiteral("track"));
    ASSERT_TRUE(board.shotScene(0)->getRootGroup()->addNode(element));
    ASSERT_TRUE(board.panelTrack(0)->linkNode(element));
    const Panel_t panel = board->getPanelByNdx(1);
    EXPECT_EQ(panel.shot().id(), board.shotId(0));
    EXPECT_EQ(panel.id(), board.panelId(0, 1));
    EXPECT_EQ(panel.symbol(), board.panelScene(0, 1));
    EXPECT_EQ(panel.sceneId(), board.panelScene(0, 1)->sceneId());
    EXPECT_EQ(panel.node(), element);
    EXPECT_EQ(panel.shotName(), QStringLiteral("A"));
}

TEST(PanelHandle, GivesItsSceneTheRecordsItLacksWhenItIsMade)
{
    Storyboard board("A(24)");
    TUScene *const fresh = board.sceneProject().addScene();
    const Panel_t panel(board.panelTrack(0), fresh, board->getShotByNdx(0), nullptr);
    EXPECT_EQ(typesOf(*fresh), "panelInfo infoFields tracking exposurePoints layerInfos soundAnnotation pdfOptions");
    const PIO_Metadata *const records[] = {panel.clipInfo(), panel.infoFieldList(), panel.tracking(),
        panel.exposurePoints(), panel.layerInfos(), panel.soundAnnotation(), panel.pdfOptions()};
    EXPECT_TRUE(std::equal(std::begin(records), std::end(records), fresh->metadatas()->begin()));
    for (const PIO_Metadata *record : records)
        EXPECT_TRUE(record->metaName().isNull());
    const Panel_t again(board.panelTrack(0), fresh, board->getShotByNdx(0), nullptr);
    EXPECT_EQ(again.clipInfo(), panel.clipInfo());
    EXPECT_EQ(again.pdfOptions(), panel.pdfOptions());
    EXPECT_EQ(fresh->metadatas()->end() - fresh->metadatas()->begin(), 7);
}

TEST(PanelHandle, AddsOnlyTheRecordsThatAreMissingAndAsksForNoName)
{
    Storyboard board("A(24)");
    TUScene *const fresh = board.sceneProject().addScene();
    auto *const tracking = new PKC_Tracking(QStringLiteral("named"));
    fresh->metadatas()->add(tracking);
    const Panel_t panel(board.panelTrack(0), fresh, board->getShotByNdx(0), nullptr);
    EXPECT_EQ(panel.tracking(), tracking);
    EXPECT_EQ(typesOf(*fresh), "tracking panelInfo infoFields exposurePoints layerInfos soundAnnotation pdfOptions");
}

TEST(PanelHandle, FindsNoRecordThatWasTakenAwayUntilItIsMadeAgain)
{
    Storyboard board("A(24)");
    TUScene *const scene = board.panelScene(0, 0);
    const Panel_t panel = board->getPanelByNdx(0);
    ASSERT_NE(panel.pdfOptions(), nullptr);
    ASSERT_TRUE(scene->metadatas()->remove(panel.pdfOptions()));
    EXPECT_EQ(panel.pdfOptions(), nullptr);
    EXPECT_NE(panel.soundAnnotation(), nullptr);
    const Panel_t again(board.panelTrack(0), scene, board->getShotByNdx(0), nullptr);
    ASSERT_NE(again.pdfOptions(), nullptr);
    EXPECT_EQ(panel.pdfOptions(), again.pdfOptions());
}

TEST(PanelHandle, OfANullSceneIsValidWithoutAnId)
{
    Storyboard board("A(24)");
    const Panel_t panel(board.panelTrack(0), nullptr, board->getShotByNdx(0), nullptr);
    EXPECT_TRUE(panel.isValid());
    EXPECT_EQ(panel.id(), invalidId);
    EXPECT_EQ(panel.clipInfo(), nullptr);
    EXPECT_FALSE(panel.frameBlock().isValid());
}

TEST(PanelHandle, AnswersNeutrallyOnceItsSceneIsGone)
{
    Storyboard board("A(24,12)");
    const Panel_t panel = board->getPanelByNdx(1);
    const SC_Id id = panel.id();
    ASSERT_EQ(panel.firstFrame(), 25u);
    ASSERT_TRUE(board.deletePanelScene(0, 1));
    EXPECT_TRUE(panel.isValid());
    EXPECT_EQ(panel.id(), id);
    EXPECT_EQ(panel.symbol(), nullptr);
    EXPECT_EQ(panel.clipInfo(), nullptr);
    EXPECT_FALSE(panel.frameBlock().isValid());
    EXPECT_EQ(panel.firstFrame(), 0u);
    EXPECT_EQ(panel.lastFrame(), 0u);
    EXPECT_EQ(panel.panelFrameToShotFrame(3.0), 1.0);
    EXPECT_TRUE(panel.name().isNull());
}

TEST(PanelHandle, AnswersNeutrallyOnceTheTimedValueIsGone)
{
    Storyboard board("A(24,12)");
    const Panel_t panel = board->getPanelByNdx(1);
    ASSERT_EQ(panel.firstFrame(), 25u);
    ASSERT_TRUE(board.deletePanelTrack(0));
    EXPECT_EQ(panel.firstFrame(), 0u);
    EXPECT_EQ(panel.node(), nullptr);
    EXPECT_NE(panel.symbol(), nullptr);
}

TEST(PanelHandle, LooksItsRecordUpAnewWhenTheContainerDroppedIt)
{
    Storyboard board("A(24)");
    const Panel_t panel = board->getPanelByNdx(0);
    ASSERT_TRUE(panel.symbol()->metadatas()->remove(panel.clipInfo()));
    EXPECT_EQ(panel.clipInfo(), nullptr);
    PKC_ClipInfo *const brought = new PKC_ClipInfo;
    panel.symbol()->metadatas()->add(brought);
    EXPECT_EQ(panel.clipInfo(), brought);
}

TEST(PanelHandle, HasItsCustomNameElseThatOfTheHelper)
{
    Storyboard board("A(24,p=12)");
    const FixedNames helper;
    const Panel_t named(board.panelTrack(0), board.panelScene(0, 1), board->getShotByNdx(0), &helper);
    const Panel_t nameless(board.panelTrack(0), board.panelScene(0, 0), board->getShotByNdx(0), &helper);
    EXPECT_EQ(named.name(), QStringLiteral("p"));
    EXPECT_EQ(nameless.name(), QStringLiteral("panel at 1"));
    nameless.clipInfo()->name().setValue(QStringLiteral("not custom"));
    EXPECT_EQ(nameless.name(), QStringLiteral("panel at 1"));
    EXPECT_TRUE(board->getPanelByNdx(0).name().isNull());
}

TEST(PanelHandle, MapsPanelFramesToShotFramesWithinItsTimeWarp)
{
    // Frames 25 to 36 of the shot show 3 to 14 of the panel.
    Storyboard board("A(24,12[3..14])");
    const Panel_t panel = board->getPanelByNdx(1);
    EXPECT_EQ(panel.panelFrameToShotFrame(3.0), 25.0);
    EXPECT_EQ(panel.panelFrameToShotFrame(4.5), 26.5);
    EXPECT_EQ(panel.panelFrameToShotFrame(14.0), 36.0);
    EXPECT_EQ(panel.panelFrameToShotFrame(2.9), 25.0);  // left of the start: the first frame
    EXPECT_EQ(panel.panelFrameToShotFrame(14.1), 36.0); // right of the end: the last frame
    EXPECT_EQ(panel.shotFrameToPanelFrame(25.0), 3.0);
    EXPECT_EQ(panel.shotFrameToPanelFrame(26.5), 4.5);
    EXPECT_EQ(panel.shotFrameToPanelFrame(24.9), 3.0);
    EXPECT_EQ(panel.shotFrameToPanelFrame(36.1), 14.0);
}

TEST(PanelHandle, MapsDifferentlyInBothDirectionsWithoutATimeWarp)
{
    Storyboard board("A(24,12[])");
    const Panel_t panel = board->getPanelByNdx(1);
    for (const double position : {-5.0, 1.0, 26.0, 100.0}) {
        EXPECT_EQ(panel.panelFrameToShotFrame(position), 25.0);
        EXPECT_EQ(panel.shotFrameToPanelFrame(position), 1.0);
    }
}

TEST(PanelHandle, MapsThroughTheShotToProjectFrames)
{
    Storyboard board("-10- A(24,12[3..14])");
    const Panel_t panel = board->getPanelByNdx(1);
    EXPECT_EQ(panel.panelFrameToProjectFrame(3.0), 35u);
    EXPECT_EQ(panel.panelFrameToProjectFrame(4.9), 36u); // cut before it is rounded
    EXPECT_EQ(panel.panelFrameToProjectFrame(99.0), 46u);
    EXPECT_EQ(panel.projectFrameToPanelFrame(35), 3.0);
    EXPECT_EQ(panel.projectFrameToPanelFrame(46), 14.0);
    EXPECT_EQ(
        panel.projectFrameToPanelFrame(5), 14.0); // before the shot the difference wraps and lies right of the end
}

TEST(PanelHandle, IsTheSameWhenMadeAgain)
{
    Storyboard board("A(24,12)");
    const Panel_t once = board->getPanelByNdx(1);
    const Panel_t again(board.panelTrack(0), board.panelScene(0, 1), board->getShotByNdx(0), nullptr);
    EXPECT_EQ(once, again);
    EXPECT_NE(once, board->getPanelByNdx(0));
    EXPECT_EQ(once < board->getPanelByNdx(0), once.id() < board->getPanelByNdx(0).id());
}

TEST(PanelHandle, RemembersItsBlockOnlyWhileTold)
{
    Storyboard board("A(24)");
    const Panel_t panel = board->getPanelByNdx(0);
    EXPECT_FALSE(PanelHandleProbe::isRemembering(panel));
    panel.frameBlock();
    EXPECT_FALSE(PanelHandleProbe::hasRemembered(panel));
    {
        const PanelCacheScope scope(panel);
        EXPECT_TRUE(PanelHandleProbe::isRemembering(panel));
        panel.frameBlock();
        EXPECT_TRUE(PanelHandleProbe::hasRemembered(panel));
        board.trimShot(0, 5, 24);
        board.setPanelLength(0, 0, 10);
        EXPECT_EQ(panel.objNumOfFrame(), 24u); // as remembered
        {
            const PanelCacheScope inner(panel);
        }
        EXPECT_TRUE(PanelHandleProbe::hasRemembered(panel));
    }
    EXPECT_FALSE(PanelHandleProbe::isRemembering(panel));
    EXPECT_FALSE(PanelHandleProbe::hasRemembered(panel));
    EXPECT_EQ(panel.objNumOfFrame(), 10u);
}

TEST(PanelHandle, CopiesWithoutTheRememberedBlock)
{
    Storyboard board("A(24,12)");
    const Panel_t source = board->getPanelByNdx(0);
    PanelHandleProbe::remember(source, true);
    source.frameBlock();

    const Panel_t copy(source);
    EXPECT_FALSE(PanelHandleProbe::isRemembering(copy));
    EXPECT_FALSE(PanelHandleProbe::hasRemembered(copy));

    Panel_t target = board->getPanelByNdx(1);
    PanelHandleProbe::remember(target, true);
    target.frameBlock();
    target = source;
    EXPECT_TRUE(PanelHandleProbe::isRemembering(target)); // the target's own switch
    EXPECT_FALSE(PanelHandleProbe::hasRemembered(target));
    EXPECT_EQ(target.firstFrame(), 1u);

    Panel_t &alias = target;
    target = alias;
    EXPECT_EQ(target, source);
}

TEST(PanelHandle, TakesADeadHelperForNone)
{
    Storyboard board("A(24)");
    std::optional<FixedNames> helper(std::in_place);
    const Panel_t panel(board.panelTrack(0), board.panelScene(0, 0), board->getShotByNdx(0), &*helper);
    ASSERT_EQ(panel.name(), QStringLiteral("panel at 1"));
    helper.reset();
    EXPECT_TRUE(panel.name().isNull());
}

TEST(PanelHandle, SharesItsPrivatePartByCount)
{
    Storyboard board("A(24)");
    using Shared = SharedPtr<PanelPrivate>;
    const Panel_t panel = board->getPanelByNdx(0);
    const Panel_t copy(panel);
    EXPECT_EQ(static_cast<const Shared &>(panel), static_cast<const Shared &>(copy));
    EXPECT_EQ(static_cast<const Shared &>(Panel_t()), static_cast<const Shared &>(Panel_t::invalid));
    const Panel_t other(board.panelTrack(0), board.panelScene(0, 0), board->getShotByNdx(0), nullptr);
    EXPECT_TRUE(static_cast<const Shared &>(panel) != static_cast<const Shared &>(other));
    EXPECT_NE(static_cast<const Shared &>(panel) < static_cast<const Shared &>(other),
        static_cast<const Shared &>(panel) > static_cast<const Shared &>(other));
}
