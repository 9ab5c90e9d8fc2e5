#include "infofields/CaptionText_p.h"

#include "infofields/CaptionDocument_p.h"
#include "infofields/HarmlessHtml_p.h"

#include <bitset>
#include <cstddef>

namespace
{

// Html says how each line is laid out, with 150 characters and more.
constexpr qsizetype longestRichText = 1000000;
constexpr qsizetype mostLinesOfRichText = 10000;

/// A carriage return with a line feed is one break.
qsizetype lineBreaksIn(const QString &text)
{
    qsizetype breaks = 0;
    QChar before;
    for (const QChar unit : text) {
        const bool endsPair = before == QChar::CarriageReturn && unit == QChar::LineFeed;
        if (unit == QChar::CarriageReturn || unit == QChar::ParagraphSeparator
            || (unit == QChar::LineFeed && !endsPair))
            ++breaks;
        before = unit;
    }
    return breaks;
}

bool isLong(const QString &text)
{
    return text.size() > longestRichText || lineBreaksIn(text) >= mostLinesOfRichText;
}

/// A document takes these for the beginning and the end of a frame.
bool holdsFrameMarks(const QString &text)
{
    return text.contains(QChar(0xFDD0)) || text.contains(QChar(0xFDD1));
}

/// A character for private use that the text does not hold, or a null one.
QChar privateCharacter(const QString &text)
{
    constexpr std::size_t first = 0xE000;
    std::bitset<0xF900 - first> used;
    for (const QChar unit : text) {
        if (unit.unicode() >= first && unit.unicode() < first + used.size())
            used.set(unit.unicode() - first);
    }
    for (std::size_t i = 0; i < used.size(); ++i) {
        if (!used.test(i))
            return QChar(static_cast<char16_t>(first + i));
    }
    return {};
}

QString htmlOf(const QString &text)
{
    CaptionDocument document;
    document.setPlainText(text);
    return document.toHtml();
}

} // namespace

QString CaptionText::richTextOf(const QString &text)
{
    if (text.isEmpty() || Qt::mightBeRichText(text) || isLong(text) || holdsFrameMarks(text))
        return text;
    if (!text.contains(QChar::ObjectReplacementCharacter))
        return htmlOf(text);
    // A document takes the character for an image without an image and, in html, drops all of its line.
    const QChar placeholder = privateCharacter(text);
    if (placeholder.isNull())
        return text;
    return htmlOf(QString(text).replace(QChar::ObjectReplacementCharacter, placeholder))
        .replace(placeholder, QLatin1String("&#65532;"));
}

QString CaptionText::plainTextOf(const QString &text)
{
    QString plain = text;
    if (text.contains(QLatin1String("<html")) || text.contains(QLatin1String("<!DOCTYPE HTML PUBLIC"))) {
        CaptionDocument document;
        document.setHtml(HarmlessHtml::reduced(text));
        plain = document.toPlainText();
    }
    plain.replace(QLatin1String("\t\n"), QLatin1String(" "));
    return plain.replace(QLatin1Char('\n'), QLatin1Char(' '));
}
