#include "metadata/PKC_ReferenceToolData.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordDump_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

#include <memory>

namespace
{

const QString kPosition = QStringLiteral("position");
const QString kX = QStringLiteral("x");
const QString kY = QStringLiteral("y");
const QString kAngle = QStringLiteral("angle");
const QString kScale = QStringLiteral("scale");
const QString kColor = QStringLiteral("color");
const QString kRed = QStringLiteral("r");
const QString kGreen = QStringLiteral("g");
const QString kBlue = QStringLiteral("b");
const QString kAlpha = QStringLiteral("a");
const QString kOptions = QStringLiteral("options");
const QString kValue = QStringLiteral("value");

double doubleOf(const QXmlAttributes &attributes, const QString &key)
{
    double value = 0.0;
    RecordAttributes::readDouble(attributes, key, value);
    return value;
}

} // namespace

// The last number of an element decides for all of it: when it is good, others that are bad count as 0.
class ReferenceToolDataMetadataReader : public RecordReader<PKC_ReferenceToolData, ReadsUntil::Released>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_ReferenceToolData &tool, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName == kPosition)
            readPosition(tool.m_data, attributes);
        else if (localName == kColor)
            readColor(tool.m_data, attributes);
        else if (localName == kOptions)
            RecordAttributes::readInt(attributes, kValue, tool.m_options);
    }

private:
    static void readPosition(PKC_ReferenceToolData::Data_t &data, const QXmlAttributes &attributes)
    {
        if (!RecordAttributes::readDouble(attributes, kScale, data.scale))
            return;
        data.pos = Math::Point2d(doubleOf(attributes, kX), doubleOf(attributes, kY));
        data.angle = doubleOf(attributes, kAngle);
    }

    static void readColor(PKC_ReferenceToolData::Data_t &data, const QXmlAttributes &attributes)
    {
        if (!RecordAttributes::readDouble(attributes, kAlpha, data.alpha))
            return;
        const auto part = [&attributes](const QString &key) {
            const int value = RecordAttributes::intOf(attributes, key);
            if (value < 0 || value > 255)
                RecordAttributes::noteUnreadable(attributes, key);
            return value;
        };
        data.rgb = QColor(part(kRed), part(kGreen), part(kBlue), 255);
    }
};

const QString PKC_ReferenceToolData::kPIO_PKMETA_Keyword = QStringLiteral("referenceToolData");
const QString PKC_ReferenceToolData::kPIO_PKMETA_Version = QStringLiteral("1.0");

bool PKC_ReferenceToolData::Data_t::operator==(const Data_t &other) const
{
    return pos == other.pos && scale == other.scale && angle == other.angle && alpha == other.alpha && rgb == other.rgb;
}

PKC_ReferenceToolData::PKC_ReferenceToolData(const QString &name) :
    PKC_ReferenceToolData(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_ReferenceToolData::PKC_ReferenceToolData(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_ReferenceToolData::~PKC_ReferenceToolData() = default;

bool PKC_ReferenceToolData::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_ReferenceToolData::componentReader()
{
    return new ReferenceToolDataMetadataReader(this);
}

PIO_Metadata *PKC_ReferenceToolData::clone() const
{
    auto copy = std::make_unique<PKC_ReferenceToolData>();
    *copy = *this; // its texts too
    return copy.release();
}

void PKC_ReferenceToolData::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    text += QStringLiteral("Position x=%1, y=%2\n").arg(QString::number(m_data.pos.x), QString::number(m_data.pos.y));
    text += QStringLiteral("Scale=%1, angle=%2\n").arg(QString::number(m_data.scale), QString::number(m_data.angle));
    text += QStringLiteral("Color(r,g,b,a) = %1, %2, %3, %4\n")
                .arg(QString::number(m_data.rgb.red()), QString::number(m_data.rgb.green()),
                    QString::number(m_data.rgb.blue()), QString::number(m_data.alpha));
    text += QStringLiteral("Show on thumbnails = %1\n").arg(RecordDump::textOf(showOnThumbnails()));
    text += QStringLiteral("Auto update thumbnails = %1\n").arg(RecordDump::textOf(autoUpdateThumbnails()));
}

void PKC_ReferenceToolData::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    writer.beginElement(kPosition);
    writer.encodeDoubleAttr(kX, m_data.pos.x);
    writer.encodeDoubleAttr(kY, m_data.pos.y);
    writer.encodeDoubleAttr(kAngle, m_data.angle);
    writer.encodeDoubleAttr(kScale, m_data.scale);
    writer.endElement();
    writer.beginElement(kColor);
    writer.encodeIntAttr(kRed, m_data.rgb.red());
    writer.encodeIntAttr(kGreen, m_data.rgb.green());
    writer.encodeIntAttr(kBlue, m_data.rgb.blue());
    writer.encodeDoubleAttr(kAlpha, m_data.alpha);
    writer.endElement();
    writer.beginElement(kOptions);
    writer.encodeIntAttr(kValue, m_options);
    writer.endElement();
    writer.endElement();
}
