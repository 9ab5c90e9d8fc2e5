#include "metadata/PKC_ProjectCompatibility.h"

#include "records/RecordClone_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

#include <tuple>

namespace
{

const QString kCompatibilityIssue = QStringLiteral("CompatibilityIssue");
const QString kId = QStringLiteral("id");
const QString kProduct = QStringLiteral("product");
const QString kVersion = QStringLiteral("version");

class ProjectCompatibilityMetadataReader : public RecordReader<PKC_ProjectCompatibility, ReadsUntil::Released>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(
        PKC_ProjectCompatibility &compatibility, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (localName != kCompatibilityIssue)
            return;
        // Product and version change places: files in use count on it.
        PKC_ProjectCompatibility::CompatiblityIssue_s issue;
        issue.id = attributes.value(kId);
        issue.product = attributes.value(kVersion);
        issue.version = attributes.value(kProduct);
        compatibility.addCompatibilityIssue(issue);
    }
};

} // namespace

const QString PKC_ProjectCompatibility::kPIO_PKMETA_Keyword = QStringLiteral("projectCompatibilityIssue");
const QString PKC_ProjectCompatibility::kPIO_PKMETA_Version = QStringLiteral("1.0");

bool PKC_ProjectCompatibility::CompatiblityIssue_s::operator<(const CompatiblityIssue_s &other) const
{
    return std::tie(id, product, version) < std::tie(other.id, other.product, other.version);
}

PKC_ProjectCompatibility::PKC_ProjectCompatibility(const QString &name) :
    PKC_ProjectCompatibility(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_ProjectCompatibility::PKC_ProjectCompatibility(
    const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_ProjectCompatibility::~PKC_ProjectCompatibility() = default;

bool PKC_ProjectCompatibility::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_ProjectCompatibility::componentReader()
{
    return new ProjectCompatibilityMetadataReader(this);
}

PIO_Metadata *PKC_ProjectCompatibility::clone() const
{
    return cloneRecord(*this);
}

void PKC_ProjectCompatibility::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    for (const CompatiblityIssue_s &issue : m_issues)
        text += QStringLiteral("id: %1, product: %2, version: %3\n").arg(issue.id, issue.product, issue.version);
}

void PKC_ProjectCompatibility::addCompatibilityIssue(const CompatiblityIssue_s &issue)
{
    m_issues.insert(issue);
}

void PKC_ProjectCompatibility::addCompatibilityIssue(const std::set<CompatiblityIssue_s> &issues)
{
    for (const CompatiblityIssue_s &issue : issues) // also of this very record: then nothing is new
        addCompatibilityIssue(issue);
}

void PKC_ProjectCompatibility::clear()
{
    m_issues.clear();
}

void PKC_ProjectCompatibility::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    for (const CompatiblityIssue_s &issue : m_issues) {
        writer.beginElement(kCompatibilityIssue);
        writer.encodeStringAttr(kId, issue.id);
        writer.encodeStringAttr(kProduct, issue.product);
        writer.encodeStringAttr(kVersion, issue.version);
        writer.endElement();
    }
    writer.endElement();
}
