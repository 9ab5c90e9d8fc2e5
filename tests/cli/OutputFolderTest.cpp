#include "cli/OutputFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

class OutputFolderOnDisk : public ::testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList files() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    QString folder() const { return m_folder.path(); }

    /// Takes the folder and writes a new project into its stage.
    void stage(OutputFolder &output, const QString &name) const
    {
        ASSERT_EQ(output.prepare(OutputFolder::Existing::Replace), OutputFolder::Access::Given);
        const QString staged = output.stage(name);
        QFile file(staged);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << staged.toStdString();
        file.write("new");
    }
    void swapIn(const QString &name) const
    {
        OutputFolder output(folder());
        stage(output, name);
        EXPECT_TRUE(output.swapIn()) << output.problem().toStdString();
        output.keep();
    }

private:
    QTemporaryDir m_folder;
};

const QString oldProject = QStringLiteral("old.plotka");
const QString newProject = QStringLiteral("new.plotka");

} // namespace

TEST_F(OutputFolderOnDisk, LeavesTheEarlierProjectWhenTheNewOneIsNotSwappedIn)
{
    write(oldProject, "old");
    {
        OutputFolder output(folder());
        EXPECT_TRUE(output.isTaken());
        stage(output, newProject);
        EXPECT_EQ(read(oldProject), QByteArray("old"));
    }
    EXPECT_EQ(files(), QStringList{oldProject});
}

TEST_F(OutputFolderOnDisk, PutsTheEarlierProjectBackWhenTheNewOneIsNotKept)
{
    for (const QString &name : {oldProject, newProject}) {
        write(oldProject, "old");
        {
            OutputFolder output(folder());
            stage(output, name);
            EXPECT_TRUE(output.swapIn());
            EXPECT_EQ(read(name), QByteArray("new"));
            EXPECT_EQ(read(QStringLiteral("old.plotka~")), QByteArray("old"));
        }
        EXPECT_EQ(files(), QStringList{oldProject});
        EXPECT_EQ(read(oldProject), QByteArray("old"));
    }
}

TEST_F(OutputFolderOnDisk, KeepsEarlierBackups)
{
    write(QStringLiteral("old.plotka~"), "oldest");
    write(QStringLiteral("old.plotka~2"), "older");
    write(oldProject, "old");
    swapIn(oldProject);
    EXPECT_EQ(files(),
        (QStringList{oldProject, QStringLiteral("old.plotka~"), QStringLiteral("old.plotka~2"),
            QStringLiteral("old.plotka~3")}));
    EXPECT_EQ(read(oldProject), QByteArray("new"));
    EXPECT_EQ(read(QStringLiteral("old.plotka~")), QByteArray("oldest"));
    EXPECT_EQ(read(QStringLiteral("old.plotka~2")), QByteArray("older"));
    EXPECT_EQ(read(QStringLiteral("old.plotka~3")), QByteArray("old"));
}

TEST_F(OutputFolderOnDisk, SaysWhereTheEarlierProjectWent)
{
    write(oldProject, "old");
    OutputFolder output(folder());
    stage(output, newProject);
    ASSERT_TRUE(output.swapIn());
    output.keep();
    ASSERT_EQ(output.earlierProjects().size(), 1);
    EXPECT_EQ(output.earlierProjects().first().name, path(oldProject));
    EXPECT_EQ(output.earlierProjects().first().asideName, path(QStringLiteral("old.plotka~")));
}

TEST_F(OutputFolderOnDisk, HoldsOneProjectAfterwardsHoweverManyThereWere)
{
    write(QStringLiteral("a.plotka"), "a");
    write(oldProject, "old");
    {
        OutputFolder output(folder());
        stage(output, oldProject);
        ASSERT_TRUE(output.swapIn());
        EXPECT_EQ(read(QStringLiteral("a.plotka~")), QByteArray("a"));
    }
    EXPECT_EQ(files(), (QStringList{QStringLiteral("a.plotka"), oldProject}));
    EXPECT_EQ(read(oldProject), QByteArray("old"));
    swapIn(newProject);
    EXPECT_EQ(files(), (QStringList{QStringLiteral("a.plotka~"), newProject, QStringLiteral("old.plotka~")}));
}

TEST_F(OutputFolderOnDisk, PutsNothingInPlaceOfWhatIsNoProject)
{
    write(oldProject, "old");
    QDir(folder()).mkdir(newProject);
    {
        OutputFolder output(folder());
        stage(output, newProject);
        EXPECT_FALSE(output.swapIn());
        EXPECT_TRUE(output.problem().contains(newProject)) << output.problem().toStdString();
    }
    EXPECT_EQ(files(), (QStringList{newProject, oldProject}));
}

TEST_F(OutputFolderOnDisk, TakesAwayWhatAProcessThatDiedLeftInTheStage)
{
    QDir(folder()).mkpath(QStringLiteral(".plotka-new"));
    write(QStringLiteral(".plotka-new/half.plotka"), "half");
    EXPECT_FALSE(OutputFolder(folder()).isTaken());
    swapIn(newProject);
    EXPECT_EQ(files(), QStringList{newProject});
}

