#pragma once

#include "support/PlainTimeline.h"

#include <cstddef>
#include <optional>
#include <vector>

/// Answers every question about a timeline by looking at its blocks one by one. It remembers nothing, so there
/// is nothing in it that could be out of date.
///
/// What is found is told by its place among the blocks.
class TimelineOracle
{
public:
    static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

    /// A shot. One whose scene has gone can be reached by walking; it counts as found and stands nowhere.
    struct Shot {
        bool isFound = false;
        std::size_t block = nowhere;
        bool operator==(const Shot &) const = default;
    };
    struct Panel {
        bool isFound = false;
        std::size_t shot = nowhere;
        std::size_t block = nowhere;
        bool operator==(const Panel &) const = default;
    };
    struct Trans {
        bool isFound = false;
        std::size_t block = nowhere;
        bool operator==(const Trans &) const = default;
    };
    struct Space {
        unsigned int first = 1;
        unsigned int last = 0;
        Shot shot = {};
        bool isFound() const { return first <= last; }
        bool operator==(const Space &) const = default;
    };
    /// Which of two shots counts where a transition shares frames between them.
    enum class Priority { Backward, Forward };

    explicit TimelineOracle(PlainTimeline timeline) : m_blocks(std::move(timeline)) {}

    const PlainTimeline &blocks() const { return m_blocks; }
    /// The last frame that a block covers; 0 without one.
    unsigned int lastCoveredFrame() const { return m_blocks.empty() ? 0 : m_blocks.back().to; }

    /// @name Of what was found
    /// Ids are 0, names empty and frames 0 for what was not found.
    /// @{
    long long idOf(const Shot &shot) const;
    long long idOf(const Panel &panel) const;
    long long idOf(const Trans &trans) const;
    std::string nameOf(const Shot &shot) const;
    std::string nameOf(const Panel &panel) const;
    unsigned int firstFrame(const Shot &shot) const;
    unsigned int lastFrame(const Shot &shot) const;
    unsigned int firstFrame(const Panel &panel) const;
    unsigned int lastFrame(const Panel &panel) const;
    unsigned int firstFrame(const Trans &trans) const;
    unsigned int lastFrame(const Trans &trans) const;
    Shot shotOf(const Panel &panel) const;
    /// @}

    /// @name By frame
    /// @{
    Shot shotAt(unsigned int frame, Priority priority, bool nearest, bool forward) const;
    Panel panelAt(unsigned int frame, Priority priority, bool nearest, bool forward) const;
    Panel panelIn(const Shot &shot, unsigned int shotFrame, bool nearest, bool forward) const;
    Panel counterpartIn(const Shot &shot, const Panel &panel, bool lockedOnly) const;
    Trans transAt(unsigned int frame) const;
    Space spaceAt(unsigned int frame) const;
    /// @}

    /// @name Steps
    /// @{
    Shot firstShot() const;
    Shot lastShot() const;
    Shot next(const Shot &shot) const;
    Shot prev(const Shot &shot) const;
    Panel firstPanel() const;
    Panel lastPanel() const;
    Panel firstInShot(const Panel &panel) const;
    Panel lastInShot(const Panel &panel) const;
    Panel next(const Panel &panel) const;
    Panel prev(const Panel &panel) const;
    Trans firstTrans() const;
    Trans lastTrans() const;
    Trans next(const Trans &trans) const;
    Trans prev(const Trans &trans) const;
    /// @}

    /// @name Walks
    /// From the first to the last that can be reached.
    /// @{
    std::vector<Shot> shots() const;
    std::vector<Panel> panels() const;
    std::vector<Trans> transitions() const;
    /// From the shot's first panel until the one after its last.
    std::vector<Panel> panelsIn(const Shot &shot) const;
    /// @}

    /// @name By id and name
    /// What a walk finds.
    /// @{
    Shot shotById(long long id) const;
    Panel panelById(long long id) const;
    Trans transById(long long id) const;
    Shot shotByName(const std::string &name) const;
    /// @}

    /// @name Neighbours
    /// @{
    bool isFollowedByTrans(const Panel &panel, Trans *trans = nullptr) const;
    bool isPrecededByTrans(const Panel &panel, Trans *trans = nullptr) const;
    bool isFollowedByTrans(const Shot &shot, Trans *trans = nullptr) const;
    bool isPrecededByTrans(const Shot &shot, Trans *trans = nullptr) const;
    Space spaceAfter(const Panel &panel) const { return spaceAt(lastFrame(panel) + 1); }
    Space spaceBefore(const Panel &panel) const { return spaceAt(firstFrame(panel) - 1); }
    Space spaceAfter(const Shot &shot) const { return spaceAt(lastFrame(shot) + 1); }
    Space spaceBefore(const Shot &shot) const { return spaceAt(firstFrame(shot) - 1); }
    bool neighborIsOfSameScene(const Panel &first, const Panel &second) const;
    /// @}

    /// Panels of the shot by its blocks and its time warp.
    unsigned int panelCountOf(const Shot &shot) const;
    /// Ids from @p a to @p b, or strictly between them; nothing when the walk ends before it comes to its end.
    std::optional<std::vector<long long>> panelIdsBetween(const Panel &a, const Panel &b, bool inclusive) const;
    std::optional<std::vector<long long>> panelIdsIn(const Shot &shot) const;

private:
    const PlainBlock &at(const Shot &shot) const { return m_blocks[shot.block]; }
    const PlainBlock &at(const Panel &panel) const { return m_blocks[panel.shot].track[panel.block]; }
    unsigned int tvFrameOf(const Shot &shot, unsigned int shotFrame) const;
    Trans transFrom(std::size_t block, bool backward) const;

    PlainTimeline m_blocks;
};

/// A walk over objects and the transitions between them, stepped like the project's iterators.
template <typename Object>
struct OracleTransWalk {
    const TimelineOracle *oracle;
    Object current;
    TimelineOracle::Trans trans = {};
    bool transIsAfter = true;

    void stepForward();
    void stepBackward();
    void toFirst();
    void toLast();
    /// Of the transition it stands on, else of the object.
    long long id() const;
};

/// A walk by panels that stands on a transition.
OracleTransWalk<TimelineOracle::Panel> walkAtTransition(
    const TimelineOracle &oracle, const TimelineOracle::Trans &trans);
