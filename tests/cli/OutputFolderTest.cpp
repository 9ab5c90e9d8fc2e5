#include "cli/OutputFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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
    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files, QDir::Name); }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(OutputFolderOnDisk, PutsTheEarlierProjectBackWhenTheNewOneIsNotKept)
{
    write(QStringLiteral("old.plotka"), "old");
    {
        OutputFolder output(folder());
        EXPECT_TRUE(output.isTaken());
        EXPECT_EQ(output.prepare(), QString());
        EXPECT_EQ(files(), QStringList{QStringLiteral("old.plotka~")});
        write(QStringLiteral("new.plotka"), "half");
    }
    EXPECT_EQ(files(), QStringList{QStringLiteral("old.plotka")});
    EXPECT_EQ(read(QStringLiteral("old.plotka")), QByteArray("old"));
}

TEST_F(OutputFolderOnDisk, KeepsEarlierBackupsWhetherTheNewOneIsKeptOrNot)
{
    write(QStringLiteral("old.plotka~"), "oldest");
    write(QStringLiteral("old.plotka~2"), "older");
    write(QStringLiteral("old.plotka"), "old");
    const QStringList before = files();
    {
        OutputFolder output(folder());
        EXPECT_EQ(output.prepare(), QString());
        EXPECT_EQ(read(QStringLiteral("old.plotka~3")), QByteArray("old"));
    }
    EXPECT_EQ(files(), before);
    {
        OutputFolder output(folder());
        EXPECT_EQ(output.prepare(), QString());
        output.keep();
    }
    EXPECT_EQ(files(),
        (QStringList{QStringLiteral("old.plotka~"), QStringLiteral("old.plotka~2"), QStringLiteral("old.plotka~3")}));
    EXPECT_EQ(read(QStringLiteral("old.plotka~")), QByteArray("oldest"));
    EXPECT_EQ(read(QStringLiteral("old.plotka~2")), QByteArray("older"));
    EXPECT_EQ(read(QStringLiteral("old.plotka~3")), QByteArray("old"));
}

TEST_F(OutputFolderOnDisk, LeavesWhatIsKept)
{
    write(QStringLiteral("old.plotka"), "old");
    {
        OutputFolder output(folder());
        EXPECT_EQ(output.prepare(), QString());
        write(QStringLiteral("new.plotka"), "new");
        output.keep();
    }
    EXPECT_EQ(files(), (QStringList{QStringLiteral("new.plotka"), QStringLiteral("old.plotka~")}));
}

TEST_F(OutputFolderOnDisk, RemovesTheFoldersThatItMade)
{
    {
        OutputFolder output(path(QStringLiteral("a/b")));
        EXPECT_FALSE(output.isTaken());
        EXPECT_EQ(output.prepare(), QString());
        EXPECT_TRUE(QDir(path(QStringLiteral("a/b"))).exists());
        write(QStringLiteral("a/b/new.plotka"), "half");
    }
    EXPECT_FALSE(QDir(path(QStringLiteral("a"))).exists());
    EXPECT_TRUE(QDir(folder()).exists());
}

TEST_F(OutputFolderOnDisk, SaysWhatStandsInTheWay)
{
    write(QStringLiteral("file"), "mine");
    {
        OutputFolder output(path(QStringLiteral("file/sub")));
        EXPECT_TRUE(output.prepare().contains(QStringLiteral("file")));
    }
    EXPECT_EQ(read(QStringLiteral("file")), QByteArray("mine"));
}

TEST_F(OutputFolderOnDisk, DoesNothingBeforeItIsPrepared)
{
    write(QStringLiteral("old.plotka"), "old");
    EXPECT_TRUE(OutputFolder(folder()).isTaken());
    EXPECT_EQ(files(), QStringList{QStringLiteral("old.plotka")});
}
