#include "project/TimelineWalk_p.h"

#include "project/PKC_PlotkaProject.h"
#include "scene/project/SC_ProjectCommon.h"
#include "scene/project/TUScene.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "scene/timeline/TimelineSearches.h"

namespace Plotka
{

namespace
{

std::size_t blockCount(const PKC_PlotkaProject *project, const Shot_t &)
{
    const TUSeqTimedValue *timeline = project->topMainTv();
    return timeline ? timeline->blockCount() : 0;
}

std::size_t blockCount(const PKC_PlotkaProject *project, const Panel_t &)
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

bool leadsOn(const Shot_t &from, const Shot_t &to)
{
    return to.firstFrame() > from.firstFrame();
}

// By blocks, not by project frames: the last panel of a shot may begin inside a transition, after the first panel of
// the next shot does.
bool leadsOn(const Panel_t &from, const Panel_t &to)
{
    return from.shot() == to.shot() ? to.frameBlock().fromFrame() > from.frameBlock().fromFrame()
                                    : leadsOn(from.shot(), to.shot());
}

} // namespace

template <typename T>
TimelineWalk<T>::TimelineWalk(const PKC_PlotkaProject *project) :
    TimelineWalk(project, project ? project->first(T()) : T())
{
}

template <typename T>
TimelineWalk<T>::TimelineWalk(const PKC_PlotkaProject *project, const T &from) : m_project(project), m_current(from)
{
}

template <typename T>
void TimelineWalk<T>::step()
{
    const T next = m_project && ++m_steps < m_bound ? m_project->next(m_current) : T();
    if (next.isValid() && m_bound == std::numeric_limits<std::size_t>::max() && !leadsOn(m_current, next))
        m_bound = blockCount(m_project, next);
    m_current = m_steps < m_bound ? next : T();
}

template class TimelineWalk<Panel_t>;
template class TimelineWalk<Shot_t>;

} // namespace Plotka
