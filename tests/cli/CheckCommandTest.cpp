#include "cli/CommandRun.h"
#include "support/Storyboard.h"

#include "infofields/PKC_InfoFieldList.h"
#include "infofields/PKC_PanelInfoFieldDescList.h"
#include "infofields/PKC_ProjectInfoFieldDescList.h"
#include "layers/PKC_LayerInfos.h"
#include "metadata/PKC_ClipInfo.h"
#include "metadata/PKC_ProjectCompatibility.h"
#include "naming/PKC_NamingRules.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/TUGroup.h"
#include "scene/timeline/AT_SceneSeq.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <QFile>
#include <QJsonArray>

#include <gtest/gtest.h>

#include <limits>

namespace
{

/// A storyboard of one panel, and what `plotka check` finds in it.
class CheckCommand : public ::testing::Test
{
protected:
    /// The findings as "code item: message", one a line.
    std::string findings(int exitCode)
    {
        const QString file = folder.save(board);
        const QByteArray before = contentOf(file);
        const CommandRun run = runPlotka({QStringLiteral("check"), file, QStringLiteral("--json")});
        EXPECT_EQ(run.exitCode, exitCode) << run.errors.toStdString();
        EXPECT_EQ(contentOf(file), before);
        EXPECT_EQ(run.json()[QLatin1String("file")].toString(), file);
        return textOf(run);
    }

    /// The same of a file that stands already; the exit code is 4 when there are findings.
    static std::string findingsIn(const QString &file)
    {
        const CommandRun run = runPlotka({QStringLiteral("check"), file, QStringLiteral("--json")});
        const std::string text = textOf(run);
        EXPECT_EQ(run.exitCode, text.empty() ? 0 : 4) << run.errors.toStdString();
        return text;
    }

    /// "id, found, recorded: message", one a line, of the project that was looked at last.
    std::string compatibility() const
    {
        const CommandRun run =
            runPlotka({QStringLiteral("check"), folder.path(QStringLiteral("Board")), QStringLiteral("--json")});
        QString text;
        const QJsonArray all = run.json()[QLatin1String("compatibility")].toArray();
        for (const QJsonValue &one : all) {
            text += one[QLatin1String("id")].toString();
            text += one[QLatin1String("found")].toBool() ? QStringLiteral(", found") : QString();
            text += one[QLatin1String("recorded")].toBool() ? QStringLiteral(", recorded") : QString();
            text += QStringLiteral(": ") + one[QLatin1String("message")].toString() + u'\n';
        }
        return text.toStdString();
    }

    static std::string textOf(const CommandRun &run)
    {
        QString text;
        const QJsonArray all = run.json()[QLatin1String("findings")].toArray();
        for (const QJsonValue &one : all) {
            text += QStringLiteral("%1 %2: %3\n")
                        .arg(one[QLatin1String("code")].toString(), one[QLatin1String("item")].toString(),
                            one[QLatin1String("message")].toString());
        }
        return text.toStdString();
    }

    static QByteArray contentOf(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    /// The file of the storyboard with one more record of the panel.
    QByteArray withRecord(const QByteArray &record)
    {
        QByteArray content = contentOf(folder.save(board));
        return content.insert(content.indexOf("<newRecords as="), record);
    }

    PIO_Metadatas &records() const { return *board.sceneProject().metadatas(); }
    Plotka::Panel_t panel() const { return board.project().getPanelByNdx(0); }
    std::string panelTitle() const { return "scene " + board.panelId(0, 0).AsString().toStdString(); }

    Storyboard board{"A(24)"};
    ProjectFolder folder;
};

} // namespace

TEST_F(CheckCommand, FindsNothingInAGoodProject)
{
    EXPECT_EQ(findings(0), "");
    const CommandRun run = runPlotka({QStringLiteral("check"), folder.path(QStringLiteral("Board"))});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output.toStdString(), "nothing found\n");
}

TEST_F(CheckCommand, FindsLinksToClipsThatAreNotThere)
{
    TUScene &top = board.topScene();
    const SC_Id sound = top.addSoundTimedValue(QStringLiteral("Music"))->addSound(1, 40);
    TUScene *const clip = board.sceneProject().addScene();
    ASSERT_TRUE(top.addSeqTimedValue(QStringLiteral("V2"))->insertBlock(5, 10, new AT_SceneSeq(clip)));
    PKC_ClipInfo *const info = panel().clipInfo();
    info->linkVideoClip(clip->objectId());
    info->linkAudioClip(sound);
    EXPECT_EQ(findings(0), "");
    info->linkVideoClip(board.shotId(0)); // a block of the timeline is no clip
    info->linkAudioClip(SC_Id(4711));
    ASSERT_TRUE(top.addSeqTimedValue(QStringLiteral("V3"))->insertBlock(1, 5, nullptr));
    info->linkAudioClip(SC_Id()); // and a block that holds nothing is not the clip without an id
    EXPECT_EQ(findings(4),
        "dangling-link " + panelTitle() + ": linked to the clip " + board.shotId(0).AsString().toStdString()
            + ", which is not there\ndangling-link " + panelTitle()
            + ": linked to the clip 4711, which is not there\ndangling-link " + panelTitle()
            + ": linked to the clip 0, which is not there\n");
}

