#include "pdf/properties/PKC_PropertyObserver.h"

#include "pdf/properties/PKC_PropertyObservable.h"

#include <utility>

// An observable also knows its observers' copies, so that they never hold one that has died.
PKC_PropertyObserver::PKC_PropertyObserver(const PKC_PropertyObserver &other) : m_observables(other.m_observables)
{
    for (PKC_PropertyObservable *observable : m_observables)
        observable->m_observers.emplace(this, false);
}

PKC_PropertyObserver::~PKC_PropertyObserver()
{
    unregisterToAll();
}

void PKC_PropertyObserver::onPropertyModified(PKC_Property *) {}

void PKC_PropertyObserver::onPropertyDeleted(PKC_Property *) {}

void PKC_PropertyObserver::registerObservable(PKC_PropertyObservable *observable)
{
    if (!observable)
        return;
    m_observables.insert(observable);
    observable->m_observers[this] = true;
}

void PKC_PropertyObserver::unregisterObservable(PKC_PropertyObservable *observable)
{
    if (m_observables.erase(observable) > 0)
        observable->m_observers.erase(this);
}

void PKC_PropertyObserver::unregisterToAll()
{
    const std::set<PKC_PropertyObservable *> observables = std::exchange(m_observables, {});
    for (PKC_PropertyObservable *observable : observables)
        observable->m_observers.erase(this);
}
