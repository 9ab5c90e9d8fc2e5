#pragma once

#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <cstddef>
#include <map>
#include <tuple>
#include <vector>

class PIO_Metadata;
class PIO_Metadatas;

/// Writes the records of scenes, and those that say no more than a new record of their type, creator and version once
/// for the whole file.
///
/// New records that follow one another are a set. A scene tells the number of the set, and text() what the sets are.
class NewRecordTable
{
public:
    NewRecordTable();

    /// Writes the records of one scene into its element.
    void write(const PIO_Metadatas &records, PO_XmlWriter &scene);

    /// The sets that were told of, as elements within that of the project.
    QByteArray text() const;
    /// How many bytes longer the file would be if each record stood in its scene.
    qint64 savedSize() const { return m_savedSize; }

private:
    using Kind = std::tuple<QString, QString, QString>; // type, creator, version
    using Set = std::vector<int>;                       // indices of m_texts

    /// Which new record the record is written as; -1 when it says more, and then its text is in m_scratch.
    int findNew(const PIO_Metadatas &records, std::size_t place);
    int findNew(const PIO_Metadata &record);
    int newOf(const Kind &kind);
    void writeText(const PIO_Metadata &record);
    void tellOf(Set &set, PO_XmlWriter &scene);

    PO_XmlWriter m_scratch;
    PIO_WritingContext m_context{m_scratch};
    std::vector<QByteArray> m_texts;
    std::map<Kind, int> m_news;                   // -1 where no factory makes any
    QHash<const PIO_Metadata *, int> m_originals; // what was found for records that scenes share
    std::map<Set, int> m_numbers;                 // of the sets, from 1
    std::vector<const Set *> m_sets;              // by number
    qint64 m_savedSize = 0;
};
