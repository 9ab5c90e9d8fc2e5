#pragma once

#include "interchange/ImportNote.h"

#include <QMap>

#include <utility>
#include <vector>

/// Collects notes, and of each code no more than a reader can take in: what goes beyond is counted
/// and told in one closing note of the same code.
class ImportNotes
{
public:
    static constexpr int mostOfOneCode = 100;

    ImportNotes() = default;
    /// @p listener, unless it is empty, hears every note when it comes, those too that are only counted.
    explicit ImportNotes(ImportNoteListener listener) : m_listener(std::move(listener)) {}

    void info(const char *code, const QString &item, const QString &message);
    void change(const char *code, const QString &item, const QString &message);
    void loss(const char *code, const QString &item, const QString &message);

    /// All notes in the order they came, closing notes at the end. Empties the collection.
    std::vector<ImportNote> take();

private:
    struct Count {
        ImportNote::Severity severity = ImportNote::Info;
        int count = 0;
    };

    void add(ImportNote::Severity severity, const char *code, const QString &item, const QString &message);

    ImportNoteListener m_listener;
    std::vector<ImportNote> m_notes;
    QMap<QString, Count> m_counts;
};
