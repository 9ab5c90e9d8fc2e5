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
    for (auto kind = m_counts.cbegin(); kind != m_counts.cend(); ++kind) {
        const int more = kind.value() - mostOfOneKind;
        if (more <= 0)
            continue;
        const auto &[code, severity] = kind.key();
        const QString text = QCoreApplication::translate("ImportNotes", "and %1 more of this kind").arg(more);
        m_notes.push_back({severity, code, QString(), text, more});
    }
    m_counts.clear();
    return std::exchange(m_notes, {});
}

void ImportNotes::add(ImportNote::Severity severity, const char *code, const QString &item, const QString &message)
{
    const ImportNote note{severity, QString::fromLatin1(code), item, message};
    if (m_listener)
        m_listener(note);
    if (++m_counts[{note.code, severity}] <= mostOfOneKind)
        m_notes.push_back(note);
}
