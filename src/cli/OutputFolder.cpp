#include "cli/OutputFolder.h"

#include "cli/CliText.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace
{

const QString projectPattern = QStringLiteral("*.plotka");

QString asideName(const QString &file)
{
    return file + u'~';
}

} // namespace

OutputFolder::~OutputFolder()
{
    if (m_isKept)
        return;
    // What was written before it failed goes first, then the earlier project has its name again.
    if (m_isPrepared) {
        const QDir folder(m_path);
        const QStringList written = folder.entryList({projectPattern}, QDir::Files | QDir::Hidden);
        for (const QString &file : written)
            QFile::remove(folder.filePath(file));
    }
    for (const QString &file : std::as_const(m_movedProjects))
        QFile::rename(asideName(file), file);
    for (auto folder = m_madeFolders.crbegin(); folder != m_madeFolders.crend(); ++folder)
        QDir().rmdir(*folder);
}

bool OutputFolder::isTaken() const
{
    const QFileInfo info(m_path);
    if (info.isDir())
        return !QDir(m_path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    return info.exists() || info.isSymLink();
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
        if (QFileInfo::exists(path) || QFileInfo(path).isSymLink())
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
    const QStringList files = folder.entryList({projectPattern}, QDir::Files | QDir::Hidden, QDir::Name);
    for (const QString &name : files) {
        const QString file = folder.filePath(name);
        if (QFile::exists(asideName(file)) && !QFile::remove(asideName(file)))
            return CliText::tr("%1 cannot be removed").arg(asideName(file));
        if (!QFile::rename(file, asideName(file)))
            return CliText::tr("%1 cannot be renamed").arg(file);
        m_movedProjects += file;
    }
    return QString();
}
