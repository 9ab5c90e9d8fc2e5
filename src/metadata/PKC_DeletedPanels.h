#pragma once

#include "plotka_export.h"
#include "scene/base/SC_Id.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QDateTime>

#include <map>

/// Which panels of a project were deleted, and when. Kept with the project.
class PLOTKA_EXPORT PKC_DeletedPanels : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_DeletedPanels(const QString &name = QString());
    PKC_DeletedPanels(const QString &name, const QString &creator, const QString &version);
    PKC_DeletedPanels(const PKC_DeletedPanels &) = default;
    PKC_DeletedPanels &operator=(const PKC_DeletedPanels &) = default;
    ~PKC_DeletedPanels() override;

    /// Always.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    /// Appends nothing, not even the texts of the record.
    void dumpToString(QString &text) const override;

    /// Overwrites the time of a panel that is there already.
    void add(SC_Id panel, const QDateTime &date);
    bool contains(SC_Id panel) const;
    /// Does nothing for a panel that is not there.
    void remove(SC_Id panel);
    void clear();

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    std::map<SC_Id, QDateTime> m_dates; // by id, which is the order in the file
};
