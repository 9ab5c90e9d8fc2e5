#pragma once

#include "plotka_interchange_export.h"

#include "scene/base/UT_FrameRate.h"

#include <QtGlobal>

/// A position or length in time, in exact fractions of a second.
///
/// Files count in frames, samples or parts of them, each at its own rate. As fractions they add up
/// without error, and whole frames are taken of sums only. Seconds stay within +-2^32. A sum whose
/// reduced fraction needs more than 64 bits is rounded to the nearest 1/705,600,000 of a second, a
/// unit in which every usual frame and sample rate is whole.
class PLOTKA_INTERCHANGE_EXPORT OtioTime
{
public:
    /// Units per second as a fraction; not valid when the numerator is 0.
    struct Rate {
        qint64 numerator = 0;
        qint64 denominator = 1;
        bool isValid() const { return numerator > 0; }
    };

    constexpr OtioTime() noexcept = default;
    /// @p count units at a valid @p rate.
    static OtioTime fromUnits(qint64 count, Rate rate);
    /// A count with a fraction is taken as the simplest fraction that a double cannot tell from it,
    /// with a denominator up to 1,000,000: 71.94 is 3597/50. Not a number counts as 0.
    static OtioTime fromUnits(double count, Rate rate);

    /// The exact rate that a file means: 23.976 and 23.98 are 24000/1001, 29.97 is 30000/1001, as for
    /// every multiple of 12 and 15 up to 960; other fractions as for counts. Not valid unless
    /// 1/1000 <= @p unitsPerSecond <= 1e9.
    static Rate exactRate(double unitsPerSecond);

    /// floor(x + 1/2) of the time in frames.
    qint64 roundedFrame(const UT_FrameRate &rate) const;
    bool isWholeFrame(const UT_FrameRate &rate) const;
    /// For messages only.
    double inUnits(Rate rate) const;
    double seconds() const;

    bool isNegative() const { return m_numerator < 0; }
    bool isZero() const { return m_numerator == 0; }
    /// True where the limit was reached, so that the time is not the one asked for.
    bool isAtLimit() const;

    PLOTKA_INTERCHANGE_EXPORT friend OtioTime operator+(const OtioTime &a, const OtioTime &b);
    PLOTKA_INTERCHANGE_EXPORT friend OtioTime operator-(const OtioTime &a, const OtioTime &b);
    PLOTKA_INTERCHANGE_EXPORT friend bool operator<(const OtioTime &a, const OtioTime &b);
    friend bool operator>(const OtioTime &a, const OtioTime &b) { return b < a; }
    friend bool operator<=(const OtioTime &a, const OtioTime &b) { return !(b < a); }
    friend bool operator>=(const OtioTime &a, const OtioTime &b) { return !(a < b); }
    friend bool operator==(const OtioTime &a, const OtioTime &b)
    {
        return a.m_numerator == b.m_numerator && a.m_denominator == b.m_denominator;
    }
    friend bool operator!=(const OtioTime &a, const OtioTime &b) { return !(a == b); }

    qint64 numerator() const { return m_numerator; }
    qint64 denominator() const { return m_denominator; }

private:
    constexpr OtioTime(qint64 numerator, qint64 denominator) noexcept :
        m_numerator(numerator), m_denominator(denominator)
    {
    }

    // Reduced, the denominator above 0.
    qint64 m_numerator = 0;
    qint64 m_denominator = 1;
};
