#include "veltrane/kernel/math/predicates.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace veltrane::kernel {
namespace {

TEST(Predicates, TellTheSignInTheLastBit) {
    // A grid of neighbouring doubles about a point of the line through b and c.
    const Point2 b(12, 12), c(24, 24);
    const double ulp = 0x1p-53;
    for (int i = -20; i <= 20; ++i) {
        for (int j = -20; j <= 20; ++j) {
            const Point2 a(0.5 + i * ulp, 0.5 + j * ulp);
            const int expected = (a.y() < a.x()) - (a.y() > a.x());
            EXPECT_EQ(orientation(b, c, a), -expected);
            EXPECT_EQ(orientation(c, b, a), expected);
            EXPECT_EQ(orientation(a, b, c), -expected);
        }
    }
}

TEST(Predicates, TellWhetherPointsLieOnACircle) {
    // All on the circle of radius 65 about the origin, moved by a power of two without rounding.
    const Point2 on[] = {{65, 0}, {63, 16}, {60, 25}, {56, 33}, {52, 39}, {39, 52}, {0, 65}, {-16, 63}};
    const double scale = 0x1p-40;
    const Vector2 offset(1, 1);
    const auto at = [&](const Point2& p) { return Point2(offset + scale * p); };
    for (std::size_t i = 0; i + 3 < std::size(on); ++i) {
        const Point2 a = at(on[i]), b = at(on[i + 1]), c = at(on[i + 2]), d = at(on[i + 3]);
        EXPECT_EQ(in_circle(a, b, c, d), 0);
        EXPECT_EQ(in_circle(a, b, c, {d.x() * (1 - 0x1p-53), d.y()}), on[i + 3].x() > 0 ? 1 : -1);
        EXPECT_EQ(in_circle(a, b, c, {d.x(), d.y() + 0x1p-52}), -1);
    }
}

TEST(Predicates, AgreeWithIntegers) {
    std::mt19937 random(1);
    const auto number = [&] { return static_cast<long long>(random() % 7) + (1LL << 20); };
    for (int i = 0; i < 20000; ++i) {
        const long long x[4] = {number(), number(), number(), number()};
        const long long y[4] = {number(), number(), number(), number()};
        Point2 p[4];
        for (int k = 0; k < 4; ++k)
            p[k] = Point2(static_cast<double>(x[k]), static_cast<double>(y[k])) * 0x1p-20;
        const auto twice_area = [&](int a, int b, int c) {
            return (x[b] - x[a]) * (y[c] - y[a]) - (y[b] - y[a]) * (x[c] - x[a]);
        };
        const auto lift = [&](int a) {
            return (x[a] - x[3]) * (x[a] - x[3]) + (y[a] - y[3]) * (y[a] - y[3]);
        };
        const auto sign = [](long long v) { return (v > 0) - (v < 0); };
        EXPECT_EQ(orientation(p[0], p[1], p[2]), sign(twice_area(0, 1, 2)));
        const long long circle =
            lift(0) * twice_area(1, 2, 3) - lift(1) * twice_area(0, 2, 3) + lift(2) * twice_area(0, 1, 3);
        EXPECT_EQ(in_circle(p[0], p[1], p[2], p[3]), sign(circle));
    }
}

}  // namespace
}  // namespace veltrane::kernel
