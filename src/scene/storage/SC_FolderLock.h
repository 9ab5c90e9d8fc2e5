#pragma once

#include "plotka_scene_export.h"

#include <QString>

/// Keeps all other writers away from the folder of a project.
///
/// The folder itself is locked and no file is made for it, so nothing is left behind: the system lets go of the lock when its
/// holder lets go or dies. Who reads needs no lock, since files are swapped whole.
class PLOTKA_SCENE_EXPORT SC_FolderLock
{
public:
    enum class Wait { No, UntilFree };
    enum class Outcome {
        Taken, ///< until unlock(), or the end of this object
        Busy,  ///< another one holds it
        Gone,  ///< there is no such folder, or it was replaced while it was waited for
        Failed ///< the system does not lock this folder; error() has its reason
    };

    SC_FolderLock() = default;
    SC_FolderLock(const SC_FolderLock &) = delete;
    SC_FolderLock &operator=(const SC_FolderLock &) = delete;
    ~SC_FolderLock() { unlock(); }

    /// Lets go of what it holds, then locks that folder.
    Outcome lock(const QString &folder, Wait wait);
    void unlock();

    const QString &error() const { return m_error; }

private:
    int m_descriptor = -1;
    QString m_error;
};
