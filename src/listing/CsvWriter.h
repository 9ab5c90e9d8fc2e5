#pragma once

#include "listing/ItemFields.h"

/// Writes comma-separated values: a line of keys, then a line for each item. Null is an empty field; a text with a comma,
/// a quote or a line end stands in quotes, and its quotes are doubled.
class PLOTKA_LISTING_EXPORT CsvWriter
{
public:
    void addRow(const ItemFields &fields);
    void addKeys(const ItemFields &fields);

    QString text() const { return m_text; }

private:
    QString m_text;
};
