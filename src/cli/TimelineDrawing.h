#pragma once

#include <QStringList>

struct TimelineListing;

/// A picture of a timeline in rows of characters, scaled to a width: frame numbers, acts if there are any, shots, and
/// panels.
///
///     frames  1         50        100       150
///     shots   |Opening------xxx-Street-----......|Door------
///     panels  |Wide--|Near---|---|--------       |----..|---
///
/// "|" begins a shot or panel, "x" is a transition, "." a gap. On a crowded timeline, where several things share a
/// column, the last of them is seen.
QStringList drawTimeline(const TimelineListing &listing, int width);
