#include "project/PKC_PlotkaProject.h"

#include "project/PKC_PlotkaProject_p.h"
#include "project/TimelineWalk_p.h"

#include <algorithm>
#include <stdexcept>

using namespace Plotka;

namespace
{

/// The object @p steps further on, invalid past the end.
template <typename T>
T objectAfter(TimelineWalk<T> walk, unsigned int steps)
{
    for (; steps > 0 && !walk.isAtEnd(); --steps)
        walk.step();
    return walk.isAtEnd() ? T() : walk.current();
}

} // namespace

Shot_t PKC_PlotkaProject::getShotByID(const SC_Id &id) const
{
    if (!topMainTv()) // first: a timeline chosen anew drops what is remembered
        return Shot_t();
    if (ShotPrivate *const known = d->caches.shots.find(id))
        return Shot_t(known);
    for (ShotWalk walk(this); !walk.isAtEnd(); walk.step()) {
        if (walk.current().id() == id)
            return walk.current();
    }
    return Shot_t();
}

Panel_t PKC_PlotkaProject::getPanelByID(const SC_Id &id) const
{
    if (!topMainTv()) // first, as for shots
        return Panel_t();
    if (PanelPrivate *const *known = d->caches.panels.find(id))
        return Panel_t(*known);
    for (PanelWalk walk(this); !walk.isAtEnd(); walk.step()) {
        if (walk.current().id() == id)
            return walk.current();
    }
    return Panel_t();
}

Trans_t PKC_PlotkaProject::getTransByID(const SC_Id &id) const
{
    if (!topMainTv())
        return Trans_t();
    if (TransPrivate *const known = d->caches.transitions.find(id))
        return Trans_t(known);
    for (auto transition = beginTrans(); transition != endTrans(); ++transition) {
        if (transition->id() == id)
            return *transition;
    }
    return Trans_t();
}

PanelTrans_t PKC_PlotkaProject::getPanelTransById(const SC_Id &id) const
{
    const Trans_t transition = getTransByID(id);
    return transition.isValid() ? PanelTrans_t(transition) : PanelTrans_t(getPanelByID(id));
}

objTransIterator<Panel_t> PKC_PlotkaProject::panelTransById(const SC_Id &id) const
{
    const Trans_t transition = getTransByID(id);
    if (transition.isValid())
        return {this, transition};
    return {this, getPanelByID(id)};
}

bool PKC_PlotkaProject::isShotValid(const SC_Id &id) const
{
    return getShotByID(id).isValid();
}

bool PKC_PlotkaProject::isPanelValid(const SC_Id &id) const
{
    return getPanelByID(id).isValid();
}

bool PKC_PlotkaProject::isTransValid(const SC_Id &id) const
{
    return getTransByID(id).isValid();
}

Shot_t PKC_PlotkaProject::getShotByNdx(unsigned int index) const
{
    return objectAfter(ShotWalk(this), index);
}

Panel_t PKC_PlotkaProject::getPanelByNdx(unsigned int index) const
{
    return objectAfter(PanelWalk(this), index);
}

Trans_t PKC_PlotkaProject::getTransByNdx(unsigned int index) const
{
    auto transition = beginTrans();
    for (; index > 0 && transition != endTrans(); --index)
        ++transition;
    return *transition;
}

unsigned int PKC_PlotkaProject::getShotNdx(const Shot_t &shot) const
{
    unsigned int index = 0;
    for (ShotWalk walk(this); !walk.isAtEnd(); walk.step(), ++index) {
        if (walk.current() == shot)
            return index;
    }
    return invalidNdx;
}

unsigned int PKC_PlotkaProject::getShotNdx(const QString &name) const
{
    unsigned int index = 0;
    for (ShotWalk walk(this); !walk.isAtEnd(); walk.step(), ++index) {
        if (walk.current().name() == name)
            return index;
    }
    return invalidNdx;
}

unsigned int PKC_PlotkaProject::getPanelNdx(const Panel_t &panel, bool inShot) const
{
    PanelWalk walk = inShot ? PanelWalk(this, firstInShot(panel)) : PanelWalk(this);
    const Panel_t end = inShot ? *endPanel(panel.shot()) : Panel_t();
    for (unsigned int index = 0; !walk.isAtEnd() && walk.current() != end; walk.step(), ++index) {
        if (walk.current() == panel)
            return index;
    }
    return invalidNdx;
}

Shot_t PKC_PlotkaProject::getShotByName(const QString &name, const QString &sequence, bool upperCase) const
{
    const auto matches = [upperCase](const QString &own, const QString &asked) {
        return own == asked || (upperCase && own.toUpper() == asked);
    };
    for (ShotWalk walk(this); !walk.isAtEnd(); walk.step()) {
        const Shot_t &shot = walk.current();
        if ((sequence.isEmpty() || matches(shot.sequenceName(), sequence)) && matches(shot.name(), name))
            return shot;
    }
    return Shot_t();
}

std::list<SC_Id> PKC_PlotkaProject::panelsIdBetween(const Panel_t &a, const Panel_t &b, bool inclusive) const
{
    if (a.isInvalid() || b.isInvalid() || (a == b && !inclusive) || !topMainTv())
        return {};
    const Panel_t end = inclusive ? next(b) : b;
    std::list<SC_Id> ids;
    for (PanelWalk walk(this, inclusive ? a : next(a)); walk.current() != end; walk.step()) {
        // Past the last panel the walk would go on for ever.
        if (walk.current().isInvalid())
            throw std::length_error("list too long");
        ids.push_back(walk.current().id());
    }
    return ids;
}

std::list<SC_Id> PKC_PlotkaProject::panelsIdIn(const Shot_t &shot) const
{
    return panelsIdBetween(getPanelIn(shot, 1, /*nearest*/ true, /*forward*/ true),
        getPanelIn(shot, shot.objNumOfFrame(), /*nearest*/ true, /*forward*/ true), /*inclusive*/ true);
}

bool PKC_PlotkaProject::areAllPanelsOfSameScene(const std::vector<SC_Id> &ids) const
{
    if (ids.empty())
        return true;
    const Shot_t shot = getPanelByID(ids.front()).shot();
    return std::all_of(ids.begin(), ids.end(), [this, &shot](const SC_Id &id) {
        const Panel_t panel = getPanelByID(id);
        return panel.isValid() && panel.shot().isValid() && panel.shot() == shot;
    });
}

bool PKC_PlotkaProject::neighborIsOfSameScene(SC_Id firstId, SC_Id secondId) const
{
    const Panel_t firstPanel = getPanelByID(firstId);
    const Panel_t before = prev(firstPanel);
    if (before.isInvalid())
        return false;
    if (before.shot() == firstPanel.shot())
        return true;
    const Panel_t secondPanel = getPanelByID(secondId);
    const Panel_t after = next(secondPanel);
    return after.isValid() && after.shot() == secondPanel.shot();
}
