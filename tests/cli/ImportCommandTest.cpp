#include "cli/CommandRun.h"
#include "support/Golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QProcess>

#include <gtest/gtest.h>

namespace
{

/// A cut of one clip, with what the clip has besides.
QByteArray cutOf(const QByteArray &name, const QByteArray &clipFields = QByteArray())
{
    return R"({"OTIO_SCHEMA": "Timeline.1", "name": ")" + name
        + R"(", "tracks": {"OTIO_SCHEMA": "Stack.1", "children": [{"OTIO_SCHEMA": "Track.1", "kind": "Video",
 "children": [{"OTIO_SCHEMA": "Clip.2", "name": "A", )"
        + clipFields + R"("source_range": {"OTIO_SCHEMA": "TimeRange.1",
 "start_time": {"OTIO_SCHEMA": "RationalTime.1", "rate": 24, "value": 0},
 "duration": {"OTIO_SCHEMA": "RationalTime.1", "rate": 24, "value": 48}}}]}]}})";
}

const QByteArray lossyFields = R"("markers": 7, )";
const QByteArray keptFields = R"("effects": [{"OTIO_SCHEMA": "Effect.1", "name": "blur"}], )";

/// A cut whose track has a range that shows nothing of it.
const QByteArray emptiedCut = R"({"OTIO_SCHEMA": "Timeline.1", "name": "Night", "tracks": {"OTIO_SCHEMA": "Stack.1",
 "children": [{"OTIO_SCHEMA": "Track.1", "source_range": {"start_time": {"rate": 24, "value": 100}, "duration": {"rate": 24,
 "value": 8}}, "children": [{"OTIO_SCHEMA": "Clip.2", "source_range": {"duration": {"rate": 24, "value": 8}}}]}]}})";

class ImportCommand : public ::testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.path(name); }
    QString cut(const QByteArray &content) const { return m_folder.write(QStringLiteral("cut.otio"), content); }
    QString write(const QString &name, const QByteArray &content) const { return m_folder.write(name, content); }

    CommandRun import(const QString &input, const QStringList &options = {}) const
    {
        return runPlotka(QStringList{QStringLiteral("import"), input, QStringLiteral("-o"), output()} + options);
    }
    QString output() const { return path(QStringLiteral("out")); }

    /// Names of the files in the output folder, hidden ones too.
    QStringList written() const
    {
        return QDir(output()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void expectNothingWritten() const { EXPECT_FALSE(QFileInfo::exists(output())); }

    QJsonObject info() const { return runPlotka({QStringLiteral("info"), output(), QStringLiteral("--json")}).json(); }

private:
    ProjectFolder m_folder;
};

QByteArray contentOf(const QString &file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

} // namespace

TEST_F(ImportCommand, WritesAProjectAndSaysWhere)
{
    const CommandRun run = import(cut(cutOf("Night")));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, output().toUtf8() + "/Night.plotka\n");
    EXPECT_EQ(run.errors.toStdString(), "");
    EXPECT_EQ(written(), QStringList{QStringLiteral("Night.plotka")});
    EXPECT_EQ(info()[QLatin1String("name")].toString(), QStringLiteral("Night"));
    EXPECT_EQ(info()[QLatin1String("frames")].toInt(), 48);
    EXPECT_EQ(info()[QLatin1String("rate")].toString(), QStringLiteral("24"));
}

TEST_F(ImportCommand, MakesTheSampleCutReadWell)
{
    const CommandRun run =
        import(QStringLiteral(PLOTKA_EXAMPLES "/lantern_harbour.otio"), {QStringLiteral("--strict")});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    expectGolden("cli/lantern_harbour.txt", runPlotka({QStringLiteral("timeline"), output()}).output.toStdString());
    EXPECT_EQ(info()[QLatin1String("counts")].toObject(),
        (QJsonObject{{QStringLiteral("shots"), 12}, {QStringLiteral("panels"), 16}, {QStringLiteral("transitions"), 3},
            {QStringLiteral("gaps"), 3}, {QStringLiteral("videoTracks"), 1}, {QStringLiteral("videoClips"), 2},
            {QStringLiteral("soundTracks"), 2}, {QStringLiteral("sounds"), 4}, {QStringLiteral("scenes"), 31}}));
    EXPECT_TRUE(info()[QLatin1String("unknownRecords")].toArray().isEmpty());
}

