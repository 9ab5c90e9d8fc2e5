#include "cli/RecordText.h"

#include "cli/CliText.h"
#include "cli/DisplayWidth.h"
#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_RecordWriter.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QStringList>

namespace
{

/// What the record says beyond its four texts.
QString ownText(const PIO_Metadata &record)
{
    QString base;
    record.PIO_Metadata::dumpToString(base);
    QString text;
    record.dumpToString(text);
    return text.startsWith(base) ? text.mid(base.size()) : text;
}

/// The lines between the tags of the enclosing element; none for a record that wrote nothing.
QStringList payloadLines(const PIO_Metadata &record)
{
    PO_XmlWriter writer;
    PIO_WritingContext context(writer);
    PIO_RecordWriter::write(record, context);
    const QStringList lines = QString::fromUtf8(writer.bytes()).split(u'\n', Qt::SkipEmptyParts);
    return lines.mid(1, lines.size() - 2);
}

QString indented(int columns, const QString &line)
{
    return QString(columns, u' ') + DisplayWidth::printable(line) + u'\n';
}

} // namespace

QString recordText(const PIO_Metadata &record)
{
    QString text = indented(2,
        CliText::tr("%1, name \"%2\", creator \"%3\", version \"%4\"")
            .arg(record.metaType(), record.metaName(), record.creator(), record.version()));
    const QStringList own = ownText(record).split(u'\n', Qt::SkipEmptyParts);
    for (const QString &line : own.isEmpty() ? payloadLines(record) : own)
        text += indented(own.isEmpty() ? 2 : 4, line);
    return text;
}
