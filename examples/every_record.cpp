// Makes a project that holds a record of every kind: every_record <new folder>.
#include "infofields/PKC_ExtraInfoFieldDescList.h"
#include "infofields/PKC_HiddenInfoFieldList.h"
#include "infofields/PKC_InfoFieldList.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"
#include "infofields/PKC_ProjectInfoFieldDescList.h"
#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_DeletedPanels.h"
#include "metadata/PKC_ExposurePoints.h"
#include "metadata/PKC_ProjectCompatibility.h"
#include "metadata/PKC_ProjectLinkInfo.h"
#include "metadata/PKC_ReferenceToolData.h"
#include "metadata/PKC_SceneInfo.h"
#include "metadata/PKC_SoundAnnotation.h"
#include "naming/PKC_NamingRules.h"
#include "pdf/PKC_PdfOptions.h"
#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"
#include "scene/metadata/PIO_MetadataAccess.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "tracking/PKC_Tracking.h"

#include <QCoreApplication>
#include <QDir>

#include <limits>
#include <memory>

namespace
{

constexpr int atTheEnd = std::numeric_limits<int>::max();

const QDateTime someDay(QDate(2024, 2, 29), QTime(9, 30), Qt::UTC);

/// The one record of its kind, made when it is not there.
template <typename Record>
Record &record(PIO_Metadatas *records)
{
    return *PIO_MetadataAccess<Record>(records, QString()).getOrCreate();
}

/// A second video track with one clip; gives the clip's scene.
TUScene *addClip(SC_Project &scenes)
{
    TUScene *const clip = scenes.addScene();
    auto *const top = static_cast<TUScene *>(scenes.sceneAt(0));
    top->addSeqTimedValue(QStringLiteral("V2"))->insertBlock(1, 48, new AT_TimeWarpSeq(clip, 1.0, 48.0));
    return clip;
}

/// A shot of two panels, which show the scenes' one drawing layer.
void addShot(SC_Project &scenes)
{
    TUScene *const shot = scenes.addScene();
    TUSeqTimedValue *const panels = shot->addSeqTimedValue(QStringLiteral("Panels"));
    for (const unsigned int fromFrame : {1U, 25U}) {
        TUScene *const panel = scenes.addScene();
        panel->getRootGroup()->addNode(
            UT_SharedPtr<MO_Node>(new MO_ElementModule(panel->sceneCommon(), QStringLiteral("Ink"))));
        panels->insertBlock(fromFrame, 24, new AT_TimeWarpSeq(panel, 1.0, 24.0));
    }
    auto *const top = static_cast<TUScene *>(scenes.sceneAt(0));
    auto *const timeline = static_cast<TUSeqTimedValue *>(top->timedValues().front());
    timeline->insertBlock(1, 48, new AT_TimeWarpSeq(shot, 1.0, 48.0));
}

void nameShot(const Plotka::Shot_t &shot)
{
    PKC_SceneInfo &info = *shot.sceneInfo();
    info.name().setValue(QStringLiteral("Rain"));
    info.sequenceName().setValue(QStringLiteral("Night"));
    info.actName().setValue(QStringLiteral("I"));
}

/// The seven records of a panel.
void fillPanel(const Plotka::Panel_t &panel, const SC_Id &clip)
{
    panel.clipInfo()->linkVideoClip(clip);
    panel.clipInfo()->name().setValue(QStringLiteral("Window"));
    panel.clipInfo()->name().setFlag(PKC_ObjectName::customBit);

    // Captions are rich text: a plain one would be turned into one when the project is opened.
    panel.infoFieldList()->insertInfoField(PKC_InfoFieldDesc::TEXT, 0,
        QStringLiteral("<html><body><p>She turns to the window.</p></body></html>"), atTheEnd);
    panel.infoFieldList()->insertInfoField(
        PKC_InfoFieldDesc::IMAGE, QStringLiteral("Sketch"), -1, QStringLiteral("sketch-0001"), atTheEnd);

    panel.tracking()->setIsTracked(true);
    panel.tracking()->setTrackingDate(someDay);
    panel.tracking()->setTrackingNote(QStringLiteral("hold longer"));
    panel.exposurePoints()->insertExposurePoint(0.5F);
    panel.layerInfos()->info(QStringLiteral("Ink"), /*create*/ true);
    panel.layerInfos()->setDisplayFlags(QStringLiteral("Ink"), PKC_LayerInfos::DISPLAY_FLAGS(1));
    panel.soundAnnotation()->add(QStringLiteral("sounds/rain.wav"));
    const PKC_Property isExported(QStringLiteral("panel_export_enabled"), QVariant(false), {});
    panel.pdfOptions()->addPdfOptions(&isExported);
}

/// The ten records of a project.
void fillProject(const PKC_PlotkaProject &project, PIO_Metadatas *records)
{
    record<PKC_PanelInfoFieldDescList>(records).add(
        PKC_InfoFieldDesc::TEXT, 0, QStringLiteral("Dialog"), PKC_InfoFieldDesc::DEFAULT, 16);
    record<PKC_ProjectInfoFieldDescList>(records).add(
        PKC_InfoFieldDesc::Type(PKC_InfoFieldDesc::TEXT | PKC_InfoFieldDesc::commentBit), 0, QStringLiteral("Client"),
        PKC_InfoFieldDesc::CUSTOM, 40);
    record<PKC_InfoFieldList>(records).insertInfoField(
        PKC_InfoFieldDesc::TEXT, 0, QStringLiteral("<html><body><p>The harbour</p></body></html>"), atTheEnd);
    record<PKC_ExtraInfoFieldDescList>(records).emplace_back(
        PKC_InfoFieldDesc::IMAGE, QStringLiteral("Sketch"), atTheEnd);
    record<PKC_HiddenInfoFieldList>(records).insert(QStringLiteral("Slugging"));

    project.namingRules()->setOverloadingPref(true);
    project.namingRules()->shotRules().setAutoIncrementRule(PKC_NamingRules::IncrementByN);
    project.referenceToolData()->setPos(Math::Point2d(0.25, -0.5));
    project.deletedPanels()->add(SC_Id(4711), someDay);
    project.projectLinkInfo()->link(QStringLiteral("lantern_harbour"), someDay);
    project.projectCompatibility()->addCompatibilityIssue(
        {QStringLiteral("space-between-panels"), QStringLiteral("Plotka Pro"), QStringLiteral("7.0.0")});
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("plotka"));
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1])))
        return 1;
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    session->newProject(folder, QStringLiteral("every_record"));
    addShot(*session->project());
    const TUScene *const clip = addClip(*session->project());
    session->createPlotkaProject(session->project());
    const PKC_PlotkaProject &project = *session->plotkaProject();
    nameShot(project.getShotByNdx(0));
    for (auto panel = project.beginPanel(); panel != project.endPanel(); ++panel)
        fillPanel(*panel, clip->objectId());
    fillProject(project, session->project()->metadatas());
    const bool isSaved = session->saveProject();
    session->releaseProject();
    return isSaved ? 0 : 1;
}
