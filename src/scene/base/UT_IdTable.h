#pragma once

#include "scene/base/SC_Id.h"

#include <QHashFunctions>

#include <cstddef>
#include <utility>
#include <vector>

/// Values by id in one piece of flat memory; the null id is no key.
///
/// A place is looked for from the id's hash on until it or a free one is met. The hash is seeded, since ids come
/// from files. Ids that follow one another, as most do that a project gave out one after the other, have places that do.
template <typename Value>
class UT_IdTable
{
public:
    bool isEmpty() const { return m_count == 0; }
    std::size_t size() const { return m_count; }

    /// Null when there is none. Good until the next insertion.
    const Value *find(const SC_Id &id) const
    {
        if (m_slots.empty() || id.isNull())
            return nullptr;
        const Slot &slot = m_slots[slotOf(id.value())];
        return slot.id == 0 ? nullptr : &slot.value;
    }
    Value *find(const SC_Id &id) { return const_cast<Value *>(std::as_const(*this).find(id)); }

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

    /// Nothing happens when there is none.
    void remove(const SC_Id &id)
    {
        if (!find(id))
            return;
        const std::size_t last = m_slots.size() - 1;
        std::size_t hole = slotOf(id.value());
        // What was put behind the hole because others stood there moves up, or it would not be met any more.
        for (std::size_t at = (hole + 1) & last; m_slots[at].id != 0; at = (at + 1) & last) {
            const std::size_t fromHome = (at - homeOf(m_slots[at].id)) & last;
            if (fromHome < ((at - hole) & last))
                continue;
            m_slots[hole] = std::move(m_slots[at]);
            hole = at;
        }
        m_slots[hole] = Slot();
        --m_count;
    }

    /// @name Slots
    /// Values lie in slots from 0 on, in no order that means anything.
    /// @{
    std::size_t slotCount() const { return m_slots.size(); }
    /// Null for a free slot.
    Value *valueIn(std::size_t slot) { return m_slots[slot].id == 0 ? nullptr : &m_slots[slot].value; }
    /// @}

private:
    struct Slot {
        qint64 id = 0; // 0 is free
        Value value{};
    };

    /// Where the id would stand if it were alone. The size is a power of two.
    std::size_t homeOf(qint64 id) const
    {
        constexpr int together = 4; // bits
        const std::size_t run = qHash(id >> together, m_seed) << together;
        return (run | static_cast<std::size_t>(id & ((1 << together) - 1))) & (m_slots.size() - 1);
    }

    /// Where the id is, or where it would go.
    std::size_t slotOf(qint64 id) const
    {
        const std::size_t last = m_slots.size() - 1;
        std::size_t at = homeOf(id);
        while (m_slots[at].id != id && m_slots[at].id != 0)
            at = (at + 1) & last;
        return at;
    }

    void grow()
    {
        std::vector<Slot> previous(m_slots.empty() ? smallest : m_slots.size() * 2);
        previous.swap(m_slots);
        for (Slot &slot : previous) {
            if (slot.id == 0)
                continue;
            Slot &place = m_slots[slotOf(slot.id)];
            place.id = slot.id;
            place.value = std::move(slot.value);
        }
    }

    static constexpr std::size_t smallest = 4;

    std::vector<Slot> m_slots;
    std::size_t m_count = 0;
    std::size_t m_seed = QHashSeed::globalSeed();
};