TEST_F(ImportCommand, TakesItsRateFromTheOption)
{
    const std::pair<const char *, const char *> rates[] = {{"25", "25"}, {"24000/1001", "24000/1001"},
        {"23.976", "24000/1001"}, {"23.98", "24000/1001"}, {"29.97", "30000/1001"}, {"59.94", "60000/1001"}};
    for (const auto &rate : rates) {
        const QStringList options = {QStringLiteral("--rate"), QLatin1String(rate.first), QStringLiteral("--force")};
        EXPECT_EQ(import(cut(cutOf("Night")), options).exitCode, 0) << rate.first;
        EXPECT_EQ(info()[QLatin1String("rate")].toString().toStdString(), rate.second);
    }
}

TEST_F(ImportCommand, RefusesWrongUsage)
{
    for (const char *rate : {"0", "-24", "fast", "", "1001", "23.5", "nan", "24/0", "inf"}) {
        EXPECT_EQ(import(cut(cutOf("Night")), {QStringLiteral("--rate"), QLatin1String(rate)}).exitCode, 2) << rate;
    }
    EXPECT_EQ(runPlotka({QStringLiteral("import"), cut(cutOf("Night"))}).exitCode, 2);
    EXPECT_EQ(runPlotka({QStringLiteral("import"), QStringLiteral("-o"), output()}).exitCode, 2);
    EXPECT_EQ(runPlotka({QStringLiteral("import"), cut(cutOf("Night")), QStringLiteral("-o")}).exitCode, 2);
    EXPECT_EQ(runPlotka({QStringLiteral("import"), cut(cutOf("Night")), QStringLiteral("-o"), QString()}).exitCode, 2);
    EXPECT_EQ(import(cut(cutOf("Night")), {QStringLiteral("--report"), QString()}).exitCode, 2);
    expectNothingWritten();
}

