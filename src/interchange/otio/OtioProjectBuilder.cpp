#include "interchange/otio/OtioProjectBuilder_p.h"

#include "interchange/ImportNotes_p.h"
#include "interchange/otio/OtioNode_p.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_SceneInfo.h"
#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/metadata/PIO_MetadataString.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

#include <memory>

namespace
{

/// A name that somebody gave; without a text it is one to be made up.
void setCustomName(PKC_ObjectName &name, const QString &text)
{
    name.setValue(text);
    name.setFlag(text.isEmpty() ? 0 : PKC_ObjectName::customBit);
}

void addShotRecords(TUScene &scene, const OtioShotPlan &shot)
{
    auto *const info = new PKC_SceneInfo;
    setCustomName(info->name(), shot.name);
    setCustomName(info->sequenceName(), shot.sequence);
    setCustomName(info->actName(), shot.act);
    scene.metadatas()->add(info);
}

void addClipName(TUScene &scene, const QString &name)
{
    if (name.isEmpty())
        return;
    auto *const info = new PKC_ClipInfo;
    setCustomName(info->name(), name);
    scene.metadatas()->add(info);
}

void addRecords(PIO_Metadatas &records, const std::vector<OtioRecordPlan> &planned)
{
    for (const OtioRecordPlan &each : planned) {
        auto *const record = new PIO_MetadataString(each.name);
        record->setValue(each.text);
        records.add(record);
    }
}

void addEnabled(TUScene &scene, bool enabled)
{
    if (enabled)
        return;
    auto *const record = new PIO_MetadataBool(QStringLiteral("enabled"));
    record->setValue(false);
    scene.metadatas()->add(record);
}

/// The layer that shows what the timed value drives, in front of all others.
MO_ElementModule *addLayer(TUScene &scene, TUSeqTimedValue &timedValue)
{
    auto *const layer = new MO_ElementModule(scene.sceneCommon(), timedValue.getName());
    const UT_SharedPtr<MO_Node> held(layer);
    TUGroup &group = *scene.getRootGroup();
    group.addNode(held, group.subNodesBegin() == group.subNodesEnd() ? nullptr : group.subNodesBegin()->get());
    timedValue.linkNode(layer);
    return layer;
}

} // namespace

OtioProjectBuilder::OtioProjectBuilder(SC_Project &project, ImportNotes &notes) :
    m_project(project), m_notes(notes), m_top(static_cast<TUScene *>(project.sceneAt(0))),
    m_timeline(sceneMainTv(m_top))
{
}

void OtioProjectBuilder::build(const OtioPlan &plan)
{
    m_project.projectCommon()->setFrameRate(plan.rate);
    m_project.projectCommon()->setStartTimecode(plan.startTimecode);
    nameTimeline(plan.timelineName);
    addRecords(*m_project.metadatas(), plan.records);

    // A transition as soon as both its shots stand: later it would move all that follows it.
    auto transition = plan.transitions.begin();
    for (std::size_t i = 0; i < plan.shots.size(); ++i) {
        addShot(plan.shots[i]);
        for (; transition != plan.transitions.end() && transition->before < i; ++transition)
            addTransition(*transition);
    }
    qsizetype number = 2; // the timeline is the first
    for (const OtioTrackPlan &track : plan.videoTracks)
        addVideoTrack(track, number++);
    number = 1;
    for (const OtioTrackPlan &track : plan.soundTracks)
        addSoundTrack(track, number++);
}

void OtioProjectBuilder::nameTimeline(const QString &name)
{
    if (!name.isEmpty()) {
        m_timeline->setName(name);
        if (MO_Node *const layer = m_timeline->linkedNodes(0))
            layer->setInstanceName(name);
    }
    newLayerName(m_timeline->getName());
}

void OtioProjectBuilder::addShot(const OtioShotPlan &shot)
{
    const unsigned int frameCount = shot.lastFrameBetweenCuts - shot.firstFrameBetweenCuts + 1;
    TUScene *const scene = placeScene(*m_timeline, shot.firstFrameBetweenCuts, frameCount);
    if (!scene) {
        noteRefused(OtioText::tr("shot"), shot.name, shot.firstFrameBetweenCuts);
        return;
    }
    addShotRecords(*scene, shot);
    addEnabled(*scene, shot.enabled);
    addRecords(*scene->metadatas(), shot.records);
    addPanels(shot, *scene);
}

