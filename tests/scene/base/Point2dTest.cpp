#include "scene/base/Point2d.h"

#include <gtest/gtest.h>

#include <limits>

TEST(Point2d, StartsAtTheOrigin)
{
    EXPECT_EQ(Math::Point2d().x, 0.0);
    EXPECT_EQ(Math::Point2d().y, 0.0);
    const Math::Point2d point(1.5, -2.0);
    EXPECT_EQ(point.x, 1.5);
    EXPECT_EQ(point.y, -2.0);
}

TEST(Point2d, ComparesExactly)
{
    const Math::Point2d point(1.0, 2.0);
    EXPECT_TRUE(point == Math::Point2d(point));
    EXPECT_TRUE(point != Math::Point2d(1.0 + std::numeric_limits<double>::epsilon(), 2.0));
    EXPECT_TRUE(point != Math::Point2d(1.0, 2.0 - std::numeric_limits<double>::epsilon()));
    EXPECT_FALSE(point == Math::Point2d(2.0, 1.0));
    Math::Point2d assigned;
    assigned = point;
    EXPECT_TRUE(assigned == point);
}
