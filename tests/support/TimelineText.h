#pragma once

#include <string>
#include <vector>

// The notation in which tests write timelines, as values. Words are separated by blanks and stand in
// timeline order from frame 1:
//
//     A(24,12)             shot A with panels of 24 and 12 frames
//     A(-3,24,-5,12,-2)    gaps among its panels, here also at both ends
//     A(p=24,q!=12)        panels with custom names, the second one locked
//     A@20(24,12)          the shot lasts 20 frames, whatever its panels do
//     A[5..28](40)         it shows frames 5 to 28 of its panels, and so lasts 24
//     A[1..40]@10(40)      those 40 frames pass in 10
//     A[]@36(24,12)        placed without a time warp
//     A(24[3..14],12[])    panels with a time warp of their own, and without one
//     A(24,12gone,6?)      a panel whose scene has been deleted, a block that holds nothing
//     A@24(gone) A@24(bare) A@24()
//                          a shot whose scene has been deleted, or has no timed value, or no panels
//     (24)                 a shot without a name of its own
//     ?24 %24              a block that holds nothing, or a sequence that is no scene and no transition
//     -10-                 a gap of 10 frames
//     ~4+6~                a transition from 4 frames before the cut to 6 after it
//
// A shot and a panel have a time warp from 1 to their length unless another is given. What stands in
// parentheses is all that a shot holds: the two shots at a transition share its frames, so that
// "A(20) ~2+3~ B(10)" is A over 1-20, the transition over 16-20 and B over 16-25.

/// A time warp as written: none said, "[]", or "[start..end]".
struct WarpText {
    enum Kind { ToLength, None, Given } kind = ToLength;
    double start = 1.0;
    double end = 1.0;
};

/// What a block holds.
enum class Holds {
    Scene,
    BareScene, ///< a scene without a timed value
    GoneScene, ///< a scene that has been deleted
    OtherSequence,
    Nothing
};

/// A panel of a shot, or a gap among its panels.
struct PanelText {
    unsigned int frames = 1;
    bool isGap = false;
    Holds holds = Holds::Scene;
    WarpText warp;
    std::string name;
    bool locked = false;
};

/// A word: a shot, a gap, a transition or another block.
struct ElementText {
    enum Kind { Shot, Gap, Transition } kind = Shot;
    Holds holds = Holds::Scene;
    std::string name;
    WarpText warp;
    unsigned int frames = 0; ///< 0 on a shot: as its warp or its panels say
    std::vector<PanelText> panels;
    unsigned int framesBeforeCut = 0;
    unsigned int framesAfterCut = 0;

    /// The frames a shot covers, those it shares included.
    unsigned int length() const;
};

using TimelineText = std::vector<ElementText>;

/// Stops the test program with a message when the text is not of the notation.
TimelineText parseTimeline(const std::string &text);

/// Parsing what this prints gives the same value.
std::string toString(const TimelineText &timeline);
