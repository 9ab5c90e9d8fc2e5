#include "interchange/otio/OtioPlanner_p.h"

#include "interchange/ImportNotes_p.h"

#include <algorithm>

namespace
{

// True where the source range of a track or stack shows nothing of what it holds.
bool isShownOutside(const OtioNode &composition)
{
    OtioTime length;
    for (const OtioNode &child : composition.children) {
        if (composition.kind == OtioNode::Stack)
            length = std::max(length, child.duration);
        else if (child.kind != OtioNode::Transition)
            length = length + child.duration;
    }
    const OtioTime end = composition.sourceStart + composition.duration;
    return composition.hasSourceRange && !length.isZero() && (composition.sourceStart >= length || end <= OtioTime());
}

} // namespace

void OtioPlanner::noteEmptyTimeline(const OtioNode &track, const OtioNode &stack)
{
    const auto couldBeShot = [](const OtioNode &node) { return node.kind == OtioNode::Clip || node.isComposition(); };
    const bool hadShots = std::any_of(track.children.begin(), track.children.end(), couldBeShot);
    const OtioNode *outside = isShownOutside(track) ? &track : isShownOutside(stack) ? &stack : nullptr;
    QString text = OtioText::tr("no item of it makes a shot: the storyboard is empty");
    if (const OtioNode *ranged = outside ? outside : track.hasSourceRange ? &track : nullptr) {
        text = ranged == &track ? OtioText::tr("no item of it makes a shot in its source range, %1 frames from %2: the "
                                               "storyboard is empty")
                                : OtioText::tr("no item of it makes a shot in the source range of the stack, %1 frames "
                                               "from %2: the storyboard is empty");
        text = text.arg(positionText(ranged->duration), positionText(ranged->sourceStart));
    }
    if (hadShots || outside)
        m_notes.loss("empty-timeline", track.place, text);
    else
        m_notes.change("empty-timeline", track.place, text);
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

void OtioPlanner::keepFrame(const OtioCut &cut)
{
    const OtioNode &stack = cut.stack;
    const bool isNamed = stack.isImplied || cut.name == stack.name;
    m_keeper.keep(cut.timeline, QString(), OtioKeeper::NameHasPlace, m_plan.records);
    m_keeper.keep(cut.collection, QStringLiteral("collection"), OtioKeeper::NameHasNone, m_plan.records);
    m_keeper.keep(
        stack, QStringLiteral("stack"), isNamed ? OtioKeeper::NameHasPlace : OtioKeeper::NameHasNone, m_plan.records);
}

void OtioPlanner::keepTrack(const OtioNode &track, OtioKeeper::Name name, OtioKeeper::Records &records)
{
    const QString path = OtioKeeper::pathOf(track);
    if (!track.isImplied)
        m_keeper.keep(track, path, name, records);
    m_keeper.keepGaps(track, path, records);
}

QString OtioPlanner::positionText(const OtioTime &time) const
{
    return QString::number(time.inUnits({m_plan.rate.numerator(), m_plan.rate.denominator()}), 'f', 3);
}
