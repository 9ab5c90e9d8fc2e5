#include "support/SampleProject.h"

#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/metadata/PIO_MetadataDouble.h"
#include "scene/metadata/PIO_MetadataInt.h"
#include "scene/metadata/PIO_MetadataString.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/MO_Port.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"
#include "support/ProjectText.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

template <typename T, typename V>
void addValue(PIO_Metadatas &records, const char *name, const V &value)
{
    auto *record = new T(QString::fromLatin1(name), QStringLiteral("sample"), QStringLiteral("1.0"));
    record->setValue(value);
    records.add(record);
}

void addRecords(PIO_Metadatas &records)
{
    addValue<PIO_MetadataString>(records, "words", QString::fromUtf8("Żółw said: \"<go & stop>\"\n\ttwice"));
    addValue<PIO_MetadataInt>(records, "number", -5);
    addValue<PIO_MetadataDouble>(records, "fraction", 0.1);
    addValue<PIO_MetadataBool>(records, "enabled", false);
    records.add(new PIO_MetadataInt(QStringLiteral("unset"), QStringLiteral("sample"), QStringLiteral("1.0")));
    records.add(new PIO_MetadataUnknown(QStringLiteral("weather"), QString(), QStringLiteral("elsewhere"),
        QStringLiteral("7"), QStringLiteral("\n    <weather sky=\"grey\"><!-- still -->rain</weather>\n  ")));
}

void addShots(SC_Project &project, TUSeqTimedValue &timeline)
{
    const auto shot = [&](unsigned int from, unsigned int frames, double start, double end) {
        TUScene *scene = project.addScene();
        scene->addSeqTimedValue(QStringLiteral("Panels"));
        EXPECT_TRUE(timeline.insertBlock(from, frames, new AT_TimeWarpSeq(scene, start, end)));
        return scene;
    };
    TUScene *first = shot(1, 24, 1, 24);
    shot(25, 36, 0.1, 35.1);
    shot(61, 10, 2, 11);
    shot(80, 20, 1, 40);
    const auto join = [&](unsigned int cut, unsigned int before, unsigned int after, int type, int angle,
                          bool reverse) {
        auto *transition = new AT_TransitionSeq(project.projectCommon()->createId(), type, angle, reverse);
        EXPECT_TRUE(timeline.insertTransition(cut, before, after, transition));
    };
    join(25, 4, 8, AT_TransitionSeq::Dissolve, 0, false);
    join(61, 0, 3, AT_TransitionSeq::EdgeWipe, -45, true);
    EXPECT_TRUE(timeline.insertBlock(120, 5, nullptr));

    TUScene *panel = project.addScene();
    auto *panels = dynamic_cast<TUSeqTimedValue *>(first->timedValues().front());
    EXPECT_TRUE(panels->insertBlock(3, 10, new AT_SceneSeq(panel)));
    TUScene *gone = project.addScene();
    EXPECT_TRUE(panels->insertBlock(13, 2, new AT_TimeWarpSeq(gone, 1, 2)));
    EXPECT_TRUE(project.removeScene(gone));
}

void addNodes(TUScene &scene, TUSeqTimedValue &timeline)
{
    TUGroup &root = *scene.getRootGroup();
    SC_SceneCommon *common = scene.sceneCommon();
    const UT_SharedPtr<MO_Node> peg(new MO_AnimatedModule(common, QStringLiteral("PEG"), QStringLiteral("peg")));
    const UT_SharedPtr<MO_Node> inner(new TUGroup(common, QStringLiteral("inner")));
    const UT_SharedPtr<MO_Node> module(new MO_Module(common, QStringLiteral("BLUR"), QStringLiteral("blur")));
    const UT_SharedPtr<MO_Node> plain(new MO_Node(common, QStringLiteral("NOTE"), QStringLiteral("note")));
    auto *layer = new MO_ElementModule(common, QStringLiteral("layer \"1\""));
    const UT_SharedPtr<MO_Node> element(layer);
    root.addNode(element);
    root.addNode(peg);
    root.addNode(inner);
    root.addNode(plain);
    auto *group = dynamic_cast<TUGroup *>(inner.get());
    group->addNode(module);
    auto *hidden = new MO_ElementModule(common, QStringLiteral("hidden"));
    group->addNode(hidden);
    element->setParentNode(peg.get());
    layer->setLineArtDrawingMode(2);
    layer->setCameraAlignment(AT_Enums::LockToCamera);
    dynamic_cast<MO_AnimatedModule &>(*peg).setCameraAlignment(AT_Enums::CenterFirstPage);
    peg->setCollapsed(true);
    inner->setLocked(true);
    module->setEnabled(false);
    root.setInstanceName(QStringLiteral("Root"));
    EXPECT_TRUE(plain->inPort(0)->connect(module->outPort()));
    EXPECT_TRUE(timeline.linkNode(hidden));
    EXPECT_TRUE(timeline.linkNode(layer));
    // A child that is fed by nobody.
    hidden->setParentNode(module.get());
    EXPECT_TRUE(hidden->inPort(0)->disconnect());
    EXPECT_TRUE(scene.unconnectedComposite()->inPort(0)->connect(inner->outPort()));
    scene.unconnectedComposite()->firstAttribute()->setBool(true);
}

} // namespace

void fillWithEverything(SC_Project &project)
{
    project.projectCommon()->setFrameRate(UT_FrameRate(24000, 1001));
    project.projectCommon()->setStartTimecode(86400);
    addRecords(*project.metadatas());
    auto &top = dynamic_cast<TUScene &>(*project.sceneAt(0));
    auto &timeline = dynamic_cast<TUSeqTimedValue &>(*top.timedValues().front());
    addShots(project, timeline);
    addNodes(top, timeline);

    TUScene &shot = dynamic_cast<TUScene &>(*project.sceneAt(1));
    addValue<PIO_MetadataBool>(*shot.metadatas(), "enabled", true);
    auto *foreign = new MO_ElementModule(shot.sceneCommon(), QStringLiteral("foreign"));
    shot.getRootGroup()->addNode(foreign);
    EXPECT_TRUE(timeline.linkNode(foreign));
    EXPECT_TRUE(foreign->inPort(0)->connect((*top.getRootGroup()->subNodesBegin())->outPort()));

    TUSoundTimedValue *sounds = top.addSoundTimedValue(QStringLiteral("A1"));
    sounds->addSound(1, 48, QStringLiteral("steps.wav"));
    sounds->addSound(24, 30);
    TUSoundTimedValue *quiet = top.addSoundTimedValue(QStringLiteral("A2"));
    quiet->audible = false;
    quiet->muted = true;
    quiet->setExcluded(true);
}

QByteArray documentOf(const QByteArray &content)
{
    return "<plotka format=\"1\" name=\"p\" nextId=\"100\" rate=\"24\" startTimecode=\"0\">" + content + "</plotka>";
}

std::string readAsText(const QByteArray &text)
{
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project(SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/p.plotka"), report));
    EXPECT_EQ(report.hasErrors(), !project);
    return (project ? textOf(*project) : std::string("no project\n")) + textOf(report);
}
