#include "interchange/otio/OtioPlanner_p.h"

#include "interchange/ImportNotes_p.h"

void OtioPlanner::noteEmptyTimeline(const OtioNode &track)
{
    if (!track.hasSourceRange) {
        m_notes.change(
            "empty-timeline", track.place, OtioText::tr("no item of it makes a shot: the storyboard is empty"));
        return;
    }
    m_notes.change("empty-timeline", track.place,
        OtioText::tr("no item of it makes a shot in its source range, %1 frames from %2: the storyboard is empty")
            .arg(positionText(track.duration), positionText(track.sourceStart)));
}

void OtioPlanner::notePanelGaps(const OtioNode &node, const OtioShotPlan &shot)
{
    if (shot.panels.empty()) {
        m_notes.change("empty-shot", node.place, OtioText::tr("the shot has no panel"));
        return;
    }
    if (shot.panels.front().firstFrame > 1)
        m_notes.info("gap-at-shot-edge", node.place, OtioText::tr("the shot begins with a gap"));
    if (shot.panels.back().lastFrame < shot.frameCount())
        m_notes.info("gap-at-shot-edge", node.place, OtioText::tr("the shot ends with a gap"));
}

bool OtioPlanner::noteEnabled(const OtioNode &node, bool isEnabled)
{
    if (!node.isEnabled)
        m_notes.info(
            "disabled", node.place, OtioText::tr("it is disabled, which its scenes or sounds are marked with"));
    return isEnabled && node.isEnabled;
}

void OtioPlanner::noteTrack(const OtioNode &track)
{
    if (!track.isImplied)
        noteRemainder(track);
    noteGaps(track);
}

void OtioPlanner::noteGaps(const OtioNode &track)
{
    for (const OtioNode &node : track.children) {
        if (node.kind != OtioNode::Gap)
            continue;
        noteName(node);
        noteRemainder(node);
    }
}

void OtioPlanner::noteName(const OtioNode &node)
{
    if (!node.name.isEmpty())
        m_notes.info("name-without-place", node.place, OtioText::tr("its name has no place"));
}

void OtioPlanner::noteRemainder(const OtioNode &node, const QJsonObject &metadata)
{
    if (node.markerCount > 0)
        m_notes.loss("markers", node.place, OtioText::tr("markers have no place: %1").arg(node.markerCount));
    if (!node.effects.isEmpty()) {
        m_notes.loss("effects", node.place,
            OtioText::tr("effects have no place: %1").arg(OtioText::brief(node.effects.join(QStringLiteral(", ")))));
    }
    if (!metadata.isEmpty()) {
        m_notes.loss("metadata", node.place,
            OtioText::tr("metadata has no place: %1").arg(OtioText::brief(metadata.keys().join(QStringLiteral(", ")))));
    }
    if (!node.media.isEmpty()) {
        m_notes.loss("media-reference", node.place,
            OtioText::tr("media has no place: %1").arg(OtioText::brief(node.media.join(QStringLiteral(", ")), 240)));
    }
    if (node.kind == OtioNode::Clip && !node.sourceStart.isZero()) {
        m_notes.loss("source-in-point", node.place,
            OtioText::tr("that it begins %1 frames into its media has no place").arg(positionText(node.sourceStart)));
    }
    if (!node.otherFields.isEmpty()) {
        m_notes.loss("unknown-field", node.place,
            OtioText::tr("fields without a place: %1")
                .arg(OtioText::brief(node.otherFields.join(QStringLiteral(", ")))));
    }
}

QString OtioPlanner::positionText(const OtioTime &time) const
{
    return QString::number(time.inUnits({m_plan.rate.numerator(), m_plan.rate.denominator()}), 'f', 3);
}
