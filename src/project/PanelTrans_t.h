#pragma once

#include "project/Panel_t.h"
#include "project/Trans_t.h"

#include <memory>

namespace Plotka
{

/// A panel or a transition.
class PLOTKA_EXPORT PanelTrans_t
{
public:
    static const PanelTrans_t invalid;

    PanelTrans_t();
    PanelTrans_t(const Panel_t &panel);
    PanelTrans_t(const Trans_t &transition);
    PanelTrans_t(const PanelTrans_t &other);
    PanelTrans_t &operator=(const PanelTrans_t &other);
    virtual ~PanelTrans_t();

    bool isValid() const { return isPanel() || isTrans(); }
    bool isInvalid() const { return !isValid(); }
    bool isPanel() const { return panel().isValid(); }
    bool isTrans() const { return trans().isValid(); }

    /// The invalid handle when it is not of that kind.
    const Panel_t &panel() const;
    const Trans_t &trans() const;

    /// That of the transition, else of the panel.
    const SC_Id &id() const;
    QString name() const;

    bool operator==(const PanelTrans_t &other) const;
    bool operator!=(const PanelTrans_t &other) const { return !(*this == other); }
    bool operator==(const Panel_t &other) const { return panel() == other; }
    bool operator!=(const Panel_t &other) const { return panel() != other; }
    bool operator==(const Trans_t &other) const { return trans() == other; }
    bool operator!=(const Trans_t &other) const { return trans() != other; }

    /// @name Place
    /// Those of the transition, else of the panel; the frames are project frames.
    /// @{
    const AT_FrameBlock &frameBlock() const;
    unsigned int firstFrame() const;
    unsigned int lastFrame() const;
    /// lastFrame() + 1 - firstFrame().
    unsigned int objNumOfFrame() const;
    /// @}

private:
    struct Body;
    std::unique_ptr<Body> m_body;
};

} // namespace Plotka
