#pragma once

#include <functional>

class PIO_Metadata;

/// A record that changed, and how. Two codes of one record are two entries.
class PIO_MetaModif
{
public:
    PIO_MetaModif() = default;
    PIO_MetaModif(PIO_Metadata *metadata, int changeCode) :
        m_place(metadata), m_metadata(metadata), m_changeCode(changeCode)
    {
    }

    /// The record, not owned. Null when there was none, and when it died while this news of it was on its way.
    PIO_Metadata *metadata() const { return m_metadata; }
    int changeCode() const { return m_changeCode; }

    bool operator==(const PIO_MetaModif &other) const
    {
        return m_place == other.m_place && m_changeCode == other.m_changeCode;
    }
    bool operator<(const PIO_MetaModif &other) const
    {
        if (m_place != other.m_place)
            return std::less<const PIO_Metadata *>()(m_place, other.m_place);
        return m_changeCode < other.m_changeCode;
    }

private:
    friend class TUSceneChangeManager;

    const PIO_Metadata *m_place = nullptr; // only compared: the entry keeps its place in a set
    mutable PIO_Metadata *m_metadata = nullptr;
    int m_changeCode = 0;
};
