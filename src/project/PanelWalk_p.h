#pragma once

#include "project/Panel_t.h"

#include <cstddef>

class PKC_PlotkaProject;

namespace Plotka
{

/// The panels of a project from the first on, or from a given one. A damaged timeline could lead a walk in circles: it ends
/// after as many steps as there are blocks of panels.
class PanelWalk
{
public:
    explicit PanelWalk(const PKC_PlotkaProject *project);
    PanelWalk(const PKC_PlotkaProject *project, const Panel_t &from);

    /// Invalid at the end.
    const Panel_t &panel() const { return m_panel; }
    void step();

private:
    bool isWithinBound();

    const PKC_PlotkaProject *m_project;
    Panel_t m_panel;
    std::size_t m_steps = 0;
    std::size_t m_bound;
    bool m_boundIsExact = false;
};

} // namespace Plotka
