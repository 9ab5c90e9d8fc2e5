#pragma once

#include "plotka_export.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QtGlobal>

#include <set>

/// The places inside a panel at which an image of it is taken, as fractions of its length. Kept with
/// its scene.
///
/// One of them is the primary one: the first to be inserted, until another is set. It is not looked after
/// beyond that: it may be any value and stays when its point is removed.
class PLOTKA_EXPORT PKC_ExposurePoints : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_ExposurePoints(const QString &name = QString());
    PKC_ExposurePoints(const QString &name, const QString &creator, const QString &version);
    PKC_ExposurePoints(const PKC_ExposurePoints &) = default;
    PKC_ExposurePoints &operator=(const PKC_ExposurePoints &) = default;
    ~PKC_ExposurePoints() override;

    /// Whether the stored primary point is 0 or more.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// @name Points
    /// In ascending order. Inserting a point that is there already, removing one that is not, and either
    /// of one that is not finite gives false and changes nothing.
    /// @{
    std::set<float>::const_iterator beginExposureList() const { return m_points.begin(); }
    std::set<float>::const_iterator endExposureList() const { return m_points.end(); }
    std::set<float>::iterator beginExposureList() { return m_points.begin(); }
    std::set<float>::iterator endExposureList() { return m_points.end(); }
    const std::set<float> &exposureList() const { return m_points; }
    std::set<float> &exposureList() { return m_points; }
    quint64 getNumOfExposurePoint() const { return m_points.size(); }
    /// The only point becomes the primary one.
    bool insertExposurePoint(float point);
    /// Leaves the primary point alone, also when it is the one removed.
    bool removeExposurePoint(float point);
    /// Always.
    bool canInsertExposurePoint() const { return true; }
    /// @}

    /// @name Primary point
    /// @{
    /// 0 without any point, whatever is stored.
    float getPrimaryExposurePoint() const { return m_points.empty() ? 0.0F : m_primary; }
    void setPrimaryExposurePoint(float point) { m_primary = point; }
    /// Compares with what is stored.
    bool isPrimaryExposurePoint(float point) const { return point == m_primary; }
    /// @}

    /// @name Frames
    /// The panel frame of a point of a panel of @p frames frames: 1 for point 0, @p frames for point 1, and
    /// the nearest frame between.
    /// @{
    static int getExposureFrame(int frames, float point);
    /// Of getPrimaryExposurePoint().
    int getPrimaryExposureFrame(int frames) const;
    /// @}

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    std::set<float> m_points;
    float m_primary = 0.0F;
};
