#pragma once

#include "plotka_export.h"

#include <set>

class PKC_Property;
class PKC_PropertyObservable;

/// Hears what happens to the properties it registered with. Either side may die first, also while news is told.
class PLOTKA_EXPORT PKC_PropertyObserver
{
public:
    PKC_PropertyObserver() = default;
    /// Takes over the list of what is observed, but is told nothing.
    PKC_PropertyObserver(const PKC_PropertyObserver &other);
    PKC_PropertyObserver &operator=(const PKC_PropertyObserver &) = delete;

    // The order of the virtual functions is relied on by those that derive from this class.
    virtual ~PKC_PropertyObserver();
    /// The value was set, to the same or to another one.
    virtual void onPropertyModified(PKC_Property *property);
    /// Value, definition and name are gone; only the address still says which it was.
    virtual void onPropertyDeleted(PKC_Property *property);

    /// Null is ignored, and so is a second time.
    void registerObservable(PKC_PropertyObservable *observable);
    /// What is not observed is left alone, and may have died.
    void unregisterObservable(PKC_PropertyObservable *observable);

protected:
    void unregisterToAll();

private:
    friend class PKC_PropertyObservable;

    std::set<PKC_PropertyObservable *> m_observables;
};
