#include "listing/JsonWriter.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <limits>

namespace
{

QString written(const QVariant &value)
{
    JsonWriter json;
    json.beginObject(JsonWriter::OneLine);
    json.field(QLatin1String("v"), value);
    json.endObject();
    return json.text();
}

} // namespace

TEST(JsonWriter, KeepsTheOrderOfKeysAndIndents)
{
    JsonWriter json;
    json.beginObject();
    json.field(QLatin1String("z"), 1);
    json.beginArray(QLatin1String("a"));
    json.beginObject(JsonWriter::OneLine);
    json.field(QLatin1String("b"), true);
    json.field(QLatin1String("c"), QVariant());
    json.endObject();
    json.beginObject();
    json.endObject();
    json.endArray();
    json.beginArray(QLatin1String("none"));
    json.endArray();
    json.endObject();
    EXPECT_EQ(json.text().toStdString(),
        "{\n  \"z\": 1,\n  \"a\": [\n    {\"b\": true, \"c\": null},\n    {}\n  ],\n  \"none\": []\n}\n");
}

TEST(JsonWriter, WritesTextsThatReadBackEqual)
{
    for (const QString &text : {QStringLiteral("\"quoted\" \\ back"), QStringLiteral("line\nbreak\ttab\r\u0001\u007F"),
             QStringLiteral("夜の港 🎬 %1"), QStringLiteral("")}) {
        EXPECT_EQ(QJsonDocument::fromJson(written(text).toUtf8())[QLatin1String("v")].toString(), text);
    }
}

TEST(JsonWriter, EscapesWhatActsOnATerminal)
{
    EXPECT_EQ(written(QStringLiteral("\u001b\u007f\u0080\u009b\u009f\u202a\u202e\u2066\u2069\u2028")).toStdString(),
        R"({"v": "\u001b\u007f\u0080\u009b\u009f\u202a\u202e\u2066\u2069\u2028"})"
        "\n");
    EXPECT_EQ(written(QStringLiteral("\u00a0\u200e\u202f\u2065\u206a")),
        QStringLiteral("{\"v\": \"\u00a0\u200e\u202f\u2065\u206a\"}\n"));
}

TEST(JsonWriter, ReplacesHalfACharacter)
{
    EXPECT_EQ(written(QStringLiteral("a") + QChar(0xD800)), QStringLiteral("{\"v\": \"a\uFFFD\"}\n"));
    EXPECT_EQ(written(QChar(0xDC00) + QStringLiteral("a")), QStringLiteral("{\"v\": \"\uFFFDa\"}\n"));
}

TEST(JsonWriter, WritesNumbersInFullAndNullForThoseThatAreNone)
{
    EXPECT_EQ(written(0.1), QStringLiteral("{\"v\": 0.1}\n"));
    EXPECT_EQ(written(24.0), QStringLiteral("{\"v\": 24}\n"));
    EXPECT_EQ(written(100000.0), QStringLiteral("{\"v\": 100000}\n"));
    EXPECT_EQ(written(-2147483647.5), QStringLiteral("{\"v\": -2147483647.5}\n"));
    EXPECT_EQ(written(1e15), QStringLiteral("{\"v\": 1e+15}\n"));
    EXPECT_EQ(written(999999999999999.0), QStringLiteral("{\"v\": 999999999999999}\n"));
    EXPECT_EQ(written(0.0001), QStringLiteral("{\"v\": 0.0001}\n"));
    EXPECT_EQ(written(0.00001), QStringLiteral("{\"v\": 1e-05}\n"));
    EXPECT_EQ(written(4294967295U), QStringLiteral("{\"v\": 4294967295}\n"));
    EXPECT_EQ(written(std::numeric_limits<qulonglong>::max()), QStringLiteral("{\"v\": 18446744073709551615}\n"));
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), QStringLiteral("{\"v\": null}\n"));
    EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), QStringLiteral("{\"v\": null}\n"));
}
