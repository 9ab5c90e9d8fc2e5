#include "infofields/CaptionText_p.h"

#include "infofields/CaptionDocument_p.h"
#include "infofields/HarmlessHtml_p.h"

#include <algorithm>

namespace
{

// Html says how each line is laid out, with 150 characters and more.
constexpr qsizetype longestRichText = 1000000;
constexpr qsizetype mostLinesOfRichText = 10000;

bool isLong(const QString &text)
{
    return text.size() > longestRichText || std::count_if(text.begin(), text.end(), [](QChar unit) {
        return unit == QChar::LineFeed || unit == QChar::CarriageReturn || unit == QChar::ParagraphSeparator;
    }) >= mostLinesOfRichText;
}

/// A character for private use that the text does not hold, or a null one.
QChar privateCharacter(const QString &text)
{
    for (char16_t unit = 0xE000; unit <= 0xF8FF; ++unit) {
        if (!text.contains(unit))
            return unit;
    }
    return {};
}

} // namespace

QString CaptionText::richTextOf(const QString &text)
{
    if (text.isEmpty() || Qt::mightBeRichText(text) || isLong(text))
        return text;
    // A document takes the character for an image without an image and, in html, drops all of its line.
    const QChar placeholder = privateCharacter(text);
    const bool holdsObjects = text.contains(QChar::ObjectReplacementCharacter);
    if (holdsObjects && placeholder.isNull())
        return text;
    CaptionDocument document;
    document.setPlainText(QString(text).replace(QChar::ObjectReplacementCharacter, placeholder));
    const QString html = document.toHtml();
    return holdsObjects ? QString(html).replace(placeholder, QLatin1String("&#65532;")) : html;
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
