#include "veltrane/kernel/mesh/triangulation.hpp"

#include "veltrane/kernel/math/predicates.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>
#include <random>
#include <string>

namespace veltrane::kernel {
namespace {

using Polygon2 = std::vector<Point2>;

/// Neighbours know each other, triangles turn left, and free edges are Delaunay.
void expect_sound(const Triangulation& plane) {
    const auto& triangles = plane.triangles();
    for (std::size_t t = 0; t < triangles.size(); ++t) {
        const auto& [a, b, c] = triangles[t].corners;
        ASSERT_GT(orientation(plane.point(a), plane.point(b), plane.point(c)), 0);
        for (int i = 0; i < 3; ++i) {
            const int other = triangles[t].neighbours[i];
            if (other < 0) continue;
            const auto& near = triangles[other].neighbours;
            const auto back = std::find(near.begin(), near.end(), static_cast<int>(t)) - near.begin();
            ASSERT_LT(back, 3);
            ASSERT_EQ(triangles[other].sides[back].is_fixed, triangles[t].sides[i].is_fixed);
            ASSERT_EQ(triangles[other].sides[back].passes, -triangles[t].sides[i].passes);
            if (triangles[t].sides[i].is_fixed) continue;
            const Point2& far = plane.point(triangles[other].corners[back]);
            ASSERT_LE(in_circle(plane.point(a), plane.point(b), plane.point(c), far), 0);
        }
    }
}

/// The area inside polygons; NaN when a boundary was refused.
double area_inside(const std::vector<Polygon2>& polygons, std::size_t* passed_count = nullptr) {
    std::vector<Point2> points;
    for (const Polygon2& polygon : polygons) points.insert(points.end(), polygon.begin(), polygon.end());
    Triangulation plane(points);
    expect_sound(plane);
    std::vector<int> passed;
    int first = 0;
    for (const Polygon2& polygon : polygons) {
        const int count = static_cast<int>(polygon.size());
        for (int i = 0; i < count; ++i) {
            if (!plane.add_boundary(first + i, first + (i + 1) % count, passed)) return std::nan("");
        }
        first += count;
    }
    expect_sound(plane);
    plane.mark_inside();
    if (passed_count) *passed_count = passed.size();
    double sum = 0;
    for (const auto& triangle : plane.triangles()) {
        if (!triangle.is_inside()) continue;
        const auto& [a, b, c] = triangle.corners;
        sum += cross2(plane.point(b) - plane.point(a), plane.point(c) - plane.point(a)) / 2;
    }
    return sum;
}

Polygon2 square(double x, double y, double size) {
    return {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
}

Polygon2 star(int count, double inner, double outer) {
    Polygon2 result;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * i / count, r = i % 2 == 0 ? outer : inner;
        result.emplace_back(r * std::cos(angle), r * std::sin(angle));
    }
    return result;
}

double area_of(const Polygon2& polygon) {
    double sum = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i)
        sum += cross2(polygon[i], polygon[(i + 1) % polygon.size()]);
    return sum / 2;
}

TEST(Triangulation, FillsWhatBoundariesEnclose) {
    const Polygon2 outer = square(0, 0, 1);
    Polygon2 crowded = outer;  // many points on one line
    for (int i = 1; i < 400; ++i) crowded.insert(crowded.begin() + i, Point2(i / 400.0, 0));
    Polygon2 nearly_straight = outer;
    for (int i = 1; i < 100; ++i) {
        nearly_straight.insert(nearly_straight.begin() + i,
                               Point2(i / 100.0, (i % 2) * 1e-17 - (i % 3) * 1e-16));
    }
    Polygon2 spike = outer;
    spike.insert(spike.begin() + 1, {{0.5, 0}, {0.5, 0.7}, {0.5, 0}});
    Polygon2 comb{{0, 0}};
    for (int i = 0; i < 200; ++i) comb.insert(comb.end(), {{i + 0.5, 1e-9}, {i + 1.0, 1}});
    comb.emplace_back(200, -1);
    const Polygon2 corners = star(5, 1, 1);
    const Polygon2 pentagram{corners[0], corners[2], corners[4], corners[1], corners[3]};
    const double inner = std::cos(2 * std::numbers::pi / 5) / std::cos(std::numbers::pi / 5);
    const struct {
        const char* what;
        std::vector<Polygon2> polygons;
        double area;
        std::size_t passed = 0;
    } rows[] = {
        {"square", {outer}, 1},
        {"clockwise", {{{0, 0}, {0, 1}, {1, 1}, {1, 0}}}, 1},
        {"hole", {outer, square(0.25, 0.25, 0.5)}, 0.75},
        {"island in a hole", {outer, square(0.25, 0.25, 0.5), square(0.4, 0.4, 0.2)}, 0.79},
        {"hole that touches a side with a corner", {outer, {{0.5, 0}, {0.25, 0.5}, {0.75, 0.5}}}, 0.875, 1},
        {"hole that touches a side with a side", {outer, square(0.25, 0, 0.5)}, 0.75, 2},
        {"hole in a corner", {outer, square(0, 0, 0.5)}, 0.75, 2},
        {"holes that touch", {outer, square(0.25, 0.25, 0.25), square(0.5, 0.5, 0.25)}, 0.875},
        {"hole that fills all", {outer, outer}, 0},
        {"points on a line", {crowded}, 1},
        {"points nearly on a line", {nearly_straight}, 1},
        {"spike without width", {spike}, 1},
        {"comb", {comb}, -area_of(comb)},
        {"star", {star(3000, 0.999, 1)}, area_of(star(3000, 0.999, 1))},
        {"star with a hole",
         {star(500, 0.5, 1), star(500, 0.2, 0.4)},
         area_of(star(500, 0.5, 1)) - area_of(star(500, 0.2, 0.4))},
        {"one point again and again", {{{0, 0}, {0, 0}, {1, 0}, {1, 0}, {1, 0}, {0, 1}}}, 0.5},
        {"crosses itself", {{{0, 0}, {1, 1}, {1, 0}, {0, 1}}}, 0.5, 1},
        {"squares that cross", {outer, square(0.5, 0.25, 1)}, 1.25, 2},
        {"pentagram", {pentagram}, area_of(star(10, inner, 1)) - area_of(star(5, inner, inner)), 5},
        {"no area", {{{0, 0}, {1, 0}, {0.5, 0}}}, 0, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        std::size_t passed = 0;
        EXPECT_NEAR(area_inside(row.polygons, &passed), row.area, 1e-12 * (1 + std::abs(row.area)));
        EXPECT_EQ(passed, row.passed);
    }
}

TEST(Triangulation, ThousandsOfEdgesTakeLittleTime) {
    std::mt19937 random(7);
    Polygon2 jagged;
    const int count = 100000;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * i / count, r = 1 + 1e-5 * (random() % 1000);
        jagged.emplace_back(r * std::cos(angle), r * std::sin(angle));
    }
    std::vector<int> passed;
    const auto start = std::chrono::steady_clock::now();
    Triangulation plane(jagged);
    for (int i = 0; i < count; ++i) ASSERT_TRUE(plane.add_boundary(i, (i + 1) % count, passed));
    plane.mark_inside();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));  // 0.3 s as a rule
    std::size_t inside = 0;
    for (const auto& triangle : plane.triangles()) inside += triangle.is_inside();
    EXPECT_EQ(inside, static_cast<std::size_t>(count) - 2);
}

TEST(Triangulation, InsertsInsideOnly) {
    const Polygon2 points = square(0, 0, 1);
    Triangulation plane(points);
    std::vector<int> passed;
    for (int i = 0; i < 4; ++i) ASSERT_TRUE(plane.add_boundary(i, (i + 1) % 4, passed));
    plane.mark_inside();
    const auto any = [](const auto&) { return true; };
    EXPECT_EQ(plane.insert_inside({0.5, 0.5}, any), 8);
    EXPECT_EQ(plane.insert_inside({0.5, 0.5}, any), -1);
    EXPECT_EQ(plane.insert_inside({0.5, 0}, any), -1);
    EXPECT_EQ(plane.insert_inside({2, 0.5}, any), -1);
    EXPECT_EQ(plane.insert_inside({0.3, 0.5}, [](const auto&) { return false; }), -1);
    std::mt19937 random(2);
    for (int i = 0; i < 1000; ++i) plane.insert_inside({random() * 0x1p-32, random() % 3 / 2.0}, any);
    expect_sound(plane);
}

}  // namespace
}  // namespace veltrane::kernel
