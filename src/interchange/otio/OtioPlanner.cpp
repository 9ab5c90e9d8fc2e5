#include "interchange/otio/OtioPlanner_p.h"

#include "interchange/ImportNotes_p.h"

#include <QJsonValue>

#include <algorithm>

namespace
{

const QString kPlotka = QStringLiteral("plotka");
const QString kAct = QStringLiteral("act");
const QString kSequence = QStringLiteral("sequence");

// Anything faster counts samples rather than frames.
bool isFrameRate(const OtioTime::Rate &rate)
{
    return rate.isValid() && rate.numerator <= 1000 * rate.denominator;
}

// Of its own range first, then of the first item in it that has a usable one.
OtioTime::Rate firstFrameRate(const OtioNode &node)
{
    if (isFrameRate(node.rate))
        return node.rate;
    for (const OtioNode &child : node.children) {
        const OtioTime::Rate rate = firstFrameRate(child);
        if (rate.isValid())
            return rate;
    }
    return {};
}

unsigned int heldFrame(qint64 frame)
{
    return static_cast<unsigned int>(std::clamp<qint64>(frame, 0, OtioPlanner::lastPossibleFrame));
}

} // namespace

OtioPlan OtioPlanner::plan(const OtioCut &cut, const UT_FrameRate *wantedRate)
{
    const OtioNode &stack = cut.stack;
    m_plan = OtioPlan();
    m_plan.name = cut.name;
    if (wantedRate)
        m_plan.rate = *wantedRate;
    else
        chooseRate(cut);
    planStart(cut);
    keepFrame(cut);
    noteEnabled(stack, true);
    m_plan.frameCount = heldFrame(stack.duration.roundedFrame(m_plan.rate));

    const OtioNode *timeline = findFirstVideoTrack(stack);
    const OtioWindow window = windowOnChildren(stack, {OtioTime(), stack.duration, OtioTime()});
    if (!timeline) {
        m_notes.change(
            "no-video-track", cut.timeline.place, OtioText::tr("the cut has no video track: the storyboard is empty"));
    }
    for (const OtioNode &track : stack.children) {
        if (track.trackKind == OtioNode::OtherTrack) {
            if (track.isImplied)
                keepTrack(track, OtioKeeper::NameHasNone, m_plan.records);
            else
                m_notes.loss("other-track", track.place,
                    OtioText::tr("a track of kind %1 has no place").arg(OtioText::brief(track.type)));
            continue;
        }
        keepTrack(track, OtioKeeper::NameHasPlace, m_plan.records);
        const bool isEnabled = noteEnabled(track, stack.isEnabled);
        if (&track == timeline)
            planTimeline(track, stack, window, isEnabled);
        else if (track.trackKind == OtioNode::Video)
            planVideoTrack(track, window, isEnabled);
        else
            planSoundTrack(track, window, isEnabled);
    }
    return std::move(m_plan);
}

void OtioPlanner::chooseRate(const OtioCut &cut)
{
    OtioTime::Rate rate = cut.startRate;
    if (!isFrameRate(rate)) {
        const OtioNode *timeline = findFirstVideoTrack(cut.stack);
        rate = timeline ? firstFrameRate(*timeline) : OtioTime::Rate();
    }
    if (!isFrameRate(rate))
        rate = firstFrameRate(cut.stack);
    if (isFrameRate(rate)) {
        m_plan.rate =
            UT_FrameRate(static_cast<unsigned int>(rate.numerator), static_cast<unsigned int>(rate.denominator));
        return;
    }
    m_plan.rate = UT_FrameRate(24);
    m_notes.info("default-rate", cut.timeline.place, OtioText::tr("the cut has no frame rate; 24 is taken"));
}

void OtioPlanner::planStart(const OtioCut &cut)
{
    const qint64 frame = cut.start.roundedFrame(m_plan.rate);
    m_plan.startTimecode = heldFrame(frame);
    if (frame != m_plan.startTimecode) {
        m_notes.change("start-out-of-range", cut.timeline.place,
            OtioText::tr("it starts at frame %1, which becomes %2")
                .arg(QString::number(frame), QString::number(m_plan.startTimecode)));
    } else if (!cut.start.isWholeFrame(m_plan.rate)) {
        m_notes.change("rounded", cut.timeline.place,
            OtioText::tr("it starts at frame %1, rounded to %2").arg(positionText(cut.start), QString::number(frame)));
    }
}

