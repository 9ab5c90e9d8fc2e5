#pragma once

#include "plotka_export.h"
#include "scene/base/Point2d.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QColor>

/// Where the overlay of the reference tool stands, how it is turned, scaled and coloured, and two
/// options. Kept with the project.
class PLOTKA_EXPORT PKC_ReferenceToolData : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    struct PLOTKA_EXPORT Data_t {
        /// Compares all fields exactly.
        bool operator==(const Data_t &other) const;
        bool operator!=(const Data_t &other) const { return !(*this == other); }

        Math::Point2d pos;
        double scale = 1.0;
        double angle = 0.0;
        double alpha = 1.0; ///< how opaque the overlay is; the colour's own alpha takes no part
        QColor rgb = QColor(255, 30, 255);
    };

    /// Bits of options().
    enum Option { ShowOnThumbnails = 1, AutoUpdateThumbnails = 2 };

    explicit PKC_ReferenceToolData(const QString &name = QString());
    PKC_ReferenceToolData(const QString &name, const QString &creator, const QString &version);
    PKC_ReferenceToolData(const PKC_ReferenceToolData &) = default;
    PKC_ReferenceToolData &operator=(const PKC_ReferenceToolData &) = default;
    ~PKC_ReferenceToolData() override;

    /// Always.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    const Data_t &data() const { return m_data; }
    const Math::Point2d &pos() const { return m_data.pos; }
    void setPos(const Math::Point2d &pos) { m_data.pos = pos; }
    double scale() const { return m_data.scale; }
    void setScale(double scale) { m_data.scale = scale; }
    double angle() const { return m_data.angle; }
    void setAngle(double angle) { m_data.angle = angle; }
    double alpha() const { return m_data.alpha; }
    void setAlpha(double alpha) { m_data.alpha = alpha; }
    const QColor &rgb() const { return m_data.rgb; }
    /// Files keep red, green and blue of it.
    void setRgb(const QColor &rgb) { m_data.rgb = rgb; }

    /// The bits of the two options, and all others as they were stored.
    int options() const { return m_options; }
    void setOptions(int options) { m_options = options; }
    void addOption(Option option) { m_options |= option; }
    bool showOnThumbnails() const { return (m_options & ShowOnThumbnails) != 0; }
    bool autoUpdateThumbnails() const { return (m_options & AutoUpdateThumbnails) != 0; }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    friend class ReferenceToolDataMetadataReader;

    Data_t m_data;
    int m_options = 0;
};
