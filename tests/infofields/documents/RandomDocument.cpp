#include "infofields/documents/RandomDocument.h"

#include <QColor>
#include <QFont>
#include <QStringList>
#include <QTextFrame>
#include <QTextImageFormat>
#include <QTextList>
#include <QTextTable>

namespace
{

constexpr int mostDepth = 3; // of tables and frames

const QStringList &pieces()
{
    static const QStringList all = [] {
        QStringList texts;
        for (const char *text : {"a", "word", "two words", " ", "  ", "   ", "\t", " \t ", "&", "<b>", "<", ">", "\"",
                 "'", "&amp;", ";", "{", "}", "</p>", "<!-- x -->", "-->", "\\", "%1", "příšera", "漢字", "😀"})
            texts += QString::fromUtf8(text);
        // no-break space, soft hyphen, next line, form feed, accent alone, zero width space, right to left, line
        // separator, wide space, byte order mark
        for (const int unit : {0x00A0, 0x00AD, 0x0085, 0x000C, 0x0300, 0x200B, 0x202E, 0x2028, 0x3000, 0xFEFF})
            texts += QChar(unit);
        return texts;
    }();
    return all;
}

} // namespace

RandomDocument::RandomDocument(unsigned int seed) : m_random(seed)
{
    QTextCursor cursor(&m_document);
    addParts(cursor, 8, 0);
}

QString RandomDocument::words()
{
    QString text;
    for (int count = below(6); count > 0; --count)
        text += pieces().at(below(static_cast<int>(pieces().size())));
    return text;
}

QTextCharFormat RandomDocument::look()
{
    QTextCharFormat format;
    if (oneIn(3))
        format.setFontWeight(QFont::Bold);
    if (oneIn(4))
        format.setFontItalic(true);
    if (oneIn(4))
        format.setFontUnderline(true);
    if (oneIn(6))
        format.setFontPointSize(1 + below(40));
    if (oneIn(6))
        format.setForeground(QColor(Qt::red));
    if (oneIn(6))
        format.setBackground(QColor(Qt::yellow));
    if (oneIn(6))
        format.setFontFamilies({QStringLiteral("Courier")});
    if (oneIn(8))
        format.setVerticalAlignment(oneIn(2) ? QTextCharFormat::AlignSuperScript : QTextCharFormat::AlignSubScript);
    if (oneIn(10))
        format.setFontFixedPitch(true);
    if (oneIn(10))
        format.setFontCapitalization(QFont::AllUppercase);
    if (oneIn(10))
        format.setToolTip(QStringLiteral("tip <b>"));
    if (oneIn(5)) {
        format.setAnchor(true);
        if (oneIn(3))
            format.setAnchorNames({QStringLiteral("here")});
        else
            format.setAnchorHref(QStringLiteral("http://example.org/?a=1&b=2"));
    }
    return format;
}

QTextBlockFormat RandomDocument::paragraph()
{
    QTextBlockFormat format;
    if (oneIn(5))
        format.setAlignment(oneIn(2) ? Qt::AlignHCenter : Qt::AlignRight);
    if (oneIn(5))
        format.setTopMargin(below(20));
    if (oneIn(5))
        format.setIndent(below(4));
    if (oneIn(6))
        format.setTextIndent(below(30));
    if (oneIn(6))
        format.setHeadingLevel(1 + below(6));
    if (oneIn(6))
        format.setNonBreakableLines(true);
    if (oneIn(6))
        format.setLineHeight(
            100 + below(100), oneIn(2) ? QTextBlockFormat::ProportionalHeight : QTextBlockFormat::FixedHeight);
    if (oneIn(8))
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    if (oneIn(8))
        format.setBackground(QColor(Qt::cyan));
    if (oneIn(10))
        format.setLayoutDirection(Qt::RightToLeft);
    if (oneIn(10))
        format.setProperty(
            QTextFormat::BlockTrailingHorizontalRulerWidth, QTextLength(QTextLength::PercentageLength, 50));
    if (oneIn(10))
        format.setMarker(QTextBlockFormat::MarkerType::Checked);
    if (oneIn(10))
        format.setProperty(QTextFormat::BlockQuoteLevel, 1 + below(2));
    return format;
}

