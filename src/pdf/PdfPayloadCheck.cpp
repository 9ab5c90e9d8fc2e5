#include "pdf/PdfPayloadCheck_p.h"

#include <QMetaType>
#include <QString>
#include <QStringView>
#include <QtEndian>

#include <algorithm>

namespace
{

constexpr quint32 nullText = 0xFFFFFFFF;

/// The types of QVariant in old streams, by their number there. What properties do not hold counts as User.
QMetaType::Type typeInOldStream(quint32 number)
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

QMetaType::Type typeInStream(quint32 number)
{
    return number < QMetaType::User ? static_cast<QMetaType::Type>(number) : QMetaType::User;
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

/// Steps over what Qt would read. Each step says whether it was there and may be read.
class Walk
{
public:
    Walk(const QByteArray &bytes, qsizetype from, bool isOld) :
        m_at(bytes.constData() + from), m_end(bytes.constData() + bytes.size()), m_isOld(isOld)
    {
    }

    bool property(int propertyType)
    {
        const bool common = text() && value() && text() && text() && skip(4) && skip(4);
        switch (propertyType) {
        case 1:
            return common && value() && skip(4) && skip(4);
        case 2:
            return common && value() && value();
        case 3:
            return common && text();
        default:
            return common;
        }
    }

private:
    bool skip(qsizetype length)
    {
        if (length > m_end - m_at)
            return false;
        m_at += length;
        return true;
    }

    bool number(quint32 &value)
    {
        const char *const start = m_at;
        if (!skip(4))
            return false;
        value = qFromBigEndian<quint32>(start);
        return true;
    }

    /// The first byte in @p value, and @p length of them in all.
    bool firstOf(qsizetype length, int &value)
    {
        const char *const start = m_at;
        if (!skip(length))
            return false;
        value = static_cast<signed char>(*start);
        return true;
    }

    bool text(QString *value = nullptr)
    {
        quint32 length = 0;
        if (!number(length) || length == nullText)
            return length == nullText;
        const char *const start = m_at;
        if (length % 2 != 0 || !skip(length))
            return false;
        if (value && length > 0) {
            value->resize(length / 2);
            qFromBigEndian<char16_t>(start, length / 2, value->data());
        }
        return true;
    }

    /// A count, and that many times what @p item steps over: at least @p size bytes each, or the count is not believed.
    template <typename Item>
    bool items(qsizetype size, Item item)
    {
        quint32 count = 0;
        if (!number(count) || count > (m_end - m_at) / size)
            return false;
        for (quint32 i = 0; i < count; ++i) {
            if (!item())
                return false;
        }
        return true;
    }

    bool value(int depth = 0)
    {
        quint32 typeNumber = 0;
        if (!number(typeNumber))
            return false;
        if (m_isOld)
            return valueOf(typeInOldStream(typeNumber), depth);
        return skip(1) && valueOf(typeInStream(typeNumber), depth); // whether it is null
    }

    bool valueOf(QMetaType::Type type, int depth)
    {
        switch (type) {
        case QMetaType::UnknownType:
            return !m_isOld || text(); // old streams hold a text for nothing
        case QMetaType::Bool:
            return skip(1);
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::QTime:
            return skip(4);
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Double:
            return skip(8);
        case QMetaType::QDate:
            return skip(m_isOld ? 4 : 8);
        case QMetaType::QDateTime:
            return dateTime();
        case QMetaType::QColor:
            return color();
        case QMetaType::QString:
            return text();
        case QMetaType::QStringList:
            return items(4, [this] { return text(); });
        case QMetaType::QVariantList:
            return depth < PdfPayloadCheck::depthLimit && items(5, [this, depth] { return value(depth + 1); });
        case QMetaType::QVariantMap:
            return depth < PdfPayloadCheck::depthLimit
                && items(9, [this, depth] { return text() && value(depth + 1); });
        default:
            return false;
        }
    }

    bool color()
    {
        if (m_isOld)
            return skip(4);
        int spec = 0; // QColor::Spec, from Invalid to ExtendedRgb
        return firstOf(11, spec) && spec >= 0 && spec <= 5;
    }

    bool dateTime()
    {
        if (m_isOld)
            return skip(8);
        int spec = 0;
        if (!skip(12) || !firstOf(1, spec))
            return false;
        switch (spec) {
        case Qt::LocalTime:
        case Qt::UTC:
            return true;
        case Qt::OffsetFromUTC:
            return skip(4);
        case Qt::TimeZone:
            return timeZone();
        default:
            return false;
        }
    }

    bool timeZone()
    {
        QString name;
        if (!text(&name))
            return false;
        if (name == QLatin1String("OffsetFromUtc")) // a zone of its own: name, offset, two texts, country, comment
            return text(&name) && isZoneName(name) && skip(4) && text() && text() && skip(4) && text();
        return name == QLatin1String("-No Time Zone Specified!") || isZoneName(name);
    }

    const char *m_at;
    const char *m_end;
    bool m_isOld;
};

} // namespace

bool PdfPayloadCheck::isProperty(const QByteArray &bytes, qsizetype from, int propertyType, int version)
{
    return Walk(bytes, from, version == oldVersion).property(propertyType);
}
