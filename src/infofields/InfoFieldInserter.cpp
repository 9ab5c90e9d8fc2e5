#include "infofields/InfoFieldInserter_p.h"

#include "infofields/FieldLists_p.h"
#include "infofields/PKC_InfoFieldImage.h"
#include "infofields/PKC_InfoFieldText.h"

namespace
{

UT_SharedPtr<PKC_InfoField> made(PKC_InfoFieldDesc::Type type, int id, const QString &value, const QString &name)
{
    // The type IMAGE with the comment bit makes a text as well: only the plain type counts.
    if (type == PKC_InfoFieldDesc::IMAGE)
        return new PKC_InfoFieldImage(id, value, name);
    return new PKC_InfoFieldText(id, value, name);
}

} // namespace

int LocalIds::next()
{
    while (m_used.count(m_next) > 0)
        --m_next;
    return m_next;
}

PKC_InfoField &InfoFieldInserter::insert(PKC_InfoFieldDesc::Type type, const QString &name, int id,
    PKC_InfoFieldDesc::Size size, int height, const QString &value, PKC_InfoFieldList::iterator place)
{
    if (FieldLists::isReserved(id)) {
        if (!m_localIds)
            m_localIds.emplace(*m_list);
        id = m_localIds->next();
    }
    if (m_localIds)
        m_localIds->take(id);
    m_hasCustomSize = m_hasCustomSize || size == PKC_InfoFieldDesc::CUSTOM;

    const UT_SharedPtr<PKC_InfoField> field = made(type, id, value, id < 0 ? name : QString());
    field->setSize(m_hasCustomSize ? PKC_InfoFieldDesc::CUSTOM : size);
    field->setHeight(height);
    m_list->insert(place, field);
    return *field;
}
