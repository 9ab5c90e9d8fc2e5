#include "pdf/properties/PKC_PropertyObservable.h"

#include "pdf/properties/PKC_PropertyObserver.h"

/// One call of tell(). They stand in one another when an observer causes further news.
struct PKC_PropertyObservable::Telling {
    Telling *outer = nullptr;
    bool observableDied = false;
};

PKC_PropertyObservable::~PKC_PropertyObservable()
{
    for (Telling *telling = m_telling; telling; telling = telling->outer)
        telling->observableDied = true;
    for (const auto &observer : m_observers)
        observer.first->m_observables.erase(this);
}

void PKC_PropertyObservable::tell(News news, PKC_Property *property)
{
    Telling telling{m_telling};
    m_telling = &telling;
    const std::map<PKC_PropertyObserver *, bool> atFirst = m_observers;
    for (const auto &entry : atFirst) {
        const auto observer = m_observers.find(entry.first);
        if (observer == m_observers.end() || !observer->second)
            continue;
        (entry.first->*news)(property);
        if (telling.observableDied)
            return;
    }
    m_telling = telling.outer;
}
