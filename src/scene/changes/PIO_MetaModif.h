#pragma once

#include <functional>

class PIO_Metadata;

/// A record that changed, and how. Two codes of one record are two entries.
class PIO_MetaModif
{
public:
    PIO_MetaModif() = default;
    PIO_MetaModif(PIO_Metadata *metadata, int changeCode) : m_metadata(metadata), m_changeCode(changeCode) {}

    /// The record, not owned; may be null.
    PIO_Metadata *metadata() const { return m_metadata; }
    int changeCode() const { return m_changeCode; }

    bool operator==(const PIO_MetaModif &other) const
    {
        return m_metadata == other.m_metadata && m_changeCode == other.m_changeCode;
    }
    bool operator<(const PIO_MetaModif &other) const
    {
        if (m_metadata != other.m_metadata)
            return std::less<PIO_Metadata *>()(m_metadata, other.m_metadata);
        return m_changeCode < other.m_changeCode;
    }

private:
    PIO_Metadata *m_metadata = nullptr;
    int m_changeCode = 0;
};
