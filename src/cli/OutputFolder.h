#pragma once

#include <QString>
#include <QStringList>

/// The folder into which a project is to be written. What it did to the disk is undone at the end of its life, unless the
/// project has been written and keep() said so.
class OutputFolder
{
public:
    explicit OutputFolder(const QString &path) : m_path(path) {}
    OutputFolder(const OutputFolder &) = delete;
    OutputFolder &operator=(const OutputFolder &) = delete;
    ~OutputFolder();

    /// True when something is there that would be written over: a file, or a folder that is not empty.
    bool isTaken() const;

    /// Makes the folder, and those above it. A folder holds one project: those in it are renamed, "~" appended.
    /// Empty, or what went wrong.
    QString prepare();

    /// What stands now is as it should be.
    void keep() { m_isKept = true; }

private:
    QString makeFolders();
    QString moveProjectsAside();

    QString m_path;
    QStringList m_madeFolders;   // outermost first
    QStringList m_movedProjects; // as they were called
    bool m_isPrepared = false;   // from then on a project in the folder is the new one
    bool m_isKept = false;
};
