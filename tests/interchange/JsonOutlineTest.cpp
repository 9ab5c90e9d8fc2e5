#include "interchange/LooseJson_p.h"

#include <gtest/gtest.h>

namespace
{

using Member = JsonOutline::Member;

constexpr qsizetype anyLength = 1'000'000;

/// The text of an object of @p json, by the number that the outline gives it.
std::string textOf(const QByteArray &json, int object, Member without, qsizetype mostBytes = anyLength)
{
    const LooseJson read = LooseJson::parse(json);
    EXPECT_EQ(read.error.toStdString(), "");
    const QString text = read.outline.textOf(read.text, object, without, mostBytes);
    return text.isNull() ? "null" : text.toStdString();
}

std::string textOfRoot(const QByteArray &json)
{
    return textOf(json, 0, JsonOutline::Other);
}

std::vector<int> objectsIn(const QByteArray &json, int object, Member member)
{
    return LooseJson::parse(json).outline.objectsIn(object, member);
}

using Numbers = std::vector<int>;

} // namespace

TEST(JsonOutline, FindsTheObjectsOfTheTree)
{
    const QByteArray json =
        R"({"tracks": {"children": [{"a": 1}, null, {"children": [{}]}, 5]}, "metadata": {"b": {}}})";
    EXPECT_EQ(objectsIn(json, 0, JsonOutline::Tracks), Numbers{1});
    EXPECT_EQ(objectsIn(json, 0, JsonOutline::Children), Numbers{});
    EXPECT_EQ(objectsIn(json, 1, JsonOutline::Children), (Numbers{2, 3}));
    EXPECT_EQ(objectsIn(json, 2, JsonOutline::Children), Numbers{});
    EXPECT_EQ(objectsIn(json, 3, JsonOutline::Children), Numbers{4});
    EXPECT_EQ(objectsIn(json, JsonOutline::none, JsonOutline::Children), Numbers{});
}

TEST(JsonOutline, LeavesOutWhatIsInOtherMembersAndInArraysOfArrays)
{
    const QByteArray json =
        R"({"metadata": {"children": [{}]}, "x": [{"children": [{}]}], "children": [[{}], {"y": 1}]})";
    EXPECT_EQ(objectsIn(json, 0, JsonOutline::Children), Numbers{1});
    EXPECT_EQ(textOf(json, 1, JsonOutline::Other), R"({"y":1})");
}

TEST(JsonOutline, TakesTheLastOfAMemberThatStandsTwice)
{
    const QByteArray json =
        R"({"children": [{"a": 1}, {"a": 2}], "tracks": {"t": 1}, "children": [{"b": 1}], "tracks": {"t": 2},
 "children": {"c": 1}})";
    EXPECT_EQ(objectsIn(json, 0, JsonOutline::Children), Numbers{6});
    EXPECT_EQ(textOf(json, 6, JsonOutline::Other), R"({"c":1})");
    EXPECT_EQ(objectsIn(json, 0, JsonOutline::Tracks), Numbers{5});
    EXPECT_EQ(objectsIn(R"({"children": [{}], "children": 7})", 0, JsonOutline::Children), Numbers{});
}

TEST(JsonOutline, KnowsAKeyWithEscapes)
{
    const QByteArray json = R"({"childr\u0065n": [{"a": 1}], "x": 1})";
    EXPECT_EQ(objectsIn(json, 0, JsonOutline::Children), Numbers{1});
    EXPECT_EQ(textOf(json, 0, JsonOutline::Children), R"({"x":1})");
}

TEST(JsonOutline, GivesNumbersOrderAndDoubledKeysAsTheyAre)
{
    const QByteArray json =
        R"({"z": NaN, "a": -Infinity, "n": 123456789012345678901234567890, "d": 0.1000000000000000055,
 "e": 1E+400, "z": [1 , 2.50, {"q" : null}], "t": true})";
    EXPECT_EQ(textOfRoot(json),
        R"({"z":NaN,"a":-Infinity,"n":123456789012345678901234567890,"d":0.1000000000000000055,"e":1E+400,)"
        R"("z":[1,2.50,{"q":null}],"t":true})");
}

TEST(JsonOutline, GivesStringsAsTheyAreEscapesIncluded)
{
    const QByteArray json =
        R"({"a": "\u0001 \u0041 \/ \" \\", "b" : "two  blanks, { [ ] } :", "ł": "夜 \ud83d\udc22"})";
    EXPECT_EQ(textOfRoot(json), R"({"a":"\u0001 \u0041 \/ \" \\","b":"two  blanks, { [ ] } :","ł":"夜 \ud83d\udc22"})");
}

TEST(JsonOutline, EscapesWhatXmlForbids)
{
    EXPECT_EQ(textOfRoot("{\"a\x02\": \"x\x01y\tz\n\x1F\xEF\xBF\xBE\xEF\xBF\xBF\xEF\xBF\xBD\"}"),
        "{\"a\\u0002\":\"x\\u0001y\\u0009z\\u000a\\u001f\\ufffe\\uffff\xEF\xBF\xBD\"}");
    EXPECT_EQ(textOfRoot("{\"a\": \"x\\\ny\"}"), R"({"a":"x\u000ay"})") << "a control behind a backslash is itself";
}

TEST(JsonOutline, LeavesOutAMemberWhereverItStands)
{
    for (const char *json :
        {R"({"children":[{"children":[{}]},3],"a":1,"b":2})", R"({"a":1,"children":[[{}],"}"],"b":2})",
            R"({"a":1,"b":2,"children":{"x":{}}})", R"({"children":5,"a":1,"b":2,"children":null})"})
        EXPECT_EQ(textOf(json, 0, JsonOutline::Children), R"({"a":1,"b":2})") << json;
    EXPECT_EQ(textOf(R"({"children":[]})", 0, JsonOutline::Children), "{}");
    EXPECT_EQ(textOf(R"({"tracks":{},"children":[{"c":{}}]})", 0, JsonOutline::Tracks), R"({"children":[{"c":{}}]})");
    EXPECT_EQ(textOf(R"({"m":{"children":[1]},"children":[]})", 0, JsonOutline::Children), R"({"m":{"children":[1]}})");
}

TEST(JsonOutline, GivesNothingLongerThanAsked)
{
    const QByteArray json = R"({"a": "1234567890", "children": [{"b": "1234567890"}]})";
    const auto length = static_cast<qsizetype>(std::string(R"({"a":"1234567890"})").size());
    EXPECT_EQ(textOf(json, 0, JsonOutline::Children, length), R"({"a":"1234567890"})");
    EXPECT_EQ(textOf(json, 0, JsonOutline::Children, length - 1), "null");
    EXPECT_EQ(textOf(json, 0, JsonOutline::Children, 1), "null");
    EXPECT_EQ(textOf("{}", 0, JsonOutline::Other, 2), "{}");
    EXPECT_EQ(textOf(R"({"a":1,"b":2})", 0, JsonOutline::Other, 6), "null");
    EXPECT_EQ(textOf(json, JsonOutline::none, JsonOutline::Children), "null");
}

TEST(JsonOutline, CountsBehindAByteOrderMark)
{
    EXPECT_EQ(textOf("\xEF\xBB\xBF {\"children\":[{\"a\":1}]}", 1, JsonOutline::Other), R"({"a":1})");
}