void OtioProjectBuilder::addPanels(const OtioShotPlan &shot, TUScene &shotScene)
{
    TUSeqTimedValue *const panels = shotScene.addSeqTimedValue(QStringLiteral("Panels"));
    addLayer(shotScene, *panels);
    for (const OtioPanelPlan &panel : shot.panels) {
        if (TUScene *const scene = placeScene(*panels, panel.firstFrame, panel.frameCount())) {
            addClipName(*scene, panel.name);
            addEnabled(*scene, panel.enabled);
            addRecords(*scene->metadatas(), panel.records);
        } else {
            noteRefused(OtioText::tr("panel"), panel.name, panel.firstFrame);
        }
    }
}

void OtioProjectBuilder::addTransition(const OtioTransitionPlan &transition)
{
    auto seq =
        std::make_unique<AT_TransitionSeq>(m_project.projectCommon()->createId(), int(AT_TransitionSeq::Dissolve));
    if (m_timeline->insertTransition(
            transition.cutFrame, transition.framesBeforeCut, transition.framesAfterCut, seq.get()))
        seq.release();
    else
        noteRefused(OtioText::tr("transition"), QString(), transition.firstFrame());
}

void OtioProjectBuilder::addVideoTrack(const OtioTrackPlan &track, qsizetype number)
{
    const QString wanted = track.name.isEmpty() ? QStringLiteral("Video %1").arg(number) : track.name;
    const QString name = newLayerName(wanted);
    if (name != wanted) {
        m_notes.change("track-renamed", OtioText::brief(wanted),
            OtioText::tr("another video track has that name; it is called %1").arg(OtioText::brief(name)));
    }
    TUSeqTimedValue *const clips = m_top->addSeqTimedValue(name);
    addLayer(*m_top, *clips)->setEnabled(track.enabled);
    for (const OtioClipPlan &clip : track.clips) {
        if (TUScene *const scene = placeScene(*clips, clip.firstFrame, clip.frameCount())) {
            addClipName(*scene, clip.name);
            addEnabled(*scene, clip.enabled);
            addRecords(*scene->metadatas(), clip.records);
        } else {
            noteRefused(OtioText::tr("clip"), clip.name, clip.firstFrame);
        }
    }
}

void OtioProjectBuilder::addSoundTrack(const OtioTrackPlan &track, qsizetype number)
{
    const QString name = track.name.isEmpty() ? QStringLiteral("Sound %1").arg(number) : track.name;
    TUSoundTimedValue *const sounds = m_top->addSoundTimedValue(name);
    sounds->muted = !track.enabled;
    for (const OtioClipPlan &clip : track.clips) {
        if (sounds->addSound(clip.firstFrame, clip.lastFrame, clip.name).isNull())
            noteRefused(OtioText::tr("sound"), clip.name, clip.firstFrame);
    }
}

TUScene *OtioProjectBuilder::placeScene(TUSeqTimedValue &timeline, unsigned int firstFrame, unsigned int frameCount)
{
    TUScene *const scene = m_project.addScene();
    auto warp = std::make_unique<AT_TimeWarpSeq>(scene, 1.0, double(frameCount));
    if (!timeline.insertBlock(firstFrame, frameCount, warp.get())) {
        m_project.removeScene(scene);
        return nullptr;
    }
    warp.release();
    return scene;
}

QString OtioProjectBuilder::newLayerName(const QString &wanted)
{
    QString name = wanted;
    while (m_layerNames.contains(name))
        name = wanted + u' ' + QString::number(m_layerNames[wanted]++);
    m_layerNames.insert(name, 2);
    return name;
}

void OtioProjectBuilder::noteRefused(const QString &what, const QString &name, unsigned int firstFrame)
{
    m_notes.loss("refused",
        OtioText::tr("%1 at frame %2 (%3)").arg(what, QString::number(firstFrame), OtioText::brief(name)),
        OtioText::tr("the timeline does not take it; it is left out"));
}
