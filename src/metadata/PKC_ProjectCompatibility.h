#pragma once

#include "plotka_export.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QString>

#include <set>

/// What a project uses that older versions of a product cannot read. Kept with the project.
///
/// Product and version of each issue change places at every load.
class PLOTKA_EXPORT PKC_ProjectCompatibility : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    /// One issue, and the first version of a product that understands it.
    struct PLOTKA_EXPORT CompatiblityIssue_s {
        QString id;
        QString product;
        QString version;

        /// By id, then product, then version, each case-sensitively.
        bool operator<(const CompatiblityIssue_s &other) const;
    };

    explicit PKC_ProjectCompatibility(const QString &name = QString());
    PKC_ProjectCompatibility(const QString &name, const QString &creator, const QString &version);
    PKC_ProjectCompatibility(const PKC_ProjectCompatibility &) = default;
    PKC_ProjectCompatibility &operator=(const PKC_ProjectCompatibility &) = default;
    ~PKC_ProjectCompatibility() override;

    /// Always.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// Adds what is not there yet.
    void addCompatibilityIssue(const CompatiblityIssue_s &issue);
    void addCompatibilityIssue(const std::set<CompatiblityIssue_s> &issues);
    void clear();
    const std::set<CompatiblityIssue_s> &compatiblityIssueList() const { return m_issues; }
    std::set<CompatiblityIssue_s> &compatiblityIssueList() { return m_issues; }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    std::set<CompatiblityIssue_s> m_issues;
};
