#include "scene/metadata/PIO_MetadataString.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "support/News.h"
#include "support/ProjectText.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

/// A project in a folder of its own.
struct SavedProject {
    SavedProject()
    {
        session.newProject(folder.path(), QStringLiteral("p"));
        EXPECT_TRUE(session.saveProject());
    }

    void change(const QString &words)
    {
        auto *record = new PIO_MetadataString(QStringLiteral("words"), QStringLiteral("c"), QStringLiteral("1"));
        record->setValue(words);
        session.project()->metadatas()->add(record);
    }
    std::string saveRefused()
    {
        SC_FileReport report;
        EXPECT_FALSE(session.saveProject(&report));
        EXPECT_TRUE(report.hasErrors());
        return textOf(report);
    }

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("p.plotka"));
    TestSession session;
};

// A process that carries the sanitizer's shadow takes a hundred times as long to be copied.
#if defined(__SANITIZE_ADDRESS__)
constexpr int kills = 50;
#else
constexpr int kills = 500;
#endif

/// Runs the code in a child process that answers for nothing but its files; gives its process id.
template <typename Code>
pid_t inChild(Code code)
{
    const pid_t child = fork();
    if (child == 0) {
        code();
        _exit(0);
    }
    return child;
}

} // namespace

TEST(Saving, IsRefusedOverAFileThatChangedOnDisk)
{
    SavedProject saved;
    saved.change(QStringLiteral("mine"));
    const QByteArray theirs = contentOf(saved.path).replace("rate=\"24\"", "rate=\"25\"");
    write(saved.path, theirs);
    EXPECT_EQ(saved.saveRefused(), "p.plotka: error: not saved: the file was changed since it was read or saved\n");
    EXPECT_EQ(contentOf(saved.path), theirs);
    EXPECT_EQ(QDir(saved.folder.path()).entryList(QDir::Files).size(), 1);

    // Elsewhere it can still be saved, and goes on from there.
    EXPECT_TRUE(saved.session.saveProjectAs(saved.folder.filePath(QStringLiteral("mine/q.plotka"))));
    EXPECT_TRUE(saved.session.saveProject());
    EXPECT_EQ(contentOf(saved.path), theirs);
}

TEST(Saving, IsNotRefusedOverAFileThatWasOnlyTouchedOrHasGone)
{
    SavedProject saved;
    const QByteArray same = contentOf(saved.path);
    write(saved.path, same);
    saved.change(QStringLiteral("a"));
    EXPECT_TRUE(saved.session.saveProject());
    EXPECT_TRUE(QFile::remove(saved.path));
    EXPECT_TRUE(saved.session.saveProject());
    saved.change(QStringLiteral("b"));
    EXPECT_TRUE(saved.session.saveProject());
    EXPECT_TRUE(contentOf(saved.path).contains("value=\"b\""));
}

TEST(Saving, IsRefusedOverAFileTheProjectWasNotReadFrom)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("p.plotka"));
    write(path, "precious");
    TestSession session;
    session.newProject(folder.path(), QStringLiteral("p"));
    SC_FileReport report;
    EXPECT_FALSE(session.saveProject(&report));
    EXPECT_EQ(
        textOf(report), "p.plotka: error: not saved: there is a file already that this project was not read from\n");
    EXPECT_EQ(contentOf(path), "precious");
}

TEST(Saving, LeavesAFileThatCouldNotBeReadAlone)
{
    SavedProject saved;
    const QByteArray damaged = contentOf(saved.path).left(100);
    write(saved.path, damaged);
    TestSession session;
    SC_FileReport report;
    EXPECT_EQ(session.openProject(saved.path, &report), nullptr);
    EXPECT_TRUE(report.hasErrors());
    EXPECT_FALSE(session.saveProject());
    session.newProject(saved.folder.path(), QStringLiteral("p"));
    EXPECT_FALSE(session.saveProject());
    EXPECT_EQ(contentOf(saved.path), damaged);
}

TEST(Saving, FailsWhereNothingCanBeWritten)
{
    const QTemporaryDir folder;
    write(folder.filePath(QStringLiteral("file")), "");
    TestSession session;
    session.newProject(folder.filePath(QStringLiteral("file/below")), QStringLiteral("p"));
    SC_FileReport report;
    EXPECT_FALSE(session.saveProject(&report));
    EXPECT_EQ(textOf(report), "p.plotka: error: not saved: the folder cannot be made: Not a directory\n");

    QDir(folder.path()).mkdir(QStringLiteral("p.plotka"));
    report.clear();
    EXPECT_FALSE(session.saveProjectAs(folder.filePath(QStringLiteral("p.plotka")), &report));
    EXPECT_TRUE(report.hasErrors());
}

