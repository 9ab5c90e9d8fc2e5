#include "scene/storage/SC_FolderLock.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace
{

using Outcome = SC_FolderLock::Outcome;
constexpr auto atOnce = SC_FolderLock::Wait::No;

} // namespace

TEST(FolderLock, IsHeldByOneAtATime)
{
    const QTemporaryDir folder;
    SC_FolderLock first;
    SC_FolderLock second;
    EXPECT_EQ(first.lock(folder.path(), atOnce), Outcome::Taken);
    EXPECT_EQ(second.lock(folder.path(), atOnce), Outcome::Busy);
    EXPECT_EQ(first.lock(folder.path(), atOnce), Outcome::Taken) << "its own lock is in nobody's way";
    first.unlock();
    first.unlock();
    EXPECT_EQ(second.lock(folder.path(), SC_FolderLock::Wait::UntilFree), Outcome::Taken);
    EXPECT_TRUE(QDir(folder.path()).isEmpty()) << "it leaves nothing behind";
}

TEST(FolderLock, NeedsAFolder)
{
    const QTemporaryDir folder;
    SC_FolderLock lock;
    EXPECT_EQ(lock.lock(folder.filePath(QStringLiteral("none")), atOnce), Outcome::Gone);
    EXPECT_EQ(lock.lock(QString(), atOnce), Outcome::Gone);
    EXPECT_EQ(lock.error(), QString());
    EXPECT_EQ(lock.lock(QStringLiteral("/dev/null"), atOnce), Outcome::Failed);
    EXPECT_EQ(lock.error(), QStringLiteral("Not a directory"));
}

TEST(FolderLock, IsLetGoByTheSystemWhenItsHolderDies)
{
    const QTemporaryDir folder;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        SC_FolderLock held;
        const bool isTaken = held.lock(folder.path(), atOnce) == Outcome::Taken;
        _exit(write(ready[1], isTaken ? "y" : "n", 1) == 1 && pause());
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    SC_FolderLock lock;
    EXPECT_EQ(lock.lock(folder.path(), atOnce), Outcome::Busy);
    ASSERT_EQ(kill(child, SIGKILL), 0);
    EXPECT_EQ(lock.lock(folder.path(), SC_FolderLock::Wait::UntilFree), Outcome::Taken);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    close(ready[0]);
    close(ready[1]);
}

// Who waits for a folder that is removed and made again must not lock the one that is gone.
TEST(FolderLock, IsOfTheFolderThatHasTheNameNow)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("f"));
    ASSERT_TRUE(QDir().mkdir(path));
    SC_FolderLock first;
    ASSERT_EQ(first.lock(path, atOnce), Outcome::Taken);
    ASSERT_TRUE(QDir().rmdir(path));
    ASSERT_TRUE(QDir().mkdir(path));
    SC_FolderLock second;
    EXPECT_EQ(second.lock(path, atOnce), Outcome::Taken);
}
