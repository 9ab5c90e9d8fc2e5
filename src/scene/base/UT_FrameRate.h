#pragma once

#include "plotka_scene_export.h"

#include <QString>

/// Frames per second as an exact fraction, 24/1 by default. Numerator and denominator are never 0.
class PLOTKA_SCENE_EXPORT UT_FrameRate
{
public:
    constexpr UT_FrameRate() noexcept = default;
    /// A 0 on either side is taken as 1; the fraction is reduced.
    explicit UT_FrameRate(unsigned int numerator, unsigned int denominator = 1);

    constexpr unsigned int numerator() const noexcept { return m_numerator; }
    constexpr unsigned int denominator() const noexcept { return m_denominator; }
    double fps() const;
    /// Frames per second rounded to the nearest whole number, at least 1.
    unsigned int fpsRound() const;

    /// "24", or "24000/1001" when the rate is no whole number.
    QString asString() const;
    /// Reads a whole number or two with a slash between them, all above 0. False for any other text, and the rate is
    /// then unchanged.
    bool parse(const QString &text);

    bool operator==(const UT_FrameRate &other) const noexcept
    {
        return m_numerator == other.m_numerator && m_denominator == other.m_denominator;
    }
    bool operator!=(const UT_FrameRate &other) const noexcept { return !(*this == other); }

private:
    unsigned int m_numerator = 24;
    unsigned int m_denominator = 1;
};
