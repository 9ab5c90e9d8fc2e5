#include "project/PanelCacheScope.h"

Plotka::PanelCacheScope::PanelCacheScope(const Panel_t &panel) :
    m_panel(&panel), m_previous(panel.isUsingFrameBlockCache())
{
    panel.useFrameBlockCache(true);
}

Plotka::PanelCacheScope::~PanelCacheScope()
{
    m_panel->useFrameBlockCache(m_previous);
}
