#pragma once

#include <QHash>
#include <QString>

struct HtmlTag;

/// How blanks count in the elements of html, by style sheets and by their own declarations.
class HtmlWhiteSpace
{
public:
    /// Of a style sheet counts what it says of all elements of a name.
    void addSheet(const QString &sheet);

    /// The declarations of an element that matter to the text.
    QString styleOf(const HtmlTag &tag) const;

private:
    QHash<QString, QString> m_ofElements; // by name
};
