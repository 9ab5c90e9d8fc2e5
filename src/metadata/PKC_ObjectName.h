#pragma once

#include "plotka_export.h"

#include <QString>

/// The name of a timeline object, and how it came by it.
class PLOTKA_EXPORT PKC_ObjectName
{
public:
    /// An empty text and flag 0: an automatic name that may change.
    PKC_ObjectName() = default;
    PKC_ObjectName(const PKC_ObjectName &) = default;
    PKC_ObjectName &operator=(const PKC_ObjectName &) = default;
    virtual ~PKC_ObjectName();

    const QString &value() const { return m_value; }
    void setValue(const QString &value) { m_value = value; }

    /// The bits of isLocked() and isCustom(), and all others as they were stored.
    int flag() const { return m_flag; }
    /// Gives the word it replaces.
    int setFlag(int flag);

    /// The name must not be changed.
    bool isLocked() const { return (m_flag & lockedBit) != 0; }
    /// The name was given by a person.
    bool isCustom() const { return (m_flag & customBit) != 0; }
    /// The name is generated.
    bool isAuto() const { return !isCustom(); }

    static constexpr int lockedBit = 1;
    static constexpr int customBit = 2;

private:
    QString m_value;
    int m_flag = 0;
};
