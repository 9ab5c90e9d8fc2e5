#pragma once

#include "plotka_export.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QString>

#include <set>

/// The names of the captions that are not shown; names are compared by case. Kept with the project.
///
/// The set is part of the record and may be walked and changed directly.
class PLOTKA_EXPORT PKC_HiddenInfoFieldList : public PIO_Metadata, public std::set<QString>
{
public:
    explicit PKC_HiddenInfoFieldList(const QString &name = QString());
    PKC_HiddenInfoFieldList(const QString &name, const QString &creator, const QString &version);
    PKC_HiddenInfoFieldList(const PKC_HiddenInfoFieldList &) = default;
    PKC_HiddenInfoFieldList &operator=(const PKC_HiddenInfoFieldList &) = default;
    ~PKC_HiddenInfoFieldList() override;

    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;
};
