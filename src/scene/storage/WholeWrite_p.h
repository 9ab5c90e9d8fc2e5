#pragma once

#include <QByteArray>
#include <QIODevice>

/// Writes all the bytes. A device that takes a part only, as a disk does that is about to be full, is asked again for the rest:
/// then it has a reason to give.
inline bool writeWhole(QIODevice &device, const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const qint64 taken = device.write(bytes.constData() + done, bytes.size() - done);
        if (taken <= 0)
            return false;
        done += taken;
    }
    return true;
}
