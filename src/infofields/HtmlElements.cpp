#include "infofields/HtmlElements_p.h"

#include <algorithm>

namespace
{

using namespace HtmlElements;

/// Elements that begin a new line.
bool isBlock(QStringView name)
{
    return isOneOf(name, {QLatin1String("div"), kDt});
}

/// Elements that begin a new line and end it.
bool isSpacedBlock(QStringView name)
{
    return isOneOf(name,
        {QLatin1String("blockquote"), QLatin1String("center"), kDl, kDd, kPre, QLatin1String("h1"), QLatin1String("h2"),
            QLatin1String("h3"), QLatin1String("h4"), QLatin1String("h5"), QLatin1String("h6")});
}

/// Elements that hold others and are laid out in a way of their own.
bool isStructure(QStringView name)
{
    return isOneOf(name, {kHtml, kBody, kP, kUl, kOl, kLi, kTable, kCaption, kTr, kTd});
}

} // namespace

bool HtmlElements::isOneOf(QStringView name, std::initializer_list<QLatin1String> names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool HtmlElements::isInline(QStringView name)
{
    return isOneOf(name,
        {QLatin1String("a"), QLatin1String("address"), QLatin1String("b"), QLatin1String("big"), QLatin1String("cite"),
            QLatin1String("code"), QLatin1String("del"), QLatin1String("dfn"), QLatin1String("em"),
            QLatin1String("font"), QLatin1String("i"), QLatin1String("kbd"), QLatin1String("nobr"), QLatin1String("s"),
            QLatin1String("samp"), QLatin1String("small"), QLatin1String("span"), QLatin1String("strong"),
            QLatin1String("sub"), QLatin1String("sup"), QLatin1String("tt"), QLatin1String("u"), QLatin1String("var")});
}

bool HtmlElements::isCell(QStringView name)
{
    return isOneOf(name, {kTd, kTh});
}

bool HtmlElements::isTablePart(QStringView name)
{
    return isCell(name) || isOneOf(name, {kTable, kCaption, kTr});
}

bool HtmlElements::isHidden(QStringView name)
{
    return isOneOf(name, {QLatin1String("title"), QLatin1String("style"), QLatin1String("script")});
}

QString HtmlElements::reducedName(const QString &name)
{
    if (isInline(name))
        return QStringLiteral("span");
    if (isBlock(name))
        return QStringLiteral("div");
    if (isSpacedBlock(name))
        return QStringLiteral("blockquote");
    if (name == kTh)
        return QStringLiteral("td");
    return isStructure(name) ? name : QString();
}
