#include "records/RecordAttributes_p.h"

#include "records/RecordElement_p.h"
#include "scene/metadata/PO_Utils.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QDateTime>
#include <QStringList>
#include <QXmlAttributes>

#include <cmath>
#include <set>

void RecordAttributes::noteUnreadable(const QXmlAttributes &attributes, const QString &key)
{
    if (const auto *element = dynamic_cast<const RecordElement *>(&attributes))
        element->noteUnreadable(key);
}

void RecordAttributes::noteUnlessOneOf(const QXmlAttributes &attributes, const QString &key, const QStringList &words)
{
    const QString text = attributes.value(key);
    if (!text.isNull() && !words.contains(text))
        noteUnreadable(attributes, key);
}

int RecordAttributes::intOf(const QXmlAttributes &attributes, const QString &key)
{
    return intOr(attributes, key, 0);
}

int RecordAttributes::intOr(const QXmlAttributes &attributes, const QString &key, int value)
{
    if (!attributes.value(key).isNull())
        readInt(attributes, key, value);
    return value;
}

SC_Id RecordAttributes::idOf(const QXmlAttributes &attributes, const QString &key)
{
    SC_Id id;
    if (!id.parseXml(attributes.value(key)))
        noteUnreadable(attributes, key);
    return id;
}

bool RecordAttributes::readBool(const QXmlAttributes &attributes, const QString &key, bool &value)
{
    const QString text = attributes.value(key);
    if (PO_Utils::parseBoolAttr(text, value))
        return true;
    if (!text.isNull())
        noteUnreadable(attributes, key);
    return false;
}

bool RecordAttributes::readInt(const QXmlAttributes &attributes, const QString &key, int &value)
{
    bool good = false;
    const int parsed = attributes.value(key).toInt(&good, 10);
    if (good)
        value = parsed;
    else
        noteUnreadable(attributes, key);
    return good;
}

bool RecordAttributes::readDouble(const QXmlAttributes &attributes, const QString &key, double &value)
{
    bool good = false;
    const double parsed = attributes.value(key).toDouble(&good);
    if (good)
        value = parsed;
    else
        noteUnreadable(attributes, key);
    return good;
}

bool RecordAttributes::readFloat(const QXmlAttributes &attributes, const QString &key, float &value)
{
    double read = 0.0;
    if (!readDouble(attributes, key, read))
        return false;
    if (!std::isfinite(static_cast<float>(read))) {
        noteUnreadable(attributes, key);
        return false;
    }
    value = static_cast<float>(read);
    return true;
}

bool RecordAttributes::readColor(const QXmlAttributes &attributes, const QString &key, unsigned int &colour)
{
    const bool good = PO_Utils::parseColorAttr(attributes.value(key), colour);
    if (!good)
        noteUnreadable(attributes, key);
    return good;
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
        noteUnreadable(attributes, key);
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
            noteUnreadable(attributes, key);
        if (known.insert(id).second)
            ids.push_back(id);
    }
}
