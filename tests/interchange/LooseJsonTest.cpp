#include "interchange/LooseJson_p.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <limits>

namespace
{

std::string errorOf(const QByteArray &text)
{
    const LooseJson json = LooseJson::parse(text);
    return json.hasError()
        ? std::to_string(json.line) + ":" + std::to_string(json.column) + " " + json.error.toStdString()
        : "";
}

std::string compact(const QByteArray &text)
{
    const LooseJson json = LooseJson::parse(text);
    EXPECT_EQ(json.error.toStdString(), "");
    return QJsonDocument(json.root).toJson(QJsonDocument::Compact).toStdString();
}

QByteArray nested(int depth)
{
    return "{\"a\":" + QByteArray(depth, '[') + QByteArray(depth, ']') + "}";
}

} // namespace

TEST(LooseJson, ReadsPlainJson)
{
    EXPECT_EQ(compact("{\"a\":[1,2.5,true,null,\"x\"]}"), "{\"a\":[1,2.5,true,null,\"x\"]}");
}

TEST(LooseJson, ReadsNumbersThatAreNoneAsNull)
{
    const LooseJson json =
        LooseJson::parse("{\"a\":NaN,\"b\":Inf,\"c\":-Inf,\"d\":Infinity,\"e\":-Infinity,\"f\":-NaN,\"g\":1e999,"
                         "\"h\":+NaN,\"i\":+Inf,\"j\":+Infinity}");
    EXPECT_EQ(json.error.toStdString(), "");
    EXPECT_EQ(json.notFinite, 10);
    for (const QJsonValue &value : json.root)
        EXPECT_TRUE(value.isNull());
    EXPECT_EQ(json.root.size(), 10);
}

TEST(LooseJson, LeavesStringsAlone)
{
    EXPECT_EQ(compact("{\"NaN\":\"-Inf \\\" NaN 99999999999999999999\\\\\"}"),
        "{\"NaN\":\"-Inf \\\" NaN 99999999999999999999\\\\\"}");
}

TEST(LooseJson, KeepsIntegersOf64BitsExact)
{
    const LooseJson json = LooseJson::parse("{\"a\":9223372036854775807,\"b\":-9223372036854775808}");
    EXPECT_EQ(json.root.value(QLatin1String("a")).toInteger(), std::numeric_limits<qint64>::max());
    EXPECT_EQ(json.root.value(QLatin1String("b")).toInteger(), std::numeric_limits<qint64>::min());
    EXPECT_EQ(json.longIntegers, 0);
}

TEST(LooseJson, ReadsLongerIntegersAsTheNearestDouble)
{
    const LooseJson json =
        LooseJson::parse("{\"a\":170141183460469231731687303715884105728,\"b\":-9223372036854775809}");
    EXPECT_EQ(json.root.value(QLatin1String("a")).toDouble(), 170141183460469231731687303715884105728.0);
    EXPECT_EQ(json.root.value(QLatin1String("b")).toDouble(), -9223372036854775808.0);
    EXPECT_EQ(json.longIntegers, 2);
    const LooseJson huge = LooseJson::parse("{\"a\":1" + QByteArray(400, '0') + "}");
    EXPECT_EQ(huge.notFinite, 1);
    EXPECT_TRUE(huge.root.value(QLatin1String("a")).isNull());
}

TEST(LooseJson, TakesTheLastOfDoubledKeys)
{
    EXPECT_EQ(compact("{\"a\":1,\"b\":2,\"a\":3}"), "{\"a\":3,\"b\":2}");
}

TEST(LooseJson, TakesByteOrderMarkAndAnyLineEnds)
{
    EXPECT_EQ(compact("\xEF\xBB\xBF{\r\n\"a\":\r1\n}\r\n"), "{\"a\":1}");
}

