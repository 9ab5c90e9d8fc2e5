#include "FlatTimeline.h"

#include "BigProject.h"

#include <algorithm>
#include <map>

FlatTimeline::FlatTimeline(unsigned int panels)
{
    unsigned int shotFrames = 0;
    for (const unsigned int length : BigProject::panelLengths(panels)) {
        if (m_panelFirstFrames.size() % BigProject::panelsPerShot == 0) {
            m_shotFirstFrames.push_back(m_frameCount + 1);
            m_shotFirstPanels.push_back(m_panelFirstFrames.size());
            shotFrames = 0;
        }
        m_panelFirstFrames.push_back(shotFrames + 1);
        shotFrames += length;
        m_frameCount += length;
    }
    m_shotFirstPanels.push_back(m_panelFirstFrames.size());
}

const FlatTimeline &FlatTimeline::ofSize(unsigned int panels)
{
    static std::map<unsigned int, FlatTimeline> made;
    return made.try_emplace(panels, panels).first->second;
}

std::size_t FlatTimeline::panelAt(unsigned int frame) const
{
    const auto afterShot = std::upper_bound(m_shotFirstFrames.begin(), m_shotFirstFrames.end(), frame);
    const std::size_t shot = std::size_t(afterShot - m_shotFirstFrames.begin()) - 1;
    const auto first = m_panelFirstFrames.begin() + std::ptrdiff_t(m_shotFirstPanels[shot]);
    const auto end = m_panelFirstFrames.begin() + std::ptrdiff_t(m_shotFirstPanels[shot + 1]);
    const auto afterPanel = std::upper_bound(first, end, frame - m_shotFirstFrames[shot] + 1);
    return std::size_t(afterPanel - m_panelFirstFrames.begin()) - 1;
}
