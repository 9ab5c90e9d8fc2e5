#include "project/PanelWalk_p.h"

#include "project/PKC_PlotkaProject.h"
#include "scene/session/SC_ProjectCommon.h"
#include "scene/session/TUScene.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

namespace Plotka
{

namespace
{

/// Short walks need no bound worth counting for.
constexpr std::size_t freeSteps = 64;

std::size_t panelBlockCount(const PKC_PlotkaProject *project)
{
    const TUSeqTimedValue *timeline = project->topMainTv();
    if (!timeline)
        return 0;
    std::size_t count = 0;
    for (auto block = timeline->beginBlock(); block != timeline->endBlock(); ++block) {
        const TUSeqTimedValue *panels = sceneMainTv(sceneOfBlock(project->projectCommon()->sceneManager(), *block));
        count += panels ? panels->blockCount() : 0;
    }
    return count;
}

} // namespace

PanelWalk::PanelWalk(const PKC_PlotkaProject *project) :
    PanelWalk(project, project ? project->first(Panel_t()) : Panel_t())
{
}

PanelWalk::PanelWalk(const PKC_PlotkaProject *project, const Panel_t &from) :
    m_project(project), m_panel(from), m_bound(freeSteps)
{
}

void PanelWalk::step()
{
    ++m_steps;
    m_panel = isWithinBound() ? m_project->next(m_panel) : Panel_t();
}

bool PanelWalk::isWithinBound()
{
    if (m_steps < m_bound)
        return true;
    if (!m_boundIsExact)
        m_bound = panelBlockCount(m_project);
    m_boundIsExact = true;
    return m_steps < m_bound;
}

} // namespace Plotka
