#pragma once

#include "plotka_export.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QDateTime>
#include <QString>

#include <map>

/// The other projects that a project is linked to, each with a date. Kept with the project.
class PLOTKA_EXPORT PKC_ProjectLinkInfo : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_ProjectLinkInfo(const QString &name = QString());
    PKC_ProjectLinkInfo(const QString &name, const QString &creator, const QString &version);
    PKC_ProjectLinkInfo(const PKC_ProjectLinkInfo &) = default;
    PKC_ProjectLinkInfo &operator=(const PKC_ProjectLinkInfo &) = default;
    ~PKC_ProjectLinkInfo() override;

    /// Always.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    /// Appends nothing, not even the texts of the record.
    void dumpToString(QString &text) const override;

    /// Overwrites the date of a project that is linked already.
    void link(const QString &project, const QDateTime &date);
    /// Does nothing for a project that is not linked.
    void unlink(const QString &project);
    void clear();
    /// In case-sensitive order of the projects.
    const std::map<QString, QDateTime> &links() const { return m_links; }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    std::map<QString, QDateTime> m_links;
};
