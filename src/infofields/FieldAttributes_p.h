#pragma once

#include "infofields/PKC_InfoFieldDesc.h"

#include <QString>

class PO_XmlWriter;
class QXmlAttributes;

/// What the elements "field" of all lists have in common.
namespace FieldAttributes
{

inline const QString kField = QStringLiteral("field");
inline const QString kId = QStringLiteral("id");
inline const QString kName = QStringLiteral("name");
inline const QString kPosition = QStringLiteral("position");

/// @name Type
/// "IMAGE" or "TEXT", and an attribute of its own for the comment bit.
/// @{
QString typeWord(PKC_InfoFieldDesc::Type type);
void encodeType(PO_XmlWriter &writer, PKC_InfoFieldDesc::Type type);
/// As encodeType(), but leaves "TEXT" out.
void encodeTypeOfExtra(PO_XmlWriter &writer, PKC_InfoFieldDesc::Type type);
/// What is not "IMAGE" is a text.
PKC_InfoFieldDesc::Type typeOf(const QXmlAttributes &attributes);
/// @}

/// @name Size and height
/// The default size is not written, and what is no size reads as it. A height that is no number is the default one.
/// @{
QString sizeWord(PKC_InfoFieldDesc::Size size);
void encodeSizeAndHeight(PO_XmlWriter &writer, const PKC_InfoFieldDesc &field);
PKC_InfoFieldDesc::Size sizeOf(const QXmlAttributes &attributes);
int heightOf(const QXmlAttributes &attributes);
/// @}

} // namespace FieldAttributes
