#pragma once

#include "scene/base/SC_Id.h"
#include "scene/storage/LoadReport_p.h"

#include <QString>
#include <QXmlStreamReader>

#include <optional>

/// The attributes of the element at which a stream stands, and still stands while they are asked for.
///
/// `find...` answers nothing for an attribute that is absent or unreadable. `read...` answers the default for
/// an absent one, and warns of an unreadable one before it does.
class ElementAttributes
{
public:
    ElementAttributes(const QXmlStreamReader &xml, LoadReport &report);

    bool has(const QString &name) const { return m_attributes.hasAttribute(name); }
    QString text(const QString &name) const { return m_attributes.value(name).toString(); }

    std::optional<qint64> findNumber(const QString &name) const;
    std::optional<unsigned int> findFrames(const QString &name) const;
    std::optional<SC_Id> findId(const QString &name) const;

    bool readBool(const QString &name, bool absent) const;
    int readInt(const QString &name, int absent) const;
    double readDouble(const QString &name, double absent) const;

    FilePlace place() const { return m_place; }

private:
    void warnOf(const QString &name) const;

    QXmlStreamAttributes m_attributes;
    const QXmlStreamReader &m_xml;
    FilePlace m_place;
    LoadReport &m_report;
};
