#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_Edition.h"

#include <QtGlobal>

#include <atomic>

class UT_SharedWeakBase;

/// What all weak pointers to one object share. It outlives the object while a pointer is left.
/// Only its own count is atomic.
class PLOTKA_SCENE_EXPORT UT_SharedWeakRecord
{
public:
    explicit UT_SharedWeakRecord(UT_SharedWeakBase *target) : m_target(target) {}

    /// The watched object, null once it has died.
    UT_SharedWeakBase *target() const { return m_target; }
    void clearTarget()
    {
        m_target = nullptr;
        UT_Edition::advanceByDeath();
    }

    void hold() { m_holders.fetch_add(1, std::memory_order_relaxed); }
    /// The record deletes itself with its last holder.
    void drop();

private:
    ~UT_SharedWeakRecord() = default;

    UT_SharedWeakBase *m_target;
    std::atomic<unsigned int> m_holders{0};
};

/// Base of objects that can be watched by UT_SharedWeakPtr, with a strong count of its own.
///
/// Every object has one control record, made when first watched, so that weak pointers made at
/// different times are equal. Count and record never travel with a copy.
class PLOTKA_SCENE_EXPORT UT_SharedWeakBase
{
public:
    UT_SharedWeakBase() = default;
    UT_SharedWeakBase(const UT_SharedWeakBase &) noexcept {}
    UT_SharedWeakBase &operator=(const UT_SharedWeakBase &) noexcept { return *this; }
    virtual ~UT_SharedWeakBase();

    /// Both return the new count and only count: the caller that receives 0 from DecRef deletes. A count of 0 is
    /// never lowered; where nothing is asserted it stays, and 0 is what comes back.
    unsigned int IncRef() const { return ++m_count; }
    unsigned int DecRef() const
    {
        Q_ASSERT(m_count > 0);
        return m_count > 0 ? --m_count : 0;
    }

    /// The control record, never null.
    UT_SharedWeakRecord *weakRecord() const;

protected:
    bool isHeld() const { return m_count > 0; }

    /// Makes all weak pointers read null from here on. For the first line of a destructor whose parts, while
    /// they are taken down, must not be asked anything any more.
    void forgetWatchers();

private:
    mutable unsigned int m_count = 0;
    mutable UT_SharedWeakRecord *m_record = nullptr;
};
