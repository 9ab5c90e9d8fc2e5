#pragma once

#include "plotka_export.h"

#include <map>

class PKC_Property;
class PKC_PropertyObserver;

/// Something that observers register with. Either side may die first.
class PLOTKA_EXPORT PKC_PropertyObservable
{
public:
    PKC_PropertyObservable() = default;
    /// Nobody observes a copy.
    PKC_PropertyObservable(const PKC_PropertyObservable &) noexcept {}
    PKC_PropertyObservable &operator=(const PKC_PropertyObservable &) = delete;
    virtual ~PKC_PropertyObservable();

protected:
    using News = void (PKC_PropertyObserver::*)(PKC_Property *);

    /// Calls @p news with @p property on everyone who observed when it began and still does. Whoever is called may
    /// leave, delete observers and delete this: touch nothing of it afterwards.
    void tell(News news, PKC_Property *property);

private:
    friend class PKC_PropertyObserver;
    struct Telling;

    std::map<PKC_PropertyObserver *, bool> m_observers; // whether it is told: a copy of an observer is not
    Telling *m_telling = nullptr;                       // the innermost one under way
};
