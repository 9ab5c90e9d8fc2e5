#include "listing/CsvWriter.h"

#include "listing/TextSafety.h"

#include <QStringList>

namespace
{

bool isWhiteSpace(QChar character)
{
    return character == u'\n' || character == u'\r' || character == u'\t';
}

QString harmless(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text)
        result += TextSafety::isActing(character.unicode()) && !isWhiteSpace(character) ? TextSafety::escape(character)
                                                                                        : QString(character);
    return result;
}

QString quoted(QString text)
{
    const bool isPlain = !text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n') && !text.contains(u'\r');
    if (isPlain)
        return text;
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return u'"' + text + u'"';
}

/// True for what one spreadsheet or another runs: some go on behind white space, some take the wide forms of the signs.
bool isFormula(const QString &text)
{
    static const QString beginnings = QStringLiteral("=+-@\t\r\n\uFF1D\uFF0B\uFF0D\uFF20");
    return !text.isEmpty() && beginnings.contains(text.front());
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
        cells += cellText(field.second);
    m_text += cells.join(u',') + u'\n';
}

QString CsvWriter::cellText(const QVariant &value) const
{
    if (value.typeId() != QMetaType::QString)
        return value.toString(); // empty for null
    const QString text = harmless(value.toString());
    return quoted(m_formulas == Guarded && isFormula(text) ? u'\'' + text : text);
}
