#include "cli/DisplayWidth.h"

#include <gtest/gtest.h>

namespace
{

int widthOf(const char *text)
{
    return DisplayWidth::of(QString::fromUtf8(text));
}

std::string fitted(const char *text, int columns)
{
    return DisplayWidth::fitted(QString::fromUtf8(text), columns).toStdString();
}

} // namespace

TEST(DisplayWidth, CountsOneColumnForLettersOfNarrowScripts)
{
    EXPECT_EQ(widthOf(""), 0);
    EXPECT_EQ(widthOf("Łódź"), 4);
    EXPECT_EQ(widthOf("Κύμα волна"), 10);
    EXPECT_EQ(widthOf("ｱｲｳ"), 3);
}

TEST(DisplayWidth, CountsTwoColumnsForEastAsianScripts)
{
    EXPECT_EQ(widthOf("夜の港"), 6);
    EXPECT_EQ(widthOf("장면"), 4);
    EXPECT_EQ(widthOf("Ａ、「」"), 8);
    EXPECT_EQ(widthOf("\xF0\xA0\x80\x80"), 2); // U+20000
}

TEST(DisplayWidth, CountsNothingForWhatCombines)
{
    EXPECT_EQ(widthOf("e\u0301tude"), 5);
    EXPECT_EQ(widthOf("\u1112\u1161\u11AB"), 2); // one syllable of three parts
    EXPECT_EQ(widthOf("a\u200Bb"), 2);
}

TEST(DisplayWidth, CountsTwoColumnsForAnEmojiHoweverManyPartsItHas)
{
    EXPECT_EQ(widthOf("🎬"), 2);
    EXPECT_EQ(widthOf("👩\u200D🚀"), 2);
    EXPECT_EQ(widthOf("👍🏽"), 2);
    EXPECT_EQ(widthOf("🇵🇱"), 2);
    EXPECT_EQ(widthOf("\u2764\uFE0F"), 2);
    EXPECT_EQ(widthOf("\u2764"), 1);
}

TEST(DisplayWidth, CutsBetweenWholeCharacters)
{
    EXPECT_EQ(fitted("Opening", 7), "Opening");
    EXPECT_EQ(fitted("Opening", 6), "Openi…");
    EXPECT_EQ(fitted("夜の港", 5), "夜の…");
    EXPECT_EQ(fitted("夜の港", 4), "夜…");
    EXPECT_EQ(fitted("e\u0301tude", 3), "e\u0301t…");
    EXPECT_EQ(fitted("Opening", 1), "…");
    EXPECT_EQ(fitted("Opening", 0), "");
    EXPECT_EQ(fitted("Opening", -1), "");
}

TEST(DisplayWidth, FillsToTheWidth)
{
    EXPECT_EQ(DisplayWidth::leftAligned(QStringLiteral("夜の"), 6), QStringLiteral("夜の  "));
    EXPECT_EQ(DisplayWidth::rightAligned(QStringLiteral("12"), 4), QStringLiteral("  12"));
    EXPECT_EQ(DisplayWidth::leftAligned(QStringLiteral("夜の港"), 4), QStringLiteral("夜… "));
}

TEST(DisplayWidth, ReplacesWhatWouldMoveTheCursor)
{
    EXPECT_EQ(DisplayWidth::printable(QStringLiteral("a\n\t\033[31m\u0085\u009B\u2028\u202Eb")),
        QStringLiteral("a\uFFFD\uFFFD\uFFFD[31m\uFFFD\uFFFD\uFFFD\uFFFDb"));
    const QString loneSurrogate(QChar(0xD800));
    EXPECT_EQ(DisplayWidth::printable(loneSurrogate), QString(QChar(0xFFFD)));
    EXPECT_EQ(DisplayWidth::printable(QStringLiteral("夜 🎬")), QStringLiteral("夜 🎬"));
}
