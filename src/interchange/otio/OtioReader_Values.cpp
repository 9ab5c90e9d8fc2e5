#include "interchange/otio/OtioReader_p.h"

#include "interchange/ImportNotes_p.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{

const QString kEnabled = QStringLiteral("enabled");
const QString kStartTime = QStringLiteral("start_time");
const QString kDuration = QStringLiteral("duration");
const QString kValue = QStringLiteral("value");
const QString kRate = QStringLiteral("rate");

/// "-3 at 24 per second", or the JSON of what has another form.
QString textOf(const QJsonValue &time)
{
    const QJsonObject object = time.toObject();
    const QJsonValue value = object.value(kValue);
    const QJsonValue rate = object.value(kRate);
    if (value.isDouble() && rate.isDouble())
        return OtioText::tr("%1 at %2 per second").arg(value.toVariant().toString(), rate.toVariant().toString());
    const QJsonDocument document = time.isArray() ? QJsonDocument(time.toArray()) : QJsonDocument(object);
    return time.isArray() || time.isObject()
        ? OtioText::brief(QString::fromUtf8(document.toJson(QJsonDocument::Compact)))
        : OtioText::brief(time.toVariant().toString());
}

QString noTime()
{
    return OtioText::tr("0");
}

} // namespace

OtioTime OtioReader::readTime(
    const QJsonObject &owner, const QString &field, const QString &place, OtioTime::Rate &rate)
{
    const QJsonValue time = owner.value(field);
    if (time.isNull() || time.isUndefined() || (time.isObject() && time.toObject().isEmpty()))
        return OtioTime();
    const QJsonValue count = time.toObject().value(kValue);
    rate = OtioTime::exactRate(time.toObject().value(kRate).toDouble());
    if (!count.isDouble() || (!rate.isValid() && count.toDouble() != 0.0)) {
        noteBadTime(field, place, OtioText::tr("is no time: %1").arg(textOf(time)), noTime());
        return OtioTime();
    }
    if (!rate.isValid())
        return OtioTime(); // nothing, whatever it is counted in
    // A number that is whole answers the same whatever it is asked to give otherwise.
    const bool isWhole = count.toInteger(0) == count.toInteger(1);
    const OtioTime result =
        isWhole ? OtioTime::fromUnits(count.toInteger(), rate) : OtioTime::fromUnits(count.toDouble(), rate);
    if (result.isAtLimit())
        noteBadTime(field, place, OtioText::tr("is longer than can be counted: %1").arg(textOf(time)),
            OtioText::tr("2^32 seconds"));
    return result;
}

OtioReader::Range OtioReader::readRange(const QJsonObject &owner, const QString &field, const QString &place)
{
    Range range;
    const QJsonObject object = readObject(owner, field, place);
    if (object.isEmpty())
        return range;
    OtioTime::Rate startRate;
    range.isGiven = true;
    range.start = readTime(object, kStartTime, place, startRate);
    range.duration = readTime(object, kDuration, place, range.rate);
    if (range.duration.isNegative()) {
        noteNegativeTime(kDuration, place, object.value(kDuration));
        range.duration = OtioTime();
    }
    return range;
}

QString OtioReader::readString(const QJsonObject &owner, const QString &field, const QString &place)
{
    const QJsonValue value = owner.value(field);
    if (!value.isString() && !value.isNull() && !value.isUndefined())
        noteBadValue(field, place);
    const QString text = value.toString();
    const QString kept = OtioText::storable(text);
    if (kept != text)
        m_notes.change(
            "bad-characters", place, OtioText::tr("its %1 loses characters that no text can hold").arg(field));
    return kept;
}

bool OtioReader::readEnabled(const QJsonObject &owner, const QString &place)
{
    const QJsonValue value = owner.value(kEnabled);
    if (!value.isBool() && !value.isNull() && !value.isUndefined())
        noteBadValue(kEnabled, place);
    return value.toBool(true);
}

QJsonArray OtioReader::readArray(const QJsonObject &owner, const QString &field, const QString &place)
{
    const QJsonValue value = owner.value(field);
    if (!value.isArray() && !value.isNull() && !value.isUndefined())
        noteBadValue(field, place);
    return value.toArray();
}

QJsonObject OtioReader::readObject(const QJsonObject &owner, const QString &field, const QString &place)
{
    const QJsonValue value = owner.value(field);
    if (!value.isObject() && !value.isNull() && !value.isUndefined())
        noteBadValue(field, place);
    return value.toObject();
}

void OtioReader::noteBadValue(const QString &field, const QString &place)
{
    m_notes.loss("bad-value", place, OtioText::tr("its %1 is of the wrong kind and is left out").arg(field));
}

void OtioReader::noteBadTime(const QString &field, const QString &place, const QString &reason, const QString &taken)
{
    m_notes.change("bad-time", place, OtioText::tr("its %1 %2; %3 is taken").arg(field, reason, taken));
}

void OtioReader::noteNegativeTime(const QString &field, const QString &place, const QJsonValue &time)
{
    noteBadTime(field, place, OtioText::tr("is negative: %1").arg(textOf(time)), noTime());
}
