#include "project/ObjTransIterator.h"

#include "project/PKC_PlotkaProject.h"
#include "project/TimelineWalk_p.h"

namespace Plotka
{

namespace
{

/// The transition after the object, invalid without one.
template <typename T>
Trans_t transitionAfter(const PKC_PlotkaProject *project, const T &object)
{
    Trans_t transition;
    return project->isFollowedByTrans(object, &transition) ? transition : Trans_t();
}

} // namespace

template <>
objTransIterator<Panel_t>::objTransIterator(const PKC_PlotkaProject *project, const Trans_t &transition) :
    m_transition(transition), m_project(project)
{
    for (PanelWalk walk(project); !walk.isAtEnd(); walk.step()) {
        m_current = walk.current();
        m_transitionAfter = m_current.lastFrame() == transition.lastFrame();
        if (m_transitionAfter || m_current.firstFrame() == transition.firstFrame())
            return;
    }
    m_current = Panel_t();
    m_transitionAfter = true;
}

template <typename T>
objTransIterator<T>::objTransIterator(const PKC_PlotkaProject *project, const T &current) :
    m_current(current), m_project(project)
{
}

template <typename T>
void objTransIterator<T>::stepForward()
{
    if (!m_project) {
        *this = objTransIterator();
        return;
    }
    if (isOnTransition()) {
        if (m_transitionAfter)
            m_current = m_project->next(m_current);
        m_transition = Trans_t();
        return;
    }
    m_transitionAfter = true;
    m_transition = transitionAfter(m_project, m_current);
    if (!isOnTransition())
        m_current = m_project->next(m_current);
}

template <typename T>
void objTransIterator<T>::stepBackward()
{
    if (!m_project) {
        *this = objTransIterator();
        return;
    }
    if (isOnTransition()) {
        if (!m_transitionAfter)
            m_current = m_project->prev(m_current);
        m_transition = Trans_t();
        return;
    }
    m_transitionAfter = false;
    const T previous = m_project->prev(m_current);
    m_transition = transitionAfter(m_project, previous);
    if (!isOnTransition())
        m_current = previous;
}

template <typename T>
objTransIterator<T> &objTransIterator<T>::operator++()
{
    stepForward();
    return *this;
}

template <typename T>
objTransIterator<T> &objTransIterator<T>::operator--()
{
    stepBackward();
    return *this;
}

template <typename T>
objTransIterator<T> &objTransIterator<T>::first()
{
    if (!m_project) {
        *this = objTransIterator();
        return *this;
    }
    m_transition = m_project->first(Trans_t());
    m_current = m_project->first(T());
    // No transition answers frame 0 and passes too: the iterator then stands on the object.
    if (m_transition.firstFrame() > m_current.firstFrame())
        m_transition = Trans_t();
    else
        m_transitionAfter = false;
    return *this;
}

template <typename T>
objTransIterator<T> &objTransIterator<T>::last()
{
    if (!m_project) {
        *this = objTransIterator();
        return *this;
    }
    m_transition = m_project->last(Trans_t());
    m_current = m_project->last(T());
    if (m_transition.lastFrame() < m_current.lastFrame())
        m_transition = Trans_t();
    else
        m_transitionAfter = true;
    return *this;
}

template <typename T>
reverse_objTransIterator<T> &reverse_objTransIterator<T>::operator++()
{
    objTransIterator<T>::operator--();
    return *this;
}

template <typename T>
reverse_objTransIterator<T> &reverse_objTransIterator<T>::operator--()
{
    objTransIterator<T>::operator++();
    return *this;
}

template <typename T>
reverse_objTransIterator<T> &reverse_objTransIterator<T>::first()
{
    objTransIterator<T>::last();
    return *this;
}

template <typename T>
reverse_objTransIterator<T> &reverse_objTransIterator<T>::last()
{
    objTransIterator<T>::first();
    return *this;
}

PanelTrans_t panelOrTransition(const objTransIterator<Panel_t> &iterator)
{
    return iterator.isOnTransition() ? PanelTrans_t(iterator.transition()) : PanelTrans_t(iterator.current());
}

template class objTransIterator<Panel_t>;
template class objTransIterator<Shot_t>;
template class reverse_objTransIterator<Panel_t>;

} // namespace Plotka
