#pragma once

#include "scene/storage/SC_FolderLock.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The folder into which a project is written. What it did to the disk is undone at the end of its life, unless the
/// project has been written and keep() said so.
///
/// Whenever the process dies, the folder holds one project: the earlier one or the new one, whole.
class OutputFolder
{
public:
    enum class Access {
        Given,
        Exists, ///< something is there already
        Busy,   ///< another process writes there
        Failed  ///< problem() says why
    };
    enum class Existing { Refuse, Replace };

    explicit OutputFolder(const QString &path) : m_path(path) {}
    OutputFolder(const OutputFolder &) = delete;
    OutputFolder &operator=(const OutputFolder &) = delete;
    ~OutputFolder();

    /// True when something is there that would be written over: a file, or a folder that is not empty.
    bool isTaken() const;

    /// Makes the folder, and those above it, and keeps all others from writing there until the end of its life.
    Access prepare(Existing existing, SC_FolderLock::Wait wait = SC_FolderLock::Wait::No);

    /// Where the new project is written first: a file of its final name, in a folder of its own where nobody looks.
    /// Empty when there is a problem. What a process that died left there goes.
    QString stage(const QString &fileName);
    /// Puts the staged file in its place. A folder holds one project: those in it keep their names with "~" appended, or
    /// "~2", "~3" ... where that is taken. False when there is a problem.
    bool swapIn();

    /// What stands now is as it should be.
    void keep() { m_isKept = true; }

    /// What went wrong, with the system's reason.
    const QString &problem() const { return m_problem; }
    /// That the folder could not be locked, and why; empty otherwise.
    const QString &warning() const { return m_warning; }

    struct Aside {
        QString name; ///< as the earlier project was called
        QString asideName;
    };
    /// Where earlier projects are now.
    const QList<Aside> &earlierProjects() const { return m_asides; }

private:
    bool makeFolders();
    bool putAside(const QString &file);
    bool keepBeside(const QString &file);
    bool move(const QString &from, const QString &to);
    bool fail(const QString &what);
    void undoSwap();

    QString m_path;
    QString m_problem;
    QString m_warning;
    QString m_stage;           // the folder, once it has been made
    QString m_staged;          // the file in it
    QString m_new;             // where the new project stands; empty before it does
    QString m_replaced;        // what it replaced, which is the last of m_asides; empty when nothing was there
    QStringList m_madeFolders; // outermost first
    QList<Aside> m_asides;
    SC_FolderLock m_lock;
    bool m_isKept = false;
};
