#include "scene/metadata/PIO_Metadatas.h"

#include "scene/metadata/PIO_Metadata.h"

#include <algorithm>

PIO_Metadatas::~PIO_Metadatas()
{
    // Taken out and counted first: whoever looks while a record dies sees only records that live.
    while (!m_records.empty()) {
        PIO_Metadata *record = m_records.back();
        m_records.pop_back();
        ++m_removalCount;
        delete record;
    }
}

void PIO_Metadatas::add(PIO_Metadata *record)
{
    if (!record)
        return;
    Q_ASSERT(!record->m_isHeld);
    if (record->m_isHeld)
        return; // two owners would both delete it
    record->m_isHeld = true;
    m_records.push_back(record);
}

bool PIO_Metadatas::remove(PIO_Metadata *record)
{
    const auto found = std::find(m_records.begin(), m_records.end(), record);
    if (found == m_records.end())
        return false;
    m_records.erase(found);
    ++m_removalCount;
    m_complete = 0;
    delete record;
    return true;
}

PIO_Metadata *PIO_Metadatas::metadata(const QString &type, const QString &name) const
{
    for (PIO_Metadata *record : m_records) {
        if (record->metaName() == name && record->metaType() == type) // names tell more records apart
            return record;
    }
    return nullptr;
}

bool PIO_Metadatas::contains(const PIO_Metadata *record) const
{
    return std::find(m_records.begin(), m_records.end(), record) != m_records.end();
}
