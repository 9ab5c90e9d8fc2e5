#pragma once

#include "listing/ItemFields.h"

/// Writes comma-separated values: a line of keys, then a line for each item. Null is an empty field; a text with a comma,
/// a quote or a line end stands in quotes, and its quotes are doubled. Other characters that act on what shows them
/// are written as "\u009b".
class PLOTKA_LISTING_EXPORT CsvWriter
{
public:
    /// A spreadsheet takes a text that begins with = + - @, their wide forms, a tab or a line end for something to run.
    /// Guarded, it has an apostrophe before it.
    enum Formulas { AsTheyAre, Guarded };

    explicit CsvWriter(Formulas formulas = AsTheyAre) : m_formulas(formulas) {}

    void addRow(const ItemFields &fields);
    void addKeys(const ItemFields &fields);

    QString text() const { return m_text; }

private:
    QString cellText(const QVariant &value) const;

    Formulas m_formulas;
    QString m_text;
};
