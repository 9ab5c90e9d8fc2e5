#include "scene/storage/SC_ProjectFile.h"

#include "scene/project/SC_Project.h"
#include "scene/storage/ProjectReader_p.h"
#include "scene/storage/ProjectWriter_p.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/WholeWrite_p.h"
#include "scene/storage/XmlBounds_p.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <optional>
#include <utility>

namespace
{

constexpr qint64 blockSize = qint64(1) << 20;

void fail(SC_FileReport &report, const QString &filePath, const QString &message)
{
    report.add({SC_FileReport::Error, filePath, 0, 0, QString(), message});
}

/// "<name>.plotka" and nothing else, since saving writes to such a name.
bool isNamedAsProject(const QFileInfo &file)
{
    return file.suffix() == QStringLiteral("plotka") && !file.completeBaseName().isEmpty();
}

QByteArray digestOf(const QByteArray &text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Blake2b_256);
}

std::optional<QByteArray> contentOf(const QString &filePath, SC_FileReport &report)
{
    // Pipes and devices have no end.
    if (!QFileInfo(filePath).isFile()) {
        fail(report, filePath,
            QFileInfo::exists(filePath) ? QStringLiteral("this is no regular file")
                                        : QStringLiteral("there is no such file"));
        return std::nullopt;
    }
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(report, filePath, QStringLiteral("cannot be opened: %1").arg(file.errorString()));
        return std::nullopt;
    }
    bool isTooLarge = file.size() > ProjectReader::sizeLimit;
    QByteArray content;
    content.reserve(isTooLarge ? 0 : static_cast<qsizetype>(file.size()));
    while (!isTooLarge) {
        const QByteArray block = file.read(blockSize); // it makes room for as much as it is asked for
        if (block.isEmpty())
            break;
        content += block;
        isTooLarge = content.size() > ProjectReader::sizeLimit;
    }
    if (file.error() != QFileDevice::NoError) {
        fail(report, filePath, QStringLiteral("cannot be read: %1").arg(file.errorString()));
        return std::nullopt;
    }
    if (isTooLarge) {
        fail(report, filePath, QStringLiteral("the file is larger than %1 bytes").arg(ProjectReader::sizeLimit));
        return std::nullopt;
    }
    return content;
}

/// Whether the file may be replaced: it is not there, or is what the project last read or wrote.
bool mayReplace(const QString &filePath, const QByteArray &knownDigest, SC_FileReport &report)
{
    if (!QFileInfo::exists(filePath) && !QFileInfo(filePath).isSymLink())
        return true;
    if (knownDigest.isEmpty()) {
        fail(
            report, filePath, QStringLiteral("not saved: there is a file already that this project was not read from"));
        return false;
    }
    const std::optional<QByteArray> content = contentOf(filePath, report);
    if (!content)
        return false;
    if (digestOf(*content) == knownDigest)
        return true;
    fail(report, filePath, QStringLiteral("not saved: the file was changed since it was read or saved"));
    return false;
}

struct Written {
    QByteArray text;
    qint64 items;
    qint64 fullSize; ///< of the text if each record stood in its scene
};

Written written(const SC_Project &project, const QString &name)
{
    ProjectWriter writer(project);
    const QByteArray text = writer.text(name);
    return {text, writer.itemCount(), text.size() + writer.savedSize()};
}

/// What would keep the file from being read again; empty when nothing does.
QString excessOf(const SC_Project &project, const Written &file)
{
    if (file.fullSize > ProjectReader::sizeLimit)
        return QStringLiteral("the file would be larger than %1 bytes").arg(ProjectReader::sizeLimit);
    if (project.sceneCount() > ProjectReader::sceneLimit)
        return QStringLiteral("there are more than %1 scenes").arg(ProjectReader::sceneLimit);
    if (file.items > ProjectReader::itemLimit)
        return QStringLiteral("there are more than %1 items").arg(ProjectReader::itemLimit);
    return XmlBounds::find(file.text).message;
}

} // namespace

QString SC_ProjectFile::resolve(const QString &path, SC_FileReport &report)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists()) {
        fail(report, path, QStringLiteral("there is no such file or folder"));
        return QString();
    }
    if (!info.isDir() && isNamedAsProject(info))
        return path;
    if (!info.isDir()) {
        fail(report, path, QStringLiteral("the name of a project file is \"<name>.plotka\""));
        return QString();
    }
    const QStringList files = QDir(path).entryList(
        {QStringLiteral("?*.plotka")}, QDir::Files | QDir::Hidden | QDir::CaseSensitive, QDir::Name);
    if (files.size() == 1)
        return QDir(path).filePath(files.first());
    fail(report, path,
        files.isEmpty() ? QStringLiteral("the folder holds no project file")
                        : QStringLiteral("the folder holds more than one project file"));
    return QString();
}

SC_Project *SC_ProjectFile::read(const QString &filePath, SC_FileReport &report)
{
    std::optional<QByteArray> content = contentOf(filePath, report);
    if (!content)
        return nullptr;
    const QByteArray digest = digestOf(*content);
    SC_Project *const project = ProjectReader(*std::exchange(content, {}), filePath, report).read();
    if (project)
        project->projectCommon()->dbSceneData()->setFileDigest(digest);
    return project;
}

bool SC_ProjectFile::write(const SC_Project &project, const QString &filePath, SC_FileReport &report)
{
    const QFileInfo info(filePath);
    if (!isNamedAsProject(info)) {
        fail(report, filePath, QStringLiteral("not saved: the name of a project file is \"<name>.plotka\""));
        return false;
    }
    const Written made = written(project, info.completeBaseName());
    if (const QString excess = excessOf(project, made); !excess.isEmpty()) {
        fail(report, filePath, QStringLiteral("not saved: %1").arg(excess));
        return false;
    }
    if (!QDir().mkpath(info.path())) {
        fail(report, filePath, QStringLiteral("not saved: the folder cannot be made: %1").arg(qt_error_string(errno)));
        return false;
    }
    TUDbSceneData &data = *project.projectCommon()->dbSceneData();
    QSaveFile file(filePath);
    const bool isWritten = file.open(QIODevice::WriteOnly) && writeWhole(file, made.text) && file.flush();
    // Looked at as late as can be: others may save the same project.
    if (isWritten && !mayReplace(filePath, data.fileDigest(), report)) {
        file.cancelWriting();
        return false;
    }
    if (!isWritten || !file.commit()) {
        fail(report, filePath, QStringLiteral("not saved: it cannot be written: %1").arg(file.errorString()));
        return false;
    }
    // A copy elsewhere says nothing of the project's own file.
    if (QFileInfo(filePath) == QFileInfo(data.filePath()))
        data.setFileDigest(digestOf(made.text));
    return true;
}

SC_Project *SC_ProjectFile::fromText(const QByteArray &text, const QString &filePath, SC_FileReport &report)
{
    return ProjectReader(text, filePath, report).read();
}

QByteArray SC_ProjectFile::toText(const SC_Project &project, const QString &name)
{
    return written(project, name).text;
}
