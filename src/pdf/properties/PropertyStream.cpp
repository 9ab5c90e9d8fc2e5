#include "pdf/properties/PropertyStream_p.h"

#include <QColor>
#include <QDataStream>
#include <QDateTime>
#include <QIODevice>
#include <QStringList>
#include <QStringView>
#include <QTimeZone>

#include <algorithm>

namespace
{

QVariant valueIn(QDataStream &stream, int depth);

/// The types of QVariant in streams of Qt 3, by their number there. What properties do not hold counts as User.
int typeInOldStream(quint32 number)
{
    switch (number) {
    case 0:
        return QMetaType::UnknownType;
    case 1:
        return QMetaType::QVariantMap;
    case 2:
        return QMetaType::QVariantList;
    case 3:
        return QMetaType::QString;
    case 4:
        return QMetaType::QStringList;
    case 10:
        return QMetaType::QColor;
    case 16:
        return QMetaType::Int;
    case 17:
        return QMetaType::UInt;
    case 18:
        return QMetaType::Bool;
    case 19:
        return QMetaType::Double;
    case 26:
        return QMetaType::QDate;
    case 27:
        return QMetaType::QTime;
    case 28:
        return QMetaType::QDateTime;
    case 33:
        return QMetaType::LongLong;
    case 34:
        return QMetaType::ULongLong;
    default:
        return QMetaType::User;
    }
}

int typeInStream(quint32 number, int version)
{
    if (version < QDataStream::Qt_4_0)
        return typeInOldStream(number);
    if (version < QDataStream::Qt_6_0 && number == 67)
        return QMetaType::QColor;
    return number < QMetaType::User ? static_cast<int>(number) : QMetaType::User;
}

/// Whether Qt may look for a time zone of that name. It opens files for what it does not know.
bool isZoneName(const QString &name)
{
    const auto isPlain = [](QChar unit) {
        return unit.unicode() < 0x80 && (unit.isLetterOrNumber() || QStringView(u"_+-/:").contains(unit));
    };
    return !name.isEmpty() && name.size() <= 64 && name.front().isLetter()
        && std::all_of(name.begin(), name.end(), isPlain);
}

bool isKept(const QVariant &value, int depth)
{
    const auto isItemKept = [depth](const QVariant &item) { return isKept(item, depth + 1); };
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QStringList:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QColor:
        return true;
    case QMetaType::QDateTime: {
        const QDateTime time = value.toDateTime();
        const bool hasZone = time.timeSpec() == Qt::TimeZone && time.timeZone().isValid();
        return !hasZone || isZoneName(QString::fromUtf8(time.timeZone().id()));
    }
    case QMetaType::QVariantList: {
        const QVariantList items = value.toList();
        return depth < PropertyStream::depthLimit && std::all_of(items.begin(), items.end(), isItemKept);
    }
    case QMetaType::QVariantMap: {
        const QVariantMap items = value.toMap();
        return depth < PropertyStream::depthLimit && std::all_of(items.begin(), items.end(), isItemKept);
    }
    default:
        return false;
    }
}

/// Whether a colour of a model that Qt knows comes next: Qt takes any.
bool hasColor(QDataStream &stream)
{
    if (stream.version() < 7)
        return true; // no model there
    char model = -1;
    return stream.device()->peek(&model, 1) == 1 && model >= QColor::Invalid && model <= QColor::ExtendedRgb;
}

/// Whether a time comes next for which Qt opens no file.
bool hasDateTime(QDataStream &stream)
{
    if (stream.version() < QDataStream::Qt_5_2)
        return true;                                     // no zone there
    const QByteArray bytes = stream.device()->peek(256); // a zone with a longer name is none
    QDataStream ahead(bytes);
    ahead.setVersion(stream.version());
    ahead.setByteOrder(stream.byteOrder());
    QDate date;
    QTime time;
    qint8 spec = -1;
    ahead >> date >> time >> spec;
    if (spec != Qt::TimeZone)
        return spec == Qt::LocalTime || spec == Qt::UTC || spec == Qt::OffsetFromUTC;
    QString name;
    ahead >> name;
    if (name == QLatin1String("-No Time Zone Specified!")) // what Qt writes for one that it does not know
        return true;
    if (name == QLatin1String("OffsetFromUtc")) // a zone of its own, whose name follows
        ahead >> name;
    return isZoneName(name);
}

QVariant corrupt(QDataStream &stream)
{
    stream.setStatus(QDataStream::ReadCorruptData);
    return QVariant();
}

QVariant nothingIn(QDataStream &stream)
{
    QString text;
    if (stream.version() < QDataStream::Qt_5_0)
        stream >> text; // old streams hold a text for nothing
    return QVariant();
}

QVariant singleIn(QDataStream &stream, int type)
{
    QVariant value{QMetaType(type)};
    return QMetaType(type).load(stream, value.data()) ? value : corrupt(stream);
}

/// Calls @p readItem as often as the count says that comes first, or until the stream has no more.
template <typename ReadItem>
void readItems(QDataStream &stream, ReadItem readItem)
{
    quint32 count = 0;
    stream >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i)
        readItem();
}

QVariant textsIn(QDataStream &stream)
{
    QStringList texts;
    readItems(stream, [&] {
        QString text;
        stream >> text;
        texts += text;
    });
    return texts;
}

QVariant listIn(QDataStream &stream, int depth)
{
    if (depth >= PropertyStream::depthLimit)
        return corrupt(stream);
    QVariantList list;
    readItems(stream, [&] { list += valueIn(stream, depth + 1); });
    return list;
}

QVariant mapIn(QDataStream &stream, int depth)
{
    if (depth >= PropertyStream::depthLimit)
        return corrupt(stream);
    QVariantMap map;
    readItems(stream, [&] {
        QString key;
        stream >> key;
        map.insert(key, valueIn(stream, depth + 1));
    });
    return map;
}

QVariant contentIn(QDataStream &stream, int type, int depth)
{
    switch (type) {
    case QMetaType::UnknownType:
        return nothingIn(stream);
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QDate:
    case QMetaType::QTime:
        return singleIn(stream, type);
    case QMetaType::QColor:
        return hasColor(stream) ? singleIn(stream, type) : corrupt(stream);
    case QMetaType::QDateTime:
        return hasDateTime(stream) ? singleIn(stream, type) : corrupt(stream);
    case QMetaType::QStringList:
        return textsIn(stream);
    case QMetaType::QVariantList:
        return listIn(stream, depth);
    case QMetaType::QVariantMap:
        return mapIn(stream, depth);
    default:
        return corrupt(stream);
    }
}

QVariant valueIn(QDataStream &stream, int depth)
{
    quint32 number = 0;
    stream >> number;
    const int type = typeInStream(number, stream.version());
    qint8 isNull = 0;
    if (stream.version() >= QDataStream::Qt_4_2)
        stream >> isNull;
    const QVariant content = contentIn(stream, type, depth);
    if (stream.status() != QDataStream::Ok)
        return QVariant();
    return isNull ? QVariant(QMetaType(type)) : content;
}

} // namespace

bool PropertyStream::keeps(const QVariant &value)
{
    return isKept(value, 0);
}

QVariant PropertyStream::read(QDataStream &stream)
{
    if (!stream.device())
        return corrupt(stream);
    return valueIn(stream, 0);
}
