#include "veltrane/output/depth_buffer.hpp"

#include "veltrane/output/silhouette.hpp"
#include "veltrane/output/visible_stroke.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace veltrane {
namespace {

using kernel::Point;

constexpr std::uint64_t kAnyWork = 1'000'000;
constexpr Rgb kRed{255, 0, 0}, kBlue{0, 0, 255};
constexpr std::uint32_t kRedPixel = 0xffff0000u, kBluePixel = 0xff0000ffu;

/// A square in two triangles, its depth growing by `slope` along x.
void add_square(DepthBuffer& buffer, double from, double to, double depth, double slope, Rgb colour) {
    const auto corner = [&](double x, double y) { return Point(x, y, depth + slope * (x - from)); };
    const Point a = corner(from, from), b = corner(to, from), c = corner(to, to), d = corner(from, to);
    buffer.add({a, b, c}, colour);
    buffer.add({a, c, d}, colour);
}

int count(const DepthBuffer& buffer, std::uint32_t pixel) {
    int count = 0;
    for (const std::uint32_t found : buffer.image().pixels) count += found == pixel;
    return count;
}

TEST(DepthBuffer, KeepsTheNearestAndOfOnePlaneTheLast) {
    struct Row {
        const char* what;
        double first_depth, first_slope, second_depth, second_slope;
        int red, blue;  // of 64 pixels, red first
    };
    const Row rows[] = {
        {"nearer later", 0, 0, 5, 0, 0, 64},
        {"nearer first", 5, 0, 0, 0, 64, 0},
        {"one plane", 5, 0, 5, 0, 0, 64},
        {"one plane aslant, but for rounding", 1000, 3, 1000 - 1e-3, 3, 0, 64},
        {"crossing in the middle", 0, 1, 8, -1, 32, 32},
    };
    for (const Row& row : rows) {
        DepthBuffer buffer(10, 10, kAnyWork);
        add_square(buffer, 1, 9, row.first_depth, row.first_slope, kRed);
        add_square(buffer, 1, 9, row.second_depth, row.second_slope, kBlue);
        EXPECT_EQ(count(buffer, kRedPixel), row.red) << row.what;
        EXPECT_EQ(count(buffer, kBluePixel), row.blue) << row.what;
        EXPECT_EQ(count(buffer, 0), 36) << row.what;
    }
}

TEST(DepthBuffer, LeavesNoGapsAndSurvivesAnyCorners) {
    // A fan around a point off all pixel centres.
    DepthBuffer buffer(40, 40, kAnyWork);
    const Point middle(19.7, 20.3, 0);
    constexpr int kSpokes = 37;
    const auto rim = [](int i) {
        const double angle = i % kSpokes * 2 * 3.14159265358979 / kSpokes;
        return Point(20 + 100 * std::cos(angle), 20 + 100 * std::sin(angle), 0);
    };
    for (int i = 0; i < kSpokes; ++i) buffer.add({middle, rim(i), rim(i + 1)}, kRed);
    EXPECT_EQ(count(buffer, kRedPixel), 1600);

    for (const double far : {1e9, 1e100, 1e308, double{INFINITY}, double{NAN}}) {
        buffer.add({Point(0, 0, 0), Point(far, 1, far), Point(-far, far, 3)}, kBlue);
        buffer.add({Point(5, 5, -far), Point(5, 5, far), Point(5, 5, 0)}, kBlue);
        buffer.hides({far, far, far});
        buffer.hides({-far, 3, -far});
    }
}

TEST(DepthBuffer, CountsOnBeyondItsWork) {
    DepthBuffer buffer(100, 100, 15'000);
    for (int i = 0; i < 10; ++i) add_square(buffer, 0, 100, i, 0, i < 3 ? kRed : kBlue);
    EXPECT_EQ(count(buffer, kBluePixel), 0);
    EXPECT_GT(buffer.work(), 100'000u);
    EXPECT_LT(buffer.work(), 150'000u);
}

TEST(DepthBuffer, HidesWhatLiesBehindButNotWhatLiesOn) {
    for (const double slope : {0.0, 0.5, -2.0, 20.0}) {
        DepthBuffer buffer(100, 100, kAnyWork);
        add_square(buffer, 10, 90, 0, slope, kRed);
        for (double x = 10; x <= 90; x += 0.37) {
            const double on = slope * (x - 10);
            EXPECT_FALSE(buffer.hides({x, 50.2, on})) << x;
            EXPECT_FALSE(buffer.hides({x, 10, on})) << x << ", on the edge";
            EXPECT_FALSE(buffer.hides({x, 50.2, on + 50})) << x;
        }
        EXPECT_TRUE(buffer.hides({50.3, 50.3, slope * 40 - 3 * (1 + std::abs(slope))})) << slope;
        EXPECT_FALSE(buffer.hides({5, 50, -1000}));
        EXPECT_FALSE(buffer.hides({-5, 500, -1000}));
    }
}

TEST(StrokeCutter, GivesThePartsThatAreSeen) {
    const HeightSlab slab(0, 10, 0.01);
    struct Row {
        const char* what;
        std::vector<Point> poles;
        std::vector<kernel::Interval> parts;
    };
    const Row rows[] = {
        {"inside", {{0, 0, 0}, {9, 0, 9}}, {{0, 1}}},
        {"on the upper border", {{0, 0, 10}, {9, 0, 10}}, {}},
        {"below", {{0, 0, -5}, {9, 0, -1}}, {}},
        {"rising through", {{0, 0, -10}, {40, 0, 30}}, {{0.25, 0.5}}},
        {"falling out of it", {{0, 0, 5}, {0, 10, 15}}, {{0, 0.5}}},
        {"up, over and back", {{0, 0, 4}, {3, 0, 20}, {6, 0, 20}, {9, 0, 4}}, {{0, 0.1464}, {0.8536, 1}}},
    };
    for (const Row& row : rows) {
        StrokeCutter cutter(slab);
        const auto parts = cutter.parts(row.poles);
        ASSERT_EQ(parts.size(), row.parts.size()) << row.what;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            EXPECT_NEAR(parts[i].first, row.parts[i].first, 2e-3) << row.what;
            EXPECT_NEAR(parts[i].last, row.parts[i].last, 2e-3) << row.what;
        }
    }
}

TEST(Silhouette, RunsWhereTrianglesTurnAway) {
    // A ridge seen from the side, and the same from above.
    const std::vector<kernel::MeshTriangle> triangles = {{0, 1, 2}, {1, 3, 2}, {1, 4, 3}};
    const std::vector<Point> side = {{0, 0, 1}, {0, 9, 0}, {5, 9, 0}, {5, 0, 1}, {3, 0, 2}};
    const auto seen = silhouette(triangles, side);
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0][0], side[1]);
    EXPECT_EQ(seen[0][1], side[2]);
    const std::vector<Point> above = {{0, 0, 0}, {5, 0, 1}, {0, 9, 0}, {5, 9, 1}, {9, 4, 0}};
    EXPECT_TRUE(silhouette(triangles, above).empty());
}

}  // namespace
}  // namespace veltrane