TEST(LooseJson, TellsWhereTheTextIsWrong)
{
    EXPECT_EQ(errorOf("{\n  \"a\": tru\n}"), "2:8 tru is no value");
    EXPECT_EQ(errorOf("{\"a\": -true}"), "1:7 true is no value");
    EXPECT_EQ(errorOf("{\r\n\"a\": 1,\r\n\"b\" 2}"), "3:5 a colon is expected here");
    EXPECT_EQ(errorOf("\xEF\xBB\xBF{ ]}"), "1:3 a name in quotes is expected here");
    EXPECT_EQ(errorOf("{\"a\":1,}"), "1:8 a name in quotes is expected here");
    EXPECT_EQ(errorOf("{\"a\":[1,]}"), "1:9 a value is expected here");
    EXPECT_EQ(errorOf("{\"a\":\r[1 2]}"), "2:4 a comma or ] is expected here");
    EXPECT_EQ(errorOf("{\"a\":[1}}"), "1:8 a comma or ] is expected here");
    EXPECT_EQ(errorOf("{\"a\":1 /* x */}"), "1:8 a comma or } is expected here");
    EXPECT_EQ(errorOf("{\"a\":+1}"), "1:6 this is no number");
    EXPECT_EQ(errorOf("{\"a\":+}"), "1:6 a value is expected here");
    EXPECT_EQ(errorOf("{\"a\":+true}"), "1:6 true is no value");
    EXPECT_EQ(errorOf("{\"a\":1.2.3}"), "1:6 this is no number");
    EXPECT_EQ(errorOf("{} {}"), "1:4 nothing is expected after the end of the object");
    EXPECT_EQ(errorOf("{\"a\": \"b"), "1:7 the text ends within this string");
    EXPECT_EQ(errorOf("{\"a\": [1,\n"), "2:1 the text ends before it is complete");
}

TEST(LooseJson, CountsPlacesInTheTextAsItWasBeforeReplacements)
{
    EXPECT_EQ(errorOf("{\"a\": [NaN, -Infinity, 99999999999999999999999, x]}"), "1:49 x is no value");
    EXPECT_EQ(errorOf("{\"a\": [NaN, -Infinity, 99999999999999999999999, \"\xFF\"]}"), "1:50 invalid UTF8 string");
}

TEST(LooseJson, CountsColumnsInCharacters)
{
    EXPECT_EQ(errorOf("{\"\xC3\xA4\xE2\x82\xAC\": x}"), "1:8 x is no value");
}

TEST(LooseJson, ReadsNumbersTooNearToNothingAsNothing)
{
    EXPECT_EQ(compact("{\"a\":1e-999,\"b\":-0." + QByteArray(400, '0') + "1}"), "{\"a\":0,\"b\":0}");
}

TEST(LooseJson, TellsTooFarFromTooNearByTheNumberAndNotByItsExponent)
{
    const LooseJson json =
        LooseJson::parse("{\"a\":1" + QByteArray(400, '0') + "e-50,\"b\":-0." + QByteArray(700, '0') + "1e+50}");
    EXPECT_TRUE(json.root.value(QLatin1String("a")).isNull());
    EXPECT_EQ(json.root.value(QLatin1String("b")).toDouble(-1), 0.0);
    EXPECT_EQ(json.notFinite, 1);
}

TEST(LooseJson, RefusesWhatIsNoText)
{
    EXPECT_EQ(errorOf(""), "1:1 the file is empty");
    EXPECT_EQ(errorOf(" \r\n\t"), "1:1 the file is empty");
    EXPECT_EQ(errorOf("\xEF\xBB\xBF"), "1:1 the file is empty");
    EXPECT_EQ(errorOf("\xFF\xFE{"), "1:1 the text is not UTF-8");
    EXPECT_EQ(errorOf(QByteArray("{\0\"\0", 4)), "1:1 the text is not UTF-8");
    EXPECT_EQ(errorOf("{\"a\": \"\xFF\"}"), "1:8 invalid UTF8 string");
    EXPECT_EQ(errorOf("[1]"), "1:1 the file does not hold an object");
}

TEST(LooseJson, RefusesEveryTruncation)
{
    const QByteArray whole = "{\"a\": [NaN, {\"b\": \"\\u00e4\"}], \"c\": -12.5e3}";
    ASSERT_EQ(errorOf(whole), "");
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_NE(errorOf(whole.left(length)), "") << length;
}

TEST(LooseJson, RefusesEndlessNesting)
{
    EXPECT_EQ(errorOf(nested(LooseJson::mostDepth - 1)), "");
    EXPECT_EQ(errorOf(nested(LooseJson::mostDepth)), "1:517 nested more than 512 deep");
    EXPECT_EQ(errorOf(QByteArray(1'000'000, '[')), "1:513 nested more than 512 deep");
}

TEST(LooseJson, RefusesMoreValuesThanItCanHold)
{
    QByteArray many = "{\"a\":[";
    many.append(QByteArray("0,").repeated(LooseJson::mostValues));
    many.append("]}");
    EXPECT_NE(errorOf(many).find("more than 10000000 values"), std::string::npos);
}
