#include "scene/storage/SC_FileReport.h"

#include <algorithm>
#include <numeric>
#include <utility>

QString SC_FileReport::Entry::text() const
{
    QString where = file;
    if (line > 0)
        where += u':' + QString::number(line);
    if (line > 0 && column > 0)
        where += u':' + QString::number(column);
    if (!where.isEmpty())
        where += QStringLiteral(": ");
    where += severity == Error ? QStringLiteral("error: ") : QStringLiteral("warning: ");
    return item.isEmpty() ? where + message : where + item + QStringLiteral(": ") + message;
}

bool SC_FileReport::hasErrors() const
{
    return std::any_of(m_entries.begin(), m_entries.end(), [](const Entry &entry) { return entry.severity == Error; });
}

qint64 SC_FileReport::countOf(const std::vector<Entry> &entries)
{
    return std::accumulate(
        entries.begin(), entries.end(), qint64(0), [](qint64 sum, const Entry &entry) { return sum + entry.count; });
}

void SC_FileReport::add(Entry entry)
{
    m_entries.push_back(std::move(entry));
}

void SC_FileReport::addRemark(Entry entry)
{
    m_remarks.push_back(std::move(entry));
}

void SC_FileReport::clear()
{
    m_entries.clear();
    m_remarks.clear();
}
