#include "infofields/CaptionText_p.h"

#include "infofields/HarmlessHtml_p.h"

#include <QTextDocument>
#include <QUrl>
#include <QVariant>

namespace
{

/// A document that opens no file and no address, whatever its text asks for.
class CaptionDocument : public QTextDocument
{
protected:
    QVariant loadResource(int, const QUrl &) override { return {}; }
};

} // namespace

QString CaptionText::richTextOf(const QString &text)
{
    if (text.isEmpty() || Qt::mightBeRichText(text))
        return text;
    CaptionDocument document;
    document.setPlainText(text);
    return document.toHtml();
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
