#include "pdf/properties/PropertyText_p.h"

#include "pdf/properties/PropertyLog_p.h"

#include <QColor>
#include <QDateTime>
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>

namespace
{

/// 0 for what is no number, and for one too large to be held.
double doubleOf(const QString &text)
{
    bool good = false;
    const double number = text.toDouble(&good);
    return good ? number : 0.0;
}

QString quoted(QString text)
{
    text.replace(QLatin1String("\""), QLatin1String("\\\""));
    return QStringLiteral("\"%1\"").arg(text);
}

QString arrayOf(const QStringList &items)
{
    return QStringLiteral("new Array( %1 )").arg(items.join(QLatin1String(", ")));
}

QString dateOf(const QString &isoText)
{
    return QStringLiteral("new Date( Date.parse(  \"%1\" ) )").arg(quoted(isoText));
}

QString colorOf(const QColor &color)
{
    return color.isValid() ? QStringLiteral("new Color( \"%1\" )").arg(color.name()) : QStringLiteral("new Color()");
}

bool isPlainLetter(QChar unit)
{
    return (unit >= QLatin1Char('a') && unit <= QLatin1Char('z'))
        || (unit >= QLatin1Char('A') && unit <= QLatin1Char('Z'));
}

bool isPlain(QChar unit)
{
    return isPlainLetter(unit) || unit == QLatin1Char('_') || (unit >= QLatin1Char('0') && unit <= QLatin1Char('9'));
}

bool isXmlCharacter(char16_t unit)
{
    return unit == '\t' || unit == '\n' || unit == '\r' || (unit >= 0x20 && unit <= 0xD7FF)
        || (unit >= 0xE000 && unit <= 0xFFFD);
}

} // namespace

QString PropertyText::textOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return scriptOf(value.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return QString::number(value.toLongLong());
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return QString::number(value.toULongLong());
    case QMetaType::Double:
        return QString::number(value.toDouble(), 'g', 6); // a longer number does not come back as it was
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return value.toStringList().join(QLatin1Char(','));
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QTime:
        return value.toTime().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return value.toDateTime().toString(Qt::ISODate);
    case QMetaType::QColor:
        return value.value<QColor>().name();
    default:
        qCWarning(plotkaProperties, "Cannot convert property of type %s to string.", typeNameOf(value));
        return QString();
    }
}

std::optional<QVariant> PropertyText::valueOf(const QVariant &current, const QString &text)
{
    switch (current.typeId()) {
    case QMetaType::Bool:
        return text == QLatin1String("true");
    case QMetaType::Int:
        return text.toInt();
    case QMetaType::LongLong:
        return text.toLongLong();
    case QMetaType::UInt:
        return text.toUInt();
    case QMetaType::ULongLong:
        return text.toULongLong();
    case QMetaType::Double:
        return doubleOf(text);
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return text.split(QLatin1Char(','), Qt::KeepEmptyParts);
    case QMetaType::QString:
        return text;
    case QMetaType::QDate:
        return QDate::fromString(text, Qt::ISODate);
    case QMetaType::QTime:
        return QTime::fromString(text, Qt::ISODate);
    case QMetaType::QDateTime:
        return QDateTime::fromString(text, Qt::ISODate);
    case QMetaType::QColor:
        return QColor(text);
    default:
        qCWarning(plotkaProperties, "Cannot convert property of type %s from string = %s.", typeNameOf(current),
            qUtf8Printable(text));
        return std::nullopt;
    }
}

QString PropertyText::scriptOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return textOf(value);
    case QMetaType::QString:
        return quoted(value.toString());
    case QMetaType::QStringList: {
        QStringList items;
        const QStringList texts = value.toStringList();
        for (const QString &text : texts)
            items += quoted(text);
        return arrayOf(items);
    }
    case QMetaType::QVariantList: {
        QStringList items;
        const QVariantList values = value.toList();
        for (const QVariant &item : values)
            items += scriptOf(item);
        return arrayOf(items);
    }
    // The text of a date brings quotes of its own into quotes.
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
        return dateOf(textOf(value));
    case QMetaType::QColor:
        return colorOf(value.value<QColor>());
    default:
        qCWarning(plotkaProperties, "Cannot convert property of type %s to scriptString.", typeNameOf(value));
        return QString();
    }
}

QString PropertyText::scriptOf(const QMap<QString, QVariant> &values)
{
    QStringList items;
    for (auto entry = values.cbegin(); entry != values.cend(); ++entry)
        items << quoted(entry.key()) << scriptOf(entry.value());
    return arrayOf(items);
}

QString PropertyText::scriptOf(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

bool PropertyText::isXmlName(const QString &text)
{
    if (!text.isEmpty() && isPlainLetter(text.front()) && std::all_of(text.begin(), text.end(), isPlain))
        return true;
    // Editions of XML differ in the letters of the world, and a name that does not read back would cost the whole file.
    QXmlStreamReader xml(QStringLiteral("<%1/>").arg(text));
    xml.setNamespaceProcessing(false);
    return xml.readNextStartElement() && xml.qualifiedName() == text && xml.readNext() == QXmlStreamReader::EndElement;
}

QString PropertyText::xmlTextOf(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        if (unit.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            result.append(unit).append(text.at(++i));
        else if (isXmlCharacter(unit.unicode()))
            result.append(unit);
    }
    return result;
}
