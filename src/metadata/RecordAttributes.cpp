#include "metadata/RecordAttributes_p.h"

#include "metadata/RecordElement_p.h"
#include "scene/metadata/PO_Utils.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QDateTime>
#include <QStringList>
#include <QXmlAttributes>

#include <cmath>
#include <set>

namespace
{

/// Leaves a note with the element, where the attributes are those of one.
bool failed(const QXmlAttributes &attributes, const QString &key)
{
    if (const auto *element = dynamic_cast<const RecordElement *>(&attributes))
        element->noteUnreadable(key);
    return false;
}

} // namespace

int RecordAttributes::intOf(const QXmlAttributes &attributes, const QString &key)
{
    bool good = false;
    const QString text = attributes.value(key);
    const int value = text.toInt(&good, 10);
    if (!good && !text.isNull())
        failed(attributes, key);
    return value;
}

bool RecordAttributes::readBool(const QXmlAttributes &attributes, const QString &key, bool &value)
{
    const QString text = attributes.value(key);
    return PO_Utils::parseBoolAttr(text, value) || (!text.isNull() && failed(attributes, key));
}

bool RecordAttributes::readInt(const QXmlAttributes &attributes, const QString &key, int &value)
{
    bool good = false;
    const int parsed = attributes.value(key).toInt(&good, 10);
    if (!good)
        return failed(attributes, key);
    value = parsed;
    return true;
}

bool RecordAttributes::readDouble(const QXmlAttributes &attributes, const QString &key, double &value)
{
    bool good = false;
    const double parsed = attributes.value(key).toDouble(&good);
    if (!good)
        return failed(attributes, key);
    value = parsed;
    return true;
}

bool RecordAttributes::readFloat(const QXmlAttributes &attributes, const QString &key, float &value)
{
    double read = 0.0;
    if (!readDouble(attributes, key, read))
        return false;
    if (!std::isfinite(static_cast<float>(read)))
        return failed(attributes, key);
    value = static_cast<float>(read);
    return true;
}

void RecordAttributes::encodeDate(PO_XmlWriter &writer, const QString &key, const QDateTime &date)
{
    writer.encodeStringAttr(key, date.toString(Qt::ISODate));
}

QDateTime RecordAttributes::dateOf(const QXmlAttributes &attributes, const QString &key)
{
    const QString text = attributes.value(key);
    const QDateTime date = QDateTime::fromString(text, Qt::ISODate);
    if (!text.isEmpty() && !date.isValid())
        failed(attributes, key);
    return date;
}

QString RecordAttributes::joined(const std::vector<SC_Id> &ids)
{
    QStringList parts;
    for (const SC_Id &id : ids)
        parts += id.AsString();
    return parts.join(QLatin1Char(','));
}

void RecordAttributes::encodeIds(PO_XmlWriter &writer, const QString &key, const std::vector<SC_Id> &ids)
{
    if (!ids.empty())
        writer.encodeStringAttr(key, joined(ids));
}

void RecordAttributes::mergeIds(const QXmlAttributes &attributes, const QString &key, std::vector<SC_Id> &ids)
{
    const QString text = attributes.value(key);
    if (text.isEmpty())
        return;
    // A file may bring a list of any length, so membership is not asked of the vector.
    std::set<SC_Id> known(ids.begin(), ids.end());
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString &part : parts) {
        SC_Id id;
        if (!id.parseXml(part))
            failed(attributes, key);
        if (known.insert(id).second)
            ids.push_back(id);
    }
}
