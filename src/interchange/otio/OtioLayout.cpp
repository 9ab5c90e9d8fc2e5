#include "interchange/otio/OtioLayout_p.h"

#include "interchange/ImportNotes_p.h"

#include <algorithm>

namespace
{

void noteTrim(const OtioNode &node, bool isGone, ImportNotes &notes)
{
    if (node.kind == OtioNode::Gap)
        return; // time without content: nothing of it is missed
    if (isGone)
        notes.loss("trimmed-away", node.place, OtioText::tr("it lies outside the range that is shown and is left out"));
    else
        notes.change("trimmed", node.place, OtioText::tr("only a part of it lies in the range that is shown"));
}

} // namespace

std::vector<OtioPlaced> placeTrack(const OtioNode &track, const OtioWindow &window, ImportNotes &notes)
{
    std::vector<OtioPlaced> placed;
    const OtioTime from = std::max(window.from, OtioTime());
    const OtioTime to = std::min(window.to, track.duration);
    const OtioTime shift = window.at - window.from;
    OtioTime itemStart = OtioTime() - track.sourceStart;
    for (const OtioNode &node : track.children) {
        const bool isTransition = node.kind == OtioNode::Transition;
        const OtioTime itemEnd = isTransition ? itemStart : itemStart + node.duration;
        const OtioTime start = std::max(itemStart, from);
        const OtioTime end = std::min(itemEnd, to);
        // What has no length of its own stays, at the edges too, to be told of later.
        const bool isGone = node.duration.isZero() ? itemStart < from || itemStart > to : start >= end;
        if (isGone)
            noteTrim(node, true, notes);
        else if (start != itemStart || end != itemEnd)
            noteTrim(node, false, notes);
        if (!isGone)
            placed.push_back({&node, start + shift, end + shift, start - itemStart});
        itemStart = itemEnd;
    }
    return placed;
}

OtioWindow windowOf(const OtioPlaced &nested)
{
    return {nested.headTrim, nested.headTrim + (nested.end - nested.start), nested.start};
}

OtioWindow windowOnChildren(const OtioNode &stack, const OtioWindow &window)
{
    return {window.from + stack.sourceStart, window.to + stack.sourceStart, window.at};
}
