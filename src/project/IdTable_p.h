#pragma once

#include "scene/base/SC_Id.h"

#include <QHashFunctions>

#include <cstddef>
#include <utility>
#include <vector>

namespace Plotka
{

/// Values by object id in one piece of flat memory. What was put in stays; the null id is no key.
///
/// A place is looked for from the id's hash on until it or a free one is met. The hash is seeded, since ids come
/// from files.
template <typename Value>
class IdTable
{
public:
    bool isEmpty() const { return m_count == 0; }

    /// Null when there is none. Good until the next insertion.
    Value *find(const SC_Id &id)
    {
        if (m_slots.empty() || id.isNull())
            return nullptr;
        Slot &slot = m_slots[slotOf(id.value())];
        return slot.id == 0 ? nullptr : &slot.value;
    }

    /// Made by default when there is none.
    Value &operator[](const SC_Id &id)
    {
        Q_ASSERT(!id.isNull());
        if (m_slots.size() * 7 <= (m_count + 1) * 8)
            grow();
        Slot &slot = m_slots[slotOf(id.value())];
        if (slot.id == 0) {
            slot.id = id.value();
            ++m_count;
        }
        return slot.value;
    }

private:
    struct Slot {
        qint64 id = 0; // 0 is free
        Value value{};
    };

    /// Where the id is, or where it would go.
    std::size_t slotOf(qint64 id) const
    {
        const std::size_t last = m_slots.size() - 1; // the size is a power of two
        std::size_t at = qHash(id, m_seed) & last;
        while (m_slots[at].id != id && m_slots[at].id != 0)
            at = (at + 1) & last;
        return at;
    }

    void grow()
    {
        std::vector<Slot> previous(m_slots.empty() ? smallest : m_slots.size() * 2);
        previous.swap(m_slots);
        for (Slot &slot : previous) {
            if (slot.id != 0)
                m_slots[slotOf(slot.id)] = std::move(slot);
        }
    }

    static constexpr std::size_t smallest = 4;

    std::vector<Slot> m_slots;
    std::size_t m_count = 0;
    std::size_t m_seed = QHashSeed::globalSeed();
};

} // namespace Plotka
