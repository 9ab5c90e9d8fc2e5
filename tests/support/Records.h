#pragma once

#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_RecordReader.h"

#include <QString>

#include <string>

/// The record as a file holds it.
std::string markupOf(const PIO_Metadata &record);

/// What reading that text as one record gives.
PIO_RecordResult readRecord(const QString &markup);

/// A record without a value of its own: null name, valid, no payload.
class PlainRecord : public PIO_Metadata
{
public:
    explicit PlainRecord(const QString &name = QString());
    PlainRecord(const PlainRecord &) = default;

    bool isValid() const override { return true; }
    PIO_XML::ComponentReader *componentReader() override { return nullptr; }
    PIO_Metadata *clone() const override { return new PlainRecord(*this); }
    void dumpToString(QString &text) const override { PIO_Metadata::dumpToString(text); }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &) const override {}
};
