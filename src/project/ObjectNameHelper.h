#pragma once

#include "plotka_export.h"
#include "scene/base/UT_SharedWeakPtr.h"

#include <QString>

namespace Plotka
{

class Panel_t;
class Shot_t;

/// Makes up the names of panels and shots that have none of their own.
class PLOTKA_EXPORT ObjectNameHelper
{
public:
    ObjectNameHelper() = default;
    ObjectNameHelper(const ObjectNameHelper &) = delete;
    ObjectNameHelper &operator=(const ObjectNameHelper &) = delete;
    virtual ~ObjectNameHelper();

    virtual QString getPanelName(const Panel_t &panel) const = 0;
    virtual QString getSceneName(const Shot_t &shot) const = 0;

private:
    friend class NameHelperRef;

    UT_SharedWeakBase m_alive;
};

/// A helper that may die before the handles that know it; it then reads as none.
class PLOTKA_EXPORT NameHelperRef
{
public:
    NameHelperRef() = default;
    explicit NameHelperRef(const ObjectNameHelper *helper) :
        m_helper(helper), m_alive(helper ? &helper->m_alive : nullptr)
    {
    }

    const ObjectNameHelper *get() const { return m_alive ? m_helper : nullptr; }

private:
    const ObjectNameHelper *m_helper = nullptr;
    UT_SharedWeakPtr<UT_SharedWeakBase> m_alive;
};

} // namespace Plotka
