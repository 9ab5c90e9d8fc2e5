#include "interchange/otio/OtioTransitions_p.h"

#include "interchange/ImportNotes_p.h"

#include <algorithm>

namespace
{

// Works in frames from 0 and half-open ranges, in 64 bits.
class TransitionResolver
{
public:
    TransitionResolver(const std::vector<OtioStretch> &stretches, OtioPlan &plan, ImportNotes &notes) :
        m_stretches(stretches), m_plan(plan), m_notes(notes)
    {
    }

    void run()
    {
        findFollowing();
        for (std::size_t i = 0; i < m_stretches.size(); ++i) {
            const OtioStretch &stretch = m_stretches[i];
            if (stretch.kind == OtioStretch::Transition) {
                resolve(stretch, m_following[i]);
            } else if (stretch.kind == OtioStretch::Nothing) {
                m_isBesideNothing = true;
            } else {
                m_last = &stretch;
                m_isBesideNothing = false;
            }
        }
    }

private:
    /// What comes after a stretch, over transitions.
    struct Following {
        const OtioStretch *content = nullptr; ///< the next shot or gap that has frames; null: none
        bool isNothingFirst = false;          ///< something that is left out stands before it
    };

    // Once, from the end: a run of transitions would else be walked for each of them.
    void findFollowing()
    {
        m_following.resize(m_stretches.size());
        Following following;
        for (std::size_t i = m_stretches.size(); i-- > 0;) {
            m_following[i] = following;
            if (m_stretches[i].kind == OtioStretch::Nothing)
                following.isNothingFirst = true;
            else if (m_stretches[i].kind != OtioStretch::Transition)
                following = {&m_stretches[i], false};
        }
    }

    void resolve(const OtioStretch &transition, const Following &following)
    {
        const OtioStretch *next = following.content;
        const QString &place = transition.node->place;
        if (!m_last || !next) {
            m_notes.loss(
                "transition-at-edge", place, OtioText::tr("it stands at the edge of its track and is left out"));
            return;
        }
        if (m_last->kind == OtioStretch::Gap || next->kind == OtioStretch::Gap || !touch(m_last->shot, next->shot)) {
            m_notes.loss("transition-beside-gap", place, OtioText::tr("it stands beside a gap and is left out"));
            return;
        }
        if (!m_plan.transitions.empty() && m_plan.transitions.back().before == m_last->shot) {
            m_notes.loss(
                "transition-doubled", place, OtioText::tr("the cut has a transition already; this one is left out"));
            return;
        }
        add(transition, m_last->shot, m_isBesideNothing || following.isNothingFirst);
    }

    void add(const OtioStretch &transition, unsigned int before, bool isMoved)
    {
        const OtioNode &node = *transition.node;
        const OtioShotPlan &earlier = m_plan.shots[before];
        const OtioShotPlan &later = m_plan.shots[before + 1];
        const qint64 cut = qint64(later.firstFrameBetweenCuts) - 1;
        const qint64 wantedBefore = cut - (transition.cut - node.inOffset).roundedFrame(m_plan.rate);
        const qint64 wantedAfter = (transition.cut + node.outOffset).roundedFrame(m_plan.rate) - cut;
        if (wantedBefore <= 0 && wantedAfter <= 0) {
            m_notes.loss("transition-no-frame", node.place, OtioText::tr("it lasts no whole frame and is left out"));
            return;
        }

        const bool hasOther = !m_plan.transitions.empty() && m_plan.transitions.back().before + 1 == before;
        const qint64 taken = hasOther ? m_plan.transitions.back().framesAfterCut : 0;
        const qint64 roomBefore = cut - (qint64(earlier.firstFrameBetweenCuts) - 1) - taken - 1;
        const qint64 roomAfter = qint64(later.lastFrameBetweenCuts) - cut - 1;
        const qint64 framesBefore = std::clamp<qint64>(wantedBefore, 0, roomBefore);
        const qint64 framesAfter = std::clamp<qint64>(wantedAfter, 0, roomAfter);
        if (framesBefore == 0 && framesAfter == 0) {
            m_notes.loss("transition-no-room", node.place,
                OtioText::tr("the shots beside it have no frame to spare; it is left out"));
            return;
        }
        if (framesBefore < wantedBefore || framesAfter < wantedAfter) {
            m_notes.change("transition-shortened", node.place,
                OtioText::tr("it would leave a shot no frame of its own or meet another: %1+%2 frames become %3+%4")
                    .arg(QString::number(wantedBefore), QString::number(wantedAfter), QString::number(framesBefore),
                        QString::number(framesAfter)));
        }

        if (isMoved) {
            m_notes.change("transition-moved", node.place,
                OtioText::tr("what stands beside it lasts no frame and is left out; it joins the shots that are left"));
        }

        OtioTransitionPlan planned;
        planned.before = before;
        planned.cutFrame = later.firstFrameBetweenCuts;
        planned.framesBeforeCut = static_cast<unsigned int>(framesBefore);
        planned.framesAfterCut = static_cast<unsigned int>(framesAfter);
        m_plan.transitions.push_back(planned);
        growTail(m_plan.shots[before], planned.framesAfterCut);
        growHead(m_plan.shots[before + 1], planned.framesBeforeCut);
    }

    void growTail(OtioShotPlan &shot, unsigned int frames)
    {
        shot.lastFrame += frames;
        if (!shot.panels.empty())
            shot.panels.back().lastFrame += frames;
    }

    // The first panel grows where it begins; frames of a shot count from its new head, so all else moves.
    void growHead(OtioShotPlan &shot, unsigned int frames)
    {
        shot.firstFrame -= frames;
        for (OtioPanelPlan &panel : shot.panels) {
            panel.firstFrame += frames;
            panel.lastFrame += frames;
        }
        if (!shot.panels.empty())
            shot.panels.front().firstFrame -= frames;
    }

    bool touch(unsigned int earlier, unsigned int later) const
    {
        return m_plan.shots[earlier].lastFrameBetweenCuts + 1 == m_plan.shots[later].firstFrameBetweenCuts;
    }

    const std::vector<OtioStretch> &m_stretches;
    OtioPlan &m_plan;
    ImportNotes &m_notes;
    std::vector<Following> m_following;  ///< of each stretch
    const OtioStretch *m_last = nullptr; ///< the last shot or gap with frames
    bool m_isBesideNothing = false;      ///< since then something was left out
};

} // namespace

void addTransitions(const std::vector<OtioStretch> &stretches, OtioPlan &plan, ImportNotes &notes)
{
    TransitionResolver(stretches, plan, notes).run();
}