TEST_F(ImportCommand, SaysWhatIsWrongWithTheInput)
{
    const auto expectBadInput = [this](const QString &input, const QByteArray &message) {
        const CommandRun run = import(input);
        EXPECT_EQ(run.exitCode, 3) << input.toStdString();
        EXPECT_EQ(run.output.toStdString(), "");
        EXPECT_TRUE(run.errors.startsWith("plotka: " + input.toUtf8())) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains(message)) << run.errors.toStdString();
        expectNothingWritten();
    };
    expectBadInput(path(QStringLiteral("nowhere.otio")), "error: ");
    expectBadInput(path(QStringLiteral(".")), "folder");
    expectBadInput(write(QStringLiteral("empty.otio"), QByteArray()), "error: ");
    expectBadInput(write(QStringLiteral("cut.edl"), "\nTITLE: NIGHT\nFCM: NON-DROP FRAME\n001  AX  V  C\n"),
        "cut.edl:2:1: error: this is no OpenTimelineIO cut, which would begin with \"{\"; an EDL");
    expectBadInput(
        write(QStringLiteral("cut.xml"), "<?xml version=\"1.0\"?><xmeml/>"), "this is no OpenTimelineIO cut");
    expectBadInput(write(QStringLiteral("text.otio"), "{\n  \"name\": }\n"), "text.otio:2:");
    expectBadInput(write(QStringLiteral("list.otio"), "[1, 2]"), "error: ");
    expectBadInput(write(QStringLiteral("deep.otio"), QByteArray(100'000, '[')), "error: ");
    expectBadInput(write(QStringLiteral("names %1 夜.otio"), "{}"), "error: ");
    expectBadInput(write(QStringLiteral("names %2 %3.otio"), "{]"), "names %2 %3.otio:1:2: error: ");
}

TEST_F(ImportCommand, WritesOverNothingUnlessForced)
{
    ASSERT_EQ(import(cut(cutOf("Night"))).exitCode, 0);
    const QByteArray before = contentOf(path(QStringLiteral("out/Night.plotka")));
    const CommandRun refused = import(cut(cutOf("Day")));
    EXPECT_EQ(refused.exitCode, 5);
    EXPECT_EQ(refused.output.toStdString(), "");
    EXPECT_EQ(written(), QStringList{QStringLiteral("Night.plotka")});
    EXPECT_EQ(contentOf(path(QStringLiteral("out/Night.plotka"))), before);

    EXPECT_EQ(import(cut(cutOf("Day")), {QStringLiteral("--force")}).exitCode, 0);
    EXPECT_EQ(written(), (QStringList{QStringLiteral("Day.plotka"), QStringLiteral("Night.plotka~")}));
    EXPECT_EQ(contentOf(path(QStringLiteral("out/Night.plotka~"))), before);
    EXPECT_EQ(info()[QLatin1String("name")].toString(), QStringLiteral("Day"));

    EXPECT_EQ(import(cut(cutOf("Day")), {QStringLiteral("--force")}).exitCode, 0);
    EXPECT_EQ(written().size(), 3);
}

TEST_F(ImportCommand, KeepsEarlierBackups)
{
    const QString backup = write(QStringLiteral("out/Night.plotka~"), "older");
    const QString earlier = write(QStringLiteral("out/Night.plotka"), "old");
    const QStringList before = written();
    const QString nowhere = path(QStringLiteral("nowhere/report.json"));
    const QStringList failing = {QStringLiteral("--force"), QStringLiteral("--report"), nowhere};
    EXPECT_EQ(import(cut(cutOf("Night")), failing).exitCode, 1);
    EXPECT_EQ(written(), before);
    EXPECT_EQ(contentOf(backup), QByteArray("older"));
    EXPECT_EQ(contentOf(earlier), QByteArray("old"));

    EXPECT_EQ(import(cut(cutOf("Night")), {QStringLiteral("--force")}).exitCode, 0);
    EXPECT_EQ(contentOf(backup), QByteArray("older"));
    EXPECT_EQ(contentOf(path(QStringLiteral("out/Night.plotka~2"))), QByteArray("old"));
    EXPECT_EQ(info()[QLatin1String("name")].toString(), QStringLiteral("Night"));
}

TEST_F(ImportCommand, RefusesAFolderWithOtherFilesAndTakesAnEmptyOne)
{
    QDir().mkpath(output());
    EXPECT_EQ(import(cut(cutOf("Night"))).exitCode, 0);
    QFile::remove(path(QStringLiteral("out/Night.plotka")));
    write(QStringLiteral("out/.notes"), "mine");
    EXPECT_EQ(import(cut(cutOf("Night"))).exitCode, 5);
    EXPECT_EQ(import(cut(cutOf("Night")), {QStringLiteral("--force")}).exitCode, 0);
    EXPECT_EQ(contentOf(path(QStringLiteral("out/.notes"))), QByteArray("mine"));
}

TEST_F(ImportCommand, DoesNotPutAFolderInPlaceOfAFile)
{
    const QString file = write(QStringLiteral("out"), "mine");
    EXPECT_EQ(import(cut(cutOf("Night"))).exitCode, 5);
    EXPECT_EQ(import(cut(cutOf("Night")), {QStringLiteral("--force")}).exitCode, 1);
    EXPECT_EQ(contentOf(file), QByteArray("mine"));
}

TEST_F(ImportCommand, MakesTheFoldersAboveAndLeavesNoneAfterAFailure)
{
    const QString deep = path(QStringLiteral("a/b/c"));
    const QString input = cut(cutOf("Night"));
    const CommandRun failed = runPlotka({QStringLiteral("import"), input, QStringLiteral("-o"), deep,
        QStringLiteral("--report"), path(QStringLiteral("nowhere/report.json"))});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_NE(failed.errors, QByteArray());
    EXPECT_FALSE(QFileInfo::exists(path(QStringLiteral("a"))));

    EXPECT_EQ(runPlotka({QStringLiteral("import"), input, QStringLiteral("-o"), deep}).exitCode, 0);
    EXPECT_TRUE(QFileInfo::exists(deep + QStringLiteral("/Night.plotka")));
}

TEST_F(ImportCommand, LeavesNoFolderWhenItsResultCannotBeWritten)
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        GTEST_SKIP() << "there is no /dev/full here";
    const QString report = path(QStringLiteral("report.json"));
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(PLOTKA_COMMAND),
        {QStringLiteral("import"), cut(cutOf("Night")), QStringLiteral("-o"), output(), QStringLiteral("--report"),
            report});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("standard output"));
    expectNothingWritten();
    EXPECT_FALSE(QFileInfo::exists(report));
}

