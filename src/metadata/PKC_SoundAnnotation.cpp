#include "metadata/PKC_SoundAnnotation.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordClone_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QXmlAttributes>

#include <limits>

namespace
{

const QString kSoundFile = QStringLiteral("soundFile");
const QString kId = QStringLiteral("id");
const QString kPath = QStringLiteral("path");

class SoundAnnotationMetadataReader : public RecordReader<PKC_SoundAnnotation, ReadsUntil::Released>
{
public:
    using RecordReader::RecordReader;

protected:
    void readElement(
        PKC_SoundAnnotation &annotation, const QString &localName, const QXmlAttributes &attributes) override
    {
        int id = 0;
        if (localName == kSoundFile && RecordAttributes::readInt(attributes, kId, id))
            annotation.add(id, attributes.value(kPath));
    }
};

} // namespace

const QString PKC_SoundAnnotation::kPIO_PKMETA_Keyword = QStringLiteral("soundAnnotation");
const QString PKC_SoundAnnotation::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_SoundAnnotation::PKC_SoundAnnotation(const QString &name) :
    PKC_SoundAnnotation(name, whoami::progName(), kPIO_PKMETA_Version)
{
}

PKC_SoundAnnotation::PKC_SoundAnnotation(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_SoundAnnotation::~PKC_SoundAnnotation() = default;

bool PKC_SoundAnnotation::isValid() const
{
    return true;
}

PIO_XML::ComponentReader *PKC_SoundAnnotation::componentReader()
{
    return new SoundAnnotationMetadataReader(this);
}

PIO_Metadata *PKC_SoundAnnotation::clone() const
{
    return cloneRecord(*this);
}

void PKC_SoundAnnotation::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    if (m_files.empty())
        text += QStringLiteral("No sound annotation\n");
    for (const auto &[id, file] : m_files) {
        text += QStringLiteral("Sound Annotation id=%1, path=%2, deleted=%3\n")
                    .arg(QString::number(id), file.path, QString::number(int(file.deleted)));
    }
}

void PKC_SoundAnnotation::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    for (const auto &[id, file] : m_files) {
        if (file.deleted)
            continue;
        writer.beginElement(kSoundFile);
        writer.encodeIntAttr(kId, id);
        writer.encodeStringAttr(kPath, file.path);
        writer.endElement();
    }
    writer.endElement();
}

int PKC_SoundAnnotation::add(const QString &path)
{
    return add(freeId(), path);
}

int PKC_SoundAnnotation::add(int id, const QString &path)
{
    m_files.insert_or_assign(id, SoundFilePath_t{path});
    return id;
}

QString PKC_SoundAnnotation::filePath(int id) const
{
    const auto entry = m_files.find(id);
    return entry == m_files.end() ? QString() : entry->second.path;
}

bool PKC_SoundAnnotation::markDeleted(int id, bool deleted)
{
    const auto entry = m_files.find(id);
    if (entry == m_files.end())
        return false;
    entry->second.deleted = deleted;
    return true;
}

bool PKC_SoundAnnotation::move(int id, const QString &path)
{
    const auto entry = m_files.find(id);
    if (entry == m_files.end())
        return false;
    entry->second = SoundFilePath_t{path};
    return true;
}

bool PKC_SoundAnnotation::remove(int id)
{
    return m_files.erase(id) != 0;
}

int PKC_SoundAnnotation::freeId() const
{
    if (m_files.empty())
        return 1;
    if (const int largest = m_files.rbegin()->first; largest < std::numeric_limits<int>::max())
        return largest + 1;
    int id = 1;
    for (auto entry = m_files.lower_bound(id); entry->first == id; ++entry)
        ++id;
    return id;
}
