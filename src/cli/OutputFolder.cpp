#include "cli/OutputFolder.h"

#include "cli/CliText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iterator>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// Under the lock there is one writer, so one name is enough.
const QString stageName = QStringLiteral(".plotka-new");

/// The files in the folder that are projects, to the letter of their names.
QStringList projectFiles(const QDir &folder)
{
    QStringList files = folder.entryList({QStringLiteral("?*.plotka")}, QDir::Files | QDir::Hidden, QDir::Name);
    const auto isOther = [](const QString &name) { return !name.endsWith(QStringLiteral(".plotka")); };
    files.erase(std::remove_if(files.begin(), files.end(), isOther), files.end());
    return files;
}

bool isThere(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

enum class Kind { None, Folder, Other };

/// What has that name, in one look: between two of them another process may make a folder, or take it away.
Kind kindOf(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (stat(name.constData(), &status) == 0)
        return S_ISDIR(status.st_mode) ? Kind::Folder : Kind::Other;
    const bool isLinkToNothing = lstat(name.constData(), &status) == 0 && S_ISLNK(status.st_mode);
    return isLinkToNothing ? Kind::Other : Kind::None;
}

/// Whether nothing lies in the folder but a stage. A name counts also where no text can hold it, and a folder that nobody may
/// look into counts as full.
bool isEmpty(const QString &folder)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(opendir(QFile::encodeName(folder).constData()), closedir);
    if (!entries)
        return errno == ENOENT;
    const QByteArray passedOver[] = {".", "..", QFile::encodeName(stageName)};
    while (const dirent *entry = readdir(entries.get())) {
        if (std::find(std::begin(passedOver), std::end(passedOver), entry->d_name) == std::end(passedOver))
            return false;
    }
    return true;
}

/// The first of "file~", "file~2", "file~3" ... that nobody has: what is aside already stays.
QString freeAsideName(const QString &file)
{
    QString name = file + u'~';
    for (int number = 2; isThere(name); ++number)
        name = file + u'~' + QString::number(number);
    return name;
}

/// Makes a second name for the file or, where the file system knows no such thing, a copy that is on the disk. Nothing is
/// replaced.
bool duplicate(const QString &file, const QString &name)
{
    if (link(QFile::encodeName(file).constData(), QFile::encodeName(name).constData()) == 0)
        return true;
    QFile source(file);
    QFile copy(name);
    if (errno == EEXIST || !source.copy(name) || !copy.open(QIODevice::ReadWrite))
        return false;
    return fsync(copy.handle()) == 0;
}

} // namespace

OutputFolder::~OutputFolder()
{
    if (!m_stage.isEmpty())
        QDir(m_stage).removeRecursively();
    if (m_isKept)
        return;
    undoSwap();
    for (auto folder = m_madeFolders.crbegin(); folder != m_madeFolders.crend(); ++folder)
        QDir().rmdir(*folder);
}

bool OutputFolder::isTaken() const
{
    if (const Kind kind = kindOf(m_path); kind != Kind::Folder)
        return kind == Kind::Other;
    return !isEmpty(m_path);
}

OutputFolder::Access OutputFolder::prepare(Existing existing, SC_FolderLock::Wait wait)
{
    // The folder may go between its making and its locking, when another process undoes what it did.
    constexpr int patience = 100;
    auto outcome = SC_FolderLock::Outcome::Gone;
    for (int i = 0; outcome == SC_FolderLock::Outcome::Gone && i < patience; ++i) {
        if (!makeFolders())
            return Access::Failed;
        outcome = m_lock.lock(m_path, wait);
    }
    if (outcome == SC_FolderLock::Outcome::Busy) {
        m_madeFolders.clear(); // they are in use
        return Access::Busy;
    }
    if (outcome == SC_FolderLock::Outcome::Gone) {
        m_problem = CliText::tr("the folder %1 cannot be made: it is gone again at once").arg(m_path);
        return Access::Failed;
    }
    if (outcome == SC_FolderLock::Outcome::Failed)
        m_warning =
            CliText::tr("%1 cannot be locked (%2): nothing else may write there now").arg(m_path, m_lock.error());
    // Asked only now: before, another process could still have been writing.
    return existing == Existing::Refuse && isTaken() ? Access::Exists : Access::Given;
}

