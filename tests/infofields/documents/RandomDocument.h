#pragma once

#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <random>

/// A document made as somebody makes it in an editor, of whatever an editor offers: styles, lists, tables with merged
/// cells, frames, images, links, empty paragraphs, blanks and characters that mean something in html.
class RandomDocument
{
public:
    explicit RandomDocument(unsigned int seed);

    const QTextDocument &document() const { return m_document; }

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned int>(limit)); }
    bool oneIn(int count) { return below(count) == 0; }

    QString words();
    QTextCharFormat look();
    QTextBlockFormat paragraph();

    void addParts(QTextCursor &cursor, int limit, int depth);
    void addPart(QTextCursor &cursor, int depth);
    void addList(QTextCursor &cursor);
    void leaveList(QTextCursor &cursor);
    void addTable(QTextCursor &cursor, int depth);
    void addFrame(QTextCursor &cursor, int depth);
    void addImage(QTextCursor &cursor);
    void addPreformatted(QTextCursor &cursor);

    std::mt19937 m_random;
    QTextDocument m_document;
};
