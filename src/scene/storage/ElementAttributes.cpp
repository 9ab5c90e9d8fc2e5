#include "scene/storage/ElementAttributes_p.h"

#include "scene/metadata/PO_Utils.h"
#include "scene/project/SC_ProjectCommon.h"

#include <limits>

ElementAttributes::ElementAttributes(const QXmlStreamReader &xml, LoadReport &report) :
    m_attributes(xml.attributes()), m_xml(xml), m_place(FilePlace::of(xml)), m_report(report)
{
}

std::optional<qint64> ElementAttributes::findNumber(const QString &name) const
{
    bool ok = false;
    const qint64 number = m_attributes.value(name).toLongLong(&ok, 10);
    return ok ? std::optional<qint64>(number) : std::nullopt;
}

std::optional<unsigned int> ElementAttributes::findFrames(const QString &name) const
{
    const std::optional<qint64> number = findNumber(name);
    if (!number || *number < 0 || *number > std::numeric_limits<unsigned int>::max())
        return std::nullopt;
    return static_cast<unsigned int>(*number);
}

std::optional<SC_Id> ElementAttributes::findId(const QString &name) const
{
    const std::optional<qint64> number = findNumber(name);
    if (!number || *number < 0 || *number >= SC_ProjectCommon::idLimit)
        return std::nullopt;
    return SC_Id(*number);
}

bool ElementAttributes::readBool(const QString &name, bool absent) const
{
    bool value = absent;
    if (has(name) && !PO_Utils::parseBoolAttr(text(name), value))
        warnOf(name);
    return value;
}

int ElementAttributes::readInt(const QString &name, int absent) const
{
    if (!has(name))
        return absent;
    bool ok = false;
    const int value = m_attributes.value(name).toInt(&ok, 10);
    if (ok)
        return value;
    warnOf(name);
    return absent;
}

double ElementAttributes::readDouble(const QString &name, double absent) const
{
    if (!has(name))
        return absent;
    bool ok = false;
    const double value = m_attributes.value(name).toDouble(&ok);
    if (ok)
        return value;
    warnOf(name);
    return absent;
}

void ElementAttributes::warnOf(const QString &name) const
{
    m_report.warn(m_place, m_xml.name().toString(),
        QStringLiteral("the attribute \"%1\" cannot be read and counts as absent").arg(name));
}
