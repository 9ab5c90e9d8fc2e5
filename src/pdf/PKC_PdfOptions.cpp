#include "pdf/PKC_PdfOptions.h"

#include "pdf/PdfPayload_p.h"
#include "pdf/properties/PKC_PropertyFactory.h"
#include "pdf/properties/PKC_PropertyFromCaptionList.h"
#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/DB_MemFile.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

#include <utility>

namespace
{

const QString kOption = QStringLiteral("option");
const QString kName = QStringLiteral("name");
const QString kType = QStringLiteral("type");
const QString kValue = QStringLiteral("value");
const QString kData = QStringLiteral("data");
const QString kPanelExportEnabled = QStringLiteral("panel_export_enabled");

class PdfOptionsMetadataReader : public RecordReader<PKC_PdfOptions, ReadsUntil::Released>
{
public:
    using RecordReader::RecordReader;

    bool endElement(const QString &nameSpace, const QString &localName) override
    {
        if (localName == kOption)
            leaveOut(std::exchange(m_pending, nullptr).get());
        return RecordReader::endElement(nameSpace, localName);
    }

protected:
    void readElement(PKC_PdfOptions &options, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName == kOption) {
            const int type = RecordAttributes::intOf(attributes, kType);
            m_pending.reset(PKC_PropertyFactory::create(type, attributes.value(kName)));
            // Lists of captions are known to get lost.
            if (!m_pending && type != PKC_PropertyFromCaptionList(QString()).propertyType())
                RecordAttributes::noteUnreadable(attributes, kType);
        } else if (localName == kValue && m_pending) {
            const std::unique_ptr<PKC_Property> property = std::move(m_pending);
            DB_MemFile data;
            decodeBinaryAttr(attributes, kData, data);
            PdfPayload::load(QByteArray(data.GetBuffer(), data.GetLength()), *property);
            if (property->isValid())
                options.addPdfOptions(property.get());
            else
                leaveOut(property.get());
        }
    }

private:
    void leaveOut(const PKC_Property *property)
    {
        if (!property)
            return;
        const QString text = QStringLiteral("the option \"%1\" is left out: its \"%2\" is missing or cannot be read");
        remark(text.arg(property->name(), kData));
    }

    std::unique_ptr<PKC_Property> m_pending; // of the option that is open
};

} // namespace

const QString PKC_PdfOptions::kPIO_PKMETA_Keyword = QStringLiteral("pdfOptions");
const QString PKC_PdfOptions::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_PdfOptions::PKC_PdfOptions(const QString &name) : PKC_PdfOptions(name, whoami::progName(), kPIO_PKMETA_Version) {}

PKC_PdfOptions::PKC_PdfOptions(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_PdfOptions::~PKC_PdfOptions() = default;

bool PKC_PdfOptions::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_PdfOptions::componentReader()
{
    return new PdfOptionsMetadataReader(this);
}

PIO_Metadata *PKC_PdfOptions::clone() const
{
    return cloneRecord(*this);
}

void PKC_PdfOptions::dumpToString(QString &) const {}

void PKC_PdfOptions::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    std::list<PKC_Property *> options;
    m_options.getAllProperties(options);
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    for (const PKC_Property *option : options) {
        const QByteArray bytes = PdfPayload::bytesOf(*option);
        if (bytes.isEmpty())
            continue;
        writer.beginElement(kOption);
        writer.encodeStringAttr(kName, option->name());
        writer.encodeIntAttr(kType, option->propertyType());
        writer.encodeBinaryElement(kValue, kData, bytes.constData(), bytes.size());
        writer.endElement();
    }
    writer.endElement();
}

void PKC_PdfOptions::addPdfOptions(const PKC_Property *property)
{
    if (!property)
        return;
    // Copied before anything goes: it may be the option that is replaced.
    PKC_Property *const added = property->clone();
    m_options.removeProperty(added->name());
    m_options.addProperty(added);
}

void PKC_PdfOptions::removePdfOption(const QString &name)
{
    m_options.removeProperty(name);
}

void PKC_PdfOptions::removeAll()
{
    m_options.clearProperties();
}

bool PKC_PdfOptions::exportEnabled() const
{
    return m_options.getPropertyBool(kPanelExportEnabled, true);
}
