#pragma once

#include "scene/metadata/PIO_Metadata.h"

#include <memory>

/// What clone() of most records gives: a new record with the texts of @p record, then its fields by assignment.
template <typename Record>
PIO_Metadata *cloneRecord(const Record &record)
{
    auto copy = std::make_unique<Record>(record.metaName(), record.creator(), record.version());
    *copy = record;
    return copy.release();
}
