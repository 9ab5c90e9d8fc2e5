#pragma once

#include "plotka_scene_export.h"

#include <QString>
#include <QtGlobal>

/// An identity: one signed 64-bit number. The default one is null (0).
class PLOTKA_SCENE_EXPORT UT_Id
{
public:
    constexpr UT_Id() noexcept = default;
    constexpr explicit UT_Id(qint64 value) noexcept : m_value(value) {}

    constexpr qint64 value() const noexcept { return m_value; }
    constexpr bool isNull() const noexcept { return m_value == 0; }

    /// Decimal digits; "0" for the null id. parseXml reads it back.
    QString AsString() const;
    /// Reads what AsString wrote. False for any other text, and the id is then null.
    bool parseXml(const QString &text);

    /// An id that differs from every other one made in this process and from every id that a
    /// project gives out (those are positive, these negative). Usable before main().
    static UT_Id createUnique();

    constexpr bool operator==(const UT_Id &other) const noexcept { return m_value == other.m_value; }
    constexpr bool operator!=(const UT_Id &other) const noexcept { return m_value != other.m_value; }
    constexpr bool operator<(const UT_Id &other) const noexcept { return m_value < other.m_value; }

private:
    qint64 m_value = 0;
};
