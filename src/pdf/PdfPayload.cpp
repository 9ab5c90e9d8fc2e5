#include "pdf/PdfPayload_p.h"

#include "pdf/properties/PKC_Property.h"

#include <QDataStream>
#include <QIODevice>

namespace
{

constexpr qint32 mark = -1330642944; // 0xb0b00000
constexpr qint32 number = 473;
constexpr int oldVersion = 6; // that of Qt 3.3

bool hasHeader(QDataStream &stream)
{
    qint32 first = 0;
    qint32 second = 0;
    stream >> first >> second;
    return first == mark && second == number;
}

bool loadMarked(const QByteArray &bytes, PKC_Property &property)
{
    QDataStream stream(bytes);
    return hasHeader(stream) && property.load(stream);
}

} // namespace

QByteArray PdfPayload::bytesOf(const PKC_Property &property)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << mark << number;
    return property.store(stream) ? bytes : QByteArray();
}

void PdfPayload::load(const QByteArray &bytes, PKC_Property &property)
{
    if (loadMarked(bytes, property))
        return;
    QDataStream stream(bytes);
    stream.setVersion(oldVersion);
    property.load(stream);
}
