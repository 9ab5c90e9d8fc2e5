#include "metadata/RecordAttributes_p.h"

#include "scene/metadata/PO_Utils.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QDateTime>
#include <QStringList>
#include <QXmlAttributes>

#include <cmath>
#include <set>

int RecordAttributes::intOf(const QXmlAttributes &attributes, const QString &key)
{
    return attributes.value(key).toInt(nullptr, 10);
}

bool RecordAttributes::readBool(const QXmlAttributes &attributes, const QString &key, bool &value)
{
    return PO_Utils::parseBoolAttr(attributes.value(key), value);
}

bool RecordAttributes::readInt(const QXmlAttributes &attributes, const QString &key, int &value)
{
    bool good = false;
    const int parsed = attributes.value(key).toInt(&good, 10);
    if (good)
        value = parsed;
    return good;
}

bool RecordAttributes::readDouble(const QXmlAttributes &attributes, const QString &key, double &value)
{
    bool good = false;
    const double parsed = attributes.value(key).toDouble(&good);
    if (good)
        value = parsed;
    return good;
}

bool RecordAttributes::readFloat(const QXmlAttributes &attributes, const QString &key, float &value)
{
    double read = 0.0;
    if (!readDouble(attributes, key, read) || !std::isfinite(static_cast<float>(read)))
        return false;
    value = static_cast<float>(read);
    return true;
}

void RecordAttributes::encodeDate(PO_XmlWriter &writer, const QString &key, const QDateTime &date)
{
    writer.encodeStringAttr(key, date.toString(Qt::ISODate));
}

QDateTime RecordAttributes::dateOf(const QXmlAttributes &attributes, const QString &key)
{
    return QDateTime::fromString(attributes.value(key), Qt::ISODate);
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
        id.parseXml(part);
        if (known.insert(id).second)
            ids.push_back(id);
    }
}
