#pragma once

#include "support/TimelineText.h"

#include <functional>
#include <random>

/// A small timeline of anything the notation knows: gaps between and inside shots and at both ends, transitions, time warps,
/// deleted scenes, blocks that hold nothing. Shots start at frame 1 of their panels or later.
TimelineText randomTimeline(std::mt19937 &random);

/// Leaves out the transitions that cannot stand where they are: not between two shots, or without a frame left to each.
TimelineText buildable(TimelineText timeline);

/// The smallest timeline found, by leaving out and simplifying, that still fails.
TimelineText shrink(TimelineText timeline, const std::function<bool(const TimelineText &)> &fails);