TEST(Saving, ToAnotherPlaceLeavesTheProjectItsOwnFile)
{
    SavedProject saved;
    const QByteArray first = contentOf(saved.path);
    const QString copy = saved.folder.filePath(QStringLiteral("copy.plotka"));
    saved.change(QStringLiteral("a"));
    SC_FileReport report;
    ASSERT_TRUE(SC_ProjectFile::write(*saved.session.project(), copy, report)) << textOf(report);
    EXPECT_EQ(contentOf(saved.path), first);
    EXPECT_TRUE(saved.session.saveProject(&report)) << textOf(report);
    EXPECT_TRUE(SC_ProjectFile::write(*saved.session.project(), saved.path, report)) << textOf(report);
    saved.change(QStringLiteral("b"));
    EXPECT_TRUE(saved.session.saveProject(&report)) << textOf(report);
}

TEST(Saving, ChangesNothingInTheProject)
{
    SavedProject saved;
    const std::string before = textOf(*saved.session.project());
    News news(*saved.session.changeManager());
    EXPECT_TRUE(saved.session.saveProject());
    EXPECT_TRUE(saved.session.saveProjectAs(saved.folder.filePath(QStringLiteral("other/p.plotka"))));
    EXPECT_FALSE(saved.session.saveProjectAs(saved.folder.filePath(QStringLiteral("p.xml"))));
    EXPECT_EQ(news.told(), "");
    EXPECT_EQ(textOf(*saved.session.project()), before);
    EXPECT_EQ(saved.session.project()->projectCommon()->dbSceneData()->projectDir(),
        saved.folder.filePath(QStringLiteral("other")));
}

TEST(Saving, TellsWhyItIsRefused)
{
    SC_FileReport report;
    TestSession empty;
    EXPECT_FALSE(empty.saveProject(&report));
    EXPECT_FALSE(empty.saveProjectAs(QStringLiteral("/nowhere/p.plotka"), &report));
    EXPECT_FALSE(empty.saveProject());
    EXPECT_EQ(
        textOf(report), "error: not saved: there is no project\np.plotka: error: not saved: there is no project\n");

    SavedProject saved;
    for (const char *name : {"p", "p.xml", "p.PLOTKA", "p.plotka.bak", ".plotka"}) {
        report.clear();
        const QString path = saved.folder.filePath(QString::fromLatin1(name));
        EXPECT_FALSE(saved.session.saveProjectAs(path, &report));
        EXPECT_EQ(textOf(report),
            name + std::string(": error: not saved: the name of a project file is \"<name>.plotka\"\n"));
        EXPECT_FALSE(SC_ProjectFile::write(*saved.session.project(), path, report));
        EXPECT_FALSE(QFile::exists(path));
    }
    EXPECT_TRUE(saved.session.saveProject()) << "it lives where it did";
    EXPECT_EQ(QDir(saved.folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("p.plotka")});
}

TEST(Saving, IsRefusedWhenTheFileCouldNotBeReadAgain)
{
    SavedProject saved;
    auto *group = dynamic_cast<TUScene &>(*saved.session.project()->sceneAt(0)).getRootGroup();
    const auto nest = [&group] {
        auto *inner = new TUGroup(group->sceneCommon(), QStringLiteral("g"));
        group->addNode(UT_SharedPtr<MO_Node>(inner));
        group = inner;
    };
    for (int i = 0; i < 19997; ++i) // beside the root, the scene and the project
        nest();
    ASSERT_TRUE(saved.session.saveProject());
    SC_FileReport report;
    EXPECT_TRUE(TestSession().openProject(saved.path, &report)) << textOf(report);

    const QByteArray before = contentOf(saved.path);
    nest();
    EXPECT_EQ(saved.saveRefused(), "p.plotka: error: not saved: elements nest deeper than 20000\n");
    EXPECT_EQ(contentOf(saved.path), before);
}

TEST(Opening, QueuesNothing)
{
    const QTemporaryDir folder;
    TestSession session;
    fillWithEverything(*session.newProject(folder.path(), QStringLiteral("p")));
    ASSERT_TRUE(session.saveProject());
    TestSession other;
    News news(*other.changeManager());
    ASSERT_TRUE(other.openProject(folder.path()));
    EXPECT_EQ(news.told(), "");
}

TEST(Opening, IsRefusedForAFileOfAnotherName)
{
    SavedProject saved;
    for (const char *name : {"p.xml", "P.PLOTKA", "p.plotka.bak", ".plotka", "plotka"}) {
        const QString path = saved.folder.filePath(QString::fromLatin1(name));
        ASSERT_TRUE(QFile::copy(saved.path, path));
        SC_FileReport report;
        EXPECT_EQ(saved.session.openProject(path, &report), nullptr);
        EXPECT_EQ(textOf(report), name + std::string(": error: the name of a project file is \"<name>.plotka\"\n"));
    }
    EXPECT_TRUE(saved.session.openProject(saved.folder.path())) << "the only project file in the folder";
}

TEST(Opening, IsRefusedForAFileThatIsTooLarge)
{
    SavedProject saved;
    ASSERT_TRUE(QFile::resize(saved.path, (qint64(1) << 30) + 1)); // takes no room: it is all hole
    SC_FileReport report;
    EXPECT_EQ(TestSession().openProject(saved.path, &report), nullptr);
    EXPECT_EQ(textOf(report), "p.plotka: error: the file is larger than 1073741824 bytes\n");
    EXPECT_EQ(saved.saveRefused(), textOf(report));
}