TEST_F(CheckCommand, FindsFieldValuesWithoutADescriptor)
{
    auto *const ofPanels = new PKC_PanelInfoFieldDescList;
    ofPanels->add(PKC_InfoFieldDesc::TEXT, 1, QStringLiteral("Dialog"), PKC_InfoFieldDesc::DEFAULT, 16);
    records().add(ofPanels);
    auto *const ofProject = new PKC_InfoFieldList;
    ofProject->insertInfoField(PKC_InfoFieldDesc::TEXT, 1, std::numeric_limits<int>::max());
    records().add(ofProject);
    PKC_InfoFieldList *const fields = panel().infoFieldList();
    for (const int id : {1, 2, -1})
        fields->insertInfoField(PKC_InfoFieldDesc::TEXT, id, std::numeric_limits<int>::max());
    EXPECT_EQ(findings(4),
        "field-without-descriptor project: the value of field 1, which no descriptor describes\n"
        "field-without-descriptor "
            + panelTitle() + ": the value of field 2, which no descriptor describes\n");
}

TEST_F(CheckCommand, FindsDescriptorsWithADoubledOrReservedId)
{
    auto *const list = new PKC_ProjectInfoFieldDescList;
    for (const int id : {3, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        list->add(PKC_InfoFieldDesc::TEXT, id, QStringLiteral("f"), PKC_InfoFieldDesc::DEFAULT, 16);
    records().add(list);
    EXPECT_EQ(findings(4),
        "doubled-field-id project: the field \"f\" has the id 3 of another\n"
        "reserved-field-id project: the field \"f\" has the reserved id 2147483647\n"
        "reserved-field-id project: the field \"f\" has the reserved id -2147483648\n");
}

TEST_F(CheckCommand, FindsLayersThatNoNodeBears)
{
    TUScene *const scene = board.panelScene(0, 0);
    const UT_SharedPtr<TUGroup> group(new TUGroup(scene->sceneCommon(), QStringLiteral("Set")));
    ASSERT_TRUE(scene->getRootGroup()->addNode(group));
    ASSERT_TRUE(
        group->addNode(UT_SharedPtr<MO_Node>(new MO_ElementModule(scene->sceneCommon(), QStringLiteral("Sky")))));
    PKC_LayerInfos *const layers = panel().layerInfos();
    for (const char *name : {"Set", "Sky", "sky"})
        layers->info(QLatin1String(name), /*create*/ true);
    EXPECT_EQ(
        findings(4), "layer-without-node " + panelTitle() + ": flags for the layer \"sky\", which is not there\n");
}

TEST_F(CheckCommand, FindsAnIncrementOfZeroWhetherItHoldsOrNot)
{
    auto *const rules = new PKC_NamingRules(QString());
    rules->shotRules().setAutoIncrementValue(0);
    records().add(rules);
    const std::string expected = "zero-increment project: the names of shots are incremented by 0\n";
    EXPECT_EQ(findings(4), expected);
    rules->setOverloadingPref(true);
    EXPECT_EQ(findings(4), expected);
}

TEST_F(CheckCommand, FindsRecordsOfUnknownTypes)
{
    records().add(new PIO_MetadataUnknown(QStringLiteral("weather"), QString(), QStringLiteral("someone"),
        QStringLiteral("3"), QStringLiteral("<cloud/>")));
    EXPECT_EQ(findings(4),
        "unknown-record project: a record of the unknown type \"weather\", written by \"someone\", version \"3\"\n");
}

TEST_F(CheckCommand, TellsInASectionOfItsOwnWhatOlderProgramsCannotRead)
{
    board.placeShot("B", 100, 24);
    auto *const recorded = new PKC_ProjectCompatibility(QString());
    for (const char *id : {"later", "space-between-panels"})
        recorded->addCompatibilityIssue({QLatin1String(id), QStringLiteral("Plotka Pro"), QStringLiteral("9")});
    records().add(recorded);
    EXPECT_EQ(findings(0), "") << "what older programs cannot read is no damage";
    EXPECT_EQ(compatibility(),
        "space-between-panels, found, recorded: there is a gap between panels, at frames 25-99; Plotka Pro before "
        "version "
        "7.0.0 cannot read that\n"
        "later, recorded: the file says that the project has \"later\", which is not known here; Plotka Pro before "
        "version "
        "9 cannot read that\n");
    const CommandRun run = runPlotka({QStringLiteral("check"), folder.path(QStringLiteral("Board"))});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output.toStdString(),
        "nothing found\n\ncompatibility with older programs, which is no damage:\n"
        "  there is a gap between panels, at frames 25-99; Plotka Pro before version 7.0.0 cannot read that (the file "
        "says "
        "so)\n"
        "  the file says that the project has \"later\", which is not known here; Plotka Pro before version 9 cannot "
        "read "
        "that\n");
}

TEST_F(CheckCommand, TellsOfWhatIsRecordedAndNotThere)
{
    auto *const recorded = new PKC_ProjectCompatibility(QString());
    recorded->addCompatibilityIssue({QStringLiteral("space-between-panels"), QString(), QString()});
    records().add(recorded);
    EXPECT_EQ(findings(0), "");
    EXPECT_EQ(compatibility(),
        "space-between-panels, recorded: the file says that the project has \"space-between-panels\", but it has "
        "not\n");
}

TEST_F(CheckCommand, ListsGapsBehindAGapAtTheEdgeOfAShot)
{
    const Storyboard gappy("A(10,-5) B(-5,10) C(10) -4- D(3,-1,3)");
    const CommandRun run = runPlotka({QStringLiteral("check"), folder.save(gappy), QStringLiteral("--json")});
    EXPECT_EQ(run.exitCode, 0);
    QStringList gaps;
    const QJsonArray all = run.json()[QLatin1String("gaps")].toArray();
    for (const QJsonValue &gap : all)
        gaps += QStringLiteral("%1-%2")
                    .arg(gap[QLatin1String("firstFrame")].toInt())
                    .arg(gap[QLatin1String("lastFrame")].toInt());
    EXPECT_EQ(gaps.join(u' ').toStdString(), "11-15 16-20 41-44 48-48");
    const QJsonArray issues = run.json()[QLatin1String("compatibility")].toArray();
    ASSERT_EQ(issues.size(), 1) << "a walk by panels ends at the first gap and finds none";
    EXPECT_EQ(issues[0][QLatin1String("message")].toString(),
        QStringLiteral(
            "there are 4 gaps between panels, at frames 11-15, 16-20, 41-44, 48-48; Plotka Pro before version "
            "7.0.0 cannot read that"));
}

TEST_F(CheckCommand, FindsScenesThatAreNotThere)
{
    const Storyboard gone("A(10) B@10(gone) C(10,5gone)");
    const TUTimedValue *const clips = gone.topScene().addSeqTimedValue(QStringLiteral("V2"));
    EXPECT_NE(clips, nullptr);
    const QString file = folder.save(gone);
    const std::string c = gone.shotId(2).AsString().toStdString();
    EXPECT_EQ(findingsIn(file),
        "missing-scene scene " + gone.shotId(1).AsString().toStdString()
            + ": it is not there; the shot at frames 11-20 shows nothing\nmissing-scene scene "
            + gone.panelId(2, 1).AsString().toStdString() + ": it is not there; the panel at frames 11-15 of scene " + c
            + " shows nothing\n");
}

TEST_F(CheckCommand, FindsScenesThatPlaceThemselvesOrEachOther)
{
    const auto scene = [](int object, int placed) {
        const QByteArray block = placed == 0 ? QByteArray()
                                             : "<warp from=\"1\" frames=\"8\" object=\"" + QByteArray::number(placed)
                + "\" scene=\"" + QByteArray::number(placed + 1) + "\" start=\"1\" end=\"8\"/>";
        return "<scene object=\"" + QByteArray::number(object) + "\" scene=\"" + QByteArray::number(object + 1)
            + "\"><sequence name=\"s\">" + block + "</sequence></scene>";
    };
    const auto project = [](const QByteArray &scenes) {
        return "<plotka format=\"1\" name=\"c\" nextId=\"100\" rate=\"24\" startTimecode=\"0\">" + scenes + "</plotka>";
    };
    EXPECT_EQ(
        findingsIn(folder.write(QStringLiteral("c.plotka"), project(scene(1, 3) + scene(3, 5) + scene(5, 0)))), "");
    EXPECT_EQ(findingsIn(folder.write(QStringLiteral("c.plotka"), project(scene(1, 0) + scene(3, 3)))),
        "scene-circle scene 3: it places itself\n");
    EXPECT_EQ(findingsIn(folder.write(QStringLiteral("c.plotka"), project(scene(1, 3) + scene(3, 5) + scene(5, 1)))),
        "scene-circle scene 1: it is placed within itself, by way of 5, 3\n");
    EXPECT_EQ(findingsIn(folder.write(QStringLiteral("c.plotka"),
                  project(scene(1, 0) + scene(3, 5) + scene(5, 3) + scene(7, 9) + scene(9, 7)))),
        "scene-circle scene 3: it is placed within itself, by way of 5\n"
        "scene-circle scene 7: it is placed within itself, by way of 9\n");
    QByteArray scenes = scene(1, 0);
    for (int object = 3; object < 25; object += 2)
        scenes += scene(object, object + 2);
    EXPECT_EQ(findingsIn(folder.write(QStringLiteral("c.plotka"), project(scenes + scene(25, 3)))),
        "scene-circle scene 3: it is placed within itself, by way of 25, 23, 21, 19, 17, 15, 13, 11, 9, 7, ...\n");
}

TEST_F(CheckCommand, FindsTimeWarpsThatAreNotFinite)
{
    QByteArray content = contentOf(folder.save(board));
    ASSERT_EQ(content.count("frames=\"24\""), 2);
    for (const char *number : {"inf", "-inf", "nan"}) {
        QByteArray odd = content;
        odd.replace("frames=\"24\"", "frames=\"24\" end=\"" + QByteArray(number) + '"');
        const QString file = folder.write(QStringLiteral("odd/odd.plotka"), odd);
        EXPECT_EQ(findingsIn(file),
            "time-warp-not-finite scene " + board.shotId(0).AsString().toStdString() + ": its time warp goes from 1 to "
                + number + "\ntime-warp-not-finite " + panelTitle() + ": its time warp goes from 1 to " + number
                + "\n");
        EXPECT_EQ(runPlotka({QStringLiteral("timeline"), file}).exitCode, 0);
    }
}

TEST_F(CheckCommand, FindsARateOutOfRange)
{
    const QByteArray content = contentOf(folder.save(board));
    const std::pair<const char *, const char *> rates[] = {{"1", ""}, {"1000", ""}, {"24000/1001", ""},
        {"1001", "rate-out-of-range project: 1001 frames a second are not from 1 to 1000\n"},
        {"1/2", "rate-out-of-range project: 1/2 frames a second are not from 1 to 1000\n"},
        {"4294967295", "rate-out-of-range project: 4294967295 frames a second are not from 1 to 1000\n"}};
    for (const auto &[rate, expected] : rates) {
        QByteArray odd = content;
        odd.replace("rate=\"24\"", "rate=\"" + QByteArray(rate) + '"');
        EXPECT_EQ(findingsIn(folder.write(QStringLiteral("odd/odd.plotka"), odd)), expected);
    }
}

TEST_F(CheckCommand, FindsDoubledNumbersOfNodes)
{
    QByteArray content = contentOf(folder.save(board));
    content.replace("</plotka>", R"(<scene object="900" scene="901"><node class="group" number="1" name="Top">
<node class="node" number="2" name="a"/><node class="node" number="2" name="b"/><node class="node" number="2" name="c"/>
</node></scene><scene object="902" scene="903"><node class="group" number="2" name="Top"/></scene></plotka>)");
    EXPECT_EQ(findingsIn(folder.write(QStringLiteral("odd/odd.plotka"), content)),
        "damaged node \"b\": its number 2 is that of another node; no link finds it\n"
        "damaged node \"c\": its number 2 is that of another node; no link finds it\n");
}

TEST_F(CheckCommand, TellsWhatIsDamagedWithItsLine)
{
    QByteArray content = contentOf(folder.save(board));
    const qsizetype at = content.indexOf("<warp ");
    ASSERT_GE(at, 0);
    content.insert(at, "<warp from=\"none\"/>");
    const QString file = folder.write(QStringLiteral("damaged/damaged.plotka"), content);
    const CommandRun run = runPlotka({QStringLiteral("check"), file, QStringLiteral("--json")});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_EQ(run.errors.toStdString(), "") << "what is found is the result";
    const QJsonArray all = run.json()[QLatin1String("findings")].toArray();
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all[0][QLatin1String("code")].toString(), QStringLiteral("damaged"));
    EXPECT_EQ(all[0][QLatin1String("line")].toInt(), content.left(at).count('\n') + 1);

    const CommandRun forPeople = runPlotka({QStringLiteral("check"), file});
    EXPECT_EQ(forPeople.exitCode, 4);
    EXPECT_TRUE(forPeople.output.contains("damaged")) << forPeople.output.toStdString();
}

