#pragma once

#include "scene/base/UT_SharedWeakBase.h"

#include <functional>
#include <type_traits>
#include <utility>

/// The untyped part of a weak pointer. Equality and order are those of the control record, never
/// of the live target: a key of a set keeps its place after its target has died.
class PLOTKA_SCENE_EXPORT UT_SharedWeakPtrBase
{
public:
    UT_SharedWeakPtrBase() noexcept = default;
    UT_SharedWeakPtrBase(const UT_SharedWeakPtrBase &other) noexcept : m_record(other.m_record) { hold(); }
    UT_SharedWeakPtrBase(UT_SharedWeakPtrBase &&other) noexcept : m_record(std::exchange(other.m_record, nullptr)) {}
    ~UT_SharedWeakPtrBase() { drop(); }

    UT_SharedWeakPtrBase &operator=(const UT_SharedWeakPtrBase &other) noexcept
    {
        UT_SharedWeakPtrBase copy(other);
        std::swap(m_record, copy.m_record);
        return *this;
    }
    UT_SharedWeakPtrBase &operator=(UT_SharedWeakPtrBase &&other) noexcept
    {
        std::swap(m_record, other.m_record);
        return *this;
    }

    /// True when a target was ever assigned, dead or alive.
    bool hasRecord() const noexcept { return m_record != nullptr; }

    bool operator==(const UT_SharedWeakPtrBase &other) const noexcept { return m_record == other.m_record; }
    bool operator!=(const UT_SharedWeakPtrBase &other) const noexcept { return m_record != other.m_record; }
    bool operator<(const UT_SharedWeakPtrBase &other) const noexcept
    {
        return std::less<UT_SharedWeakRecord *>()(m_record, other.m_record);
    }

protected:
    void assign(UT_SharedWeakBase *target)
    {
        UT_SharedWeakPtrBase fresh;
        fresh.m_record = target ? target->weakRecord() : nullptr;
        fresh.hold();
        std::swap(m_record, fresh.m_record);
    }
    UT_SharedWeakBase *target() const noexcept { return m_record ? m_record->target() : nullptr; }

private:
    void hold() noexcept
    {
        if (m_record)
            m_record->hold();
    }
    void drop() noexcept
    {
        if (m_record)
            m_record->drop();
    }

    UT_SharedWeakRecord *m_record = nullptr;
};

/// Watches an object without owning it: null once the object has died, for every copy alike.
template <typename T>
class UT_SharedWeakPtr : public UT_SharedWeakPtrBase
{
public:
    UT_SharedWeakPtr() noexcept = default;
    UT_SharedWeakPtr(const T *target) { assign(const_cast<std::remove_const_t<T> *>(target)); }

    UT_SharedWeakPtr &operator=(const T *target)
    {
        assign(const_cast<std::remove_const_t<T> *>(target));
        return *this;
    }

    T *get() const noexcept { return static_cast<T *>(target()); }
    T *operator->() const noexcept { return get(); }
    explicit operator bool() const noexcept { return get() != nullptr; }
};
