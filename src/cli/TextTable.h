#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// Rows of texts in aligned columns, two spaces apart. Where they are wider than a given width, the columns that may be
/// cut give way; where that is not enough, columns go.
class TextTable
{
public:
    static constexpr int spaceBetween = 2; ///< columns, between two of the table

    enum Alignment { Left, Right };

    struct Column {
        QString title;
        Alignment alignment = Left;
        bool mayBeCut = false;
        int goes = 0; ///< columns go in this order where there is no room for all; one with 0 stays
    };

    /// Without any title there is no line of titles.
    explicit TextTable(std::vector<Column> columns) : m_columns(std::move(columns)) {}

    /// Cells beyond the last column are not shown.
    void addRow(const QStringList &cells);

    /// Without spaces at the ends of lines; the titles come first.
    QStringList lines(int width) const;

private:
    bool hasTitles() const;
    std::vector<int> naturalWidths() const;
    /// 0 for a column that is not shown.
    std::vector<int> columnWidths(int width) const;
    QString line(const QStringList &cells, const std::vector<int> &widths) const;

    std::vector<Column> m_columns;
    std::vector<QStringList> m_rows;
};
