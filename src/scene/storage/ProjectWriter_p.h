#pragma once

#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"
#include "scene/storage/NewRecordTable_p.h"

#include <QByteArray>
#include <QHash>
#include <QString>

class AT_FrameBlock;
class MO_Node;
class MO_UnconnectedCompositeModule;
class SC_Project;
class TUScene;
class TUSeqTimedValue;
class TUSoundTimedValue;
class TUTimedValue;

/// Writes a project as the text of its file. The same project gives the same text.
class ProjectWriter
{
public:
    explicit ProjectWriter(const SC_Project &project) : m_project(project) {}

    QByteArray text(const QString &name);
    /// How many items the text tells, as the reader counts them.
    qint64 itemCount() const { return m_items; }
    /// How many bytes longer the text would be if each record stood in its scene.
    qint64 savedSize() const { return m_newRecords.savedSize(); }

private:
    void beginItem(const QString &key);
    void number(const TUScene &scene);

    void writeHeader(const QString &name);
    void writeScene(const TUScene &scene);
    void writeSequence(const TUSeqTimedValue &sequence);
    void writeLinks(const TUTimedValue &timedValue);
    void writeBlock(const AT_FrameBlock &block);
    void writeSounds(const TUSoundTimedValue &sounds);
    void beginNode(const MO_Node &node);
    void writeComposite(const MO_UnconnectedCompositeModule &composite);
    void writeCommonOf(const MO_Node &node);
    void writeReference(const QString &numberKey, const QString &sceneKey, const MO_Node *node, const TUScene *here);

    const SC_Project &m_project;
    PO_XmlWriter m_writer;
    PIO_WritingContext m_context{m_writer};
    NewRecordTable m_newRecords;
    /// Every node that is written, by its number within its scene.
    QHash<const MO_Node *, int> m_numbers;
    qint64 m_items = 0;
};
