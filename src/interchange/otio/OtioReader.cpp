#include "interchange/otio/OtioReader_p.h"

#include "interchange/ImportNotes_p.h"

#include <algorithm>
#include <utility>

namespace
{

const QString kSchema = QStringLiteral("OTIO_SCHEMA");
const QString kName = QStringLiteral("name");
const QString kMetadata = QStringLiteral("metadata");
const QString kSourceRange = QStringLiteral("source_range");
const QString kEffects = QStringLiteral("effects");
const QString kMarkers = QStringLiteral("markers");
const QString kEnabled = QStringLiteral("enabled");
const QString kChildren = QStringLiteral("children");
const QString kKind = QStringLiteral("kind");
const QString kTracks = QStringLiteral("tracks");
const QString kGlobalStart = QStringLiteral("global_start_time");
const QString kMedia = QStringLiteral("media_reference");
const QString kAllMedia = QStringLiteral("media_references");
const QString kActiveMedia = QStringLiteral("active_media_reference_key");
const QString kAvailableRange = QStringLiteral("available_range");
const QString kTargetUrl = QStringLiteral("target_url");
const QString kType = QStringLiteral("transition_type");
const QString kInOffset = QStringLiteral("in_offset");
const QString kOutOffset = QStringLiteral("out_offset");

struct Schema {
    QString name;
    int version = 1;
};

// "Clip.2"; names that older versions used are given as the present ones.
Schema schemaOf(const QJsonObject &object)
{
    const QString text = object.value(kSchema).toString();
    const qsizetype dot = text.lastIndexOf(QLatin1Char('.'));
    Schema schema{dot < 0 ? text : text.left(dot), dot < 0 ? 1 : text.mid(dot + 1).toInt()};
    if (schema.name == QLatin1String("Sequence"))
        schema.name = QStringLiteral("Track");
    else if (schema.name == QLatin1String("Filler"))
        schema.name = QStringLiteral("Gap");
    else if (schema.name == QLatin1String("SerializeableCollection"))
        schema.name = QStringLiteral("SerializableCollection");
    return schema;
}

bool isCutSchema(const QString &name)
{
    return name == QLatin1String("Timeline") || name == QLatin1String("Stack") || name == QLatin1String("Track")
        || name == QLatin1String("Clip");
}

bool isEmptyValue(const QJsonValue &value)
{
    return value.isNull() || value.isUndefined() || (value.isArray() && value.toArray().isEmpty())
        || (value.isObject() && value.toObject().isEmpty()) || (value.isString() && value.toString().isEmpty());
}

OtioNode impliedTrackAround(OtioNode item)
{
    OtioNode track;
    track.kind = OtioNode::Track;
    track.isImplied = true;
    track.place = item.place;
    track.duration = item.duration;
    track.children.push_back(std::move(item));
    return track;
}

OtioTime longestOf(const std::vector<OtioNode> &tracks)
{
    OtioTime longest;
    for (const OtioNode &track : tracks)
        longest = std::max(longest, track.duration);
    return longest;
}

} // namespace

bool OtioReader::read(const QJsonObject &root, OtioCut &cut)
{
    cut.timeline.place = OtioText::tr("timeline");
    const Schema schema = schemaOf(root);
    const bool isRead =
        schema.name == QLatin1String("SerializableCollection") ? readCollection(root, cut) : readTop(root, cut);
    if (isRead && m_items > mostItems)
        m_error = OtioText::tr("the cut has more than %1 items").arg(mostItems);
    return m_error.isEmpty();
}

bool OtioReader::readTop(const QJsonObject &top, OtioCut &cut)
{
    const QString schema = schemaOf(top).name;
    if (schema == QLatin1String("Timeline")) {
        readTimeline(top, cut);
    } else if (isCutSchema(schema)) {
        readStackOf(top, cut);
        cut.name = cut.stack.name;
    } else if (schema.isEmpty()) {
        m_error = OtioText::tr("this is JSON, but not a cut: the first object has no OTIO_SCHEMA");
    } else {
        m_error = OtioText::tr("the file holds a %1, not a Timeline, Stack, Track or Clip")
                      .arg(OtioText::brief(top.value(kSchema).toString()));
    }
    return m_error.isEmpty();
}

void OtioReader::readTimeline(const QJsonObject &object, OtioCut &cut)
{
    readCommon(object, cut.timeline, {kTracks, kGlobalStart});
    cut.name = cut.timeline.name;
    cut.start = readTime(object, kGlobalStart, cut.timeline.place, cut.startRate);
    const QJsonObject tracks = readObject(object, kTracks, cut.timeline.place);
    if (!tracks.isEmpty())
        readStackOf(tracks, cut);
    cut.stack.kind = OtioNode::Stack;
}

