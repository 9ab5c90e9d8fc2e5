#include "infofields/CaptionText_p.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTextDocument>

#include <gtest/gtest.h>

// All of this runs without a QGuiApplication, as the command does.

namespace
{

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

std::string plain(const char *html)
{
    return CaptionText::plainTextOf(text(html)).toStdString();
}

/// The text of the html that a plain caption becomes, new lines kept.
std::string readBack(const QString &caption)
{
    QTextDocument document;
    document.setHtml(CaptionText::richTextOf(caption));
    return document.toPlainText().toStdString();
}

} // namespace

TEST(RichText, IsMadeOfPlainTextWithoutAQGuiApplication)
{
    ASSERT_EQ(dynamic_cast<QGuiApplication *>(QCoreApplication::instance()), nullptr);
    const QString html = CaptionText::richTextOf(text("Hello"));
    EXPECT_TRUE(Qt::mightBeRichText(html));
    EXPECT_EQ(readBack(text("Hello")), "Hello");
}

TEST(RichText, KeepsEveryCharacter)
{
    for (const char *caption : {"a", " a  b ", "two\nlines\n\nand more", "a & b", "5 > 3 \"x\" 'y'", "\ttab", "%1 %2",
             "příšera 漢字 😀", "\n", "a<"})
        EXPECT_EQ(readBack(text(caption)), caption);
}

TEST(RichText, LeavesAloneWhatMayBeHtml)
{
    for (const char *caption : {"", "<b>a</b>", "<html><body>a</body></html>", "a &lt; b"}) {
        EXPECT_EQ(CaptionText::richTextOf(text(caption)), text(caption)) << caption;
    }
    EXPECT_TRUE(CaptionText::richTextOf(QString()).isNull());
    const QString once = CaptionText::richTextOf(text("a"));
    EXPECT_EQ(CaptionText::richTextOf(once), once);
}

TEST(PlainText, IsTheTextItselfWithoutMarksOfHtml)
{
    EXPECT_EQ(plain(""), "");
    EXPECT_EQ(plain("a <b>c</b> &amp;"), "a <b>c</b> &amp;");
    EXPECT_EQ(plain("<HTML>a"), "<HTML>a"); // marks are compared by case
    EXPECT_EQ(plain("<!doctype html>a"), "<!doctype html>a");
}

TEST(PlainText, IsOneLine)
{
    EXPECT_EQ(plain("a\nb\t\nc\t\t\nd"), "a b c\t d");
    EXPECT_EQ(plain("\n\n"), "  ");
    EXPECT_EQ(plain("<html><p>a</p><p>b<br>c</p></html>"), "a b c");
}

TEST(PlainText, ReadsHtmlWhereverItsMarkStands)
{
    EXPECT_EQ(plain("x <html>a &amp; <b>b</b></html>"), "x a & b");
    EXPECT_EQ(plain("<!DOCTYPE HTML PUBLIC \"a > b\"><p>a</p>"), "b\"> a");
    EXPECT_EQ(plain("<!DOCTYPE HTML PUBLIC \"x\"><p>a</p>"), "a");
}

TEST(PlainText, ComesBackFromTheHtmlOfAPlainCaption)
{
    for (const char *caption : {"Hello", " a  b ", "5 > 3 & 2", "příšera 😀", "a\tb", "&", "%1"})
        EXPECT_EQ(CaptionText::plainTextOf(CaptionText::richTextOf(text(caption))), text(caption));
    EXPECT_EQ(CaptionText::plainTextOf(CaptionText::richTextOf(text("a\n\nb"))), text("a  b"));
}

TEST(PlainText, LeavesOutWhatIsNoText)
{
    EXPECT_EQ(
        plain("<html><head><title>t</title><style>p{}</style></head><body>a<!-- <b> -->b<script>c</script></body>"),
        "ab");
    EXPECT_EQ(plain("<html>a<img src='x.png' alt='no'>b</html>"),
        "a\xEF\xBF\xBC"
        "b");
}

TEST(PlainText, HasOneCharacterForEachImage)
{
    const QString images = text("<img src='x.png'></img>");
    EXPECT_EQ(CaptionText::plainTextOf(text("<html>") + images.repeated(250)), text("\xEF\xBF\xBC").repeated(250));
}

TEST(PlainText, ReadsListsTablesAndHeadings)
{
    EXPECT_EQ(plain("<html><ul><li>a</li><li>b</li></ul></html>"), "a b");
    EXPECT_EQ(plain("<html><table><tr><td>a</td><td>b</td></tr></table></html>"), " a b ");
    EXPECT_EQ(plain("<html><h1>a</h1><pre>b  c</pre><hr>d</html>"), "a b  c  d");
}

TEST(PlainText, NeedsNoFontsAndNoFiles)
{
    for (const char *caption : {"<html><p style='margin-left:2em; text-indent:3ex; line-height:2em'>a</p></html>",
             "<html><p style='font-size:large'><font size='+3'>a</font></p></html>", "<html><code>a</code></html>",
             "<html><p style='font: bold 2em serif'>a</p></html>",
             "<html><head><link rel='stylesheet' href='/etc/hostname'><style>@import url('/etc/hostname'); "
             "p { background-image: url(/etc/hostname); padding: 1em }</style></head><p>a</p></html>",
             "<html><body background='/etc/hostname' style='background-image:url(/etc/hostname)'>a</body></html>"})
        EXPECT_EQ(plain(caption), "a") << caption;
}

TEST(PlainText, EndsSoonForHtmlThatIsATrap)
{
    QElapsedTimer timer;
    timer.start();
    for (const char *trap : {"<b>", "<ul><li>", "<table><tr><td>", "<table>", "<div>", "<div></ul>", "<div></ul></b>",
             "<style>p{}</style>a", "<style", "<title>", "<!--", "<", "<p a='", "<td rowspan=99999 colspan=99999>",
             "<img>", "</div><div>", "<li>", "<dl><dt>", "<pre>a", "&", "<p style='margin-left:2em'>"})
        CaptionText::plainTextOf(text("<html>") + text(trap).repeated(5000) + text("end"));
    EXPECT_LT(timer.elapsed(), 60000); // seconds together, where one of them once took hours
}

TEST(PlainText, SurvivesBrokenTags)
{
    EXPECT_EQ(plain("<html>a<"), "a");
    EXPECT_EQ(plain("<html>a</"), "a");
    EXPECT_EQ(plain("<html>a<p style='"), "a ");
    EXPECT_EQ(plain("<html>a<p style"), "a ");
    EXPECT_EQ(plain("<html>a<p style="), "a ");
    EXPECT_EQ(plain("<html>a<!--"), "a");
    EXPECT_EQ(plain("<html"), "");
    EXPECT_EQ(plain("<html><p style=white-space:pre>a  b</p><P STYLE=\"WHITE-SPACE : PRE\">c  d</P><p>e  f</p>"),
        "a  b c  d e f");
}