#if !defined(__SANITIZE_ADDRESS__) // whose shadow alone takes more
TEST(Opening, TakesNoMoreRoomThanTheFileNeeds)
{
    SavedProject saved;
    const pid_t child = inChild([&]() noexcept {
        const rlimit limit{rlim_t(1) << 30, rlim_t(1) << 30};
        setrlimit(RLIMIT_AS, &limit);
        _exit(saved.session.openProject(saved.path) && saved.session.saveProject() ? 0 : 1);
    });
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}
#endif

TEST(Opening, TellsWhatIsNoFile)
{
    const QTemporaryDir folder;
    SC_FileReport report;
    EXPECT_EQ(SC_ProjectFile::read(folder.filePath(QStringLiteral("p.plotka")), report), nullptr);
    EXPECT_EQ(textOf(report), "p.plotka: error: there is no such file\n");
    const QString pipe = folder.filePath(QStringLiteral("pipe.plotka"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    report.clear();
    EXPECT_EQ(SC_ProjectFile::read(pipe, report), nullptr);
    EXPECT_EQ(textOf(report), "pipe.plotka: error: this is no regular file\n");
    report.clear();
    EXPECT_EQ(SC_ProjectFile::read(QStringLiteral("/dev/zero"), report), nullptr);
    EXPECT_EQ(textOf(report), "zero: error: this is no regular file\n");
}

TEST(Opening, KeepsTheProjectThatIsOpenWhenItFails)
{
    SavedProject saved;
    SC_Project *open = saved.session.project();
    EXPECT_EQ(saved.session.openProject(saved.folder.filePath(QStringLiteral("none.plotka"))), nullptr);
    EXPECT_EQ(saved.session.project(), open);
}

// A saving process is killed again and again at moments spread over all that it does.
TEST(Saving, LeavesAWholeFileWheneverItIsKilled)
{
    SavedProject saved;
    for (int i = 0; i < 100; ++i) // long enough to be hit in the middle of
        saved.session.project()->addScene();
    ASSERT_TRUE(saved.session.saveProject());

    // However slow the machine is just now, some children get to save and some do not. A child needs longer than its
    // parent: it copies the memory that it touches.
    QElapsedTimer clock;
    clock.start();
    const pid_t first = inChild([&saved] {
        saved.change(QStringLiteral("first"));
        _exit(saved.session.saveProject() ? 0 : 1);
    });
    int firstStatus = 0;
    ASSERT_EQ(waitpid(first, &firstStatus, 0), first);
    ASSERT_TRUE(WIFEXITED(firstStatus) && WEXITSTATUS(firstStatus) == 0);
    const auto aSave = static_cast<useconds_t>(clock.nsecsElapsed() / 1000);
    ASSERT_TRUE(saved.session.openProject(saved.path));

    std::mt19937 random(20);
    int survived = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const QByteArray before = contentOf(saved.path);
        const pid_t child = inChild([&] {
            for (int n = 0;; ++n) {
                saved.change(QStringLiteral("%1.%2").arg(kill).arg(n));
                if (!saved.session.saveProject())
                    _exit(1);
            }
        });
        usleep(std::uniform_int_distribution<useconds_t>(0, 2 * aSave)(random));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "saving failed";

        const QByteArray after = contentOf(saved.path);
        survived += after != before;
        SC_FileReport report;
        const UT_SharedPtr<SC_Project> whole(SC_ProjectFile::fromText(after, saved.path, report));
        ASSERT_TRUE(whole && report.isEmpty()) << textOf(report);
        ASSERT_EQ(SC_ProjectFile::toText(*whole, QStringLiteral("p")), after);
        // The next child goes on from what is there.
        ASSERT_TRUE(saved.session.openProject(saved.path));
        if (kill % 50 == 49) {
            for (const QString &left : QDir(saved.folder.path()).entryList({QStringLiteral("p.plotka.*")}))
                QFile::remove(saved.folder.filePath(left));
        }
    }
    EXPECT_GT(survived, 0) << "the child was never given the time to save";
}

TEST(Saving, LeavesTheOldFileWhenItRunsOutOfSpace)
{
    SavedProject saved;
    const QByteArray before = contentOf(saved.path);
    for (int i = 0; i < 2000; ++i)
        saved.session.project()->addScene();
    const QByteArray full = SC_ProjectFile::toText(*saved.session.project(), QStringLiteral("p"));
    for (rlim_t space : {rlim_t(0), rlim_t(1), rlim_t(4096), rlim_t(full.size() - 1)}) {
        const pid_t child = inChild([&] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{space, space};
            setrlimit(RLIMIT_FSIZE, &limit);
            SC_FileReport report;
            const bool isSaved = saved.session.saveProject(&report);
            _exit(isSaved || !report.hasErrors() ? 1 : 0);
        });
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "space for " << space;
        EXPECT_EQ(contentOf(saved.path), before);
        EXPECT_EQ(QDir(saved.folder.path()).entryList(QDir::Files).size(), 1);
    }
    EXPECT_TRUE(saved.session.saveProject());
    EXPECT_EQ(contentOf(saved.path), full);
}
