#include "scene/storage/SC_ProjectFile.h"

#include "scene/storage/SC_FileReport.h"

QString SC_ProjectFile::resolve(const QString &path, SC_FileReport &)
{
    return path;
}

SC_Project *SC_ProjectFile::read(const QString &filePath, SC_FileReport &report)
{
    report.add({SC_FileReport::Error, filePath, 0, 0, QString(), QStringLiteral("project files cannot be read yet")});
    return nullptr;
}

bool SC_ProjectFile::write(const SC_Project &, const QString &filePath, SC_FileReport &report)
{
    report.add(
        {SC_FileReport::Error, filePath, 0, 0, QString(), QStringLiteral("project files cannot be written yet")});
    return false;
}