void OtioPlanner::planTimeline(const OtioNode &track, const OtioNode &stack, const OtioWindow &window, bool isEnabled)
{
    m_plan.timelineName = track.name;
    std::vector<OtioStretch> stretches;
    for (const OtioPlaced &placed : placeTrack(track, window, m_notes)) {
        const OtioNode &node = *placed.node;
        if (node.kind == OtioNode::Transition) {
            const QString path = OtioKeeper::pathIn(track, OtioKeeper::pathOf(track), node);
            m_keeper.keep(node, path, OtioKeeper::NameHasNone, m_plan.records);
            stretches.push_back({OtioStretch::Transition, 0, &node, placed.start});
            continue;
        }
        const Frames frames = framesOf(placed);
        if (frames.isEmpty()) {
            stretches.push_back({OtioStretch::Nothing, 0, nullptr, placed.start});
        } else if (node.kind == OtioNode::Gap) {
            stretches.push_back({OtioStretch::Gap, 0, nullptr, placed.start});
        } else {
            stretches.push_back(
                {OtioStretch::Shot, static_cast<unsigned int>(m_plan.shots.size()), nullptr, placed.start});
            addShot(placed, frames, isEnabled);
        }
    }
    if (m_plan.shots.empty())
        noteEmptyTimeline(track, stack);
    addTransitions(stretches, m_plan, m_notes);
}

void OtioPlanner::addShot(const OtioPlaced &placed, const Frames &frames, bool isEnabled)
{
    const OtioNode &node = *placed.node;
    OtioShotPlan shot;
    shot.name = node.name;
    shot.enabled = noteEnabled(node, isEnabled);
    shot.firstFrameBetweenCuts = shot.firstFrame = heldFrame(frames.first + 1);
    shot.lastFrameBetweenCuts = shot.lastFrame = heldFrame(frames.end);
    takeShotNames(node, shot);
    if (node.isComposition())
        addPanels(placed, frames, shot);
    else
        shot.panels.push_back({QString(), /*enabled*/ true, 1, shot.frameCount(), {}});
    m_plan.shots.push_back(std::move(shot));
}

// Keeps the rest of the metadata as well, since only here it is known what was taken.
void OtioPlanner::takeShotNames(const OtioNode &node, OtioShotPlan &shot)
{
    QJsonObject metadata = node.metadata;
    QJsonObject own = metadata.value(kPlotka).toObject();
    const auto take = [&](const QString &key, QString &name) {
        if (!own.value(key).isString())
            return;
        const QString text = own.take(key).toString();
        name = OtioText::storable(text);
        if (name != text) {
            m_notes.change(
                "bad-characters", node.place, OtioText::tr("its %1 loses characters that no text can hold").arg(key));
        }
    };
    take(kAct, shot.act);
    take(kSequence, shot.sequence);
    if (metadata.value(kPlotka).isObject() && own.isEmpty())
        metadata.remove(kPlotka);
    m_keeper.keep(node, metadata, QString(), OtioKeeper::NameHasPlace, shot.records);
}

void OtioPlanner::addPanels(const OtioPlaced &nested, const Frames &frames, OtioShotPlan &shot)
{
    const OtioNode &node = *nested.node;
    const OtioWindow window = windowOf(nested);
    if (node.kind == OtioNode::Track) {
        if (node.trackKind == OtioNode::Video) {
            m_keeper.keepGaps(node, QString(), shot.records);
            addPanelsOfTrack(node, window, /*isEnabled*/ true, frames, shot); // whether it is, the shot says
        } else {
            m_notes.loss("nested-track", node.place,
                OtioText::tr("a track within a shot has no place unless it is of kind Video"));
        }
    } else {
        const OtioNode *shown = findFirstVideoTrack(node);
        for (const OtioNode &track : node.children) {
            if (&track == shown) {
                keepTrack(track, OtioKeeper::NameHasNone, shot.records);
                const bool isEnabled = noteEnabled(track, true);
                addPanelsOfTrack(track, windowOnChildren(node, window), isEnabled, frames, shot);
            } else if (track.isImplied && track.trackKind == OtioNode::OtherTrack) {
                keepTrack(track, OtioKeeper::NameHasNone, shot.records);
            } else {
                m_notes.loss("nested-track", track.place,
                    OtioText::tr("a shot shows only its first video track; this one is left out"));
            }
        }
    }
    notePanelGaps(node, shot);
}

void OtioPlanner::addPanelsOfTrack(
    const OtioNode &track, const OtioWindow &window, bool isEnabled, const Frames &frames, OtioShotPlan &shot)
{
    const std::vector<Shown> items =
        itemsOf(track, window, "transition-in-shot", OtioText::tr("panels cut; the transition is left out"));
    for (const Shown &item : items) {
        const OtioNode &node = *item.node;
        // The end of a shot may have been cut at the last frame there is.
        const Frames inShot{item.frames.first - frames.first, std::min(item.frames.end, frames.end) - frames.first};
        if (inShot.isEmpty())
            continue;
        if (node.isComposition())
            m_notes.loss(
                "nested-too-deep", node.place, OtioText::tr("it becomes one panel; what it holds has no place"));
        shot.panels.push_back(
            {node.name, noteEnabled(node, isEnabled), heldFrame(inShot.first + 1), heldFrame(inShot.end), {}});
        m_keeper.keep(node, QString(), OtioKeeper::NameHasPlace, shot.panels.back().records);
    }
}

