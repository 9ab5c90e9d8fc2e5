#include "cli/CommandRun.h"
#include "support/Storyboard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

namespace
{

/// Nothing but messages, and this exit code.
void expectRefusal(const QStringList &arguments, int exitCode, const QByteArray &message)
{
    const CommandRun run = runPlotka(arguments);
    EXPECT_EQ(run.exitCode, exitCode) << arguments.join(u' ').toStdString();
    EXPECT_EQ(run.output.toStdString(), "");
    EXPECT_TRUE(run.errors.startsWith("plotka: ")) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains(message)) << run.errors.toStdString();
}

} // namespace

TEST(CommandLine, RefusesWhatIsNoCommand)
{
    expectRefusal({}, 2, "no command");
    expectRefusal({QStringLiteral("sing")}, 2, "\"sing\"");
    expectRefusal({QStringLiteral("--loud")}, 2, "loud");
    expectRefusal({QStringLiteral("--"), QStringLiteral("info")}, 2, "\"info\"");
}

TEST(CommandLine, RefusesWrongArgumentsOfACommand)
{
    for (const char *command : {"info", "timeline", "at", "dump"})
        expectRefusal({QLatin1String(command)}, 2, "FILE is missing");
    expectRefusal({QStringLiteral("at"), QStringLiteral("x")}, 2, "FRAME is missing");
    expectRefusal({QStringLiteral("info"), QStringLiteral("a"), QStringLiteral("b %1")}, 2, "\"b %1\" is too much");
    expectRefusal({QStringLiteral("info"), QStringLiteral("a"), QStringLiteral("--csv")}, 2, "csv");
}

TEST(CommandLine, ShowsHelpAndVersionOnStandardOutput)
{
    for (const char *option : {"--help", "-h"}) {
        const CommandRun run = runPlotka({QLatin1String(option)});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.errors, QByteArray());
        for (const char *command : {"import", "info", "timeline", "at", "dump"})
            EXPECT_TRUE(run.output.contains(command)) << run.output.toStdString();
    }
    for (const char *option : {"--version", "-v"})
        EXPECT_EQ(runPlotka({QLatin1String(option)}).output.toStdString(), "plotka " PLOTKA_VERSION "\n");
}

TEST(CommandLine, ShowsTheHelpOfEachCommand)
{
    for (const char *command : {"info", "timeline", "at"}) {
        const CommandRun run = runPlotka({QLatin1String(command), QStringLiteral("--help")});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.errors, QByteArray());
        EXPECT_TRUE(run.output.startsWith(QByteArray("Usage: plotka ") + command)) << run.output.toStdString();
        EXPECT_TRUE(run.output.contains("--json"));
    }
}

TEST(CommandLine, SaysWhyAProjectCannotBeOpened)
{
    const ProjectFolder folder;
    for (const QString &command : {QStringLiteral("info"), QStringLiteral("timeline"), QStringLiteral("at")}) {
        const QStringList rest = command == QStringLiteral("at") ? QStringList{QStringLiteral("1")} : QStringList();
        const auto expectBadInput = [&](const QString &file) {
            expectRefusal(QStringList{command, file} + rest, 3, QFileInfo(file).fileName().toUtf8());
        };
        expectBadInput(folder.path(QStringLiteral("nowhere.plotka")));
        expectBadInput(folder.write(QStringLiteral("empty.plotka"), QByteArray()));
        expectBadInput(folder.write(QStringLiteral("text.plotka"), "this is no project"));
        expectBadInput(folder.write(QStringLiteral("bytes.plotka"), QByteArray("\0\xff\xfe\x80", 4)));
        expectBadInput(folder.write(QStringLiteral("other.plotka"), "<?xml version=\"1.0\"?><other/>"));
    }
}

TEST(CommandLine, SaysWhyAFolderIsNoProject)
{
    const ProjectFolder folder;
    QDir().mkpath(folder.path(QStringLiteral("bare")));
    expectRefusal({QStringLiteral("info"), folder.path(QStringLiteral("bare"))}, 3, "bare");
    folder.write(QStringLiteral("two/one.plotka"), "x");
    folder.write(QStringLiteral("two/other.plotka"), "x");
    expectRefusal({QStringLiteral("info"), folder.path(QStringLiteral("two"))}, 3, "two");
}

TEST(CommandLine, SaysWhatATruncatedProjectLacks)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("A(24) B(24)"));
    QFile project(file);
    ASSERT_TRUE(project.open(QIODevice::ReadOnly));
    const QByteArray whole = project.readAll();
    const QString half = folder.write(QStringLiteral("half.plotka"), whole.left(whole.size() / 2));
    expectRefusal({QStringLiteral("timeline"), half}, 3, "half.plotka:");
}

TEST(CommandLine, ShowsNothingOfAProjectThatATerminalWouldActOn)
{
    const ProjectFolder folder;
    QFile project(folder.save(Storyboard("A(24)")));
    ASSERT_TRUE(project.open(QIODevice::ReadOnly));
    QByteArray content = project.readAll();
    content.replace("</plotka>", R"(<scene object="900" scene="901"><node class="group" number="1" name="Top">
<node class="odd" number="2" name="&#10;plotka: done &#x9b;2J&#x202e;"/></node></scene></plotka>)");
    const CommandRun run = runPlotka({QStringLiteral("timeline"), folder.write(QStringLiteral("odd.plotka"), content)});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.errors.contains("plotka: done \uFFFD2J\uFFFD")) << run.errors.toStdString();
    EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
    for (const char *acting : {"\u009b", "\u202e"})
        EXPECT_FALSE(run.errors.contains(acting)) << run.errors.toPercentEncoding(" ").toStdString();
}

TEST(CommandLine, FailsWhenItsResultCannotBeWritten)
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        GTEST_SKIP() << "there is no /dev/full here";
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(PLOTKA_COMMAND), {QStringLiteral("--version")});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("standard output"));
}
