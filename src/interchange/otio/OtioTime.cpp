#include "interchange/otio/OtioTime_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

__extension__ typedef __int128 Wide;

constexpr qint64 secondsLimit = qint64(1) << 32;
constexpr qint64 finestUnit = 705'600'000;
constexpr qint64 largestDenominator = 1'000'000;
constexpr qint64 wholeDoubleLimit = qint64(1) << 53;

struct Fraction {
    Wide numerator;
    Wide denominator; // above 0
};

Wide absolute(Wide x)
{
    return x < 0 ? -x : x;
}

Wide commonDivisor(Wide a, Wide b)
{
    while (b != 0) {
        const Wide rest = a % b;
        a = b;
        b = rest;
    }
    return a;
}

Wide floorDivision(Wide a, Wide b)
{
    const Wide quotient = a / b;
    return a % b < 0 ? quotient - 1 : quotient;
}

Fraction onFinestGrid(Fraction x)
{
    const Wide whole = floorDivision(x.numerator, x.denominator);
    Wide rest = x.numerator - whole * x.denominator;
    Wide denominator = x.denominator;
    // Leaves room for the multiplication; what is shifted out is far below the grid.
    while (denominator > Wide(1) << 90) {
        denominator >>= 1;
        rest >>= 1;
    }
    const Wide part = floorDivision(2 * rest * finestUnit + denominator, 2 * denominator);
    return {whole * finestUnit + part, finestUnit};
}

Fraction reduced(Fraction x)
{
    const Wide divisor = std::max<Wide>(1, commonDivisor(absolute(x.numerator), x.denominator));
    return {x.numerator / divisor, x.denominator / divisor};
}

// The simplest fraction that a double cannot tell from x, by continued fractions.
Fraction simplest(double x)
{
    if (!std::isfinite(x))
        return {0, 1};
    if (std::fabs(x) >= static_cast<double>(wholeDoubleLimit)) {
        const double held = std::clamp(x, -4e18, 4e18);
        return {static_cast<qint64>(held), 1};
    }
    const double whole = std::floor(x);
    const double part = x - whole; // exact
    const double tolerance = std::numeric_limits<double>::epsilon() * std::max(1.0, std::fabs(x));
    Wide p0 = 0, q0 = 1, p1 = 1, q1 = 0;
    double rest = part;
    for (;;) {
        const Wide digit = static_cast<qint64>(std::floor(rest));
        const Wide p2 = digit * p1 + p0;
        const Wide q2 = digit * q1 + q0;
        if (q2 > largestDenominator)
            break;
        p0 = p1, q0 = q1, p1 = p2, q1 = q2;
        const double remainder = rest - std::floor(rest);
        if (std::fabs(static_cast<double>(p1) / static_cast<double>(q1) - part) <= tolerance || remainder < 1e-9)
            break;
        rest = 1.0 / remainder;
    }
    return {static_cast<qint64>(whole) * q1 + p1, q1};
}

// Brings any fraction of at most 127 bits into the range and width of a time.
Fraction fitted(Fraction x)
{
    x = reduced(x);
    const Wide whole = floorDivision(x.numerator, x.denominator);
    if (whole >= secondsLimit)
        return {secondsLimit, 1};
    if (whole < -secondsLimit)
        return {-secondsLimit, 1};
    constexpr Wide widest = std::numeric_limits<qint64>::max();
    if (x.denominator > widest || absolute(x.numerator) > widest)
        x = reduced(onFinestGrid(x));
    return x;
}

} // namespace

OtioTime OtioTime::fromUnits(qint64 count, Rate rate)
{
    const Fraction x = fitted({Wide(count) * rate.denominator, Wide(rate.numerator)});
    return OtioTime(static_cast<qint64>(x.numerator), static_cast<qint64>(x.denominator));
}

OtioTime OtioTime::fromUnits(double count, Rate rate)
{
    const Fraction units = simplest(count);
    const Fraction x = fitted({units.numerator * rate.denominator, units.denominator * rate.numerator});
    return OtioTime(static_cast<qint64>(x.numerator), static_cast<qint64>(x.denominator));
}

OtioTime::Rate OtioTime::exactRate(double unitsPerSecond)
{
    if (!(unitsPerSecond >= 0.001 && unitsPerSecond <= 1e9))
        return {};
    if (unitsPerSecond == std::floor(unitsPerSecond))
        return {static_cast<qint64>(unitsPerSecond), 1};

    // Files write these with two to nine digits, so the nearest is taken within 0.02 percent; from
    // one whole rate to its slowed form it is 0.1 percent.
    const auto nominal = static_cast<qint64>(std::floor(unitsPerSecond * 1.001 + 0.5));
    const bool isUsual = nominal >= 12 && nominal <= 960 && (nominal % 12 == 0 || nominal % 15 == 0);
    const double slowed = static_cast<double>(nominal) * 1000.0 / 1001.0;
    if (isUsual && std::fabs(unitsPerSecond - slowed) <= 2e-4 * slowed)
        return {nominal * 1000, 1001};

    const Fraction x = reduced(simplest(unitsPerSecond));
    return {static_cast<qint64>(x.numerator), static_cast<qint64>(x.denominator)};
}

qint64 OtioTime::roundedFrame(const UT_FrameRate &rate) const
{
    const Wide frames = Wide(m_numerator) * rate.numerator();
    const Wide unit = Wide(m_denominator) * rate.denominator();
    constexpr Wide limit = Wide(1) << 62;
    return static_cast<qint64>(std::clamp<Wide>(floorDivision(2 * frames + unit, 2 * unit), -limit, limit));
}

bool OtioTime::isWholeFrame(const UT_FrameRate &rate) const
{
    return Wide(m_numerator) * rate.numerator() % (Wide(m_denominator) * rate.denominator()) == 0;
}

double OtioTime::inUnits(Rate rate) const
{
    return seconds() * static_cast<double>(rate.numerator) / static_cast<double>(rate.denominator);
}

double OtioTime::seconds() const
{
    return static_cast<double>(m_numerator) / static_cast<double>(m_denominator);
}

bool OtioTime::isAtLimit() const
{
    return m_denominator == 1 && (m_numerator == secondsLimit || m_numerator == -secondsLimit);
}

OtioTime operator+(const OtioTime &a, const OtioTime &b)
{
    const Wide divisor = commonDivisor(a.m_denominator, b.m_denominator);
    const Wide toA = b.m_denominator / divisor;
    const Wide toB = a.m_denominator / divisor;
    const Fraction x = fitted({a.m_numerator * toA + b.m_numerator * toB, a.m_denominator * toA});
    return OtioTime(static_cast<qint64>(x.numerator), static_cast<qint64>(x.denominator));
}

OtioTime operator-(const OtioTime &a, const OtioTime &b)
{
    return a + OtioTime(-b.m_numerator, b.m_denominator);
}

bool operator<(const OtioTime &a, const OtioTime &b)
{
    return Wide(a.m_numerator) * b.m_denominator < Wide(b.m_numerator) * a.m_denominator;
}
