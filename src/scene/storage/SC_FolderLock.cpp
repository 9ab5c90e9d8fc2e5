#include "scene/storage/SC_FolderLock.h"

#include <QFile>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

/// Whether the folder that was opened is still the one of that name.
bool isStillThere(int descriptor, const QByteArray &name)
{
    struct stat opened = {};
    struct stat named = {};
    return fstat(descriptor, &opened) == 0 && stat(name.constData(), &named) == 0 && opened.st_ino == named.st_ino
        && opened.st_dev == named.st_dev;
}

} // namespace

SC_FolderLock::Outcome SC_FolderLock::lock(const QString &folder, Wait wait)
{
    unlock();
    m_error.clear();
    const QByteArray name = QFile::encodeName(folder);
    m_descriptor = open(name.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    int code = m_descriptor < 0 ? errno : 0;
    if (code == ENOENT)
        return Outcome::Gone;
    if (code == 0) {
        int result = 0;
        do
            result = flock(m_descriptor, wait == Wait::UntilFree ? LOCK_EX : LOCK_EX | LOCK_NB);
        while (result != 0 && errno == EINTR);
        code = result == 0 ? 0 : errno;
    }
    if (code == 0 && isStillThere(m_descriptor, name))
        return Outcome::Taken;
    unlock();
    if (code == 0)
        return Outcome::Gone;
    if (code == EWOULDBLOCK)
        return Outcome::Busy;
    m_error = qt_error_string(code);
    return Outcome::Failed;
}

void SC_FolderLock::unlock()
{
    if (m_descriptor >= 0)
        close(std::exchange(m_descriptor, -1));
}
