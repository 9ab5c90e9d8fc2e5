#include "cli/OutputFolder.h"

#include "cli/CliText.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace
{

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

/// The first of "file~", "file~2", "file~3" ... that nobody has: what is aside already stays.
QString freeAsideName(const QString &file)
{
    QString name = file + u'~';
    for (int number = 2; isThere(name); ++number)
        name = file + u'~' + QString::number(number);
    return name;
}

} // namespace

OutputFolder::~OutputFolder()
{
    if (m_isKept)
        return;
    // What was written before it failed goes first, then the earlier project has its name again.
    if (m_isPrepared) {
        const QDir folder(m_path);
        const QStringList written = projectFiles(folder);
        for (const QString &file : written)
            QFile::remove(folder.filePath(file));
    }
    for (const MovedProject &moved : std::as_const(m_movedProjects))
        QFile::rename(moved.asideName, moved.name);
    for (auto folder = m_madeFolders.crbegin(); folder != m_madeFolders.crend(); ++folder)
        QDir().rmdir(*folder);
}

bool OutputFolder::isTaken() const
{
    if (QFileInfo(m_path).isDir())
        return !QDir(m_path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    return isThere(m_path);
}

QString OutputFolder::prepare()
{
    QString problem = makeFolders();
    if (problem.isEmpty())
        problem = moveProjectsAside();
    m_isPrepared = problem.isEmpty();
    return problem;
}

QString OutputFolder::makeFolders()
{
    QStringList missing;
    for (QString path = QDir::cleanPath(QDir(m_path).absolutePath()); !QFileInfo(path).isDir();
         path = QFileInfo(path).path()) {
        if (isThere(path))
            return CliText::tr("%1 is no folder").arg(path);
        missing.prepend(path);
    }
    for (const QString &path : std::as_const(missing)) {
        if (!QDir().mkdir(path))
            return CliText::tr("the folder %1 cannot be made").arg(path);
        m_madeFolders += path;
    }
    return QString();
}

QString OutputFolder::moveProjectsAside()
{
    const QDir folder(m_path);
    const QStringList files = projectFiles(folder);
    for (const QString &name : files) {
        const QString file = folder.filePath(name);
        const QString asideName = freeAsideName(file);
        if (!QFile::rename(file, asideName))
            return CliText::tr("%1 cannot be renamed").arg(file);
        m_movedProjects.push_back({file, asideName});
    }
    return QString();
}
