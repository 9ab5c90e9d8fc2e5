#include "scene/storage/LoadReport_p.h"

#include <QXmlStreamReader>

#include <utility>

FilePlace FilePlace::of(const QXmlStreamReader &xml)
{
    return {xml.lineNumber(), xml.columnNumber() + 1}; // the stream counts columns from 0
}

LoadReport::LoadReport(QString filePath, SC_FileReport &report) : m_filePath(std::move(filePath)), m_report(report) {}

void LoadReport::warn(FilePlace place, const QString &item, const QString &message)
{
    if (++m_warnings <= warningLimit)
        m_report.add({SC_FileReport::Warning, m_filePath, place.line, place.column, item, message});
}

void LoadReport::remark(FilePlace place, const QString &item, const QString &message, qint64 count)
{
    if (m_remarks == warningLimit) {
        m_remarksLeftOut += count;
        return;
    }
    ++m_remarks;
    m_report.addRemark({SC_FileReport::Warning, m_filePath, place.line, place.column, item, message, count});
}

void LoadReport::fail(FilePlace place, const QString &message)
{
    if (!m_failed)
        m_report.add({SC_FileReport::Error, m_filePath, place.line, place.column, QString(), message});
    m_failed = true;
}

void LoadReport::close()
{
    const auto more = [this](qint64 count) {
        return SC_FileReport::Entry{SC_FileReport::Warning, m_filePath, 0, 0, QString(),
            QStringLiteral("and %1 more like these").arg(count), count};
    };
    if (m_warnings > warningLimit)
        m_report.add(more(m_warnings - warningLimit));
    if (m_remarksLeftOut > 0)
        m_report.addRemark(more(m_remarksLeftOut));
}
