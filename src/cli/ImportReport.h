#pragma once

#include "interchange/ImportNote.h"

#include <QString>

#include <vector>

/// What an import has to tell, for programs and for people.
class ImportReport
{
public:
    ImportReport(QString input, std::vector<ImportNote> notes) : m_input(std::move(input)), m_notes(std::move(notes)) {}

    /// Of what has no note of its own too.
    int count(ImportNote::Severity severity) const;

    /// The notes, as JSON.
    QString jsonText(const QString &projectFile) const;

    /// How much there is to tell, and the first of those that are at least as severe as @p atLeast, on standard error.
    void tell(ImportNote::Severity atLeast) const;

private:
    QString m_input;
    std::vector<ImportNote> m_notes;
};