TEST_F(CheckCommand, TellsOfRecordsThatTookADefault)
{
    const QByteArray content =
        withRecord("<metadata type=\"panelInfo\"><panelInfo name=\"\" nameFlag=\"0\" "
                   "exportFlag=\"many\" colorIsValid=\"false\" color=\"#ff000000\"/></metadata>");
    const QString file = folder.write(QStringLiteral("odd/odd.plotka"), content);
    const CommandRun run = runPlotka({QStringLiteral("check"), file, QStringLiteral("--json")});
    EXPECT_EQ(run.exitCode, 4);
    const QJsonArray all = run.json()[QLatin1String("findings")].toArray();
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all[0][QLatin1String("code")].toString(), QStringLiteral("damaged"));
    EXPECT_EQ(all[0][QLatin1String("item")].toString(),
        QStringLiteral("scene %1, record \"panelInfo\"").arg(board.panelId(0, 0).AsString()));
    EXPECT_TRUE(all[0][QLatin1String("message")].toString().contains(QStringLiteral("exportFlag")));
    for (const char *command : {"info", "timeline", "dump"}) {
        EXPECT_EQ(runPlotka({QLatin1String(command), file}).errors.toStdString(),
            "plotka: 1 value in the file could not be read and has its default; \"plotka check\" tells which\n");
    }
    EXPECT_EQ(run.errors.toStdString(), "");
}

