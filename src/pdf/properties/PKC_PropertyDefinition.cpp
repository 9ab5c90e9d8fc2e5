#include "pdf/properties/PKC_PropertyDefinition.h"

PKC_PropertyDefinition::PKC_PropertyDefinition() = default;

PKC_PropertyDefinition::PKC_PropertyDefinition(
    const QString &ldesc, const QString &sdesc, bool readOnly, bool internal) :
    m_ldesc(ldesc),
    m_sdesc(sdesc), m_isReadOnly(readOnly), m_isInternal(internal)
{
}

PKC_PropertyDefinition::~PKC_PropertyDefinition() = default;

void PKC_PropertyDefinition::setDescriptions(const QString &ldesc, const QString &sdesc)
{
    m_ldesc = ldesc;
    m_sdesc = sdesc;
}
