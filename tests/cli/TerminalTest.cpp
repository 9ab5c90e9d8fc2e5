#include "cli/CommandRun.h"
#include "support/Storyboard.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace
{

/// A terminal of our own: what the command writes to it can be read back.
class Terminal
{
public:
    explicit Terminal(unsigned short columns) : m_master(posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
            return;
        m_slave = open(ptsname(m_master), O_RDWR | O_NOCTTY);
        winsize size = {};
        size.ws_col = columns;
        size.ws_row = 24;
        ioctl(m_slave, TIOCSWINSZ, &size);
        fcntl(m_master, F_SETFL, O_NONBLOCK);
    }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;
    ~Terminal()
    {
        close(m_slave);
        close(m_master);
    }

    bool isOpen() const { return m_slave >= 0; }

    /// What the command prints on it, without carriage returns.
    QByteArray run(const QStringList &arguments, const QStringList &environment = {}) const
    {
        QProcess process;
        process.setEnvironment(QProcess::systemEnvironment() + environment);
        start(process, arguments, {STDOUT_FILENO});
        return finish(process).replace('\r', QByteArray());
    }

    /// All that it sees, messages too, of a command that waits so long for what it reads from standard input.
    QByteArray runWaiting(const QStringList &arguments, const QByteArray &input, std::chrono::milliseconds time) const
    {
        QProcess process;
        start(process, arguments, {STDOUT_FILENO, STDERR_FILENO});
        std::this_thread::sleep_for(time);
        process.write(input);
        process.closeWriteChannel();
        return finish(process).replace("\r\n", "\n");
    }

private:
    void start(QProcess &process, const QStringList &arguments, const std::vector<int> &streams) const
    {
        process.setChildProcessModifier([slave = m_slave, streams] {
            for (const int stream : streams)
                dup2(slave, stream);
        });
        process.start(QStringLiteral(PLOTKA_COMMAND), arguments);
    }

    QByteArray finish(QProcess &process) const
    {
        QByteArray output;
        while (!process.waitForFinished(20))
            output += readAll();
        EXPECT_EQ(process.exitCode(), 0);
        return output + readAll();
    }

    QByteArray readAll() const
    {
        QByteArray all;
        char buffer[4096];
        for (ssize_t count = read(m_master, buffer, sizeof buffer); count > 0;
             count = read(m_master, buffer, sizeof buffer))
            all.append(buffer, count);
        return all;
    }

    int m_master = -1;
    int m_slave = -1;
};

int longestLine(const QByteArray &text)
{
    int longest = 0;
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray &line : lines)
        longest = std::max(longest, static_cast<int>(QString::fromUtf8(line).size()));
    return longest;
}

} // namespace

TEST(Terminal, IsFilledByTheDrawingAndColoured)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("A(24) ~2+2~ B(24) -5- C(24)"));
    const Terminal terminal(60);
    if (!terminal.isOpen())
        GTEST_SKIP() << "no terminal can be made here";
    const QByteArray output = terminal.run({QStringLiteral("timeline"), file});
    EXPECT_TRUE(output.contains("\033[1m")) << output.toStdString();
    const QByteArray shots = output.mid(output.indexOf("\nshots ") + 1);
    EXPECT_EQ(shots.indexOf('\n'), 60) << output.toStdString();
}

TEST(Terminal, IsNotColouredWhereThatIsNotWanted)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("A(24) ~2+2~ B(24) -5- C(24)"));
    const Terminal terminal(72);
    if (!terminal.isOpen())
        GTEST_SKIP() << "no terminal can be made here";
    const QByteArray output = terminal.run({QStringLiteral("timeline"), file}, {QStringLiteral("NO_COLOR=1")});
    EXPECT_FALSE(output.contains('\033')) << output.toStdString();
    EXPECT_EQ(longestLine(output.mid(output.indexOf("\nframes"))), 72) << output.toStdString();
}