bool OtioReader::readCollection(const QJsonObject &object, OtioCut &cut)
{
    OtioNode &collection = cut.collection;
    collection.place = OtioText::tr("collection");
    readCommon(object, collection, {kChildren});
    const QJsonArray children = readArray(object, kChildren, collection.place);
    const auto isCut = [](const QJsonValue &child) { return isCutSchema(schemaOf(child.toObject()).name); };
    const auto first = std::find_if(children.begin(), children.end(), isCut);
    if (first == children.end()) {
        m_error = OtioText::tr("the collection holds no Timeline, Stack, Track or Clip");
        return false;
    }
    if (children.size() > 1) {
        m_notes.loss("collection-rest", collection.place,
            OtioText::tr("only its first cut is read, %1 other objects are not").arg(children.size() - 1));
    }
    return readTop(first->toObject(), cut);
}

// Whatever stands for the tracks of a timeline, as a stack.
void OtioReader::readStackOf(const QJsonObject &item, OtioCut &cut)
{
    const QString schema = schemaOf(item).name;
    OtioNode node = readItem(item,
        schema == QLatin1String("Stack")       ? OtioText::tr("stack")
            : schema == QLatin1String("Track") ? OtioText::tr("track 1")
                                               : OtioText::tr("item 1"));
    if (node.kind == OtioNode::Stack) {
        cut.stack = std::move(node);
        return;
    }
    cut.stack.kind = OtioNode::Stack;
    cut.stack.name = node.name;
    cut.stack.duration = node.duration;
    cut.stack.isImplied = true;
    cut.stack.children.push_back(node.kind == OtioNode::Track ? std::move(node) : impliedTrackAround(std::move(node)));
}

OtioNode OtioReader::readItem(const QJsonValue &value, const QString &place)
{
    OtioNode node;
    node.place = place;
    if (++m_items > mostItems)
        return node;
    if (!value.isObject()) {
        m_notes.loss("bad-value", place, OtioText::tr("it is no object and is left out"));
        return node;
    }
    const QJsonObject object = value.toObject();
    const Schema schema = schemaOf(object);
    const int newest = schema.name == QLatin1String("Clip") ? 2 : 1;
    bool isKnown = true;
    if (schema.name == QLatin1String("Clip")) {
        node.kind = OtioNode::Clip;
        readInTime(object, node, {kMedia, kAllMedia, kActiveMedia});
        readClipMedia(object, node);
    } else if (schema.name == QLatin1String("Gap")) {
        readInTime(object, node, {});
    } else if (schema.name == QLatin1String("Transition")) {
        node.kind = OtioNode::Transition;
        readCommon(object, node, {kType, kInOffset, kOutOffset});
        readTransition(object, node);
    } else if (schema.name == QLatin1String("Track")) {
        node.kind = OtioNode::Track;
        readInTime(object, node, {kChildren, kKind});
        readTrackKind(object, node);
        readTrackChildren(object, node);
    } else if (schema.name == QLatin1String("Stack")) {
        node.kind = OtioNode::Stack;
        readInTime(object, node, {kChildren});
        readStackChildren(object, node);
    } else {
        // Its time is kept as a gap, so that what follows it stays where it is.
        isKnown = false;
        const Range range = readRange(object, kSourceRange, place);
        node.duration = range.duration;
        m_notes.loss("unknown-schema", place,
            OtioText::tr("a %1 is not known and is left out; its time is kept")
                .arg(OtioText::brief(object.value(kSchema).toString())));
    }
    if (isKnown && schema.version > newest) {
        m_notes.change("newer-schema", node.place,
            OtioText::tr("%1 is newer than what is known and is read as %2.%3")
                .arg(OtioText::brief(object.value(kSchema).toString()), schema.name, QString::number(newest)));
    }
    return node;
}

void OtioReader::readCommon(const QJsonObject &object, OtioNode &node, const QStringList &ownFields)
{
    node.name = readString(object, kName, node.place);
    // From here on people can find it by its name.
    if (!node.name.isEmpty())
        node.place += QStringLiteral(" (%1)").arg(OtioText::brief(node.name, 40));
    node.metadata = readObject(object, kMetadata, node.place);

    const QStringList known = ownFields + QStringList{kSchema, kName, kMetadata};
    for (auto field = object.begin(); field != object.end(); ++field) {
        if (!known.contains(field.key()) && !isEmptyValue(field.value()))
            node.otherFields << OtioText::brief(field.key());
    }
}

void OtioReader::readInTime(const QJsonObject &object, OtioNode &node, QStringList ownFields)
{
    readCommon(object, node, ownFields << kSourceRange << kEffects << kMarkers << kEnabled);
    const Range range = readRange(object, kSourceRange, node.place);
    node.hasSourceRange = range.isGiven;
    node.sourceStart = range.start;
    node.duration = range.duration;
    node.rate = range.rate;
    node.isEnabled = readEnabled(object, node.place);
    node.markerCount = readArray(object, kMarkers, node.place).size();
    const QJsonArray effects = readArray(object, kEffects, node.place);
    for (const QJsonValue &effect : effects)
        node.effects << OtioText::brief(effect.toObject().value(kSchema).toString());
}

