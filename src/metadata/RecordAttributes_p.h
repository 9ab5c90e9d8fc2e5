#pragma once

#include "scene/base/SC_Id.h"

#include <QString>

#include <vector>

class PO_XmlWriter;
class QDateTime;
class QXmlAttributes;

/// How all records write and read attributes. Reading never fails: bad text gives the default.
namespace RecordAttributes
{

/// 0 for an absent attribute and for what is no number of 32 bits.
int intOf(const QXmlAttributes &attributes, const QString &key);

/// @name Values that must be good
/// False for an absent attribute and for what is no such value, and @p value is then as it was.
/// @{
bool readBool(const QXmlAttributes &attributes, const QString &key, bool &value);
bool readInt(const QXmlAttributes &attributes, const QString &key, int &value);
bool readDouble(const QXmlAttributes &attributes, const QString &key, double &value);
/// What is not finite in single precision is not good either.
bool readFloat(const QXmlAttributes &attributes, const QString &key, float &value);
/// @}

/// @name Dates
/// In the form of ISO 8601, to the second. A null date is an empty text; an absent attribute and bad text read as the
/// null date.
/// @{
void encodeDate(PO_XmlWriter &writer, const QString &key, const QDateTime &date);
QDateTime dateOf(const QXmlAttributes &attributes, const QString &key);
/// @}

/// @name Lists of ids
/// One attribute with the ids joined by ",".
/// @{
QString joined(const std::vector<SC_Id> &ids);
/// An empty list writes no attribute.
void encodeIds(PO_XmlWriter &writer, const QString &key, const std::vector<SC_Id> &ids);
/// Appends what @p ids does not hold yet and leaves the rest as it is. A part that is no id reads as the null id.
void mergeIds(const QXmlAttributes &attributes, const QString &key, std::vector<SC_Id> &ids);
/// @}

} // namespace RecordAttributes
