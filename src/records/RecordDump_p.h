#pragma once

#include <QString>

/// Appends the fields of a record to its debug text, each as "key=value" with what follows it.
///
/// Key and value are filled in together, so a value that looks like a placeholder stays as it is.
class RecordDump
{
public:
    explicit RecordDump(QString &text) : m_text(text) {}

    /// Followed by a comma and a space.
    template <typename T>
    void next(const QString &key, const T &value)
    {
        append(QStringLiteral("%1=%2, "), key, textOf(value));
    }
    /// Followed by a comma alone.
    template <typename T>
    void nextClose(const QString &key, const T &value)
    {
        append(QStringLiteral("%1=%2,"), key, textOf(value));
    }
    /// Ends the line.
    template <typename T>
    void last(const QString &key, const T &value)
    {
        append(QStringLiteral("%1=%2\n"), key, textOf(value));
    }

    /// How a value stands in such a text.
    static QString textOf(const QString &value) { return value; }
    static QString textOf(int value) { return QString::number(value); }
    static QString textOf(bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }

private:
    void append(const QString &format, const QString &key, const QString &value);

    QString &m_text;
};
