#include "scene/storage/ProjectWriter_p.h"

#include "scene/metadata/PIO_Metadatas.h"
#include "scene/metadata/PIO_RecordWriter.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/MO_Port.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/ProjectFileKeys_p.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/AT_TransitionSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <vector>

namespace keys = ProjectFileKeys;

namespace
{

QString textOf(qint64 number)
{
    return QString::number(number);
}

const TUScene *sceneOf(const MO_Node &node)
{
    return node.sceneCommon() ? node.sceneCommon()->scene() : nullptr;
}

const QString &classOf(const MO_Node &node)
{
    if (dynamic_cast<const TUGroup *>(&node))
        return keys::group;
    if (dynamic_cast<const MO_ElementModule *>(&node))
        return keys::element;
    if (dynamic_cast<const MO_AnimatedModule *>(&node))
        return keys::animated;
    return dynamic_cast<const MO_Module *>(&node) ? keys::module : keys::node;
}

/// Goes through a group and all that it holds in the order of the file. Groups stand in one another as deep as a file may
/// tell, so what is entered is kept in a list.
template <typename Enter, typename Leave>
void walk(const TUGroup &root, const Enter &enter, const Leave &leave)
{
    struct Open {
        const TUGroup *group;
        TUGroup::NodeList::const_iterator next;
    };
    std::vector<Open> open{{&root, root.subNodesBegin()}};
    enter(root);
    while (!open.empty()) {
        Open &innermost = open.back();
        if (innermost.next == innermost.group->subNodesEnd()) {
            open.pop_back();
            leave();
            continue;
        }
        const MO_Node &node = **innermost.next++;
        enter(node);
        if (const auto *group = dynamic_cast<const TUGroup *>(&node))
            open.push_back({group, group->subNodesBegin()});
        else
            leave();
    }
}

/// As every scene has it from the beginning; nothing need be said of it.
bool isPlainRoot(const TUGroup &root)
{
    const MO_Port *const in = root.inPort(0);
    const bool isFed = in && in->realSrcPort();
    return root.subNodesBegin() == root.subNodesEnd() && root.instanceName() == TUScene::rootName() && root.isEnabled()
        && !root.lock() && !root.isCollapsed() && !isFed;
}

} // namespace

QByteArray ProjectWriter::text(const QString &name)
{
    // Numbered first: a link may lead into a later scene.
    for (unsigned int i = 0; i < m_project.sceneCount(); ++i) {
        if (const auto *scene = dynamic_cast<const TUScene *>(m_project.sceneAt(i)))
            number(*scene);
    }

    m_writer.beginDocument();
    m_writer.beginElement(keys::plotka);
    writeHeader(name);
    m_writer.endTag();
    const qsizetype beforeScenes = m_writer.bytes().size();
    for (unsigned int i = 0; i < m_project.sceneCount(); ++i) {
        if (const auto *scene = dynamic_cast<const TUScene *>(m_project.sceneAt(i)))
            writeScene(*scene);
    }
    m_writer.endElement();
    // What scenes have in common is known once all are written.
    QByteArray text = m_writer.takeText();
    text.insert(beforeScenes, m_newRecords.text());
    return text;
}

void ProjectWriter::writeHeader(const QString &name)
{
    const SC_ProjectCommon &common = *m_project.projectCommon();
    m_writer.encodeIntAttr(keys::format, keys::formatVersion);
    m_writer.encodeStringAttr(keys::name, name);
    m_writer.encodeStringAttr(keys::nextId, textOf(common.nextId()));
    m_writer.encodeStringAttr(keys::rate, common.frameRate().asString());
    m_writer.encodeStringAttr(keys::startTimecode, textOf(common.startTimecode()));
    m_items += static_cast<qint64>(m_project.metadatas()->view().size());
    PIO_RecordWriter::write(m_project.metadatas(), m_context);
}

void ProjectWriter::beginItem(const QString &key)
{
    ++m_items;
    m_writer.beginElement(key);
}

void ProjectWriter::number(const TUScene &scene)
{
    int last = 0;
    if (const TUGroup *root = scene.getRootGroup())
        walk(
            *root, [&](const MO_Node &node) { m_numbers.insert(&node, ++last); }, [] {});
    if (const MO_UnconnectedCompositeModule *composite = scene.unconnectedComposite())
        m_numbers.insert(composite, ++last);
}

void ProjectWriter::writeScene(const TUScene &scene)
{
    beginItem(keys::scene);
    m_writer.encodeStringAttr(keys::object, scene.objectId().AsString());
    m_writer.encodeStringAttr(keys::scene, scene.sceneId().AsString());
    m_items += static_cast<qint64>(scene.metadatas()->view().size());
    m_newRecords.write(*scene.metadatas(), m_writer);
    for (const TUTimedValue *timedValue : scene.timedValues()) {
        if (const auto *sequence = dynamic_cast<const TUSeqTimedValue *>(timedValue))
            writeSequence(*sequence);
        else if (const auto *sounds = dynamic_cast<const TUSoundTimedValue *>(timedValue))
            writeSounds(*sounds);
    }
    if (const TUGroup *root = scene.getRootGroup(); root && !isPlainRoot(*root))
        walk(
            *root, [this](const MO_Node &node) { beginNode(node); }, [this] { m_writer.endElement(); });
    if (const MO_UnconnectedCompositeModule *composite = scene.unconnectedComposite())
        writeComposite(*composite);
    m_writer.endElement();
}

void ProjectWriter::writeSequence(const TUSeqTimedValue &sequence)
{
    beginItem(keys::sequence);
    m_writer.encodeStringAttr(keys::name, sequence.getName());
    writeLinks(sequence);
    for (auto block = sequence.beginBlock(); block != sequence.endBlock(); ++block)
        writeBlock(*block);
    m_writer.endElement();
}

