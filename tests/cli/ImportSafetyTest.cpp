#include "cli/CommandRun.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QProcess>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <random>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// A cut of that many clips, the first of which has an effect each.
QByteArray cutOf(const QByteArray &name, int clips, int effects = 0)
{
    QByteArray children;
    for (int i = 0; i < clips; ++i) {
        children += (i > 0 ? ", " : "") + QByteArray(R"({"OTIO_SCHEMA": "Clip.2", "name": "A", )")
            + (i < effects ? R"("effects": [{"OTIO_SCHEMA": "Effect.1", "name": "blur"}], )" : "")
            + R"("source_range": {"OTIO_SCHEMA": "TimeRange.1",
 "start_time": {"OTIO_SCHEMA": "RationalTime.1", "rate": 24, "value": 0},
 "duration": {"OTIO_SCHEMA": "RationalTime.1", "rate": 24, "value": 10}}})";
    }
    return R"({"OTIO_SCHEMA": "Timeline.1", "name": ")" + name
        + R"(", "tracks": {"OTIO_SCHEMA": "Stack.1", "children": [{"OTIO_SCHEMA": "Track.1", "kind": "Video", "children": [)"
        + children + "]}]}}";
}

class ImportSafety : public ::testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.path(name); }
    QString output() const { return path(QStringLiteral("out")); }
    QString cut(const char *name, int clips, int effects = 0) const
    {
        return m_folder.write(QString::fromLatin1("%1.otio").arg(QLatin1String(name)), cutOf(name, clips, effects));
    }
    QStringList arguments(const QString &input, const QStringList &options = {}) const
    {
        return QStringList{QStringLiteral("import"), input, QStringLiteral("-o"), output()} + options;
    }
    CommandRun import(const QString &input, const QStringList &options = {}) const
    {
        return runPlotka(arguments(input, options));
    }
    QStringList written() const
    {
        return QDir(output()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    CommandRun info() const { return runPlotka({QStringLiteral("info"), output(), QStringLiteral("--json")}); }

    /// Starts so many imports of different cuts at once. Those that answered 0 are the names of projects in the folder.
    void runTogether(int count, const QStringList &options, std::vector<int> &codes)
    {
        std::vector<std::unique_ptr<QProcess>> imports;
        for (int i = 0; i < count; ++i) {
            const QByteArray name = "Cut" + QByteArray::number(i);
            imports.push_back(std::make_unique<QProcess>());
            imports.back()->start(QStringLiteral(PLOTKA_COMMAND), arguments(cut(name.constData(), 20 + i), options));
        }
        int done = 0;
        for (const std::unique_ptr<QProcess> &process : imports) {
            ASSERT_TRUE(process->waitForFinished(120'000));
            ASSERT_EQ(process->exitStatus(), QProcess::NormalExit);
            codes.push_back(process->exitCode());
            done += process->exitCode() == 0;
        }
        // Every import that answered 0 has its project in the folder: the last one, and the others put aside.
        int kept = 0;
        for (int i = 0; i < count; ++i) {
            const QStringList own = QDir(output()).entryList({QStringLiteral("Cut%1.plotka*").arg(i)}, QDir::Files);
            EXPECT_EQ(own.size(), codes[static_cast<std::size_t>(i)] == 0 ? 1 : 0) << i;
            kept += static_cast<int>(own.size());
        }
        EXPECT_EQ(kept, done);
        EXPECT_GE(done, 1);
        EXPECT_EQ(info().exitCode, 0);
        EXPECT_EQ(written().size(), done) << "nothing else is left";
    }

private:
    ProjectFolder m_folder;
};

/// How many imports are killed: few before every change, thousands in a night.
int killCount()
{
    bool isNumber = false;
    const int count = qEnvironmentVariableIntValue("PLOTKA_KILLS", &isNumber);
    return isNumber ? count : 50;
}

} // namespace

// Killed at moments spread over all that it does, a forced import leaves the earlier project or the new one.
TEST_F(ImportSafety, LeavesOneWholeProjectWheneverItIsKilled)
{
    const QString inputs[] = {cut("Night", 100), cut("Day", 150), cut("Dawn", 100)};
    const QStringList force = {QStringLiteral("--force")};
    ASSERT_EQ(import(inputs[0], force).exitCode, 0);
    QElapsedTimer clock;
    clock.start();
    ASSERT_EQ(import(inputs[1], force).exitCode, 0);
    const auto anImport = clock.nsecsElapsed() / 1000;

    std::mt19937 random(std::random_device{}());
    const auto below = [&random](qint64 bound) { return std::uniform_int_distribution<qint64>(0, bound)(random); };
    int killed = 0;
    for (int i = 0; i < killCount(); ++i) {
        QProcess process;
        process.start(QStringLiteral(PLOTKA_COMMAND), arguments(inputs[below(2)], force));
        ASSERT_TRUE(process.waitForStarted());
        usleep(static_cast<useconds_t>(below(anImport + anImport / 4)));
        process.kill();
        ASSERT_TRUE(process.waitForFinished(120'000));
        killed += process.exitStatus() == QProcess::CrashExit;
        const CommandRun run = info();
        ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString() << written().join(u' ').toStdString();
        ASSERT_EQ(run.errors.toStdString(), "");
        const int frames = run.json()[QLatin1String("frames")].toInt();
        ASSERT_TRUE(frames == 1000 || frames == 1500) << frames;
        for (const QString &aside : QDir(output()).entryList({QStringLiteral("*~*")}, QDir::Files))
            QFile::remove(output() + u'/' + aside);
    }
    EXPECT_GT(killed, 0);
    EXPECT_EQ(import(inputs[0], force).exitCode, 0) << "nobody is waited for who has died";
    EXPECT_FALSE(written().contains(QStringLiteral(".plotka-new")));
}

TEST_F(ImportSafety, SaysWhereTheEarlierProjectWent)
{
    ASSERT_EQ(import(cut("Night", 1)).exitCode, 0);
    const CommandRun run = import(cut("Day", 1), {QStringLiteral("--force")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors.toStdString(),
        "plotka: the earlier project " + output().toStdString() + "/Night.plotka is now " + output().toStdString()
            + "/Night.plotka~\n");
}

TEST_F(ImportSafety, LosesNothingWhenSeveralImportAtOnce)
{
    for (int count : {2, 8}) {
        std::vector<int> codes;
        runTogether(count, {}, codes);
        EXPECT_EQ(std::count(codes.begin(), codes.end(), 0), 1);
        EXPECT_EQ(std::count(codes.begin(), codes.end(), 5), count - 1);
        QDir(output()).removeRecursively();
    }
}

TEST_F(ImportSafety, LosesNothingWhenSeveralReplaceAtOnce)
{
    for (int count : {2, 8}) {
        std::vector<int> codes;
        runTogether(count, {QStringLiteral("--force")}, codes);
        EXPECT_EQ(std::count(codes.begin(), codes.end(), 0) + std::count(codes.begin(), codes.end(), 5), count);
        QDir(output()).removeRecursively();
    }
}

TEST_F(ImportSafety, WaitsForTheOthersWhenTold)
{
    std::vector<int> codes;
    runTogether(8, {QStringLiteral("--force"), QStringLiteral("--wait")}, codes);
    EXPECT_EQ(std::count(codes.begin(), codes.end(), 0), 8);
}

// A limit on the size of files makes the disk full for one process.
TEST_F(ImportSafety, SaysWhyTheProjectCannotBeWritten)
{
    QProcess process;
    process.setChildProcessModifier([] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
    });
    process.start(QStringLiteral(PLOTKA_COMMAND), arguments(cut("Night", 100)));
    ASSERT_TRUE(process.waitForFinished(120'000));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError().toStdString(),
        "plotka: " + output().toStdString()
            + "/Night.plotka: error: not saved: it cannot be written: File too large\n");
    EXPECT_FALSE(QFileInfo::exists(output()));
}

TEST_F(ImportSafety, SaysWhyTheReportCannotBeWritten)
{
    const CommandRun run = import(cut("Night", 1), {QStringLiteral("--report"), QStringLiteral("/dev/full")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors.toStdString(), "plotka: /dev/full: the report cannot be written: No space left on device\n");
    EXPECT_FALSE(QFileInfo::exists(output()));

    const QString nowhere = path(QStringLiteral("nowhere/report.json"));
    const CommandRun other = import(cut("Night", 1), {QStringLiteral("--report"), nowhere});
    EXPECT_EQ(other.errors.toStdString(),
        "plotka: " + nowhere.toStdString() + ": the report cannot be written: No such file or directory\n");
}

TEST_F(ImportSafety, SaysWhyItsOutputCannotBeWritten)
{
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(PLOTKA_COMMAND), arguments(cut("Night", 1)));
    ASSERT_TRUE(process.waitForFinished(120'000));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError().toStdString(),
        "plotka: cannot write to standard output: No space left on device\n");
    EXPECT_FALSE(QFileInfo::exists(output()));
}

// The report is the last to be written, so it would take the place of the new project and nobody would know.
TEST_F(ImportSafety, LetsNoLinkLeadTheReportToTheProject)
{
    const auto link = [this](const QString &target, const char *name) {
        const QString linkPath = path(QString::fromLatin1(name));
        EXPECT_TRUE(QFile::link(target, linkPath));
        return linkPath;
    };
    const QString project = output() + QStringLiteral("/Night.plotka");
    const QString alias = link(path(QString()), "alias");
    const QString reports[] = {project, link(project, "report.json"), alias + QStringLiteral("/out/Night.plotka")};
    const QString input = cut("Night", 1);
    for (const QString &option : {QString(), QStringLiteral("--force")}) { // there is no folder yet, then there is
        for (const QString &report : reports) {
            QStringList options{QStringLiteral("--report"), report};
            if (!option.isEmpty())
                options += option;
            EXPECT_EQ(import(input, options).exitCode, 2) << report.toStdString();
        }
        EXPECT_EQ(QFileInfo::exists(output()), !option.isEmpty());
        ASSERT_EQ(import(input, {QStringLiteral("--force")}).exitCode, 0);
        EXPECT_EQ(info().exitCode, 0);
    }
    EXPECT_EQ(
        import(input, {QStringLiteral("--force"), QStringLiteral("--report"), path(QStringLiteral("r"))}).exitCode, 0);
}

TEST_F(ImportSafety, ReportsEveryNote)
{
    const QString report = path(QStringLiteral("report.json"));
    const CommandRun run = import(cut("Night", 1000, 700), {QStringLiteral("--report"), report});
    ASSERT_EQ(run.exitCode, 0);
    QFile file(report);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    CommandRun read;
    read.output = file.readAll();
    const QJsonArray notes = read.json()[QLatin1String("notes")].toArray();
    int effects = 0;
    for (const QJsonValue &note : notes) {
        EXPECT_FALSE(note[QLatin1String("message")].toString().contains(QStringLiteral("more of this kind")));
        effects += note[QLatin1String("item")].toString().contains(QStringLiteral("item "));
    }
    EXPECT_GE(effects, 700);
    EXPECT_LT(run.errors.count('\n'), 30) << "the console tells the first of them";
}

TEST_F(ImportSafety, ReportsToAPipe)
{
    const CommandRun out = import(cut("Night", 3, 2), {QStringLiteral("--report"), QStringLiteral("/dev/stdout")});
    EXPECT_EQ(out.exitCode, 0);
    CommandRun report;
    report.output = out.output.mid(out.output.indexOf('\n') + 1);
    EXPECT_EQ(report.json()[QLatin1String("project")].toString(), output() + QStringLiteral("/Night.plotka"));
    EXPECT_EQ(out.output.left(out.output.indexOf('\n')), output().toUtf8() + "/Night.plotka");

    const QString pipe = path(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const int reader = open(QFile::encodeName(pipe).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    EXPECT_EQ(import(cut("Day", 3, 2), {QStringLiteral("--force"), QStringLiteral("--report"), pipe}).exitCode, 0);
    QFile file;
    ASSERT_TRUE(file.open(reader, QIODevice::ReadOnly, QFile::AutoCloseHandle));
    report.output = file.readAll();
    EXPECT_EQ(report.json()[QLatin1String("project")].toString(), output() + QStringLiteral("/Day.plotka"));
    EXPECT_TRUE(QFileInfo(pipe).exists() && !QFileInfo(pipe).isFile()) << "it is still a pipe";
}

TEST_F(ImportSafety, ReadsFilesWhoseNamesAreNotInUtf8)
{
    const QByteArray input = QFile::encodeName(path(QStringLiteral("caf"))) + "\xE9.otio";
    ASSERT_EQ(rename(QFile::encodeName(cut("Night", 2)).constData(), input.constData()), 0);
    const auto run = [](const QByteArray &command) {
        return runProgram(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QString::fromLatin1(command)});
    };
    const QByteArray command = PLOTKA_COMMAND;
    // The shell makes the byte, since a text cannot hold it.
    const QByteArray name = QFile::encodeName(path(QStringLiteral("caf"))) + "$(printf '\\351')";
    const QByteArray out = QFile::encodeName(output());
    const CommandRun imported = run(command + " import \"" + name + ".otio\" -o " + out);
    EXPECT_EQ(imported.exitCode, 0) << imported.errors.toStdString();
    EXPECT_EQ(imported.output.toStdString(), out.toStdString() + "/Night.plotka\n");

    EXPECT_EQ(run("mv " + out + "/Night.plotka \"" + name + ".plotka\"").exitCode, 0);
    const CommandRun told = run(command + " info --json \"" + name + ".plotka\"");
    EXPECT_EQ(told.exitCode, 0) << told.errors.toStdString();
    EXPECT_EQ(told.json()[QLatin1String("frames")].toInt(), 20);
    EXPECT_EQ(run(command + " import \"" + name + ".otio\" -o \"" + name + ".plotka\"").exitCode, 2);
    EXPECT_EQ(run(command + " info \"" + name + ".none\"").exitCode, 3);
    EXPECT_EQ(run("rm \"" + name + ".otio\" \"" + name + ".plotka\"").exitCode, 0)
        << "the test's folder cannot name them";
}
