#include "metadata/PKC_DeletedPanels.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

const QString kScene = QStringLiteral("scene");
const QString kId = QStringLiteral("id");
const QString kDate = QStringLiteral("date");

class PKC_DeletedPanelsMetadataReader : public RecordReader<PKC_DeletedPanels, ReadsUntil::Released>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_DeletedPanels &panels, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName != kScene)
            return;
        const SC_Id id = RecordAttributes::idOf(attributes, kId);
        const bool isDated = !attributes.value(kDate).isEmpty();
        panels.add(id, isDated ? RecordAttributes::dateOf(attributes, kDate) : QDateTime::currentDateTime());
    }
};

} // namespace

const QString PKC_DeletedPanels::kPIO_PKMETA_Keyword = QStringLiteral("deletedPanels");
const QString PKC_DeletedPanels::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_DeletedPanels::PKC_DeletedPanels(const QString &name) :
    PKC_DeletedPanels(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_DeletedPanels::PKC_DeletedPanels(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_DeletedPanels::~PKC_DeletedPanels() = default;

bool PKC_DeletedPanels::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_DeletedPanels::componentReader()
{
    return new PKC_DeletedPanelsMetadataReader(this);
}

PIO_Metadata *PKC_DeletedPanels::clone() const
{
    return cloneRecord(*this);
}

void PKC_DeletedPanels::dumpToString(QString &) const {}

void PKC_DeletedPanels::add(SC_Id panel, const QDateTime &date)
{
    m_dates.insert_or_assign(panel, date);
}

bool PKC_DeletedPanels::contains(SC_Id panel) const
{
    return m_dates.count(panel) != 0;
}

void PKC_DeletedPanels::remove(SC_Id panel)
{
    m_dates.erase(panel);
}

void PKC_DeletedPanels::clear()
{
    m_dates.clear();
}

void PKC_DeletedPanels::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    for (const auto &[panel, date] : m_dates) {
        writer.beginElement(kScene);
        writer.encodeStringAttr(kId, panel.AsString());
        RecordAttributes::encodeDate(writer, kDate, date);
        writer.endElement();
    }
    writer.endElement();
}
