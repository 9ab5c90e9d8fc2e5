#include "infofields/CaptionDocument_p.h"
#include "infofields/CaptionText_p.h"
#include "infofields/documents/RandomDocument.h"

#include <gtest/gtest.h>

// What a document writes as html is, as a caption, what the document itself reads from it. These run with a
// QGuiApplication, since a document alone may ask for fonts.

namespace
{

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// The caption in one line, as a document reads it from which nothing was taken.
std::string untouched(const QString &html)
{
    CaptionDocument document;
    document.setHtml(html);
    return document.toPlainText()
        .replace(QLatin1String("\t\n"), QLatin1String(" "))
        .replace(QLatin1Char('\n'), QLatin1Char(' '))
        .toStdString();
}

std::string caption(const QString &html)
{
    return CaptionText::plainTextOf(html).toStdString();
}

} // namespace

class CaptionOfDocument : public testing::TestWithParam<unsigned int>
{
};

TEST_P(CaptionOfDocument, IsWhatTheDocumentReads)
{
    constexpr unsigned int seeds = 2000;
    for (unsigned int seed = GetParam() * seeds + 1; seed <= (GetParam() + 1) * seeds; ++seed) {
        const QString html = RandomDocument(seed).document().toHtml();
        ASSERT_EQ(caption(html), untouched(html)) << "seed " << seed << ": " << html.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(RandomDocuments, CaptionOfDocument, testing::Range(0U, 10U));

TEST(CaptionOfDocument, OfPlainTextIsThatText)
{
    for (const char *plain :
        {"", "\n", "\nword", "word\n", "\n\nword\n\n", " ", "  two  words ", "\t", "\ttab\t", "a\tb\nc"}) {
        QTextDocument document;
        document.setPlainText(text(plain));
        EXPECT_EQ(caption(document.toHtml()), untouched(document.toHtml())) << '"' << plain << '"';
        EXPECT_EQ(caption(document.toHtml()), text(plain).replace(QLatin1Char('\n'), QLatin1Char(' ')).toStdString());
    }
}

TEST(CaptionOfDocument, OfMarkdownIsWhatTheDocumentReads)
{
    for (const char *markdown : {"# Head\n\nText *in* **styles** and `code`.", "- a\n  - b\n    - c\n- d",
             "1. a\n2. b\n   1. c\n\n      d", "```\na  b\n\n c\n```\n\nd", "| a | b |\n|---|---|\n| c | d |",
             "> a\n> b\n>\n> > c", "- [ ] a\n- [x] b", "a\n\n---\n\nb", "![image](x.png) [link](http://example.org)"}) {
        QTextDocument document;
        document.setMarkdown(text(markdown));
        EXPECT_EQ(caption(document.toHtml()), untouched(document.toHtml())) << markdown;
    }
}

TEST(CaptionOfDocument, OfHtmlWrittenByHandIsWhatTheDocumentReads)
{
    for (const char *body :
        {"", " ", "\n", "word", "\nword\n", "  word  ", "<p></p>", "<p> </p>", "<p><br></p>", "<p>a</p>\n<p>b</p>",
            "<p>a</p><p></p><p>b</p>", "a<br>b<br>", "<br>a", "a<hr>b", "<div>a</div>b<div>c</div>",
            "<ul><li>a<ul><li>b<ol><li>c</li></ol></li></ul></li><li>d</li></ul>",
            "<ul>\n<li>a\n<ul>\n<li>b</li>\n</ul>\n</li>\n<li>d</li>\n</ul>\n", "<ul><li>a<li>b<ul><li>c</ul>d</ul>e",
            "<ul><li><p>a</p></li><li></li><li> </li></ul>", "<dl><dt>a</dt><dd>b</dd></dl>c", "<pre>a  b\n c\n</pre>d",
            "<pre>\n\na\n\n</pre>", "<p style='white-space:pre'>\na  b\n</p>", "<pre><b>a  </b>  b</pre>",
            "<h1>a</h1>b", "<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>d",
            "a<table><tr><td></td></tr></table>b", "<table>\n<tr>\n<td>\n<p>a</p>\n</td>\n</tr>\n</table>\n",
            "<table><tr><td rowspan=2>a</td><td>b</td></tr><tr><td>c</td></tr></table>d",
            "<table><tr><td colspan=2>a</td></tr><tr><td>b</td><td>c</td></tr></table>d",
            "<table><tr><th colspan='3' rowspan='2'>a</th></tr><tr></tr></table>d",
            "<table><tr><td rowspan=99 colspan=0>a</td><td>b</td></tr><tr><td>c</td></tr></table>d",
            "<table><tr><td rowspan=x colspan=-3>a</td></tr></table>", "<table></table>a",
            "<table><thead><tr><th>a</th></tr></thead><tbody><tr><td>b</td></tr></tbody></table>c",
            "<table><tr><td><table><tr><td>a</td></tr></table></td><td>b</td></tr></table>c", "<b>a</b> <i>b</i>  c",
            "a <a href='x'>b</a> c", "<img src='x.png'>", "a<img src='x.png'/>b <img>", "a&nbsp;&nbsp;b&lt;c&#10;d",
            "<blockquote>a<blockquote>b</blockquote></blockquote>c", "<center>a</center>", "<p>a<p>b", "a</p>b",
            "<meta name='qrichtext' content='1'>a", "a <META NAME=qrichtext CONTENT=1> b"}) {
        const QString html = text(body);
        for (const QString &document :
            {QStringLiteral("<html>%1</html>").arg(html), QStringLiteral("<html><body>%1</body></html>").arg(html),
                QStringLiteral("<html>\n<head>\n</head>\n<body>\n%1\n</body>\n</html>\n").arg(html),
                QStringLiteral("<html><head><meta name=\"qrichtext\" content=\"1\" /><title>t</title><style>p, li { "
                               "white-space: pre-wrap; }</style></head><body>%1</body></html>")
                    .arg(html),
                QStringLiteral("<html><head><meta name=\"other\" content=\"1\" /></head><body>%1</body></html>")
                    .arg(html)})
            EXPECT_EQ(caption(document), untouched(document)) << document.toStdString();
    }
}
