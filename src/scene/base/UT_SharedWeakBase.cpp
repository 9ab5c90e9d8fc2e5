#include "scene/base/UT_SharedWeakBase.h"

void UT_SharedWeakRecord::drop()
{
    if (m_holders.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

UT_SharedWeakBase::~UT_SharedWeakBase()
{
    if (!m_record)
        return;
    m_record->clearTarget();
    m_record->drop();
}

void UT_SharedWeakBase::forgetWatchers()
{
    if (m_record)
        m_record->clearTarget();
}

UT_SharedWeakRecord *UT_SharedWeakBase::weakRecord() const
{
    if (!m_record) {
        m_record = new UT_SharedWeakRecord(const_cast<UT_SharedWeakBase *>(this));
        m_record->hold();
    }
    return m_record;
}