void RandomDocument::addParts(QTextCursor &cursor, int limit, int depth)
{
    for (int count = below(limit); count > 0; --count)
        addPart(cursor, depth);
}

void RandomDocument::addPart(QTextCursor &cursor, int depth)
{
    switch (below(12)) {
    case 0:
        cursor.insertBlock(paragraph(), look());
        break;
    case 1:
        cursor.insertBlock();
        break;
    case 2:
        addList(cursor);
        break;
    case 3:
        leaveList(cursor);
        break;
    case 4:
        if (depth < mostDepth)
            addTable(cursor, depth);
        break;
    case 5:
        addImage(cursor);
        break;
    case 6:
        if (depth < mostDepth)
            addFrame(cursor, depth);
        break;
    case 7:
        addPreformatted(cursor);
        break;
    case 8:
        cursor.insertHtml(QStringLiteral("<p>in <i>html</i>  <br></p><ul><li>one<ul><li>two</li></ul></li></ul>"
                                         "<pre>a  b\n c</pre><hr>x"));
        break;
    default:
        cursor.insertText(words(), look());
    }
}

/// A list of lower indent than one it stands in ends that.
void RandomDocument::addList(QTextCursor &cursor)
{
    QTextListFormat format;
    format.setStyle(static_cast<QTextListFormat::Style>(-1 - below(8))); // ListDisc to ListUpperRoman
    format.setIndent(1 + below(4));
    if (oneIn(2))
        cursor.insertList(format);
    else
        cursor.createList(format);
    for (int count = below(4); count > 0; --count) {
        cursor.insertText(words(), look());
        cursor.insertBlock();
        if (oneIn(2))
            cursor.mergeBlockFormat(paragraph());
    }
}

void RandomDocument::leaveList(QTextCursor &cursor)
{
    if (QTextList *list = cursor.currentList(); list && oneIn(2)) {
        list->removeItem(list->itemNumber(cursor.block()));
    } else if (list) {
        cursor.insertBlock();
        cursor.setBlockFormat(QTextBlockFormat());
    }
}

void RandomDocument::addTable(QTextCursor &cursor, int depth)
{
    QTextTableFormat format;
    format.setHeaderRowCount(below(2));
    if (oneIn(3))
        format.setBorder(below(3));
    if (oneIn(4))
        format.setWidth(QTextLength(QTextLength::PercentageLength, 50));
    QTextTable *table = cursor.insertTable(1 + below(3), 1 + below(3), format);
    if (oneIn(3))
        table->mergeCells(below(table->rows()), below(table->columns()), 1 + below(3), 1 + below(3));
    for (int row = 0; row < table->rows(); ++row) {
        for (int column = 0; column < table->columns(); ++column) {
            QTextCursor inCell = table->cellAt(row, column).firstCursorPosition();
            addParts(inCell, 3, depth + 1);
        }
    }
    cursor = table->lastCursorPosition();
    cursor.movePosition(QTextCursor::NextCharacter);
}

void RandomDocument::addFrame(QTextCursor &cursor, int depth)
{
    QTextFrameFormat format;
    if (oneIn(2))
        format.setPosition(QTextFrameFormat::FloatRight);
    format.setBorder(1);
    QTextFrame *frame = cursor.insertFrame(format);
    QTextCursor inFrame = frame->firstCursorPosition();
    addParts(inFrame, 3, depth + 1);
    cursor = frame->lastCursorPosition();
    cursor.movePosition(QTextCursor::NextCharacter);
}

void RandomDocument::addImage(QTextCursor &cursor)
{
    QTextImageFormat format;
    format.setName(QStringLiteral("x.png"));
    if (oneIn(2))
        format.setWidth(3);
    if (oneIn(3))
        cursor.insertImage(format, QTextFrameFormat::FloatLeft);
    else
        cursor.insertImage(format);
}

void RandomDocument::addPreformatted(QTextCursor &cursor)
{
    QTextBlockFormat format = cursor.blockFormat();
    format.setNonBreakableLines(true);
    cursor.setBlockFormat(format);
    cursor.insertText(words());
}
