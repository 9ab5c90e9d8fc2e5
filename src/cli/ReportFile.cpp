#include "cli/ReportFile.h"

#include "cli/CliText.h"
#include "cli/ImportReport.h"
#include "listing/JsonWriter.h"
#include "scene/storage/WholeWrite_p.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <csignal>

#include <fcntl.h>

namespace
{

/// False for pipes and devices, and for names of what is open already, which nothing may be renamed to.
bool isRegular(const QString &path)
{
    const QFileInfo info(path);
    const QString absolute = info.absoluteFilePath();
    return (!info.exists() || info.isFile()) && !absolute.startsWith(QStringLiteral("/dev/"))
        && !absolute.startsWith(QStringLiteral("/proc/"));
}

} // namespace

ReportFile::ReportFile(const QString &path) : m_path(path), m_file(path), m_isRegular(isRegular(path))
{
    m_isSpooled = path.isEmpty() || m_notes.open();
}

void ReportFile::add(const ImportNote &note)
{
    if (m_path.isEmpty() || !m_isSpooled)
        return;
    JsonWriter json;
    json.beginObject(JsonWriter::OneLine);
    json.field(QLatin1String("severity"), severityText(note.severity));
    json.field(QLatin1String("code"), note.code);
    json.field(QLatin1String("item"), note.item);
    json.field(QLatin1String("message"), note.message);
    json.endObject();
    const QByteArray separator = m_notes.pos() == 0 ? "\n    " : ",\n    ";
    m_isSpooled = writeWhole(m_notes, separator + json.text().trimmed().toUtf8());
}

bool ReportFile::prepare(const QString &input, const QString &projectFile)
{
    if (m_path.isEmpty())
        return true;
    JsonWriter json;
    json.beginObject();
    json.field(QLatin1String("schema"), 1);
    json.field(QLatin1String("input"), input);
    json.field(QLatin1String("project"), projectFile);
    json.beginArray(QLatin1String("notes"));
    json.endArray();
    json.endObject();
    const QByteArray frame = json.text().toUtf8();
    const qsizetype inArray = frame.lastIndexOf(']');
    m_before = frame.left(inArray);
    m_after = frame.mid(inArray);
    if (m_isSpooled && m_notes.pos() > 0)
        m_after.prepend("\n  ");
    if (!m_isSpooled || !m_notes.flush())
        return fail(m_notes);
    if (!m_isRegular)
        return true;
    return (m_file.open(QIODevice::WriteOnly) && writeTo(m_file) && m_file.flush()) || fail(m_file);
}

bool ReportFile::commit()
{
    if (m_path.isEmpty())
        return true;
    if (m_isRegular)
        return m_file.commit() || fail(m_file);
    std::signal(SIGPIPE, SIG_IGN); // who stops reading is an error that can be told
    QFile device;
    const int descriptor = ::open(QFile::encodeName(m_path).constData(), O_WRONLY | O_APPEND | O_CLOEXEC);
    if (descriptor < 0) {
        m_problem = CliText::tr("%1: cannot be opened: %2").arg(m_path, qt_error_string(errno));
        return false;
    }
    const auto mode = QIODevice::WriteOnly | QIODevice::Unbuffered;
    return (device.open(descriptor, mode, QFile::AutoCloseHandle) && writeTo(device)) || fail(device);
}

bool ReportFile::writeTo(QIODevice &device)
{
    constexpr qint64 blockSize = qint64(1) << 20;
    if (!writeWhole(device, m_before) || !m_notes.seek(0))
        return false;
    for (QByteArray block = m_notes.read(blockSize); !block.isEmpty(); block = m_notes.read(blockSize)) {
        if (!writeWhole(device, block))
            return false;
    }
    return writeWhole(device, m_after);
}

bool ReportFile::fail(const QIODevice &device)
{
    m_problem = CliText::tr("%1: the report cannot be written: %2").arg(m_path, device.errorString());
    return false;
}
