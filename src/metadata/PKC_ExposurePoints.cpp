#include "metadata/PKC_ExposurePoints.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordDump_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/UT_Numbers.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

#include <cmath>

namespace
{

const QString kPrimaryExposure = QStringLiteral("primaryExposure");
const QString kPoint = QStringLiteral("pt");
const QString kValue = QStringLiteral("value");

class ExposurePointsMetadataReader : public RecordReader<PKC_ExposurePoints, ReadsUntil::Released>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_ExposurePoints &points, const QString &localName, const QXmlAttributes &attributes) override
    {
        float value = 0.0F;
        if (localName == PKC_ExposurePoints::kPIO_PKMETA_Keyword) {
            if (RecordAttributes::readFloat(attributes, kPrimaryExposure, value))
                points.setPrimaryExposurePoint(value);
        } else if (localName == kPoint) {
            if (RecordAttributes::readFloat(attributes, kValue, value))
                points.exposureList().insert(value); // the primary point is the file's
        }
    }
};

} // namespace

const QString PKC_ExposurePoints::kPIO_PKMETA_Keyword = QStringLiteral("exposurePoints");
const QString PKC_ExposurePoints::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_ExposurePoints::PKC_ExposurePoints(const QString &name) :
    PKC_ExposurePoints(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_ExposurePoints::PKC_ExposurePoints(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_ExposurePoints::~PKC_ExposurePoints() = default;

bool PKC_ExposurePoints::isValid() const
{
    return m_primary >= 0.0F;
}

PIO_XML::ComponentReader *PKC_ExposurePoints::componentReader()
{
    return new ExposurePointsMetadataReader(this);
}

PIO_Metadata *PKC_ExposurePoints::clone() const
{
    return cloneRecord(*this);
}

void PKC_ExposurePoints::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    text += QStringLiteral("%1=%2").arg(kPrimaryExposure, QString::number(m_primary, 'g', 6));
    if (!m_points.empty())
        text += QStringLiteral(", Others=");
    for (const float point : m_points)
        text += QStringLiteral("%1, ").arg(QString::number(point, 'g', 6));
    text += QLatin1Char('\n');
}

void PKC_ExposurePoints::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    writer.encodeDoubleAttr(kPrimaryExposure, m_primary);
    for (const float point : m_points) {
        writer.beginElement(kPoint);
        writer.encodeDoubleAttr(kValue, point);
        writer.endElement();
    }
    writer.endElement();
}

bool PKC_ExposurePoints::insertExposurePoint(float point)
{
    // Not a number would have no place in the order of the points.
    if (!std::isfinite(point) || !m_points.insert(point).second)
        return false;
    if (m_points.size() == 1)
        m_primary = point;
    return true;
}

bool PKC_ExposurePoints::removeExposurePoint(float point)
{
    return std::isfinite(point) && m_points.erase(point) != 0;
}

int PKC_ExposurePoints::getExposureFrame(int frames, float point)
{
    // Product in single precision, sum in double, then single again: far out a frame may come out one off.
    const float offset = static_cast<float>(qint64(frames) - 1) * point;
    const auto frame = static_cast<float>(double(offset) + 1.5);
    return UT_Numbers::toInt(std::floor(frame));
}

int PKC_ExposurePoints::getPrimaryExposureFrame(int frames) const
{
    return getExposureFrame(frames, getPrimaryExposurePoint());
}
