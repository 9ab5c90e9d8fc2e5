#pragma once

#include "scene/base/SC_Id.h"

#include <QString>
#include <QStringList>

#include <vector>

class PO_XmlWriter;
class QDateTime;
class QXmlAttributes;

/// How all records write and read attributes. Reading never fails: bad text gives the default. What a RecordElement has
/// and cannot be read is noted with it, and so is what must be good and is absent.
namespace RecordAttributes
{

/// @name Values with a default
/// @{
/// 0 for an absent attribute and for what is no number of 32 bits.
int intOf(const QXmlAttributes &attributes, const QString &key);
/// @p value for an absent attribute and for what is no number of 32 bits.
int intOr(const QXmlAttributes &attributes, const QString &key, int value);
/// The null id for an absent attribute and for what is no id.
SC_Id idOf(const QXmlAttributes &attributes, const QString &key);
/// @}
/// Notes a present attribute whose text is none of @p words, as one for which the record took its default.
void noteUnlessOneOf(const QXmlAttributes &attributes, const QString &key, const QStringList &words);
void noteUnreadable(const QXmlAttributes &attributes, const QString &key);

/// @name Values that must be good
/// False for an absent attribute and for what is no such value, and @p value is then as it was.
/// @{
bool readBool(const QXmlAttributes &attributes, const QString &key, bool &value);
bool readInt(const QXmlAttributes &attributes, const QString &key, int &value);
bool readDouble(const QXmlAttributes &attributes, const QString &key, double &value);
/// What is not finite in single precision is not good either.
bool readFloat(const QXmlAttributes &attributes, const QString &key, float &value);
/// A colour as PO_XmlWriter encodes it.
bool readColor(const QXmlAttributes &attributes, const QString &key, unsigned int &colour);
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
