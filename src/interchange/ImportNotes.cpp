#include "interchange/ImportNotes_p.h"

#include <QCoreApplication>

#include <utility>

void ImportNotes::info(const char *code, const QString &item, const QString &message)
{
    add(ImportNote::Info, code, item, message);
}

void ImportNotes::change(const char *code, const QString &item, const QString &message)
{
    add(ImportNote::Change, code, item, message);
}

void ImportNotes::loss(const char *code, const QString &item, const QString &message)
{
    add(ImportNote::Loss, code, item, message);
}

std::vector<ImportNote> ImportNotes::take()
{
    for (auto it = m_counts.cbegin(); it != m_counts.cend(); ++it) {
        if (it->count <= mostOfOneCode)
            continue;
        const QString text = QCoreApplication::translate("ImportNotes", "and %1 more of this kind");
        const int more = it->count - mostOfOneCode;
        m_notes.push_back({it->severity, it.key(), QString(), text.arg(more), more});
    }
    m_counts.clear();
    return std::exchange(m_notes, {});
}

void ImportNotes::add(ImportNote::Severity severity, const char *code, const QString &item, const QString &message)
{
    const QString key = QString::fromLatin1(code);
    Count &count = m_counts[key];
    count.severity = severity;
    const ImportNote note{severity, key, item, message};
    if (m_listener)
        m_listener(note);
    if (++count.count <= mostOfOneCode)
        m_notes.push_back(note);
}
