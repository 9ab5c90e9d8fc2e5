#include "interchange/BuiltProject.h"

#include "metadata/PKC_SceneInfo.h"
#include "project/VideoClip.h"
#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

#include <sstream>

using namespace Plotka;

namespace
{

bool isEnabled(const TUScene &scene)
{
    const auto *record = dynamic_cast<PIO_MetadataBool *>(
        scene.metadatas()->metadata(PIO_MetadataBool::keyword(), QStringLiteral("enabled")));
    return !record || record->valueBool();
}

QString customText(const PKC_ObjectName &name)
{
    EXPECT_EQ(name.isCustom(), !name.value().isEmpty());
    return name.value();
}

void expectWarpFromOne(const AT_FrameBlock &block)
{
    const AT_TimeWarpSeq *warp = AT_TimeWarpSeq::toTimeWarp(block.seq());
    ASSERT_TRUE(warp);
    EXPECT_EQ(warp->start, 1.0);
    EXPECT_EQ(warp->end, block.key.frameCount);
}

// By frame, so that no panel hides behind a gap.
std::vector<OtioPanelPlan> panelsOf(const PKC_PlotkaProject &project, const Shot_t &shot)
{
    std::vector<OtioPanelPlan> panels;
    for (unsigned int shotFrame = 1; shotFrame <= shot.objNumOfFrame();) {
        const Panel_t panel = project.getPanelIn(shot, shotFrame, /*nearest*/ true, /*forward*/ true);
        if (panel.isInvalid() || panel.shot() != shot || panel.relativeFirstFrame() < shotFrame)
            break;
        expectWarpFromOne(panel.frameBlock());
        panels.push_back(
            {panel.name(), isEnabled(*panel.symbol()), panel.relativeFirstFrame(), panel.relativeLastFrame(), {}});
        shotFrame = panel.relativeLastFrame() + 1;
    }
    return panels;
}

void addShots(const PKC_PlotkaProject &project, OtioPlan &plan)
{
    for (auto it = project.beginShot(); it != project.endShot(); ++it) {
        const Shot_t shot = *it;
        expectWarpFromOne(shot.frameBlock());
        OtioShotPlan planned;
        planned.name = customText(shot.sceneInfo()->name());
        planned.act = customText(shot.sceneInfo()->actName());
        planned.sequence = customText(shot.sceneInfo()->sequenceName());
        planned.enabled = isEnabled(*shot.symbol());
        planned.firstFrame = planned.firstFrameBetweenCuts = shot.firstFrame();
        planned.lastFrame = planned.lastFrameBetweenCuts = shot.lastFrame();
        planned.panels = panelsOf(project, shot);
        plan.shots.push_back(planned);
    }
}

void addTransitions(const PKC_PlotkaProject &project, OtioPlan &plan)
{
    for (auto it = project.beginTrans(); it != project.endTrans(); ++it) {
        const Trans_t transition = *it;
        EXPECT_EQ(transition.type(), AT_TransitionSeq::Dissolve);
        OtioTransitionPlan planned;
        planned.before = project.getShotNdx(
            project.getShotAt(transition.firstFrame(), PKC_PlotkaProject::ResolveBackward, false, false));
        planned.framesBeforeCut = transition.transitionSeq()->framesBeforeCut();
        planned.framesAfterCut = transition.objNumOfFrame() - planned.framesBeforeCut;
        planned.cutFrame = transition.firstFrame() + planned.framesBeforeCut;
        ASSERT_LT(planned.before + 1, plan.shots.size());
        plan.shots[planned.before].lastFrameBetweenCuts -= planned.framesAfterCut;
        plan.shots[planned.before + 1].firstFrameBetweenCuts += planned.framesBeforeCut;
        plan.transitions.push_back(planned);
    }
}

OtioTrackPlan clipsOf(MO_Node &layer, TUSeqTimedValue &clips)
{
    EXPECT_EQ(layer.instanceName(), clips.getName());
    OtioTrackPlan track;
    track.name = clips.getName();
    track.enabled = layer.isEnabled();
    for (auto block = clips.beginBlock(); block != clips.endBlock(); ++block) {
        const TUScene *scene = sceneOfBlock(clips.sceneCommon()->projectCommon()->sceneManager(), *block);
        const VideoClip clip(&clips, scene, VideoTrack(&layer, &clips, VideoTrack::TrackVideo));
        EXPECT_TRUE(clip.symbol()->timedValues().empty());
        expectWarpFromOne(clip.frameBlock());
        track.clips.push_back({clip.name(), isEnabled(*scene), clip.firstFrame(), clip.lastFrame(), {}});
    }
    return track;
}

void addTracks(const PKC_PlotkaProject &project, OtioPlan &plan)
{
    const std::vector<MO_Node *> layers = project.topScene()->getRootGroup()->compositionOrder();
    for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
        TUSeqTimedValue *const timedValue = linkedSeqTv(*layer);
        ASSERT_TRUE(timedValue);
        EXPECT_EQ(timedValue == project.topMainTv(), layer == layers.rbegin()) << "the timeline lies at the bottom";
        if (timedValue != project.topMainTv())
            plan.videoTracks.push_back(clipsOf(**layer, *timedValue));
    }
    for (const TUTimedValue *timedValue : project.topScene()->timedValues()) {
        const auto *sounds = dynamic_cast<const TUSoundTimedValue *>(timedValue);
        if (!sounds)
            continue;
        OtioTrackPlan track;
        track.name = sounds->getName();
        track.enabled = !sounds->muted;
        for (const TUSoundTimedValue::Sound &sound : sounds->sounds())
            track.clips.push_back({sound.name, true, sound.fromFrame, sound.toFrame, {}});
        plan.soundTracks.push_back(track);
    }
}

