#pragma once

#include "plotka_listing_export.h"

#include <QLatin1String>
#include <QString>
#include <QVariant>

#include <utility>
#include <vector>

/// Writes JSON with its keys in the order in which they come, indented by two spaces. What acts on a terminal stands in
/// texts as an escape.
///
///     json.beginObject();
///     json.field(QLatin1String("name"), name);
///     json.beginArray(QLatin1String("items"));
///     ...
class PLOTKA_LISTING_EXPORT JsonWriter
{
public:
    /// What lies in a container stands on lines of its own, or all on one line.
    enum Layout { Lines, OneLine };

    void beginObject(Layout layout = Lines);
    void beginObject(QLatin1String key, Layout layout = Lines);
    void endObject();
    void beginArray(QLatin1String key);
    void endArray();

    /// @p value is null, a bool, a whole number, a double or a text; what is no finite number is written as null.
    void field(const QString &key, const QVariant &value);
    void field(QLatin1String key, const QVariant &value) { field(QString(key), value); }

    /// The finished text with a line end.
    QString text() const { return m_text + QLatin1Char('\n'); }
    /// What has been written since it was last taken, for a text that is longer than what should be held. text() is then
    /// the rest.
    QString takeWritten() { return std::exchange(m_text, QString()); }

private:
    struct Container {
        bool isOneLine;
        bool isEmpty;
    };

    void startMember();
    void writeKey(const QString &key);
    void begin(QChar bracket, Layout layout);
    void end(QChar bracket);
    void breakLine();

    QString m_text;
    std::vector<Container> m_open;
};