TEST_F(CheckCommand, TellsOnceOfWhatIsWrongWithRecordsOfManyScenes)
{
    QByteArray content = contentOf(folder.save(board));
    content.replace("exportFlag=\"13\"", "exportFlag=\"many\"");
    const CommandRun run = runPlotka(
        {QStringLiteral("check"), folder.write(QStringLiteral("odd/odd.plotka"), content), QStringLiteral("--json")});
    const QJsonArray all = run.json()[QLatin1String("findings")].toArray();
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all[0][QLatin1String("item")].toString(), QStringLiteral("new records 1, record \"panelInfo\""));
}

TEST_F(CheckCommand, CountsWhatIsWrongBeyondAHundredTimesInARecord)
{
    QByteArray content = contentOf(folder.save(board));
    content.replace("<exposurePoints primaryExposure=\"0\"/>",
        "<exposurePoints primaryExposure=\"0\">" + QByteArray("<pt value=\"x\"/>").repeated(150) + "</exposurePoints>");
    const QString file = folder.write(QStringLiteral("odd/odd.plotka"), content);
    const QJsonArray all = runPlotka({QStringLiteral("check"), file, QStringLiteral("--json")})
                               .json()[QLatin1String("findings")]
                               .toArray();
    ASSERT_EQ(all.size(), 101);
    EXPECT_EQ(all[100][QLatin1String("message")].toString(), QStringLiteral("and 50 more like these"));
    EXPECT_TRUE(runPlotka({QStringLiteral("at"), file, QStringLiteral("1")}).errors.startsWith("plotka: 150 values"));
}

