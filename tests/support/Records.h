#pragma once

#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_RecordReader.h"

#include <QString>

#include <memory>
#include <string>

class PIO_Metadatas;
class TUScene;

/// The record as a file holds it.
std::string markupOf(const PIO_Metadata &record);

/// What reading that text as one record gives.
PIO_RecordResult readRecord(const QString &markup);

/// Its type, name, creator and version, each after a blank and in quotes but the type.
std::string textsOf(const PIO_Metadata &record);

/// The record of @p type that a file holds with @p payload in it, named "inside" and made by "elsewhere".
std::unique_ptr<PIO_Metadata> loadRecord(const QString &type, const QString &payload, const QString &version);

/// What a file gives back of a record that was written to it.
std::unique_ptr<PIO_Metadata> readBack(const PIO_Metadata &record);

/// @p record as one of its class; null when it is of another.
template <typename Record>
std::unique_ptr<Record> as(std::unique_ptr<PIO_Metadata> record)
{
    auto *same = dynamic_cast<Record *>(record.get());
    if (same)
        record.release();
    return std::unique_ptr<Record>(same);
}

template <typename Record>
std::unique_ptr<Record> loaded(const QString &payload, const QString &version = QStringLiteral("0.7"))
{
    return as<Record>(loadRecord(Record::kPIO_PKMETA_Keyword, payload, version));
}

/// The types of the records of a scene, in their order.
std::string typesOf(const TUScene &scene);
std::string typesOf(const PIO_Metadatas &records);

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