void OtioPlanner::planVideoTrack(const OtioNode &track, const OtioWindow &window, bool isEnabled)
{
    OtioTrackPlan planned;
    planned.name = track.name;
    planned.enabled = isEnabled;
    const std::vector<Shown> items =
        itemsOf(track, window, "transition-on-layer", OtioText::tr("clips of a layer cut; the transition is left out"));
    for (const Shown &item : items) {
        const OtioNode &node = *item.node;
        if (node.isComposition())
            m_notes.loss(
                "nested-on-layer", node.place, OtioText::tr("it becomes one clip; what it holds has no place"));
        planned.clips.push_back({node.name, noteEnabled(node, isEnabled), heldFrame(item.frames.first + 1),
            heldFrame(item.frames.end), {}});
        m_keeper.keep(node, QString(), OtioKeeper::NameHasPlace, planned.clips.back().records);
    }
    m_plan.videoTracks.push_back(std::move(planned));
}

void OtioPlanner::planSoundTrack(const OtioNode &track, const OtioWindow &window, bool isEnabled)
{
    OtioTrackPlan planned;
    planned.name = track.name;
    planned.enabled = isEnabled;
    const std::vector<Shown> items =
        itemsOf(track, window, "transition-in-sound", OtioText::tr("sounds have no transitions; it is left out"));
    for (const Shown &item : items) {
        const OtioNode &node = *item.node;
        if (!node.isEnabled)
            m_notes.loss("disabled-sound", node.place, OtioText::tr("a single sound cannot be disabled"));
        if (node.isComposition())
            m_notes.loss(
                "nested-on-layer", node.place, OtioText::tr("it becomes one sound; what it holds has no place"));
        planned.clips.push_back(
            {node.name, isEnabled && node.isEnabled, heldFrame(item.frames.first + 1), heldFrame(item.frames.end), {}});
        const QString path = OtioKeeper::pathIn(track, OtioKeeper::pathOf(track), node);
        m_keeper.keep(node, path, OtioKeeper::NameHasPlace, m_plan.records);
    }
    m_plan.soundTracks.push_back(std::move(planned));
}

std::vector<OtioPlanner::Shown> OtioPlanner::itemsOf(
    const OtioNode &track, const OtioWindow &window, const char *transitionCode, const QString &transitionMessage)
{
    std::vector<Shown> items;
    for (const OtioPlaced &placed : placeTrack(track, window, m_notes)) {
        const OtioNode &node = *placed.node;
        if (node.kind == OtioNode::Transition) {
            m_notes.loss(transitionCode, node.place, transitionMessage);
            continue;
        }
        const Frames frames = framesOf(placed);
        if (frames.isEmpty() || node.kind == OtioNode::Gap)
            continue;
        items.push_back({&node, frames});
    }
    return items;
}

OtioPlanner::Frames OtioPlanner::framesOf(const OtioPlaced &placed)
{
    const OtioNode &node = *placed.node;
    const bool isGap = node.kind == OtioNode::Gap;
    Frames frames{placed.start.roundedFrame(m_plan.rate), placed.end.roundedFrame(m_plan.rate)};
    if (frames.isEmpty()) {
        if (isGap)
            m_notes.info("no-frame", node.place, OtioText::tr("the gap lasts no whole frame and is left out"));
        else if (node.duration.isZero() && !node.hasSourceRange)
            m_notes.loss(
                "no-length", node.place, OtioText::tr("the file does not tell how long it is; it is left out"));
        else
            m_notes.loss("no-frame", node.place, OtioText::tr("it lasts no whole frame and is left out"));
        return frames;
    }
    if (isGap)
        return frames;
    if (frames.end > lastPossibleFrame) {
        m_notes.loss(
            "too-late", node.place, OtioText::tr("it reaches beyond frame %1 and is cut there").arg(lastPossibleFrame));
        frames.end = lastPossibleFrame;
        frames.first = std::min(frames.first, frames.end);
    }
    if (!placed.start.isWholeFrame(m_plan.rate) || !placed.end.isWholeFrame(m_plan.rate)) {
        m_notes.change("rounded", node.place,
            OtioText::tr("it lasts from %1 to %2 frames, rounded to %3 and %4")
                .arg(positionText(placed.start), positionText(placed.end), QString::number(frames.first),
                    QString::number(frames.end)));
    }
    return frames;
}