TEST_F(CheckCommand, TellsOfOptionsThatAreLeftOut)
{
    const QByteArray content =
        withRecord("<metadata type=\"pdfOptions\"><pdfOptions>"
                   "<option name=\"a\" type=\"0\"><value data=\"AAAA\"/></option><option name=\"b\" type=\"0\"/>"
                   "<option name=\"c\" type=\"99\"/><option name=\"d\" type=\"5\"/></pdfOptions></metadata>");
    const QString file = folder.write(QStringLiteral("odd/odd.plotka"), content);
    const QByteArray output = runPlotka({QStringLiteral("check"), file}).output;
    EXPECT_EQ(output.count("damaged"), 3) << output.toStdString();
    EXPECT_EQ(output.count(panelTitle().c_str()), 3) << output.toStdString();
    for (const char *told : {"the option \"a\"", "the option \"b\"", "\"type\" of the element \"option\""})
        EXPECT_TRUE(output.contains(told)) << output.toStdString();
}

TEST_F(CheckCommand, SaysWhyAProjectCannotBeOpened)
{
    const CommandRun run = runPlotka({QStringLiteral("check"), folder.write(QStringLiteral("x.plotka"), "<x/>")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.output.toStdString(), "");
    EXPECT_TRUE(run.errors.startsWith("plotka: ")) << run.errors.toStdString();
}
