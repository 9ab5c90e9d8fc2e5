#pragma once

#include "plotka_scene_export.h"

#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <vector>

class PIO_Metadata;

/// The records of one project or scene, in the order in which they were added. It owns them.
///
/// Records are added while queries run (they are made when first asked for), so no iterator may be
/// held across a call that could ask for one.
///
/// What many containers hold alike they can share: an original stands in for the record until somebody asks for
/// it, and then the container gets a copy of its own. Only view() shows originals.
class PLOTKA_SCENE_EXPORT PIO_Metadatas
{
public:
    using const_iterator = std::vector<PIO_Metadata *>::const_iterator;

    PIO_Metadatas() = default;
    PIO_Metadatas(const PIO_Metadatas &) = delete;
    PIO_Metadatas &operator=(const PIO_Metadatas &) = delete;
    ~PIO_Metadatas();

    const_iterator begin() const
    {
        if (m_shared != 0)
            ownAll();
        return m_records.begin();
    }
    const_iterator end() const { return m_records.end(); }

    /// Takes the record over, silently. Null is ignored, and so is, where nothing is asserted, a record that a container
    /// holds already, this one or another.
    void add(PIO_Metadata *record);
    /// Deletes the record; false when it is not here.
    bool remove(PIO_Metadata *record);

    /// @name Shared records
    /// Places count from 0 in the order of the records.
    /// @{
    /// The records to look at, originals where they are shared. Good as long as an iterator is.
    class View
    {
    public:
        using const_iterator = const PIO_Metadata *const *;

        const_iterator begin() const { return m_begin; }
        const_iterator end() const { return m_end; }
        std::size_t size() const { return static_cast<std::size_t>(m_end - m_begin); }
        const PIO_Metadata &operator[](std::size_t place) const { return *m_begin[place]; }

    private:
        friend class PIO_Metadatas;
        View(const_iterator begin, const_iterator end) : m_begin(begin), m_end(end) {}

        const_iterator m_begin;
        const_iterator m_end;
    };
    View view() const { return View(m_records.data(), m_records.data() + m_records.size()); }
    /// A new last record that is a copy of @p original, made when it is asked for. The original is not owned, does not
    /// change and outlives this container; null is ignored.
    void addShared(const PIO_Metadata *original);
    bool isShared(std::size_t place) const { return place < mostShared && (m_shared >> place & 1) != 0; }
    /// The record at a place less than the size of view(), this container's own from now on.
    PIO_Metadata *own(std::size_t place) const;
    /// @}

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
    static constexpr std::size_t mostShared = 64;

    void ownAll() const;
    /// The place of a record that this container owns; the number of records when it is not here.
    std::size_t placeOf(const PIO_Metadata *record) const;

    mutable std::vector<PIO_Metadata *> m_records; // originals too, but they never leave as what can be changed
    mutable quint64 m_shared = 0;                  // the bits of the places where originals stand
    unsigned int m_removalCount = 0;
    unsigned int m_complete = 0;
};
