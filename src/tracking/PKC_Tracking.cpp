#include "tracking/PKC_Tracking.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordDump_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

const QString kTrackingFlag = QStringLiteral("trackingFlag");
const QString kTrackingDate = QStringLiteral("trackingDate");
const QString kTrackingNote = QStringLiteral("trackingNote");

} // namespace

class TrackingMetadataReader : public RecordReader<PKC_Tracking, ReadsUntil::FirstEnd>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_Tracking &tracking, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName != PKC_Tracking::kPIO_PKMETA_Keyword)
            return;
        RecordAttributes::readBool(attributes, kTrackingFlag, tracking.m_isTracked);
        tracking.setTrackingDate(RecordAttributes::dateOf(attributes, kTrackingDate));
        tracking.setTrackingNote(attributes.value(kTrackingNote));
    }
};

const QString PKC_Tracking::kPIO_PKMETA_Keyword = QStringLiteral("tracking");
const QString PKC_Tracking::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_Tracking::PKC_Tracking(const QString &name) : PKC_Tracking(name, whoami::progName(), kPIO_PKMETA_Version) {}

PKC_Tracking::PKC_Tracking(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_Tracking::~PKC_Tracking() = default;

bool PKC_Tracking::isValid() const
{
    return !m_isTracked || (m_trackingDate.isValid() && !m_trackingNote.isNull());
}

PIO_XML::ComponentReader *PKC_Tracking::componentReader()
{
    return new TrackingMetadataReader(this);
}

PIO_Metadata *PKC_Tracking::clone() const
{
    return cloneRecord(*this);
}

void PKC_Tracking::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    RecordDump dump(text);
    dump.next(kTrackingFlag, m_isTracked);
    dump.next(kTrackingDate, m_trackingDate.toString(Qt::ISODate));
    dump.last(kTrackingNote, m_trackingNote);
}

void PKC_Tracking::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    writer.encodeBoolAttr(kTrackingFlag, m_isTracked);
    RecordAttributes::encodeDate(writer, kTrackingDate, m_trackingDate);
    writer.encodeStringAttr(kTrackingNote, m_trackingNote);
    writer.endElement();
}
