#pragma once

#include "interchange/otio/OtioKeeper_p.h"
#include "interchange/otio/OtioLayout_p.h"
#include "interchange/otio/OtioPlan.h"
#include "interchange/otio/OtioTransitions_p.h"

class ImportNotes;
struct LooseJson;

/// Turns a cut into the plan of a storyboard, and notes all that has no place there.
class OtioPlanner
{
public:
    static constexpr qint64 lastPossibleFrame = 2147483647;

    /// Both are borrowed; @p source is what the cut was read of.
    OtioPlanner(const LooseJson &source, ImportNotes &notes) : m_notes(notes), m_keeper(source, m_plan.rate, notes) {}

    /// A null @p wantedRate takes the rate of the cut.
    OtioPlan plan(const OtioCut &cut, const UT_FrameRate *wantedRate);

private:
    /// Frames from 0, half-open; empty when there is none.
    struct Frames {
        qint64 first = 0;
        qint64 end = 0;
        bool isEmpty() const { return first >= end; }
    };

    struct Shown {
        const OtioNode *node = nullptr;
        Frames frames;
    };

    void chooseRate(const OtioCut &cut);
    void planStart(const OtioCut &cut);
    void planTimeline(const OtioNode &track, const OtioNode &stack, const OtioWindow &window, bool isEnabled);
    void planVideoTrack(const OtioNode &track, const OtioWindow &window, bool isEnabled);
    void planSoundTrack(const OtioNode &track, const OtioWindow &window, bool isEnabled);

    void addShot(const OtioPlaced &placed, const Frames &frames, bool isEnabled);
    void takeShotNames(const OtioNode &node, OtioShotPlan &shot);
    void addPanels(const OtioPlaced &nested, const Frames &frames, OtioShotPlan &shot);
    void addPanelsOfTrack(
        const OtioNode &track, const OtioWindow &window, bool isEnabled, const Frames &frames, OtioShotPlan &shot);
    void notePanelGaps(const OtioNode &node, const OtioShotPlan &shot);

    /// The clips, tracks and stacks that a track shows where transitions have no place, which this note then says.
    std::vector<Shown> itemsOf(
        const OtioNode &track, const OtioWindow &window, const char *transitionCode, const QString &transitionMessage);
    /// Whole frames of an item; notes rounding, and what has no frame or lies too late.
    Frames framesOf(const OtioPlaced &placed);
    bool noteEnabled(const OtioNode &node, bool isEnabled);

    void noteEmptyTimeline(const OtioNode &track, const OtioNode &stack);

    /// What the cut carries around its tracks.
    void keepFrame(const OtioCut &cut);
    /// What @p track and its gaps carry.
    void keepTrack(const OtioNode &track, OtioKeeper::Name name, OtioKeeper::Records &records);

    /// A time in frames, for messages.
    QString positionText(const OtioTime &time) const;

    ImportNotes &m_notes;
    OtioPlan m_plan;
    OtioKeeper m_keeper;
};