TEST_F(OutputFolderOnDisk, RemovesTheFoldersThatItMade)
{
    {
        OutputFolder output(path(QStringLiteral("a/b")));
        EXPECT_FALSE(output.isTaken());
        stage(output, newProject);
        EXPECT_TRUE(QDir(path(QStringLiteral("a/b"))).exists());
        EXPECT_TRUE(output.swapIn());
    }
    EXPECT_FALSE(QDir(path(QStringLiteral("a"))).exists());
    EXPECT_TRUE(QDir(folder()).exists());
}

TEST_F(OutputFolderOnDisk, SaysWhatStandsInTheWay)
{
    write(QStringLiteral("file"), "mine");
    {
        OutputFolder output(path(QStringLiteral("file/sub")));
        EXPECT_EQ(output.prepare(OutputFolder::Existing::Replace), OutputFolder::Access::Failed);
        EXPECT_TRUE(output.problem().contains(QStringLiteral("file")));
    }
    EXPECT_EQ(read(QStringLiteral("file")), QByteArray("mine"));
}

TEST_F(OutputFolderOnDisk, IsRefusedWhereSomethingIsUnlessItMayBeReplaced)
{
    write(QStringLiteral(".notes"), "mine");
    OutputFolder output(folder());
    EXPECT_EQ(output.prepare(OutputFolder::Existing::Refuse), OutputFolder::Access::Exists);
    EXPECT_EQ(output.prepare(OutputFolder::Existing::Replace), OutputFolder::Access::Given);
}

TEST_F(OutputFolderOnDisk, BelongsToOneAtATime)
{
    {
        OutputFolder first(path(QStringLiteral("made")));
        EXPECT_EQ(first.prepare(OutputFolder::Existing::Refuse), OutputFolder::Access::Given);
        OutputFolder second(path(QStringLiteral("made")));
        EXPECT_EQ(second.prepare(OutputFolder::Existing::Replace), OutputFolder::Access::Busy);
    }
    OutputFolder third(path(QStringLiteral("made")));
    EXPECT_EQ(third.prepare(OutputFolder::Existing::Refuse), OutputFolder::Access::Given);
}

TEST_F(OutputFolderOnDisk, DoesNothingBeforeItIsPrepared)
{
    write(oldProject, "old");
    EXPECT_TRUE(OutputFolder(folder()).isTaken());
    EXPECT_EQ(files(), QStringList{oldProject});
}

TEST_F(OutputFolderOnDisk, IsTakenByWhatNoTextCanName)
{
    OutputFolder output(folder());
    EXPECT_FALSE(output.isTaken());
    ASSERT_EQ(mkdir(QFile::encodeName(path(QStringLiteral(".plotka-new"))).constData(), 0700), 0);
    EXPECT_FALSE(output.isTaken()) << "that is what one left behind who died";
    const QByteArray foreign = QFile::encodeName(path(QStringLiteral("caf"))) + "\xE9.plotka";
    ASSERT_EQ(mkdir(foreign.constData(), 0700), 0);
    EXPECT_TRUE(output.isTaken());
    EXPECT_EQ(output.prepare(OutputFolder::Existing::Refuse), OutputFolder::Access::Exists);
    EXPECT_EQ(rmdir(foreign.constData()), 0) << "the test's folder cannot name it";
}

TEST_F(OutputFolderOnDisk, IsNoFolderWhereAFileOrALinkToNothingIs)
{
    write(QStringLiteral("file"), "old");
    ASSERT_EQ(symlink("nowhere", QFile::encodeName(path(QStringLiteral("link"))).constData()), 0);
    for (const char *name : {"file", "link", "file/in", "link/in"}) {
        OutputFolder output(path(QString::fromLatin1(name)));
        EXPECT_EQ(output.prepare(OutputFolder::Existing::Replace), OutputFolder::Access::Failed) << name;
        EXPECT_EQ(output.problem(), path(QString::fromLatin1(name).left(4)) + QStringLiteral(" is no folder"));
    }
    EXPECT_EQ(read(QStringLiteral("file")), QByteArray("old"));
}

// Nothing can be made there, whoever asks.
TEST_F(OutputFolderOnDisk, FailsWhereAFolderNeverStays)
{
    OutputFolder output(QStringLiteral("/proc/no-such-process"));
    EXPECT_EQ(output.prepare(OutputFolder::Existing::Replace), OutputFolder::Access::Failed);
    EXPECT_FALSE(output.problem().isEmpty());
    EXPECT_EQ(output.warning(), QString());
}

// Others make the folder at the same time, and take it away when they fail. Whoever looks between takes neither for a file.
TEST_F(OutputFolderOnDisk, IsTakenForNoFileWhileOthersMakeItAndTakeItAway)
{
    const QString name = path(QStringLiteral("out"));
    std::atomic<bool> isDone = false;
    std::thread other([&] {
        const QByteArray encoded = QFile::encodeName(name);
        while (!isDone) {
            mkdir(encoded.constData(), 0700);
            rmdir(encoded.constData());
        }
    });
    const OutputFolder looking(name);
    for (int i = 0; i < 200'000 && !HasFailure(); ++i)
        EXPECT_FALSE(looking.isTaken());
    for (int i = 0; i < 1'000 && !HasFailure(); ++i) {
        OutputFolder output(name);
        output.prepare(OutputFolder::Existing::Refuse);
        EXPECT_FALSE(output.problem().contains(QStringLiteral("is no folder"))) << output.problem().toStdString();
    }
    isDone = true;
    other.join();
}