QString OutputFolder::stage(const QString &fileName)
{
    const QString folder = QDir(m_path).filePath(stageName);
    QDir(folder).removeRecursively();
    if (mkdir(QFile::encodeName(folder).constData(), 0777) != 0) {
        fail(CliText::tr("the folder %1 cannot be made").arg(folder));
        return QString();
    }
    m_stage = folder;
    m_staged = QDir(folder).filePath(fileName);
    return m_staged;
}

// frees the name:  O.plotka = old                    O.plotka~ = nothing
// keepBeside:      O.plotka = old                    O.plotka~ = old
// move:            O.plotka = new                    O.plotka~ = old
// move:            N.plotka = new (and no O.plotka)  O.plotka~ = old
//
// Each line is one step that happens or does not, and after each there is one project that opens.
bool OutputFolder::swapIn()
{
    const QDir folder(m_path);
    const QString fileName = QFileInfo(m_staged).fileName();
    const QString target = folder.filePath(fileName);
    const QStringList earlier = projectFiles(folder);
    const QString replaced = earlier.contains(fileName) ? fileName : earlier.value(0);
    if (replaced != fileName && isThere(target)) {
        m_problem = CliText::tr("%1 is in the way").arg(target);
        return false;
    }
    for (const QString &name : earlier) {
        if (name != replaced && !putAside(folder.filePath(name)))
            return false;
    }
    const QString place = replaced.isEmpty() ? target : folder.filePath(replaced);
    if (!replaced.isEmpty() && !keepBeside(place))
        return false;
    if (!move(m_staged, place))
        return false;
    m_new = place;
    if (place != target && !move(place, target))
        return false;
    m_new = target;
    return true;
}

bool OutputFolder::makeFolders()
{
    QStringList missing;
    QString path = QDir::cleanPath(QDir(m_path).absolutePath());
    Kind kind = kindOf(path);
    for (; kind == Kind::None; kind = kindOf(path)) {
        missing.prepend(path);
        path = QFileInfo(path).path();
    }
    if (kind == Kind::Other) {
        m_problem = CliText::tr("%1 is no folder").arg(path);
        return false;
    }
    for (const QString &folder : std::as_const(missing)) {
        if (mkdir(QFile::encodeName(folder).constData(), 0777) == 0)
            m_madeFolders += folder;
        else if (errno == ENOENT)
            return true; // the one above has gone again; whoever locks this one finds out
        else if (errno != EEXIST)
            return fail(CliText::tr("the folder %1 cannot be made").arg(folder));
    }
    return true;
}

bool OutputFolder::putAside(const QString &file)
{
    const QString asideName = freeAsideName(file);
    if (!move(file, asideName))
        return false;
    m_asides.push_back({file, asideName});
    return true;
}

bool OutputFolder::keepBeside(const QString &file)
{
    const QString asideName = freeAsideName(file);
    if (!duplicate(file, asideName))
        return fail(CliText::tr("%1 cannot be kept as %2").arg(file, asideName));
    m_asides.push_back({file, asideName});
    m_replaced = file;
    return true;
}

bool OutputFolder::move(const QString &from, const QString &to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return true;
    return fail(CliText::tr("%1 cannot be renamed to %2").arg(from, to));
}

/// Notes what went wrong, and the reason that the system has just given. False.
bool OutputFolder::fail(const QString &what)
{
    m_problem = QStringLiteral("%1: %2").arg(what, qt_error_string(errno));
    return false;
}

/// Goes the steps of swapIn() backwards, so that at each there is one project here too.
void OutputFolder::undoSwap()
{
    const QString problem = m_problem;
    if (!m_new.isEmpty() && m_replaced.isEmpty())
        QFile::remove(m_new);
    if (!m_replaced.isEmpty()) {
        const QString asideName = m_asides.takeLast().asideName;
        if (m_new.isEmpty())
            QFile::remove(asideName); // the second name of what stands where it stood
        else if (m_new == m_replaced || move(m_new, m_replaced))
            move(asideName, m_replaced);
    }
    for (auto aside = m_asides.crbegin(); aside != m_asides.crend(); ++aside)
        move(aside->asideName, aside->name);
    m_problem = problem;
}
