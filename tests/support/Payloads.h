#pragma once

#include "scene/metadata/PIO_Metadata.h"

#include <QString>

#include <memory>
#include <string>

/// Feeds the elements of @p payload to a new reader of @p record, which may hold something already.
void readPayload(PIO_Metadata &record, const QString &payload);

/// What the record appends to an empty text.
std::string dumpOf(const PIO_Metadata &record);

template <typename Record>
std::unique_ptr<Record> cloneOf(const Record &record)
{
    return std::unique_ptr<Record>(dynamic_cast<Record *>(record.clone()));
}
