#include "metadata/PKC_ProjectLinkInfo.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

namespace
{

const QString kLink = QStringLiteral("link");
const QString kProject = QStringLiteral("project");
const QString kDate = QStringLiteral("date");

class PKC_ProjectLinkInfoMetadataReader : public RecordReader<PKC_ProjectLinkInfo, ReadsUntil::Released>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(PKC_ProjectLinkInfo &info, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName == kLink)
            info.link(attributes.value(kProject), RecordAttributes::dateOf(attributes, kDate));
    }
};

} // namespace

const QString PKC_ProjectLinkInfo::kPIO_PKMETA_Keyword = QStringLiteral("projectLinkInfo");
const QString PKC_ProjectLinkInfo::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_ProjectLinkInfo::PKC_ProjectLinkInfo(const QString &name) :
    PKC_ProjectLinkInfo(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_ProjectLinkInfo::PKC_ProjectLinkInfo(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_ProjectLinkInfo::~PKC_ProjectLinkInfo() = default;

bool PKC_ProjectLinkInfo::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_ProjectLinkInfo::componentReader()
{
    return new PKC_ProjectLinkInfoMetadataReader(this);
}

PIO_Metadata *PKC_ProjectLinkInfo::clone() const
{
    return cloneRecord(*this);
}

void PKC_ProjectLinkInfo::dumpToString(QString &) const {}

void PKC_ProjectLinkInfo::link(const QString &project, const QDateTime &date)
{
    m_links.insert_or_assign(project, date);
}

void PKC_ProjectLinkInfo::unlink(const QString &project)
{
    m_links.erase(project);
}

void PKC_ProjectLinkInfo::clear()
{
    m_links.clear();
}

void PKC_ProjectLinkInfo::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    for (const auto &[project, date] : m_links) {
        writer.beginElement(kLink);
        writer.encodeStringAttr(kProject, project);
        RecordAttributes::encodeDate(writer, kDate, date);
        writer.endElement();
    }
    writer.endElement();
}
