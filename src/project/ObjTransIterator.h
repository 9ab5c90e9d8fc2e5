#pragma once

#include "plotka_export.h"
#include "project/PanelTrans_t.h"
#include "project/Panel_t.h"
#include "project/Trans_t.h"

#include <QPointer>

class PKC_PlotkaProject;

namespace Plotka
{

/// Walks panels or shots and the transitions between them, stopping once on each transition.
///
/// It stands on an object, or on a transition that lies after or before that object.
template <typename T>
class PLOTKA_EXPORT objTransIterator
{
public:
    objTransIterator() = default;
    /// On the object; the project is not owned.
    objTransIterator(const PKC_PlotkaProject *project, const T &current);
    /// On the transition, beside the panel that ends with it, else beside the one that begins with it. It walks the panels
    /// from the first to find that one. Panels only.
    objTransIterator(const PKC_PlotkaProject *project, const Trans_t &transition);

    // The order of the virtual functions is relied on by the reverse iterator.
    virtual objTransIterator &operator++();
    virtual objTransIterator &operator--();
    /// To the first object, or to the transition that lies at or before its first frame.
    virtual objTransIterator &first();
    /// To the last object, or to the transition that reaches its last frame.
    virtual objTransIterator &last();

    const T &current() const { return m_current; }
    /// Invalid when the iterator stands on the object.
    const Trans_t &transition() const { return m_transition; }
    bool isTransitionAfter() const { return m_transitionAfter; }
    bool isOnTransition() const { return m_transition.isValid(); }

    /// The objects when neither stands on a transition, else the transitions.
    bool operator==(const objTransIterator &other) const
    {
        return isOnTransition() || other.isOnTransition() ? m_transition == other.m_transition
                                                          : m_current == other.m_current;
    }
    bool operator!=(const objTransIterator &other) const { return !(*this == other); }

private:
    void stepForward();
    void stepBackward();

    T m_current;
    Trans_t m_transition;
    bool m_transitionAfter = true;
    QPointer<const PKC_PlotkaProject> m_project;
};

/// The same walk backward.
template <typename T>
class PLOTKA_EXPORT reverse_objTransIterator : public objTransIterator<T>
{
public:
    using objTransIterator<T>::objTransIterator;

    reverse_objTransIterator &operator++() override;
    reverse_objTransIterator &operator--() override;
    reverse_objTransIterator &first() override;
    reverse_objTransIterator &last() override;
};

/// What the iterator stands on: the transition, else the panel.
PLOTKA_EXPORT PanelTrans_t panelOrTransition(const objTransIterator<Panel_t> &iterator);

template <>
PLOTKA_EXPORT objTransIterator<Panel_t>::objTransIterator(const PKC_PlotkaProject *project, const Trans_t &transition);

extern template class objTransIterator<Panel_t>;
extern template class objTransIterator<Shot_t>;
extern template class reverse_objTransIterator<Panel_t>;

} // namespace Plotka
