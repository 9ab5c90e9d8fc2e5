#include "project/ObjIterator.h"

#include "project/PKC_PlotkaProject.h"

namespace Plotka
{

template <typename T>
objiterator<T>::objiterator(const PKC_PlotkaProject *project, const T &current) : m_current(current), m_project(project)
{
}

template <typename T>
objiterator<T> &objiterator<T>::operator++()
{
    m_current = m_project ? m_project->next(m_current) : T::invalid;
    return *this;
}

template <typename T>
objiterator<T> &objiterator<T>::operator--()
{
    m_current = m_project ? m_project->prev(m_current) : T::invalid;
    return *this;
}

template <typename T>
objiterator<T> &objiterator<T>::first()
{
    m_current = m_project ? m_project->first(m_current) : T::invalid;
    return *this;
}

template <typename T>
objiterator<T> &objiterator<T>::last()
{
    m_current = m_project ? m_project->last(m_current) : T::invalid;
    return *this;
}

template <typename T>
reverse_objiterator<T> &reverse_objiterator<T>::operator++()
{
    objiterator<T>::operator--();
    return *this;
}

template <typename T>
reverse_objiterator<T> &reverse_objiterator<T>::operator--()
{
    objiterator<T>::operator++();
    return *this;
}

template <typename T>
reverse_objiterator<T> &reverse_objiterator<T>::first()
{
    objiterator<T>::last();
    return *this;
}

template <typename T>
reverse_objiterator<T> &reverse_objiterator<T>::last()
{
    objiterator<T>::first();
    return *this;
}

template class objiterator<Panel_t>;
template class objiterator<Shot_t>;
template class objiterator<Trans_t>;
template class reverse_objiterator<Panel_t>;
template class reverse_objiterator<Shot_t>;
template class reverse_objiterator<Trans_t>;

} // namespace Plotka
