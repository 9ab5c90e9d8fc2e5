#include "interchange/otio/OtioReader_p.h"

#include "interchange/ImportNotes_p.h"

#include <algorithm>
#include <limits>
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
    int version = 1; ///< 0: none that could be, INT_MAX: beyond all that can be counted
};

// Digits and nothing else, of a number above 0.
int versionOf(const QString &text)
{
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    const bool isZero = std::all_of(text.begin(), text.end(), [](QChar c) { return c == u'0'; });
    if (isZero || !std::all_of(text.begin(), text.end(), isDigit))
        return 0;
    bool fits = false;
    const int version = text.toInt(&fits);
    return fits ? version : std::numeric_limits<int>::max();
}

// "Clip.2"; names that older versions used are given as the present ones.
Schema schemaOf(const QJsonObject &object)
{
    const QString text = object.value(kSchema).toString();
    const qsizetype dot = text.lastIndexOf(QLatin1Char('.'));
    Schema schema{dot < 0 ? text : text.left(dot), dot < 0 ? 1 : versionOf(text.mid(dot + 1))};
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

// Hands out the numbers of those children that are objects.
class ChildNumbers
{
public:
    ChildNumbers(const JsonOutline &outline, const OtioNode &parent) :
        m_numbers(outline.objectsIn(parent.object, parent.childMember))
    {
    }

    int of(const QJsonValue &nextChild)
    {
        return nextChild.isObject() && m_next < m_numbers.size() ? m_numbers[m_next++] : JsonOutline::none;
    }

private:
    std::vector<int> m_numbers;
    std::size_t m_next = 0;
};

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
    track.number = item.number;
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
    const Source source{root, 0};
    const bool isRead =
        schema.name == QLatin1String("SerializableCollection") ? readCollection(source, cut) : readTop(source, cut);
    if (isRead && m_items > mostItems)
        m_error = OtioText::tr("the cut has more than %1 items").arg(mostItems);
    return m_error.isEmpty();
}

bool OtioReader::readTop(const Source &top, OtioCut &cut)
{
    const QString schema = schemaOf(top.object).name;
    if (schema == QLatin1String("Timeline")) {
        readTimeline(top, cut);
    } else if (isCutSchema(schema)) {
        readStackOf(top, cut);
        cut.name = cut.stack.name;
    } else if (schema.isEmpty()) {
        m_error = OtioText::tr("this is JSON, but not a cut: the first object has no OTIO_SCHEMA");
    } else {
        m_error = OtioText::tr("the file holds a %1, not a Timeline, Stack, Track or Clip")
                      .arg(OtioText::brief(top.object.value(kSchema).toString()));
    }
    return m_error.isEmpty();
}

void OtioReader::readTimeline(const Source &timeline, OtioCut &cut)
{
    OtioNode &node = cut.timeline;
    node.object = timeline.number;
    node.childMember = JsonOutline::Tracks;
    readCommon(timeline.object, node, {kTracks, kGlobalStart});
    noteVersion(timeline.object, 1, node.place);
    cut.name = node.name;
    cut.start = readTime(timeline.object, kGlobalStart, node.place, cut.startRate);
    const QJsonObject tracks = readObject(timeline.object, kTracks, node.place);
    if (!tracks.isEmpty())
        readStackOf({tracks, ChildNumbers(m_outline, node).of(tracks)}, cut);
    cut.stack.kind = OtioNode::Stack;
}

bool OtioReader::readCollection(const Source &source, OtioCut &cut)
{
    OtioNode &collection = cut.collection;
    collection.place = OtioText::tr("collection");
    collection.object = source.number;
    collection.childMember = JsonOutline::Children;
    readCommon(source.object, collection, {kChildren});
    noteVersion(source.object, 1, collection.place);
    const QJsonArray children = readArray(source.object, kChildren, collection.place);
    ChildNumbers numbers(m_outline, collection);
    for (const QJsonValue &child : children) {
        const Source first{child.toObject(), numbers.of(child)};
        if (!isCutSchema(schemaOf(first.object).name))
            continue;
        if (children.size() > 1) {
            m_notes.loss("collection-rest", collection.place,
                OtioText::tr("only its first cut is read, %1 other objects are not").arg(children.size() - 1));
        }
        return readTop(first, cut);
    }
    m_error = OtioText::tr("the collection holds no Timeline, Stack, Track or Clip");
    return false;
}