void OtioReader::readStackChildren(const QJsonObject &object, OtioNode &stack)
{
    const QJsonArray children = readArray(object, kChildren, stack.place);
    // The tracks of the whole cut need no further place; the stack is then the first item read.
    const QString inside = m_items == 1 ? QString() : OtioText::brief(stack.place, 90) + QStringLiteral(", ");
    for (qsizetype i = 0; i < children.size() && m_items <= mostItems; ++i) {
        OtioNode child = readItem(children[i], inside + OtioText::tr("track %1").arg(i + 1));
        if (child.kind == OtioNode::Track) {
            stack.children.push_back(std::move(child));
        } else if (child.kind == OtioNode::Clip || child.kind == OtioNode::Stack) {
            m_notes.change("item-beside-tracks", child.place, OtioText::tr("it is read as a video track of its own"));
            stack.children.push_back(impliedTrackAround(std::move(child)));
        } else if (child.kind == OtioNode::Transition) {
            m_notes.loss("transition-at-edge", child.place, OtioText::tr("it joins nothing and is left out"));
        } else {
            stack.children.push_back(impliedTrackAround(std::move(child))); // holds time open
            stack.children.back().trackKind = OtioNode::OtherTrack;
        }
    }
    if (!stack.hasSourceRange)
        stack.duration = longestOf(stack.children);
}

void OtioReader::readTrackChildren(const QJsonObject &object, OtioNode &track)
{
    const QJsonArray children = readArray(object, kChildren, track.place);
    const QString inside = OtioText::brief(track.place, 90) + QStringLiteral(", ");
    OtioTime sum;
    for (qsizetype i = 0; i < children.size() && m_items <= mostItems; ++i) {
        track.children.push_back(readItem(children[i], inside + OtioText::tr("item %1").arg(i + 1)));
        if (track.children.back().kind != OtioNode::Transition)
            sum = sum + track.children.back().duration;
    }
    if (!track.hasSourceRange)
        track.duration = sum;
}

void OtioReader::readTrackKind(const QJsonObject &object, OtioNode &track)
{
    const QString kind = readString(object, kKind, track.place);
    if (kind.isEmpty() || kind.compare(QLatin1String("Video"), Qt::CaseInsensitive) == 0)
        track.trackKind = OtioNode::Video;
    else if (kind.compare(QLatin1String("Audio"), Qt::CaseInsensitive) == 0)
        track.trackKind = OtioNode::Sound;
    else
        track.trackKind = OtioNode::OtherTrack;
    track.type = kind;
}

void OtioReader::readTransition(const QJsonObject &object, OtioNode &transition)
{
    OtioTime::Rate rate;
    transition.type = readString(object, kType, transition.place);
    transition.inOffset = readTime(object, kInOffset, transition.place, rate);
    transition.outOffset = readTime(object, kOutOffset, transition.place, rate);
    if (transition.inOffset.isNegative()) {
        noteBadTime(kInOffset, transition.place);
        transition.inOffset = OtioTime();
    }
    if (transition.outOffset.isNegative()) {
        noteBadTime(kOutOffset, transition.place);
        transition.outOffset = OtioTime();
    }
}

void OtioReader::readClipMedia(const QJsonObject &object, OtioNode &clip)
{
    // Version 1 has one reference, version 2 several of which a key names the active one.
    QJsonObject active = readObject(object, kMedia, clip.place);
    const QJsonObject all = readObject(object, kAllMedia, clip.place);
    if (!all.isEmpty()) {
        const QString key = readString(object, kActiveMedia, clip.place);
        const QString usual = QStringLiteral("DEFAULT_MEDIA");
        active = all.value(key.isEmpty() ? usual : key).toObject();
        if (active.isEmpty()) {
            m_notes.change("no-active-media", clip.place,
                OtioText::tr("there is no media reference \"%1\"").arg(OtioText::brief(key.isEmpty() ? usual : key)));
        }
        for (auto it = all.begin(); it != all.end(); ++it) {
            const QString text = mediaText(it->toObject());
            if (!text.isEmpty())
                clip.media << text;
        }
    } else if (const QString text = mediaText(active); !text.isEmpty()) {
        clip.media << text;
    }
    if (clip.hasSourceRange)
        return;
    const Range available = readRange(active, kAvailableRange, clip.place);
    clip.duration = available.duration;
    clip.rate = available.rate;
}

// Empty for a reference that refers to nothing.
QString OtioReader::mediaText(const QJsonObject &media) const
{
    const QString schema = media.value(kSchema).toString();
    const QString name = media.value(kName).toString();
    const bool saysNothing = name.isEmpty() && isEmptyValue(media.value(kMetadata));
    if (media.isEmpty() || (schema.startsWith(QLatin1String("MissingReference")) && saysNothing))
        return QString();
    const QString url = media.value(kTargetUrl).toString();
    return OtioText::brief(schema) + QLatin1Char(' ') + OtioText::brief(url.isEmpty() ? name : url, 120);
}
