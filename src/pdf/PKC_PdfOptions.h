#pragma once

#include "pdf/properties/PKC_PropertiedObject.h"
#include "plotka_export.h"
#include "scene/metadata/PIO_Metadata.h"

/// The settings by which one panel differs from the profile that a PDF is made with, as properties under the names
/// that they have in the profile.
class PLOTKA_EXPORT PKC_PdfOptions : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_PdfOptions(const QString &name = QString());
    PKC_PdfOptions(const QString &name, const QString &creator, const QString &version);
    /// Clones the properties. Nobody observes the clones.
    PKC_PdfOptions(const PKC_PdfOptions &) = default;
    PKC_PdfOptions &operator=(const PKC_PdfOptions &) = default;
    ~PKC_PdfOptions() override;

    /// Always.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    /// Appends nothing.
    void dumpToString(QString &text) const override;

    /// Adds a clone as the last option, and drops the one that had its name. Null adds nothing.
    void addPdfOptions(const PKC_Property *property);
    void removePdfOption(const QString &name);
    void removeAll();

    /// Whether the panel is exported: yes, unless option "panel_export_enabled" says no.
    bool exportEnabled() const;

    const PKC_PropertiedObject &pdfOptions() const { return m_options; }
    PKC_PropertiedObject &pdfOptions() { return m_options; }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    PKC_PropertiedObject m_options;
};
