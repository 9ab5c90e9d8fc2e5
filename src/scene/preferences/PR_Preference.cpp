#include "scene/preferences/PR_Preference.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <cmath>
#include <limits>

namespace
{

constexpr qint64 largestFile = 16 * 1024 * 1024;

QVariant settingOf(const QJsonValue &value)
{
    if (value.isBool())
        return value.toBool();
    if (value.isString())
        return value.toString();
    const double number = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max()
        && std::trunc(number) == number)
        return int(number);
    return QVariant();
}

} // namespace

PR_Preference *tuPref = nullptr;

namespace
{

// Runs before the static objects of this library are made, and those are made before the ones of
// whoever links it.
__attribute__((constructor(101))) void makeSettings()
{
    tuPref = new PR_Preference; // never destroyed
}

} // namespace

PR_Preference::PR_Preference(QObject *parent) : QObject(parent) {}

PR_Preference::~PR_Preference() = default;

bool PR_Preference::getBool(const QString &key) const
{
    return getBoolValue(key, false);
}

bool PR_Preference::getBoolValue(const QString &key, bool defaultValue) const
{
    const QVariant value = m_values.value(key);
    return value.typeId() == QMetaType::Bool ? value.toBool() : defaultValue;
}

int PR_Preference::getIntValue(const QString &key, int defaultValue) const
{
    const QVariant value = m_values.value(key);
    return value.typeId() == QMetaType::Int ? value.toInt() : defaultValue;
}

QString PR_Preference::getStringValue(const QString &key, const QString &defaultValue) const
{
    const QVariant value = m_values.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : defaultValue;
}

void PR_Preference::setBoolValue(const QString &key, bool value)
{
    set(key, value);
}

void PR_Preference::setIntValue(const QString &key, int value)
{
    set(key, value);
}

void PR_Preference::setStringValue(const QString &key, const QString &value)
{
    set(key, value);
}

void PR_Preference::clear()
{
    replace({});
}

bool PR_Preference::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.read(largestFile + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > largestFile)
        return false;
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return false;

    QMap<QString, QVariant> values;
    const QJsonObject entries = document.object();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const QVariant value = settingOf(entry.value());
        if (value.isValid())
            values.insert(entry.key(), value);
    }
    replace(values);
    return true;
}

bool PR_Preference::save(const QString &path) const
{
    QJsonObject entries;
    for (auto entry = m_values.begin(); entry != m_values.end(); ++entry)
        entries.insert(entry.key(), QJsonValue::fromVariant(entry.value()));
    const QByteArray bytes = QJsonDocument(entries).toJson();
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

void PR_Preference::set(const QString &key, const QVariant &value)
{
    m_values.insert(key, value);
    Q_EMIT preferenceChanged();
}

void PR_Preference::replace(const QMap<QString, QVariant> &values)
{
    m_values = values;
    Q_EMIT preferenceChanged();
}
