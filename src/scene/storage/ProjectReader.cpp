#include "scene/storage/ProjectReader_p.h"

#include "scene/metadata/PIO_Metadatas.h"
#include "scene/metadata/PIO_RecordReader.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/MO_UnconnectedCompositeModule.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/ElementAttributes_p.h"
#include "scene/storage/ProjectFileKeys_p.h"
#include "scene/storage/XmlBounds_p.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TUSoundTimedValue.h"

#include <QFileInfo>

#include <utility>

namespace keys = ProjectFileKeys;

namespace
{

void readFlags(MO_Node &node, const ElementAttributes &attributes)
{
    node.setEnabled(attributes.readBool(keys::enabled, true));
    node.setLocked(attributes.readBool(keys::locked, false));
    node.setCollapsed(attributes.readBool(keys::collapsed, false));
}

void readAlignment(MO_AnimatedModule &module, const ElementAttributes &attributes, LoadReport &report)
{
    const int alignment = attributes.readInt(keys::cameraAlignment, AT_Enums::NoAlignment);
    if (alignment >= AT_Enums::NoAlignment && alignment <= AT_Enums::LockToCamera)
        module.setCameraAlignment(static_cast<AT_Enums::CameraAlignment>(alignment));
    else
        report.warn(attributes.place(), module.instanceName(), QStringLiteral("its camera alignment is unknown"));
}

/// Whether the bounds were found in what the stream makes of the bytes: in UTF-7 or a Japanese encoding it may see elements
/// where the bytes have none.
bool meansAsciiByItself(QStringView encoding)
{
    for (const char *known : {"", "UTF-8", "US-ASCII", "ISO-8859-1"}) {
        if (encoding.compare(QLatin1StringView(known), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

QString titleOf(const TUScene &scene)
{
    return QStringLiteral("scene %1").arg(scene.objectId().AsString());
}

} // namespace

ProjectReader::ProjectReader(QByteArray text, const QString &filePath, SC_FileReport &report) :
    m_filePath(filePath), m_report(filePath, report), m_text(std::move(text)), m_buffer(&m_text), m_network(m_report)
{
}

SC_Project *ProjectReader::read()
{
    const XmlBounds::Excess excess = XmlBounds::find(m_text);
    if (!excess.message.isEmpty()) {
        m_report.fail(excess.place, excess.message);
        return nullptr;
    }
    m_buffer.open(QIODevice::ReadOnly);
    m_xml.setDevice(&m_buffer);
    // Content of unknown records is written back as it came, whatever its prefixes mean.
    m_xml.setNamespaceProcessing(false);
    m_xml.readNext();
    if (!meansAsciiByItself(m_xml.documentEncoding()))
        fail(QStringLiteral("the text is in the encoding %1 and not in UTF-8").arg(m_xml.documentEncoding()));
    readProject();
    while (!m_xml.atEnd())
        m_xml.readNext();
    if (m_xml.hasError()) {
        const bool isTruncated = m_xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
        m_report.fail(
            FilePlace::of(m_xml), isTruncated ? QStringLiteral("the file is truncated") : m_xml.errorString());
    }
    forgetText();
    if (!m_report.hasFailed()) {
        for (SequenceLoader &sequence : m_sequences)
            sequence.finish();
        m_network.finish(*m_project->projectCommon());
    }
    m_report.close();
    return m_report.hasFailed() ? nullptr : m_project.release();
}

/// What follows needs memory of its own.
void ProjectReader::forgetText()
{
    m_xml.clear();
    m_buffer.close();
    m_text.clear();
}

void ProjectReader::readProject()
{
    if (!findElement())
        return;
    if (m_xml.name() != keys::plotka)
        return fail(QStringLiteral("this is no Plotka project"));
    if (!readHeader())
        return;
    while (findElement()) {
        if (m_xml.name() == keys::metadata)
            readRecord(m_project->metadatas(), QStringLiteral("project"));
        else if (m_xml.name() == keys::scene)
            readScene();
        else if (m_xml.name() == keys::newRecords)
            readNewRecords();
        else
            skipUnknown();
    }
    if (!m_xml.hasError() && m_project->sceneCount() == 0)
        fail(QStringLiteral("the project has no scene"));
}

bool ProjectReader::readHeader()
{
    const ElementAttributes attributes(m_xml, m_report);
    const auto format = attributes.findNumber(keys::format);
    const auto nextId = attributes.findNumber(keys::nextId);
    const auto startTimecode = attributes.findNumber(keys::startTimecode);
    UT_FrameRate rate;
    if (format && *format > keys::formatVersion) {
        fail(QStringLiteral("the project was saved by a newer version: its format is %1, the newest known is %2")
                 .arg(QString::number(*format), QString::number(keys::formatVersion)));
        return false;
    }
    const bool hasRate = attributes.has(keys::rate) && rate.parse(attributes.text(keys::rate));
    const QString unreadable = !format || *format < 1                   ? keys::format
        : !nextId || *nextId < 1 || *nextId > SC_ProjectCommon::idLimit ? keys::nextId
        : !hasRate                                                      ? keys::rate
        : !startTimecode                                                ? keys::startTimecode
                                                                        : QString();
    if (!unreadable.isEmpty()) {
        fail(QStringLiteral("the header cannot be read: \"%1\" is absent or wrong").arg(unreadable));
        return false;
    }
    const QFileInfo file(m_filePath);
    m_project = std::make_unique<SC_Project>(file.path(), file.completeBaseName());
    SC_ProjectCommon &common = *m_project->projectCommon();
    common.setFrameRate(rate);
    common.setStartTimecode(*startTimecode);
    common.reserveId(SC_Id(*nextId - 1));
    return true;
}

void ProjectReader::readScene()
{
    if (!begin())
        return;
    const ElementAttributes attributes(m_xml, m_report);
    const auto object = attributes.findId(keys::object);
    const auto sceneId = attributes.findId(keys::scene);
    const bool isReadable = object && sceneId && !object->isNull() && !sceneId->isNull();
    if (!isReadable && m_project->sceneCount() == 0)
        return fail(QStringLiteral("the ids of the top scene cannot be read"));
    if (!isReadable)
        return skipDamaged(QStringLiteral("scene"), QStringLiteral("its ids cannot be read"));
    if (m_project->sceneCount() == sceneLimit)
        return fail(QStringLiteral("there are more than %1 scenes").arg(sceneLimit));
    if (!takeId(*object) || !takeId(*sceneId))
        return;
    m_sceneId = *sceneId;
    if (TUScene *scene = m_project->addScene(*object, *sceneId))
        readSceneParts(*scene);
}

void ProjectReader::readSceneParts(TUScene &scene)
{
    bool hasRoot = false;
    while (findElement()) {
        const QStringView name = m_xml.name();
        if (name == keys::metadata)
            readRecord(scene.metadatas(), titleOf(scene));
        else if (name == keys::newRecords)
            shareNewRecords(scene);
        else if (name == keys::sequence)
            readSequence(scene);
        else if (name == keys::sounds)
            readSounds(scene);
        else if (name == keys::node && !hasRoot && (hasRoot = true))
            readRoot(scene);
        else if (name == keys::composite && !scene.unconnectedComposite())
            readComposite(scene);
        else
            skipUnknown();
    }
}

void ProjectReader::readSequence(TUScene &scene)
{
    if (!begin())
        return;
    TUSeqTimedValue &sequence = *scene.addSeqTimedValue(ElementAttributes(m_xml, m_report).text(keys::name));
    SequenceLoader loader(sequence, m_report);
    while (findElement()) {
        const QStringView name = m_xml.name();
        if (name == keys::link) {
            readLink(sequence);
            continue;
        }
        const bool isTransition = name == keys::transition;
        if (!isTransition && name != keys::warp && name != keys::clip && name != keys::empty) {
            skipUnknown();
            continue;
        }
        if (!begin())
            return;
        const ElementAttributes attributes(m_xml, m_report);
        if (isTransition) {
            const auto id = attributes.findId(keys::id);
            if (id && !id->isNull() && !takeId(*id))
                return;
            loader.addTransition(attributes);
        } else {
            loader.addBlock(name == keys::warp ? SequenceLoader::Kind::Warp
                    : name == keys::clip       ? SequenceLoader::Kind::Clip
                                               : SequenceLoader::Kind::Empty,
                attributes);
        }
        end();
    }
    m_sequences.push_back(std::move(loader));
}

void ProjectReader::readSounds(TUScene &scene)
{
    if (!begin())
        return;
    const ElementAttributes attributes(m_xml, m_report);
    TUSoundTimedValue &sounds = *scene.addSoundTimedValue(attributes.text(keys::name));
    sounds.audible = attributes.readBool(keys::audible, true);
    sounds.muted = attributes.readBool(keys::muted, false);
    sounds.setExcluded(attributes.readBool(keys::excluded, false));
    while (findElement()) {
        if (m_xml.name() == keys::link)
            readLink(sounds);
        else if (m_xml.name() == keys::sound)
            readSound(sounds);
        else
            skipUnknown();
    }
}

void ProjectReader::readSound(TUSoundTimedValue &sounds)
{
    if (!begin())
        return;
    const ElementAttributes attributes(m_xml, m_report);
    const auto id = attributes.findId(keys::id);
    if (id && !id->isNull() && !takeId(*id))
        return;
    TUSoundTimedValue::Sound sound{id.value_or(SC_Id()), attributes.findFrames(keys::from).value_or(0),
        attributes.findFrames(keys::to).value_or(0), attributes.text(keys::name)};
    if (!sounds.addSound(sound))
        m_report.warn(attributes.place(), QStringLiteral("sound of \"%1\"").arg(sounds.getName()),
            QStringLiteral("left out: its id or its frames cannot be read"));
    end();
}

void ProjectReader::readLink(TUTimedValue &timedValue)
{
    if (!begin())
        return;
    m_network.addLink(&timedValue, m_sceneId, ElementAttributes(m_xml, m_report));
    end();
}

void ProjectReader::readRoot(TUScene &scene)
{
    if (!begin())
        return;
    const ElementAttributes attributes(m_xml, m_report);
    if (attributes.text(keys::kind) != keys::group)
        m_report.warn(attributes.place(), QStringLiteral("node"),
            QStringLiteral("the nodes of a scene stand in a group; it counts as one"));
    TUGroup &root = *scene.getRootGroup();
    root.setInstanceName(attributes.text(keys::name));
    readFlags(root, attributes);
    m_network.addNode(&root, m_sceneId, attributes);
    readNodesOf(root);
}

void ProjectReader::readNodesOf(TUGroup &root)
{
    std::vector<TUGroup *> open{&root};
    while (!open.empty()) {
        if (!findElement())
            open.pop_back();
        else if (m_xml.name() != keys::node)
            skipUnknown();
        else if (TUGroup *inner = readNode(*open.back()))
            open.push_back(inner);
    }
}

/// A group that the node is, to be filled with what stands in it. Null for all others, which are read to their end.
TUGroup *ProjectReader::readNode(TUGroup &group)
{
    if (!begin())
        return nullptr;
    const ElementAttributes attributes(m_xml, m_report);
    const QString kind = attributes.text(keys::kind);
    const QString name = attributes.text(keys::name);
    const QString keyword = attributes.text(keys::keyword);
    SC_SceneCommon *const scene = group.sceneCommon();
    UT_SharedPtr<MO_Node> node;
    if (kind == keys::element) {
        auto *element = new MO_ElementModule(scene, name);
        node = element;
        element->setLineArtDrawingMode(attributes.readInt(keys::lineArt, 0));
        readAlignment(*element, attributes, m_report);
    } else if (kind == keys::animated) {
        auto *animated = new MO_AnimatedModule(scene, keyword, name);
        node = animated;
        readAlignment(*animated, attributes, m_report);
    } else if (kind == keys::group) {
        node = new TUGroup(scene, name);
    } else if (kind == keys::module) {
        node = new MO_Module(scene, keyword, name);
    } else if (kind == keys::node) {
        node = new MO_Node(scene, keyword, name);
    } else {
        skipDamaged(QStringLiteral("node \"%1\"").arg(name), QStringLiteral("its class is unknown"));
        return nullptr;
    }
    readFlags(*node, attributes);
    group.addNode(node);
    m_network.addNode(node.get(), m_sceneId, attributes);
    auto *const inner = dynamic_cast<TUGroup *>(node.get());
    if (!inner)
        end();
    return inner;
}

void ProjectReader::readComposite(TUScene &scene)
{
    if (!begin())
        return;
    const ElementAttributes attributes(m_xml, m_report);
    MO_UnconnectedCompositeModule &composite = *scene.addUnconnectedComposite();
    composite.setInstanceName(attributes.text(keys::name));
    readFlags(composite, attributes);
    composite.firstAttribute()->setBool(attributes.readBool(keys::firstAttribute, false));
    m_network.addNode(&composite, m_sceneId, attributes);
    end();
}

void ProjectReader::readRecord(PIO_Metadatas *records, const QString &holder)
{
    records->add(readRecord(holder).release());
}

/// Null, and told of, when the record is left out.
std::unique_ptr<PIO_Metadata> ProjectReader::readRecord(const QString &holder)
{
    if (!begin())
        return nullptr;
    PIO_RecordResult result = PIO_RecordReader::read(m_xml);
    --m_depth; // the record was read to its end
    if (!result.message.isEmpty()) {
        const QString type = result.record ? result.record->metaType() : QString();
        m_report.warn({result.line, result.column}, QStringLiteral("record \"%1\"").arg(type), result.message);
    }
    if (!result.record)
        return nullptr;
    const QString item = QStringLiteral("%1, record \"%2\"").arg(holder, result.record->metaType());
    for (const PIO_RecordResult::Remark &remark : result.remarks)
        m_report.remark({remark.line, remark.column}, item, remark.text, remark.count);
    return std::move(result.record);
}

/// Records that stand once in the file, for all the scenes that have them.
void ProjectReader::readNewRecords()
{
    if (!begin())
        return;
    const ElementAttributes attributes(m_xml, m_report);
    const auto number = attributes.findNumber(keys::number);
    if (!number || m_newRecords.contains(*number))
        return skipDamaged(m_xml.name().toString(), QStringLiteral("its number cannot be read or is given twice"));
    NewRecords &read = m_newRecords[*number];
    while (findElement()) {
        if (m_xml.name() != keys::metadata) {
            skipUnknown();
            continue;
        }
        const qint64 from = m_xml.characterOffset();
        if (auto original = readRecord(QStringLiteral("new records %1").arg(*number)))
            read.originals.push_back(m_project->keepOriginal(std::move(original)));
        const qint64 size = m_xml.characterOffset() - from;
        if (size > newRecordLimit)
            return fail(QStringLiteral("a record of new records is longer than %1 bytes").arg(newRecordLimit));
        read.size += size;
    }
}

void ProjectReader::shareNewRecords(TUScene &scene)
{
    const ElementAttributes attributes(m_xml, m_report);
    const auto number = attributes.findNumber(keys::as);
    const auto known = number ? m_newRecords.constFind(*number) : m_newRecords.cend();
    if (known == m_newRecords.cend()) {
        return skipDamaged(QStringLiteral("records of %1").arg(titleOf(scene)),
            QStringLiteral("what they are does not stand before the scene"));
    }
    m_sharedSize += known->size;
    if (m_text.size() + m_sharedSize > sizeLimit)
        return fail(QStringLiteral("the records of all scenes are larger than %1 bytes").arg(sizeLimit));
    for (const PIO_Metadata *original : known->originals) {
        if (!begin())
            return;
        scene.metadatas()->addShared(original);
    }
    end();
}

/// Counts an item of the file. False when it is one too many.
bool ProjectReader::begin()
{
    if (++m_items <= itemLimit)
        return true;
    fail(QStringLiteral("there are more than %1 items").arg(itemLimit));
    return false;
}

/// Goes one step on in the text and keeps count of the elements that stand open. What is wrong with the text ends it, and so
/// does an element that stands too deep.
QXmlStreamReader::TokenType ProjectReader::next()
{
    m_xml.readNext();
    if (m_xml.isEndElement())
        --m_depth;
    else if (m_xml.isStartElement() && ++m_depth > XmlBounds::depthLimit)
        fail(XmlBounds::deeperThan(XmlBounds::depthLimit));
    return m_xml.tokenType();
}

/// Goes to the next element of the current one, or to its end: then false. Words between elements are told of.
bool ProjectReader::findElement()
{
    while (next() != QXmlStreamReader::Invalid && !m_xml.isEndElement()) {
        if (m_xml.isStartElement())
            return true;
        if (m_xml.isCharacters() && !m_xml.isWhitespace() && !m_xml.text().trimmed().isEmpty())
            m_report.warn(FilePlace::of(m_xml), QStringLiteral("text"),
                QStringLiteral("left out: no text is known between elements here"));
    }
    return false;
}

/// Leaves an element that holds nothing else.
void ProjectReader::end()
{
    while (findElement())
        skipUnknown();
}

void ProjectReader::skipUnknown()
{
    m_report.warn(FilePlace::of(m_xml), m_xml.name().toString(), QStringLiteral("left out: it is not known here"));
    skipReservingIds();
}

void ProjectReader::skipDamaged(const QString &item, const QString &reason)
{
    m_report.warn(FilePlace::of(m_xml), item, QStringLiteral("left out: %1").arg(reason));
    skipReservingIds();
}

/// Also what is left out keeps its ids: no other thing may be taken for it.
void ProjectReader::skipReservingIds()
{
    const int outside = m_depth - 1;
    do {
        if (!m_xml.isStartElement())
            continue;
        if (m_xml.name() == keys::metadata) {
            m_xml.skipCurrentElement();
            --m_depth;
            continue;
        }
        const ElementAttributes attributes(m_xml, m_report);
        for (const QString &key : {keys::object, keys::scene, keys::id})
            m_project->projectCommon()->reserveId(attributes.findId(key).value_or(SC_Id()));
    } while (m_depth > outside && next() != QXmlStreamReader::Invalid);
}

/// An id belongs to one thing. False, and an error, when it is taken.
bool ProjectReader::takeId(const SC_Id &id)
{
    m_project->projectCommon()->reserveId(id);
    if (!std::exchange(m_ids[id], true))
        return true;
    fail(QStringLiteral("the id %1 is given twice").arg(id.AsString()));
    return false;
}

void ProjectReader::fail(const QString &message)
{
    m_report.fail(FilePlace::of(m_xml), message);
    m_xml.raiseError(message); // ends every loop
}
