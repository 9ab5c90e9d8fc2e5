#pragma once

#include <QList>
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

    /// Makes the folder, and those above it. A folder holds one project: those in it are renamed, "~" appended, or
    /// "~2", "~3" ... where that is taken. Empty, or what went wrong.
    QString prepare();

    /// What stands now is as it should be.
    void keep() { m_isKept = true; }

private:
    struct MovedProject {
        QString name; // as it was called
        QString asideName;
    };

    QString makeFolders();
    QString moveProjectsAside();

    QString m_path;
    QStringList m_madeFolders; // outermost first
    QList<MovedProject> m_movedProjects;
    bool m_isPrepared = false; // from then on a project in the folder is the new one
    bool m_isKept = false;
};
