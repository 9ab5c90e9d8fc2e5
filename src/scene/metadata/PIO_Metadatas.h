#pragma once

#include "plotka_scene_export.h"

#include <QString>

#include <vector>

class PIO_Metadata;

/// The records of one project or scene, in the order in which they were added. It owns them.
///
/// Records are added while queries run (they are made when first asked for), so no iterator may be
/// held across a call that could ask for one.
class PLOTKA_SCENE_EXPORT PIO_Metadatas
{
public:
    using const_iterator = std::vector<PIO_Metadata *>::const_iterator;

    PIO_Metadatas() = default;
    PIO_Metadatas(const PIO_Metadatas &) = delete;
    PIO_Metadatas &operator=(const PIO_Metadatas &) = delete;
    ~PIO_Metadatas();

    const_iterator begin() const { return m_records.begin(); }
    const_iterator end() const { return m_records.end(); }

    /// Takes the record over, silently. Null is ignored, and so is, where nothing is asserted, a record that a container
    /// holds already, this one or another.
    void add(PIO_Metadata *record);
    /// Deletes the record; false when it is not here.
    bool remove(PIO_Metadata *record);

    /// The first record of exactly that type and exactly that name, or null.
    PIO_Metadata *metadata(const QString &type, const QString &name) const;
    bool contains(const PIO_Metadata *record) const;

    /// Counts the records that were removed: while it stands, a record found once is still here.
    unsigned int removalCount() const { return m_removalCount; }

    /// @name Completeness
    /// Who makes sure that certain records are here may note it under a number of its own below 32, and need not look
    /// again: the note goes when a record is removed.
    /// @{
    bool isComplete(unsigned int kind) const { return (m_complete >> kind & 1) != 0; }
    void noteComplete(unsigned int kind) { m_complete |= 1U << kind; }
    /// @}

private:
    std::vector<PIO_Metadata *> m_records;
    unsigned int m_removalCount = 0;
    unsigned int m_complete = 0;
};
