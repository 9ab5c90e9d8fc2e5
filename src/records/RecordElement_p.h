#pragma once

#include <QStringList>
#include <QXmlAttributes>

/// The attributes of an element that is being read, and which of them could not be.
class RecordElement : public QXmlAttributes
{
public:
    explicit RecordElement(const QXmlAttributes &attributes) : QXmlAttributes(attributes) {}

    /// Each attribute is noted once. Reading changes nothing about the attributes.
    void noteUnreadable(const QString &key) const
    {
        if (!m_unreadable.contains(key))
            m_unreadable += key;
    }
    const QStringList &unreadable() const { return m_unreadable; }

private:
    mutable QStringList m_unreadable;
};