TEST_F(ImportCommand, LeavesNoFolderWhenItsReportCannotBePutInPlace)
{
    QDir().mkpath(path(QStringLiteral("report.json/is a folder")));
    const CommandRun run =
        import(cut(cutOf("Night")), {QStringLiteral("--report"), path(QStringLiteral("report.json"))});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.errors.contains("report.json: ")) << run.errors.toStdString();
    expectNothingWritten();
}

TEST_F(ImportCommand, TakesAReportWithinTheNewFolder)
{
    const QString report = path(QStringLiteral("out/report.json"));
    EXPECT_EQ(import(cut(cutOf("Night")), {QStringLiteral("--report"), report}).exitCode, 0);
    EXPECT_EQ(written(), (QStringList{QStringLiteral("Night.plotka"), QStringLiteral("report.json")}));
}

TEST_F(ImportCommand, RefusesAReportThatWouldTakeThePlaceOfTheCutOrAProject)
{
    const QString input = cut(cutOf("Night"));
    const QStringList reports{input, path(QStringLiteral("out/Night.plotka")), path(QStringLiteral("out/x.plotka")),
        path(QStringLiteral("out/Night.plotka~"))};
    for (const QString &report : reports) {
        const CommandRun run = import(input, {QStringLiteral("--report"), report, QStringLiteral("--force")});
        EXPECT_EQ(run.exitCode, 2) << report.toStdString();
        EXPECT_TRUE(run.errors.contains("the report would take the place")) << run.errors.toStdString();
        expectNothingWritten();
    }
    EXPECT_EQ(import(input).exitCode, 0);
}

TEST_F(ImportCommand, PutsAsideWhatIsAProjectToTheLetterOnly)
{
    QDir().mkpath(output());
    QFile other(path(QStringLiteral("out/A.PLOTKA")));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.close();
    EXPECT_EQ(import(cut(cutOf("Night")), {QStringLiteral("--force")}).exitCode, 0);
    EXPECT_EQ(written(), (QStringList{QStringLiteral("A.PLOTKA"), QStringLiteral("Night.plotka")}));
}

TEST_F(ImportCommand, TellsWhatIsLost)
{
    const CommandRun run = import(cut(cutOf("Night", lossyFields)));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.errors.contains("plotka: loss: ")) << run.errors.toStdString();
}

TEST_F(ImportCommand, CountsAllThatIsLost)
{
    const QByteArray clip = R"({"OTIO_SCHEMA": "Clip.2", "effects": 7, "source_range": {"duration":
 {"rate": 24, "value": 8}}})";
    const QByteArray clips = (clip + ", ").repeated(149) + clip;
    const CommandRun run = import(cut(R"({"OTIO_SCHEMA": "Track.1", "children": [)" + clips + "]}"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.errors.contains("plotka: notes: 150 loss, 0 change, 0 info\n")) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains("plotka: and 130 more; ")) << run.errors.toStdString();
}

TEST_F(ImportCommand, CountsWhatItDoesNotShow)
{
    const CommandRun run = import(QStringLiteral(PLOTKA_EXAMPLES "/lantern_harbour.otio"));
    EXPECT_EQ(run.errors.toStdString(),
        "plotka: notes: 0 loss, 0 change, 1 info\n"
        "plotka: and 1 more; --report FILE writes them all\n");
}

TEST_F(ImportCommand, ShowsNothingOfAFileThatATerminalWouldActOn)
{
    const QByteArray hostile = R"(\u001b[2J\r\nplotka: done \u009b1A\u202e)";
    const QByteArray unknown = R"({"OTIO_SCHEMA": ")" + hostile + R"(.1"})";
    const QByteArray track =
        R"({"OTIO_SCHEMA": "Track.1", "name": ")" + hostile + R"(", "children": [)" + unknown + "]}";
    for (const QByteArray &content : {unknown, track, QByteArray("{\"a\": \u009b}")}) {
        const CommandRun run = import(cut(content), {QStringLiteral("--force")});
        EXPECT_NE(run.errors, QByteArray());
        for (const QByteArray &text : {run.errors, run.output}) {
            for (const char *acting : {"\033", "\r", "\u009b", "\u202e", "\nplotka: done"})
                EXPECT_FALSE(text.contains(acting)) << text.toPercentEncoding(" :\n").toStdString();
        }
    }
}

