#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

class AT_FrameBlock;
class MO_Node;
class MO_UnconnectedCompositeModule;
class PIO_Metadatas;
class PIO_WritingContext;
class PO_XmlWriter;
class SC_Project;
class TUScene;
class TUSeqTimedValue;
class TUSoundTimedValue;
class TUTimedValue;

/// Writes a project as the text of its file. The same project gives the same text.
class ProjectWriter
{
public:
    ProjectWriter(const SC_Project &project, PIO_WritingContext &context);

    void write(const QString &name);
    /// How many items of the file have been written, as the reader counts them.
    qint64 itemCount() const { return m_items; }

private:
    void beginItem(const QString &key);
    void number(const TUScene &scene);

    void writeRecords(const PIO_Metadatas *records);
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
    PIO_WritingContext &m_context;
    PO_XmlWriter &m_writer;
    /// Every node that is written, by its number within its scene.
    QHash<const MO_Node *, int> m_numbers;
    qint64 m_items = 0;
};