// Whatever stands for the tracks of a timeline, as a stack.
void OtioReader::readStackOf(const Source &item, OtioCut &cut)
{
    const QString schema = schemaOf(item.object).name;
    OtioNode node = readItem(item.object, item.number,
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

OtioNode OtioReader::readItem(const QJsonValue &value, int number, const QString &place)
{
    OtioNode node;
    node.place = place;
    node.object = number;
    if (++m_items > mostItems)
        return node;
    if (!value.isObject()) {
        m_notes.loss("bad-value", place, OtioText::tr("it is no object and is left out"));
        return node;
    }
    const QJsonObject object = value.toObject();
    const QString schema = schemaOf(object).name;
    if (schema == QLatin1String("Clip") || schema == QLatin1String("Gap") || schema == QLatin1String("Transition")
        || schema == QLatin1String("Track") || schema == QLatin1String("Stack")) {
        readKnownItem(object, node, schema);
        noteVersion(object, schema == QLatin1String("Clip") ? 2 : 1, node.place);
        return node;
    }
    // Its time is kept as a gap, so that what follows it stays where it is.
    node.duration = readRange(object, kSourceRange, place).duration;
    m_notes.loss("unknown-schema", place,
        OtioText::tr("a %1 is not known and is left out; its time is kept")
            .arg(OtioText::brief(object.value(kSchema).toString())));
    return node;
}

void OtioReader::readKnownItem(const QJsonObject &object, OtioNode &node, const QString &schema)
{
    if (schema == QLatin1String("Clip")) {
        node.kind = OtioNode::Clip;
        readInTime(object, node, {kMedia, kAllMedia, kActiveMedia});
        readClipMedia(object, node);
    } else if (schema == QLatin1String("Gap")) {
        readInTime(object, node, {});
    } else if (schema == QLatin1String("Transition")) {
        node.kind = OtioNode::Transition;
        readCommon(object, node, {kType, kInOffset, kOutOffset});
        readTransition(object, node);
    } else if (schema == QLatin1String("Track")) {
        node.kind = OtioNode::Track;
        node.childMember = JsonOutline::Children;
        readInTime(object, node, {kChildren, kKind});
        readTrackKind(object, node);
        readTrackChildren(object, node);
    } else {
        node.kind = OtioNode::Stack;
        node.childMember = JsonOutline::Children;
        readInTime(object, node, {kChildren});
        readStackChildren(object, node);
    }
}

void OtioReader::noteVersion(const QJsonObject &object, int newest, const QString &place)
{
    const Schema schema = schemaOf(object);
    const QString written = OtioText::brief(object.value(kSchema).toString());
    if (schema.version < 1) {
        m_notes.change("schema-version", place,
            OtioText::tr("%1 has no version that could be and is read as %2.%3")
                .arg(written, schema.name, QString::number(newest)));
    } else if (schema.version > newest) {
        m_notes.change("newer-schema", place,
            OtioText::tr("%1 is newer than what is known and is read as %2.%3")
                .arg(written, schema.name, QString::number(newest)));
    }
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
    ChildNumbers numbers(m_outline, stack);
    for (qsizetype i = 0; i < children.size() && m_items <= mostItems; ++i) {
        const QJsonValue value = children[i];
        OtioNode child = readItem(value, numbers.of(value), inside + OtioText::tr("track %1").arg(i + 1));
        child.number = static_cast<int>(i + 1);
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
    ChildNumbers numbers(m_outline, track);
    OtioTime sum;
    for (qsizetype i = 0; i < children.size() && m_items <= mostItems; ++i) {
        const QJsonValue value = children[i];
        OtioNode child = readItem(value, numbers.of(value), inside + OtioText::tr("item %1").arg(i + 1));
        child.number = static_cast<int>(i + 1);
        if (child.kind != OtioNode::Transition)
            sum = sum + child.duration;
        track.children.push_back(std::move(child));
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
        noteNegativeTime(kInOffset, transition.place, object.value(kInOffset));
        transition.inOffset = OtioTime();
    }
    if (transition.outOffset.isNegative()) {
        noteNegativeTime(kOutOffset, transition.place, object.value(kOutOffset));
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

// Empty for a reference that says nothing: a missing one without any field that holds something.
QString OtioReader::mediaText(const QJsonObject &media) const
{
    const QString schema = media.value(kSchema).toString();
    const QString name = media.value(kName).toString();
    bool saysNothing = media.isEmpty() || schema.startsWith(QLatin1String("MissingReference"));
    for (auto field = media.begin(); saysNothing && field != media.end(); ++field)
        saysNothing = field.key() == kSchema || isEmptyValue(field.value());
    if (saysNothing)
        return QString();
    const QString url = media.value(kTargetUrl).toString();
    return OtioText::brief(schema) + QLatin1Char(' ') + OtioText::brief(url.isEmpty() ? name : url, 120);
}