TEST_F(ImportCommand, WritesNothingUnderStrictWhenSomethingIsLost)
{
    const QString report = path(QStringLiteral("report.json"));
    const CommandRun run =
        import(cut(cutOf("Night", lossyFields)), {QStringLiteral("--strict"), QStringLiteral("--report"), report});
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_EQ(run.output.toStdString(), "");
    EXPECT_TRUE(run.errors.contains("plotka: loss: ")) << run.errors.toStdString();
    expectNothingWritten();
    EXPECT_FALSE(QFileInfo::exists(report));
    EXPECT_EQ(import(cut(cutOf("Night")), {QStringLiteral("--strict")}).exitCode, 0);
}

TEST_F(ImportCommand, NamesTheLossesThatStandInTheWayUnderStrict)
{
    const QString input = cut(emptiedCut);
    const QByteArray refusal =
        "plotka: nothing is written, since something would be lost; the codes of the losses are ";
    const CommandRun all = import(input, {QStringLiteral("--strict")});
    EXPECT_TRUE(all.errors.endsWith(refusal + "empty-timeline, trimmed-away\n")) << all.errors.toStdString();
    const CommandRun rest =
        import(input, {QStringLiteral("--strict"), QStringLiteral("--accept"), QStringLiteral("trimmed-away")});
    EXPECT_TRUE(rest.errors.endsWith(refusal + "empty-timeline\n")) << rest.errors.toStdString();
}

TEST_F(ImportCommand, SaysHowToSeeTheRestWhereStrictWritesNoReport)
{
    const QByteArray clip = R"({"OTIO_SCHEMA": "Clip.2", "effects": 7, "source_range": {"duration":
 {"rate": 24, "value": 8}}})";
    const CommandRun run =
        import(cut(R"({"OTIO_SCHEMA": "Track.1", "children": [)" + (clip + ", ").repeated(20) + clip + "]}"),
            {QStringLiteral("--strict")});
    EXPECT_TRUE(run.errors.contains("plotka: and 1 more; --report FILE writes them all, without --strict\n"))
        << run.errors.toStdString();
}

TEST_F(ImportCommand, LosesNothingThatItKeeps)
{
    const CommandRun run = import(cut(cutOf("Night", keptFields)), {QStringLiteral("--strict")});
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains("notes: 0 loss, 0 change, 1 info")) << run.errors.toStdString();
    const CommandRun dump =
        runPlotka({QStringLiteral("dump"), output(), QStringLiteral("--record"), QStringLiteral("string")});
    EXPECT_TRUE(dump.output.contains("name \"otio\"")) << dump.output.toStdString();
    EXPECT_TRUE(dump.output.contains(R"("effects":[{"OTIO_SCHEMA":"Effect.1","name":"blur"}])"))
        << dump.output.toStdString();
}

TEST_F(ImportCommand, LetsAcceptedLossesPass)
{
    const QString input = cut(cutOf("Night", lossyFields));
    const auto accepting = [&](const char *codes) {
        return import(input,
            {QStringLiteral("--strict"), QStringLiteral("--force"), QStringLiteral("--accept"),
                QString::fromLatin1(codes)});
    };
    EXPECT_EQ(accepting("nested-track").exitCode, 4);
    expectNothingWritten();
    EXPECT_EQ(accepting("bad-value").exitCode, 0);
    EXPECT_EQ(accepting("nested-track, bad-value").exitCode, 0);
    EXPECT_EQ(import(input,
                  {QStringLiteral("--strict"), QStringLiteral("--force"), QStringLiteral("--accept"),
                      QStringLiteral("bad-value"), QStringLiteral("--accept"), QStringLiteral("too-late")})
                  .exitCode,
        0);
}

