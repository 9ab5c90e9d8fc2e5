#pragma once

#include "interchange/ImportNote.h"

#include <QMap>

#include <utility>
#include <vector>

/// Collects notes, and of each code and severity no more than a reader can take in: what goes beyond is counted and told
/// in one closing note of the same code and severity, so that no number of lesser notes hides a loss.
class ImportNotes
{
public:
    static constexpr int mostOfOneKind = 100;

    ImportNotes() = default;
    /// @p listener, unless it is empty, hears every note when it comes, those too that are only counted.
    explicit ImportNotes(ImportNoteListener listener) : m_listener(std::move(listener)) {}

    void info(const char *code, const QString &item, const QString &message);
    void change(const char *code, const QString &item, const QString &message);
    void loss(const char *code, const QString &item, const QString &message);

    /// All notes in the order they came, closing notes at the end. Empties the collection.
    std::vector<ImportNote> take();

private:
    using Kind = std::pair<QString, ImportNote::Severity>; // its code comes first

    void add(ImportNote::Severity severity, const char *code, const QString &item, const QString &message);

    ImportNoteListener m_listener;
    std::vector<ImportNote> m_notes;
    QMap<Kind, int> m_counts;
};
