#pragma once

#include "plotka_export.h"
#include "project/Panel_t.h"
#include "project/Trans_t.h"

#include <QPointer>

class PKC_PlotkaProject;

namespace Plotka
{

/// Walks the objects of one kind in timeline order.
///
/// An iterator is a value: it holds a handle and moves by asking the project, so that it survives edits of the
/// timeline. A walk ends at the invalid handle, where it can be stepped further without harm.
template <typename T>
class PLOTKA_EXPORT objiterator
{
public:
    objiterator() = default;
    /// The project is not owned; with none, and once it has gone, every step leads to the invalid handle.
    objiterator(const PKC_PlotkaProject *project, const T &current);

    // The order of the virtual functions is relied on by the reverse iterator.
    virtual objiterator &operator++();
    virtual objiterator &operator--();
    virtual objiterator &first();
    virtual objiterator &last();

    const T &operator*() const { return m_current; }
    const T *operator->() const { return &m_current; }
    /// By object id.
    bool operator==(const objiterator &other) const { return m_current == other.m_current; }
    bool operator!=(const objiterator &other) const { return m_current != other.m_current; }

private:
    T m_current;
    QPointer<const PKC_PlotkaProject> m_project;
};

/// The same walk backward.
template <typename T>
class PLOTKA_EXPORT reverse_objiterator : public objiterator<T>
{
public:
    using objiterator<T>::objiterator;

    reverse_objiterator &operator++() override;
    reverse_objiterator &operator--() override;
    reverse_objiterator &first() override;
    reverse_objiterator &last() override;
};

extern template class objiterator<Panel_t>;
extern template class objiterator<Shot_t>;
extern template class objiterator<Trans_t>;
extern template class reverse_objiterator<Panel_t>;
extern template class reverse_objiterator<Shot_t>;
extern template class reverse_objiterator<Trans_t>;

} // namespace Plotka
