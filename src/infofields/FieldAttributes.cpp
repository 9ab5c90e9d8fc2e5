#include "infofields/FieldAttributes_p.h"

#include "records/RecordAttributes_p.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

const QString kType = QStringLiteral("type");
const QString kComment = QStringLiteral("comment");
const QString kSize = QStringLiteral("size");
const QString kHeight = QStringLiteral("height");

const QString kText = QStringLiteral("TEXT");
const QString kImage = QStringLiteral("IMAGE");
const QString kMinimum = QStringLiteral("MINIMUM");
const QString kMaximum = QStringLiteral("MAXIMUM");
const QString kDefault = QStringLiteral("DEFAULT");
const QString kCustom = QStringLiteral("CUSTOM");

void encodeComment(PO_XmlWriter &writer, PKC_InfoFieldDesc::Type type)
{
    if (PKC_InfoFieldDesc::isComment(type))
        writer.encodeBoolAttr(kComment, true);
}

} // namespace

QString FieldAttributes::typeWord(PKC_InfoFieldDesc::Type type)
{
    return PKC_InfoFieldDesc::isImage(type) ? kImage : kText;
}

void FieldAttributes::encodeType(PO_XmlWriter &writer, PKC_InfoFieldDesc::Type type)
{
    writer.encodeStringAttr(kType, typeWord(type));
    encodeComment(writer, type);
}

void FieldAttributes::encodeTypeOfExtra(PO_XmlWriter &writer, PKC_InfoFieldDesc::Type type)
{
    if (PKC_InfoFieldDesc::isImage(type))
        writer.encodeStringAttr(kType, kImage);
    encodeComment(writer, type);
}

PKC_InfoFieldDesc::Type FieldAttributes::typeOf(const QXmlAttributes &attributes)
{
    RecordAttributes::noteUnlessOneOf(attributes, kType, {kText, kImage});
    RecordAttributes::noteUnlessOneOf(attributes, kComment, {QStringLiteral("true"), QStringLiteral("false")});
    const int type = attributes.value(kType) == kImage ? PKC_InfoFieldDesc::IMAGE : PKC_InfoFieldDesc::TEXT;
    const int comment = attributes.value(kComment) == QLatin1String("true") ? PKC_InfoFieldDesc::commentBit : 0;
    return PKC_InfoFieldDesc::Type(type | comment);
}

QString FieldAttributes::sizeWord(PKC_InfoFieldDesc::Size size)
{
    switch (size) {
    case PKC_InfoFieldDesc::MINIMUM:
        return kMinimum;
    case PKC_InfoFieldDesc::MAXIMUM:
        return kMaximum;
    case PKC_InfoFieldDesc::CUSTOM:
        return kCustom;
    case PKC_InfoFieldDesc::DEFAULT:
        break;
    }
    return kDefault;
}

void FieldAttributes::encodeSizeAndHeight(PO_XmlWriter &writer, const PKC_InfoFieldDesc &field)
{
    const QString word = sizeWord(field.size());
    if (word != kDefault)
        writer.encodeStringAttr(kSize, word);
    writer.encodeIntAttr(kHeight, field.height());
}

PKC_InfoFieldDesc::Size FieldAttributes::sizeOf(const QXmlAttributes &attributes)
{
    RecordAttributes::noteUnlessOneOf(attributes, kSize, {kMinimum, kMaximum, kDefault, kCustom});
    const QString word = attributes.value(kSize);
    for (const auto size : {PKC_InfoFieldDesc::MINIMUM, PKC_InfoFieldDesc::MAXIMUM, PKC_InfoFieldDesc::CUSTOM}) {
        if (word == sizeWord(size))
            return size;
    }
    return PKC_InfoFieldDesc::DEFAULT;
}

int FieldAttributes::heightOf(const QXmlAttributes &attributes)
{
    return RecordAttributes::intOr(attributes, kHeight, PKC_InfoFieldDesc::DEFAULT_HEIGHT);
}