TEST_F(ImportCommand, RefusesToAcceptWhatIsNoLoss)
{
    for (const char *codes : {"", "lost", "rounded", "bad-value,", "bad-value,lost", "BAD-VALUE"}) {
        const CommandRun run = import(cut(cutOf("Night")), {QStringLiteral("--accept"), QString::fromLatin1(codes)});
        EXPECT_EQ(run.exitCode, 2) << codes;
        EXPECT_TRUE(run.errors.contains("bad-value, collection-rest, ")) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains("unknown-schema")) << run.errors.toStdString();
        expectNothingWritten();
    }
}

TEST_F(ImportCommand, WarnsLastOfATimelineWithoutAShot)
{
    const QByteArray warning = "plotka: warning: the timeline has no shot, although the cut has some\n";
    const CommandRun run = import(cut(emptiedCut));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.errors.endsWith(warning)) << run.errors.toStdString();

    const CommandRun strict = import(cut(emptiedCut), {QStringLiteral("--strict"), QStringLiteral("--force")});
    EXPECT_EQ(strict.exitCode, 4);
    EXPECT_TRUE(strict.errors.contains("loss: track 1: no item of it makes a shot in its source range"))
        << strict.errors.toStdString();
    const CommandRun accepted = import(cut(emptiedCut),
        {QStringLiteral("--strict"), QStringLiteral("--force"), QStringLiteral("--accept"),
            QStringLiteral("trimmed-away,empty-timeline")});
    EXPECT_EQ(accepted.exitCode, 0);
    EXPECT_TRUE(accepted.errors.endsWith(warning)) << accepted.errors.toStdString();

    const CommandRun bare =
        import(cut(R"({"OTIO_SCHEMA": "Timeline.1"})"), {QStringLiteral("--strict"), QStringLiteral("--force")});
    EXPECT_EQ(bare.exitCode, 0);
    EXPECT_FALSE(bare.errors.contains("warning")) << bare.errors.toStdString();
}

TEST_F(ImportCommand, ReportsAllNotesAsJson)
{
    const QString report = path(QStringLiteral("report.json"));
    const QString input = cut(cutOf("Night", lossyFields + R"("enabled": false, )"));
    EXPECT_EQ(import(input, {QStringLiteral("--report"), report}).exitCode, 0);
    CommandRun file;
    file.output = contentOf(report);
    const QJsonObject json = file.json();
    EXPECT_EQ(json[QLatin1String("schema")].toInt(), 1);
    EXPECT_EQ(json[QLatin1String("input")].toString(), input);
    EXPECT_EQ(json[QLatin1String("project")].toString(), path(QStringLiteral("out/Night.plotka")));
    QStringList notes;
    const QJsonArray all = json[QLatin1String("notes")].toArray();
    for (const QJsonValue &note : all) {
        EXPECT_EQ(note.toObject().keys(),
            (QStringList{QStringLiteral("code"), QStringLiteral("item"), QStringLiteral("message"),
                QStringLiteral("severity")}));
        notes += note[QLatin1String("severity")].toString() + u' ' + note[QLatin1String("code")].toString();
    }
    notes.sort();
    EXPECT_EQ(notes, (QStringList{QStringLiteral("info disabled"), QStringLiteral("loss bad-value")}));
}

TEST_F(ImportCommand, MarksAShotThatIsOff)
{
    ASSERT_EQ(import(cut(cutOf("Night", R"("enabled": false, )"))).exitCode, 0);
    const QJsonObject timeline = runPlotka({QStringLiteral("timeline"), output(), QStringLiteral("--json")}).json();
    EXPECT_FALSE(timeline[QLatin1String("items")][0][QLatin1String("enabled")].toBool(true));
    EXPECT_TRUE(runPlotka({QStringLiteral("timeline"), output()}).output.contains("shot, off"));
}

TEST_F(ImportCommand, NamesTheProjectSoThatItIsAFileName)
{
    EXPECT_EQ(import(cut(cutOf("a/b %1 夜"))).exitCode, 0);
    EXPECT_EQ(written(), QStringList{QStringLiteral("a-b %1 夜.plotka")});
    EXPECT_EQ(import(cut(cutOf("")), {QStringLiteral("--force")}).exitCode, 0);
    EXPECT_TRUE(written().contains(QStringLiteral("cut.plotka")));
}
