#include "infofields/HtmlScanner_p.h"

#include <algorithm>

namespace
{

bool isWord(QChar unit)
{
    return unit.isLetterOrNumber();
}

bool isKey(QChar unit)
{
    return isWord(unit) || unit == u'-' || unit == u'_' || unit == u':';
}

bool isSpace(QChar unit)
{
    return unit.isSpace();
}

} // namespace

QStringView HtmlScanner::takeText()
{
    return takeWhile([](QChar unit) { return unit != u'<'; });
}

HtmlTag HtmlScanner::takeTag()
{
    HtmlTag tag;
    ++m_at;
    if (!atEnd() && here() == u'/') {
        tag.closes = true;
        ++m_at;
    }
    tag.name = takeWhile(isWord).toString().toLower();
    while (!atEnd() && here() != u'>') {
        if (const QStringView key = takeWhile(isKey); !key.isEmpty()) {
            tag.attributes.insert(key.toString().toLower(), takeValue().toString());
        } else {
            tag.closesItself = tag.closesItself || here() == u'/';
            ++m_at;
        }
    }
    if (!atEnd())
        ++m_at;
    return tag;
}

QStringView HtmlScanner::takeUpTo(const QString &mark)
{
    const qsizetype from = m_at;
    const qsizetype place = m_html.indexOf(mark, m_at, Qt::CaseInsensitive);
    m_at = place < 0 ? m_html.size() : place;
    return m_html.sliced(from, m_at - from);
}

void HtmlScanner::skipBehind(QStringView mark, qsizetype from)
{
    const qsizetype place = m_html.indexOf(mark, m_at + from);
    m_at = place < 0 ? m_html.size() : place + mark.size();
}

/// What follows an attribute's name: nothing, or "=" and a text in quotes or without.
QStringView HtmlScanner::takeValue()
{
    takeWhile(isSpace);
    if (atEnd() || here() != u'=')
        return {};
    ++m_at;
    takeWhile(isSpace);
    if (atEnd())
        return {};
    const QChar quote = here();
    if (quote != u'"' && quote != u'\'')
        return takeWhile([](QChar unit) { return !unit.isSpace() && unit != u'>'; });
    ++m_at;
    const QStringView value = takeWhile([quote](QChar unit) { return unit != quote; });
    if (!atEnd())
        ++m_at;
    return value;
}

template <typename Predicate>
QStringView HtmlScanner::takeWhile(Predicate belongs)
{
    const auto from = m_html.begin() + m_at;
    const auto end = std::find_if_not(from, m_html.end(), belongs);
    m_at = end - m_html.begin();
    return QStringView(from, end);
}