TEST(Terminal, LosesColumnsOfTheTableWhereItIsNarrow)
{
    const ProjectFolder folder;
    Storyboard board("A(24000) ~2+2~ B(24,12) -5- C(24)");
    board.nameShot(1, "a name that is long");
    const QString file = folder.save(board);
    const std::pair<unsigned short, const char *> heads[] = {
        {80, "first   last  frames  in shot  timecode     kind        id  name"},
        {64, "first   last  frames  timecode     kind        id  name"},
        {56, "first   last  timecode     kind        id  name"}, {48, "first   last  kind        id  name"},
        {40, "first   last  kind        id  name"}};
    for (const auto &[columns, head] : heads) {
        const Terminal terminal(columns);
        if (!terminal.isOpen())
            GTEST_SKIP() << "no terminal can be made here";
        const QByteArray output = terminal.run({QStringLiteral("timeline"), file}, {QStringLiteral("NO_COLOR=1")});
        const QByteArray table = output.mid(output.indexOf("\nframes"));
        EXPECT_TRUE(table.contains(QByteArray("\n") + head + '\n')) << columns << table.toStdString();
        EXPECT_LE(longestLine(table), columns) << table.toStdString();
    }
}

TEST(Terminal, SeesBothSidesOfATransitionBelowOneAnotherWhereItIsNarrow)
{
    const ProjectFolder folder;
    Storyboard board("Opening(30) ~4+6~ Street(34)");
    board.nameShot(1, "a name that is much longer than the terminal has room for");
    const QString file = folder.save(board);
    const std::pair<unsigned short, const char *> answers[] = {
        {80,
            "                   backward                     forward\n"
            "shot               Opening (id 3), frames 1-30  a name … (id 7), frames 21-54\n"},
        {56,
            "                   backward\n"
            "shot               Opening (id 3), frames 1-30\n"},
        {56,
            "                   forward\n"
            "shot               a name that is … (id 7), frames 21-54\n"}};
    for (const auto &[columns, text] : answers) {
        const Terminal terminal(columns);
        if (!terminal.isOpen())
            GTEST_SKIP() << "no terminal can be made here";
        const QByteArray output = terminal.run({QStringLiteral("at"), file, QStringLiteral("22")});
        EXPECT_TRUE(output.contains(text)) << output.toStdString();
    }
}

TEST(Terminal, SeesThatWorkTakesLongerThanASecondUntilItIsDone)
{
    const ProjectFolder folder;
    const QString output = folder.path(QStringLiteral("out"));
    const Terminal terminal(72);
    if (!terminal.isOpen())
        GTEST_SKIP() << "no terminal can be made here";
    const QByteArray seen =
        terminal.runWaiting({QStringLiteral("import"), QStringLiteral("/dev/stdin"), QStringLiteral("-o"), output},
            R"({"OTIO_SCHEMA": "Clip.2", "name": "A", "source_range": {"duration": {"rate": 24, "value": 48}}})",
            std::chrono::milliseconds(1300));
    EXPECT_TRUE(seen.startsWith("\rimporting /dev/stdin ... 1 s\r")) << seen.toStdString();
    EXPECT_TRUE(seen.endsWith("\r\033[K" + output.toUtf8() + "/A.plotka\n")) << seen.toStdString();
}

TEST(Terminal, SeesNothingOfShortWorkButItsResult)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("A(24)"));
    const Terminal terminal(72);
    if (!terminal.isOpen())
        GTEST_SKIP() << "no terminal can be made here";
    for (const QStringList &arguments :
        {QStringList{QStringLiteral("info"), file}, QStringList{QStringLiteral("at"), file, QStringLiteral("1")}}) {
        const QByteArray seen = terminal.runWaiting(arguments, QByteArray(), std::chrono::milliseconds(0));
        // On a slow machine it may have been long work.
        EXPECT_EQ(seen.contains("\033[K"), seen.contains(" ... 1 s")) << seen.toStdString();
    }
}
