#pragma once

#include <QByteArray>

#include <utility>

/// A block of bytes in memory.
class DB_MemFile
{
public:
    DB_MemFile() = default;
    explicit DB_MemFile(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    qsizetype GetLength() const { return m_bytes.size(); }
    /// Never null; valid as long as the object is unchanged.
    const char *GetBuffer() const { return m_bytes.constData(); }

private:
    QByteArray m_bytes;
};