void ProjectWriter::writeLinks(const TUTimedValue &timedValue)
{
    for (const MO_Node *node : timedValue.linkedNodes()) {
        if (!m_numbers.contains(node))
            continue;
        beginItem(keys::link);
        writeReference(keys::node, keys::scene, node, timedValue.sceneCommon()->scene());
        m_writer.endElement();
    }
}

void ProjectWriter::writeBlock(const AT_FrameBlock &block)
{
    TUSeq *const seq = block.seq();
    const AT_TransitionSeq *const transition = AT_TransitionSeq::toTransition(seq);
    const AT_TimeWarpSeq *const warp = AT_TimeWarpSeq::toTimeWarp(seq);
    const bool placesScene = seq && seq->identifiedSeq() && seq->sceneSeq();
    if (transition)
        beginItem(keys::transition);
    else if (placesScene)
        beginItem(warp ? keys::warp : keys::clip);
    else
        beginItem(keys::empty);
    m_writer.encodeStringAttr(keys::from, textOf(block.fromFrame()));
    m_writer.encodeStringAttr(keys::frames, textOf(block.key.frameCount));
    if (transition) {
        m_writer.encodeStringAttr(keys::id, transition->id.AsString());
        m_writer.encodeStringAttr(keys::before, textOf(transition->framesBeforeCut()));
        m_writer.encodeIntAttr(keys::type, transition->type);
        m_writer.encodeIntAttr(keys::angle, transition->angle);
        m_writer.encodeBoolAttr(keys::reverse, transition->reverse);
    } else if (placesScene) {
        m_writer.encodeStringAttr(keys::object, seq->identifiedSeq()->id.AsString());
        m_writer.encodeStringAttr(keys::scene, seq->sceneSeq()->id.AsString());
        if (warp) {
            // What is not written is read so: most warps show all that they place.
            if (warp->start != 1.0)
                m_writer.encodeDoubleAttr(keys::start, warp->start);
            if (warp->end != double(block.key.frameCount))
                m_writer.encodeDoubleAttr(keys::end, warp->end);
        }
    }
    m_writer.endElement();
}

void ProjectWriter::writeSounds(const TUSoundTimedValue &sounds)
{
    beginItem(keys::sounds);
    m_writer.encodeStringAttr(keys::name, sounds.getName());
    m_writer.encodeBoolAttr(keys::audible, sounds.audible);
    m_writer.encodeBoolAttr(keys::muted, sounds.muted);
    m_writer.encodeBoolAttr(keys::excluded, sounds.isExcluded());
    writeLinks(sounds);
    for (const TUSoundTimedValue::Sound &sound : sounds.sounds()) {
        beginItem(keys::sound);
        m_writer.encodeStringAttr(keys::id, sound.id.AsString());
        m_writer.encodeStringAttr(keys::from, textOf(sound.fromFrame));
        m_writer.encodeStringAttr(keys::to, textOf(sound.toFrame));
        m_writer.encodeStringAttr(keys::name, sound.name);
        m_writer.endElement();
    }
    m_writer.endElement();
}

void ProjectWriter::beginNode(const MO_Node &node)
{
    beginItem(keys::node);
    const QString &kind = classOf(node);
    m_writer.encodeStringAttr(keys::kind, kind);
    writeCommonOf(node);
    if (kind != keys::group && kind != keys::element)
        m_writer.encodeStringAttr(keys::keyword, node.keyword());
    if (const MO_Node *parent = node.getParentNode())
        writeReference(keys::parent, QString(), parent, sceneOf(node));
    if (const auto *animated = dynamic_cast<const MO_AnimatedModule *>(&node); animated && animated->cameraAlignment())
        m_writer.encodeIntAttr(keys::cameraAlignment, animated->cameraAlignment());
    if (const auto *element = dynamic_cast<const MO_ElementModule *>(&node); element && element->lineArtDrawingMode())
        m_writer.encodeIntAttr(keys::lineArt, element->lineArtDrawingMode());
}

void ProjectWriter::writeComposite(const MO_UnconnectedCompositeModule &composite)
{
    beginItem(keys::composite);
    writeCommonOf(composite);
    m_writer.encodeBoolAttr(keys::firstAttribute, composite.firstAttribute()->value());
    m_writer.endElement();
}

/// What stands as it does by default is not written: most nodes are plain.
void ProjectWriter::writeCommonOf(const MO_Node &node)
{
    m_writer.encodeStringAttr(keys::number, textOf(m_numbers.value(&node)));
    m_writer.encodeStringAttr(keys::name, node.instanceName());
    if (!node.isEnabled())
        m_writer.encodeBoolAttr(keys::enabled, false);
    if (node.lock())
        m_writer.encodeBoolAttr(keys::locked, true);
    if (node.isCollapsed())
        m_writer.encodeBoolAttr(keys::collapsed, true);
    const MO_Port *const in = node.inPort(0);
    const MO_Port *const source = in ? in->realSrcPort() : nullptr;
    if (source)
        writeReference(keys::source, keys::sourceScene, source->node(), sceneOf(node));
}

void ProjectWriter::writeReference(
    const QString &numberKey, const QString &sceneKey, const MO_Node *node, const TUScene *here)
{
    const auto known = m_numbers.constFind(node);
    if (known == m_numbers.cend())
        return;
    m_writer.encodeStringAttr(numberKey, textOf(*known));
    if (const TUScene *scene = sceneOf(*node); scene && scene != here)
        m_writer.encodeStringAttr(sceneKey, scene->sceneId().AsString());
}