// What a project does not tell: made-up names of tracks, and single sounds that are off.
OtioPlan comparable(OtioPlan plan)
{
    for (OtioTrackPlan &track : plan.videoTracks)
        track.name.clear();
    for (OtioTrackPlan &track : plan.soundTracks) {
        track.name.clear();
        for (OtioClipPlan &clip : track.clips)
            clip.enabled = true;
    }
    return plan;
}

std::string namesAndCuts(const OtioPlan &plan)
{
    std::ostringstream out;
    for (const OtioShotPlan &shot : plan.shots) {
        out << shot.act.toStdString() << '/' << shot.sequence.toStdString() << ' ' << shot.firstFrameBetweenCuts << '-'
            << shot.lastFrameBetweenCuts << '\n';
    }
    return out.str();
}

} // namespace

ImportedCut::ImportedCut(const QByteArray &bytes, const OtioOptions &options) :
    m_session(PKC_SessionContext::createSessionContext(nullptr, nullptr)),
    m_result(OtioImport::importInto(*m_session, bytes, QStringLiteral("/nowhere"), options))
{
    m_session->createPlotkaProject(m_result.project);
}

ImportedCut::ImportedCut(const QJsonObject &cut, const OtioOptions &options) :
    ImportedCut(QJsonDocument(cut).toJson(), options)
{
}

OtioPlan planOf(const PKC_PlotkaProject &project)
{
    OtioPlan plan;
    plan.name = project.name();
    plan.rate = project.projectCommon()->frameRate();
    plan.startTimecode = static_cast<unsigned int>(project.projectCommon()->startTimecode());
    plan.frameCount = project.getNumOfFrames();
    addShots(project, plan);
    addTransitions(project, plan);
    addTracks(project, plan);
    return plan;
}

void expectBuiltAsPlanned(const OtioPlan &plan, const PKC_PlotkaProject &project)
{
    const OtioPlan built = planOf(project);
    EXPECT_EQ(CutText::print(comparable(built)), CutText::print(comparable(plan)));
    EXPECT_EQ(namesAndCuts(built), namesAndCuts(plan));
    EXPECT_EQ(built.rate, plan.rate);
    EXPECT_EQ(built.startTimecode, plan.startTimecode);
    EXPECT_EQ(built.frameCount, plan.shots.empty() ? 0 : plan.shots.back().lastFrame);
}
