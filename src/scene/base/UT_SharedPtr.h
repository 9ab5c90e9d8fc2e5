#pragma once

#include "scene/base/UT_ShareBase.h"

#include <cstddef>
#include <type_traits>
#include <utility>

/// Counted pointer to an object derived from UT_ShareBase. Null is an ordinary value.
template <typename T>
class UT_SharedPtr
{
public:
    UT_SharedPtr() noexcept = default;
    UT_SharedPtr(std::nullptr_t) noexcept {}
    UT_SharedPtr(T *target) noexcept : m_target(target) { hold(); }
    UT_SharedPtr(const UT_SharedPtr &other) noexcept : m_target(other.m_target) { hold(); }
    UT_SharedPtr(UT_SharedPtr &&other) noexcept : m_target(std::exchange(other.m_target, nullptr)) {}
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    UT_SharedPtr(const UT_SharedPtr<U> &other) noexcept : m_target(other.get())
    {
        hold();
    }
    ~UT_SharedPtr() { drop(); }

    UT_SharedPtr &operator=(UT_SharedPtr other) noexcept
    {
        std::swap(m_target, other.m_target);
        return *this;
    }

    T *get() const noexcept { return m_target; }
    T *operator->() const noexcept { return m_target; }
    T &operator*() const noexcept { return *m_target; }
    explicit operator bool() const noexcept { return m_target != nullptr; }

    template <typename U>
    bool operator==(const UT_SharedPtr<U> &other) const noexcept
    {
        return m_target == other.get();
    }
    template <typename U>
    bool operator!=(const UT_SharedPtr<U> &other) const noexcept
    {
        return m_target != other.get();
    }

private:
    void hold() noexcept
    {
        if (m_target)
            ++m_target->refCount;
    }
    void drop() noexcept
    {
        if (m_target && --m_target->refCount == 0)
            delete m_target;
    }

    T *m_target = nullptr;
};
