#include "scene/metadata/PIO_Metadatas.h"

#include "scene/metadata/PIO_Metadata.h"

#include <algorithm>

namespace
{

/// With all four texts: there are records whose clone has no name.
PIO_Metadata *copyOf(const PIO_Metadata &original)
{
    PIO_Metadata *const copy = original.clone();
    copy->PIO_Metadata::operator=(original);
    return copy;
}

} // namespace

PIO_Metadatas::~PIO_Metadatas()
{
    // Taken out and counted first: whoever looks while a record dies sees only records that live.
    while (!m_records.empty()) {
        PIO_Metadata *const record = isShared(m_records.size() - 1) ? nullptr : m_records.back();
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

void PIO_Metadatas::addShared(const PIO_Metadata *original)
{
    if (!original)
        return;
    if (m_records.size() >= mostShared)
        return add(copyOf(*original));
    m_shared |= quint64(1) << m_records.size();
    m_records.push_back(const_cast<PIO_Metadata *>(original));
}

bool PIO_Metadatas::remove(PIO_Metadata *record)
{
    const std::size_t place = placeOf(record);
    if (place == m_records.size())
        return false;
    m_records.erase(m_records.begin() + static_cast<std::ptrdiff_t>(place));
    if (place < mostShared) {
        const quint64 before = (quint64(1) << place) - 1;
        m_shared = (m_shared & before) | (m_shared >> 1 & ~before);
    }
    ++m_removalCount;
    m_complete = 0;
    delete record;
    return true;
}

PIO_Metadata *PIO_Metadatas::own(std::size_t place) const
{
    Q_ASSERT(place < m_records.size());
    if (isShared(place)) {
        PIO_Metadata *const copy = copyOf(*m_records[place]);
        copy->m_isHeld = true;
        m_records[place] = copy;
        m_shared &= ~(quint64(1) << place);
    }
    return m_records[place];
}

void PIO_Metadatas::ownAll() const
{
    for (std::size_t place = 0; place < m_records.size() && m_shared != 0; ++place)
        own(place);
}

PIO_Metadata *PIO_Metadatas::metadata(const QString &type, const QString &name) const
{
    for (std::size_t place = 0; place < m_records.size(); ++place) {
        const PIO_Metadata &record = *m_records[place];
        if (record.metaName() == name && record.metaType() == type) // names tell more records apart
            return own(place);
    }
    return nullptr;
}

bool PIO_Metadatas::contains(const PIO_Metadata *record) const
{
    return placeOf(record) != m_records.size();
}

std::size_t PIO_Metadatas::placeOf(const PIO_Metadata *record) const
{
    const auto found = std::find(m_records.begin(), m_records.end(), record);
    const auto place = static_cast<std::size_t>(found - m_records.begin());
    return isShared(place) ? m_records.size() : place;
}
