#pragma once

#include "interchange/ImportNote.h"

#include <utility>
#include <vector>

/// "loss", "change" or "info".
QString severityText(ImportNote::Severity severity);

/// What an import has to tell people.
class ImportReport
{
public:
    explicit ImportReport(std::vector<ImportNote> notes) : m_notes(std::move(notes)) {}

    /// Of what has no note of its own too.
    int count(ImportNote::Severity severity) const;

    /// How much there is to tell, and the first of those that are at least as severe as @p atLeast, on standard error.
    /// @p remedy says how to see the rest.
    void tell(ImportNote::Severity atLeast, const QString &remedy) const;

private:
    std::vector<ImportNote> m_notes;
};
