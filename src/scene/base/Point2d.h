#pragma once

namespace Math
{

/// A place in the plane.
struct Point2d {
    constexpr Point2d() noexcept = default;
    constexpr Point2d(double xValue, double yValue) noexcept : x(xValue), y(yValue) {}

    /// Compares exactly.
    constexpr bool operator==(const Point2d &other) const noexcept { return x == other.x && y == other.y; }
    constexpr bool operator!=(const Point2d &other) const noexcept { return !(*this == other); }

    double x = 0.0;
    double y = 0.0;
};

} // namespace Math
