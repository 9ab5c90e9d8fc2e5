#pragma once

#include "project/Panel_t.h"

namespace Plotka
{

/// While it lives, a panel searches its block once for several questions. Puts back what it found.
class PLOTKA_EXPORT PanelCacheScope
{
public:
    /// @p panel outlives the scope.
    explicit PanelCacheScope(const Panel_t &panel);
    PanelCacheScope(const PanelCacheScope &) = delete;
    PanelCacheScope &operator=(const PanelCacheScope &) = delete;
    ~PanelCacheScope();

private:
    const Panel_t *m_panel;
    bool m_previous;
};

} // namespace Plotka
