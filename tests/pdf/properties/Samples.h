#pragma once

#include <QColor>
#include <QDateTime>
#include <QPoint>
#include <QString>
#include <QTimeZone>
#include <QVariant>

#include <string>
#include <vector>

/// A value of one type that properties know, with the texts it becomes.
struct SampleValue {
    QVariant value;
    const char *text;
    const char *script;
    bool comesBackFromText = true;
};

inline std::vector<SampleValue> sampleValues()
{
    const QDate date(2024, 2, 29);
    const QTime time(23, 59, 7);
    return {
        {true, "true", "true"},
        {false, "false", "false"},
        {-2147483647 - 1, "-2147483648", "-2147483648"},
        {4294967295u, "4294967295", "4294967295"},
        {Q_INT64_C(-9000000000000000000), "-9000000000000000000", "-9000000000000000000"},
        {Q_UINT64_C(18446744073709551615), "18446744073709551615", "18446744073709551615"},
        {0.125, "0.125", "0.125"},
        {1234567.0, "1.23457e+06", "1.23457e+06", false},
        {QStringLiteral("a\"b, <%1>"), "a\"b, <%1>", "\"a\\\"b, <%1>\""},
        {QString(), "", "\"\""},
        {QStringList{QStringLiteral("x"), QString(), QStringLiteral("q\"")}, "x,,q\"",
            "new Array( \"x\", \"\", \"q\\\"\" )"},
        {QVariantList{QStringLiteral("x"), QStringLiteral("y")}, "x,y", "new Array( \"x\", \"y\" )"},
        {QVariantList{1, QVariantList{true, 2.5}, QStringLiteral("z")}, "1,,z",
            "new Array( 1, new Array( true, 2.5 ), \"z\" )", false},
        {date, "2024-02-29", "new Date( Date.parse(  \"\"2024-02-29\"\" ) )"},
        {time, "23:59:07", "new Date( Date.parse(  \"\"23:59:07\"\" ) )"},
        {QTime(1, 2, 3, 456), "01:02:03", "new Date( Date.parse(  \"\"01:02:03\"\" ) )", false},
        {QDateTime(date, time), "2024-02-29T23:59:07", "new Date( Date.parse(  \"\"2024-02-29T23:59:07\"\" ) )"},
        {QDateTime(date, time, Qt::UTC), "2024-02-29T23:59:07Z",
            "new Date( Date.parse(  \"\"2024-02-29T23:59:07Z\"\" ) )"},
        {QDateTime(date, time, Qt::OffsetFromUTC, -5400), "2024-02-29T23:59:07-01:30",
            "new Date( Date.parse(  \"\"2024-02-29T23:59:07-01:30\"\" ) )"},
        {QColor(18, 52, 86), "#123456", "new Color( \"#123456\" )"},
        {QColor(18, 52, 86, 7), "#123456", "new Color( \"#123456\" )", false},
        {QColor(), "#000000", "new Color()", false},
    };
}
