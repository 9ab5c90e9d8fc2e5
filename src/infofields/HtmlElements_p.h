#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringView>

#include <initializer_list>

/// What elements of html are to the text of a document. All names are lower case.
namespace HtmlElements
{

constexpr QLatin1String kBody("body");
constexpr QLatin1String kCaption("caption");
constexpr QLatin1String kDd("dd");
constexpr QLatin1String kDl("dl");
constexpr QLatin1String kDt("dt");
constexpr QLatin1String kHead("head");
constexpr QLatin1String kHtml("html");
constexpr QLatin1String kLi("li");
constexpr QLatin1String kOl("ol");
constexpr QLatin1String kP("p");
constexpr QLatin1String kPre("pre");
constexpr QLatin1String kTable("table");
constexpr QLatin1String kTd("td");
constexpr QLatin1String kTh("th");
constexpr QLatin1String kTr("tr");
constexpr QLatin1String kUl("ul");

bool isOneOf(QStringView name, std::initializer_list<QLatin1String> names);

/// Elements within a line. They end a run of blanks, so they count.
bool isInline(QStringView name);
bool isCell(QStringView name);
/// A table, and what stands directly in one or in its rows.
bool isTablePart(QStringView name);
/// Elements whose content is no text.
bool isHidden(QStringView name);

/// The element that stands for all that do to the text what @p name does, or nothing for one that does nothing.
QString reducedName(const QString &name);

} // namespace HtmlElements
