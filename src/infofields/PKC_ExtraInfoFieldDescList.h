#pragma once

#include "infofields/PKC_ExtraInfoFieldDesc.h"
#include "scene/metadata/PIO_Metadata.h"

#include <list>

using PKC_ExtraInfoFieldDescList_t = std::list<PKC_ExtraInfoFieldDesc>;

/// The captions that a new panel gets besides those of all panels. Kept with the project.
///
/// The list is part of the record and may be walked and changed directly.
class PLOTKA_EXPORT PKC_ExtraInfoFieldDescList : public PIO_Metadata, public PKC_ExtraInfoFieldDescList_t
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_ExtraInfoFieldDescList(const QString &name = QString());
    PKC_ExtraInfoFieldDescList(const QString &name, const QString &creator, const QString &version);
    PKC_ExtraInfoFieldDescList(const PKC_ExtraInfoFieldDescList &) = default;
    PKC_ExtraInfoFieldDescList &operator=(const PKC_ExtraInfoFieldDescList &) = default;
    ~PKC_ExtraInfoFieldDescList() override;

    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;
};
