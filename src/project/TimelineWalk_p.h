#pragma once

#include "project/Panel_t.h"

#include <cstddef>
#include <limits>

class PKC_PlotkaProject;

namespace Plotka
{

/// The shots or panels of a project from the first on, or from a given one.
///
/// A damaged timeline could lead a walk in circles: it ends after as many steps as there are blocks. They are
/// counted once a step does not lead to a later block, as every step of a sound timeline does.
template <typename T>
class TimelineWalk
{
public:
    explicit TimelineWalk(const PKC_PlotkaProject *project);
    TimelineWalk(const PKC_PlotkaProject *project, const T &from);

    const T &current() const { return m_current; }
    /// True on the invalid handle and on one without an id, which compares equal to it.
    bool isAtEnd() const { return m_current == T::invalid; }
    void step();

private:
    const PKC_PlotkaProject *m_project;
    T m_current;
    std::size_t m_steps = 0;
    std::size_t m_bound = std::numeric_limits<std::size_t>::max();
};

using PanelWalk = TimelineWalk<Panel_t>;
using ShotWalk = TimelineWalk<Shot_t>;

extern template class TimelineWalk<Panel_t>;
extern template class TimelineWalk<Shot_t>;

} // namespace Plotka
