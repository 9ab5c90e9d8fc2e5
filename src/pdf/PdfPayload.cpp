#include "pdf/PdfPayload_p.h"

#include "pdf/PdfPayloadCheck_p.h"
#include "pdf/properties/PKC_Property.h"

#include <QDataStream>
#include <QIODevice>

namespace
{

constexpr qint32 mark = -1330642944; // 0xb0b00000
constexpr qint32 number = 473;
constexpr qsizetype headerSize = 8;

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
    return hasHeader(stream)
        && PdfPayloadCheck::isProperty(bytes, headerSize, property.propertyType(), stream.version())
        && property.load(stream);
}

} // namespace

QByteArray PdfPayload::bytesOf(const PKC_Property &property)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << mark << number;
    property.store(stream);
    return bytes;
}

void PdfPayload::load(const QByteArray &bytes, PKC_Property &property)
{
    if (loadMarked(bytes, property))
        return;
    QDataStream stream(bytes);
    stream.setVersion(PdfPayloadCheck::oldVersion);
    if (PdfPayloadCheck::isProperty(bytes, 0, property.propertyType(), stream.version()))
        property.load(stream);
}
