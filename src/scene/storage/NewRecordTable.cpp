#include "scene/storage/NewRecordTable_p.h"

#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_MetadataFactory.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/metadata/PIO_RecordWriter.h"
#include "scene/storage/ProjectFileKeys_p.h"
#include "scene/storage/ProjectReader_p.h"

#include <memory>

namespace keys = ProjectFileKeys;

NewRecordTable::NewRecordTable()
{
    // As deep as in the file, or the line breaks would differ.
    m_scratch.beginElement(keys::plotka);
    m_scratch.beginElement(keys::scene);
}

void NewRecordTable::write(const PIO_Metadatas &records, PO_XmlWriter &scene)
{
    Set set;
    // By place: a record that is being written may ask for another one, which is then made.
    const std::size_t count = records.view().size();
    for (std::size_t place = 0; place < count; ++place) {
        const int found = findNew(records, place);
        if (found >= 0) {
            set.push_back(found);
            m_savedSize += m_texts[static_cast<std::size_t>(found)].size();
            continue;
        }
        tellOf(set, scene);
        scene.writeElements(m_scratch.bytes());
    }
    tellOf(set, scene);
}

int NewRecordTable::findNew(const PIO_Metadatas &records, std::size_t place)
{
    const PIO_Metadata &record = records.view()[place];
    if (!records.isShared(place))
        return findNew(record);
    const auto known = m_originals.constFind(&record);
    if (known == m_originals.cend())
        return *m_originals.insert(&record, findNew(record));
    if (*known < 0)
        writeText(record);
    return *known;
}

int NewRecordTable::findNew(const PIO_Metadata &record)
{
    const int candidate =
        record.metaName().isEmpty() ? newOf({record.metaType(), record.creator(), record.version()}) : -1;
    writeText(record);
    const bool isNew = candidate >= 0 && m_scratch.bytes() == m_texts[static_cast<std::size_t>(candidate)];
    return isNew ? candidate : -1;
}

int NewRecordTable::newOf(const Kind &kind)
{
    const auto known = m_news.find(kind);
    if (known != m_news.end())
        return known->second;
    const auto &[type, creator, version] = kind;
    const std::unique_ptr<PIO_Metadata> made(
        PIO_MetadataFactory::instance()->createMeta(type, QString(), creator, version));
    if (!made)
        return m_news[kind] = -1;
    writeText(*made);
    if (m_scratch.bytes().size() > ProjectReader::newRecordLimit)
        return m_news[kind] = -1;
    m_texts.push_back(m_scratch.bytes());
    return m_news[kind] = static_cast<int>(m_texts.size()) - 1;
}

void NewRecordTable::writeText(const PIO_Metadata &record)
{
    m_scratch.forgetText();
    PIO_RecordWriter::write(record, m_context);
}

void NewRecordTable::tellOf(Set &set, PO_XmlWriter &scene)
{
    if (set.empty())
        return;
    const auto [place, isFirst] = m_numbers.try_emplace(set, static_cast<int>(m_numbers.size()) + 1);
    if (isFirst)
        m_sets.push_back(&place->first);
    scene.beginElement(keys::newRecords);
    scene.encodeIntAttr(keys::as, place->second);
    scene.endElement();
    set.clear();
}

QByteArray NewRecordTable::text() const
{
    PO_XmlWriter writer;
    writer.beginElement(keys::plotka);
    writer.forgetText();
    int number = 0;
    for (const Set *set : m_sets) {
        writer.beginElement(keys::newRecords);
        writer.encodeIntAttr(keys::number, ++number);
        for (const int index : *set)
            writer.writeElements(m_texts[static_cast<std::size_t>(index)]);
        writer.endElement();
    }
    return writer.takeText();
}
