#include "listing/CsvWriter.h"

#include <QStringList>

namespace
{

QString quoted(QString text)
{
    const bool isPlain = !text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r');
    if (isPlain)
        return text;
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return u'"' + text + u'"';
}

QString valueText(const QVariant &value)
{
    return value.isValid() ? quoted(value.toString()) : QString();
}

} // namespace

void CsvWriter::addKeys(const ItemFields &fields)
{
    QStringList cells;
    for (const auto &field : fields)
        cells += quoted(field.first);
    m_text += cells.join(u',') + u'\n';
}

void CsvWriter::addRow(const ItemFields &fields)
{
    QStringList cells;
    for (const auto &field : fields)
        cells += valueText(field.second);
    m_text += cells.join(u',') + u'\n';
}
