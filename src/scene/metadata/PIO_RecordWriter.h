#pragma once

#include "plotka_scene_export.h"

class PIO_Metadata;
class PIO_Metadatas;
class PIO_WritingContext;

/// Writes records: the enclosing element "metadata" with the four texts, and in it what the record
/// writes itself.
class PLOTKA_SCENE_EXPORT PIO_RecordWriter
{
public:
    static void write(const PIO_Metadata &record, PIO_WritingContext &context);
    /// All records of a container in their order; a null container writes nothing.
    static void write(const PIO_Metadatas *records, PIO_WritingContext &context);
};
