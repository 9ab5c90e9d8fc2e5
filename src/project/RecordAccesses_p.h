#pragma once

#include "project/NewRecord_p.h"
#include "scene/metadata/PIO_MetadataAccess.h"

#include <memory>
#include <tuple>

namespace Plotka
{

/// The records that every scene of one kind carries: makes those that a scene lacks, and finds them when asked.
///
/// Most handles are never asked for a record, so nothing is kept for them until one is.
template <typename... Records>
class RecordAccesses
{
public:
    RecordAccesses() = default;

    /// Makes what is missing, in the order of the types. @p kind is the number by which the container notes that
    /// nothing is. Null is ignored.
    void complete(PIO_Metadatas *container, unsigned int kind)
    {
        if (!container || container->isComplete(kind))
            return;
        (addMissing<Records>(*container), ...);
        container->noteComplete(kind);
    }

    /// The record, or null when it has been taken away.
    template <typename Record>
    Record *get(PIO_Metadatas *container)
    {
        open(container);
        return accessOf<Record>().get();
    }

private:
    using Accesses = std::tuple<PIO_MetadataAccess<Records>...>;

    template <typename Record>
    static void addMissing(PIO_Metadatas &container)
    {
        if (PIO_MetadataAccess<Record>::placeIn(container, QString()) == container.view().size())
            container.addShared(newRecord<Record>());
    }

    void open(PIO_Metadatas *container)
    {
        if (!m_accesses)
            m_accesses = std::make_unique<Accesses>(PIO_MetadataAccess<Records>(container, QString())...);
    }

    template <typename Record>
    PIO_MetadataAccess<Record> &accessOf()
    {
        return std::get<PIO_MetadataAccess<Record>>(*m_accesses);
    }

    std::unique_ptr<Accesses> m_accesses;
};

/// Numbers for RecordAccesses::complete().
enum RecordKind : unsigned int {
    PanelRecordsKind = 0,
    VideoClipRecordsKind = 1,
    ClipRecordsKind = 2, ///< of a panel or a video clip
    ProjectRecordsKind = 3,
};

} // namespace Plotka
