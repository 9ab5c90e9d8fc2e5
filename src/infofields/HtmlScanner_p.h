#pragma once

#include <QHash>
#include <QString>
#include <QStringView>

/// A tag as it is written.
struct HtmlTag {
    QString name; // lower case
    bool closes = false;
    bool closesItself = false;          // as <p/> does
    QHash<QString, QString> attributes; // by names in lower case; of several the last
};

/// Walks html from tag to tag, of which there may be none that is well made.
class HtmlScanner
{
public:
    explicit HtmlScanner(QStringView html) : m_html(html) {}

    bool atEnd() const { return m_at == m_html.size(); }
    /// In front of a "<".
    bool atTag() const { return !atEnd() && here() == u'<'; }
    bool startsWith(QStringView mark) const { return m_html.sliced(m_at).startsWith(mark); }
    qsizetype place() const { return m_at; }

    /// All up to the next "<", or up to the end.
    QStringView takeText();
    /// The tag at whose "<" this stands, up to and with its ">".
    HtmlTag takeTag();
    /// All up to @p mark, by neither case, or up to the end.
    QStringView takeUpTo(const QString &mark);
    /// Goes behind the next @p mark that begins at least @p from characters ahead, or to the end.
    void skipBehind(QStringView mark, qsizetype from);
    /// Where @p mark, by neither case, comes next, or -1.
    qsizetype find(QLatin1String mark) const { return m_html.indexOf(mark, m_at, Qt::CaseInsensitive); }

private:
    QChar here() const { return m_html.at(m_at); }
    QStringView takeValue();

    template <typename Predicate>
    QStringView takeWhile(Predicate belongs);

    QStringView m_html;
    qsizetype m_at = 0;
};
