#include "infofields/HtmlWhiteSpace_p.h"

#include "infofields/HtmlElements_p.h"
#include "infofields/HtmlScanner_p.h"

namespace
{

using HtmlElements::kPre;

const QString kStyle = QStringLiteral("style");

/// The value of the last declaration of @p key, or nothing.
QString declared(const QString &declarations, QLatin1String key)
{
    QString value;
    const auto all = QStringView(declarations).split(u';');
    for (const QStringView declaration : all) {
        const qsizetype colon = declaration.indexOf(u':');
        if (colon >= 0 && declaration.first(colon).trimmed() == key)
            value = declaration.sliced(colon + 1).trimmed().toString();
    }
    return value;
}

/// How blanks count, or nothing when that is not declared.
QString whiteSpaceOf(const QString &declarations)
{
    const QString value = declared(declarations, QLatin1String("white-space"));
    const bool isKnown = HtmlElements::isOneOf(value,
        {QLatin1String("normal"), QLatin1String("nowrap"), kPre, QLatin1String("pre-wrap"), QLatin1String("pre-line")});
    return isKnown ? value : QString();
}

} // namespace

void HtmlWhiteSpace::addSheet(const QString &sheet)
{
    const QString lower = sheet.toLower();
    const auto rules = QStringView(lower).split(u'}');
    for (const QStringView rule : rules) {
        const qsizetype brace = rule.indexOf(u'{');
        const QString whiteSpace = brace < 0 ? QString() : whiteSpaceOf(rule.sliced(brace + 1).toString());
        if (whiteSpace.isEmpty())
            continue;
        const auto names = rule.first(brace).split(u',');
        for (const QStringView name : names)
            m_ofElements.insert(name.trimmed().toString(), whiteSpace);
    }
}

QString HtmlWhiteSpace::styleOf(const HtmlTag &tag) const
{
    const QString declarations = tag.attributes.value(kStyle).toLower();
    QString whiteSpace = whiteSpaceOf(declarations);
    if (whiteSpace.isEmpty())
        whiteSpace = m_ofElements.value(tag.name);
    if (whiteSpace.isEmpty() && tag.name == kPre)
        whiteSpace = kPre;
    QString style;
    if (!whiteSpace.isEmpty())
        style += QStringLiteral("white-space:%1;").arg(whiteSpace);
    if (declared(declarations, QLatin1String("-qt-paragraph-type")) == QLatin1String("empty"))
        style += QLatin1String("-qt-paragraph-type:empty;");
    return style;
}
