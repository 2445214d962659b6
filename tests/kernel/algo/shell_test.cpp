#include "veltrane/kernel/algo/shell.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <cmath>
#include <limits>

namespace veltrane::kernel {
namespace {

using Polygon = std::vector<std::size_t>;
using Polygons = std::vector<Polygon>;

const std::vector<Point> kCorners = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                     {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
/// The sides of a cube, some outwards and some inwards.
const Polygons kCube = {{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4}, {2, 1, 5, 6}, {2, 3, 7, 6}, {3, 0, 4, 7}};

std::ptrdiff_t euler(const Shape& shell) {
    const auto count = [&](ShapeKind kind) {
        return static_cast<std::ptrdiff_t>(distinct_sub_shapes(shell, kind).size());
    };
    return count(ShapeKind::Vertex) - count(ShapeKind::Edge) + count(ShapeKind::Face);
}

/// A band of quadrilaterals around the Z axis that turns over `half_turns` times; seen along it the
/// quadrilaterals are cut into triangles, for they are not flat.
PolygonShell band(int half_turns) {
    constexpr std::size_t kCount = 12;
    std::vector<Point> points;
    for (std::size_t i = 0; i < kCount; ++i) {
        const double at = static_cast<double>(i) / kCount * kTwoPi, lean = at * half_turns / 2;
        const Vector out(std::cos(at), std::sin(at), 0);
        const Vector across = std::cos(lean) * out + std::sin(lean) * Vector::UnitZ();
        points.push_back(5 * out + across);
        points.push_back(5 * out - across);
    }
    Polygons polygons;
    for (std::size_t i = 0; i < kCount; ++i) {
        const bool flips = i + 1 == kCount && half_turns % 2 == 1;
        const std::size_t next = (i + 1) % kCount * 2;
        const std::size_t a = next + flips, b = next + !flips;
        polygons.push_back({2 * i, a, b});
        polygons.push_back({2 * i, 2 * i + 1, b});
    }
    return make_polygon_shell(points, polygons);
}

TEST(PolygonShell, KnowsItsTopology) {
    Polygons open = kCube;
    open.pop_back();
    Polygons finned = kCube;
    finned.push_back({0, 1, 6});
    const struct {
        const char* what;
        PolygonShell made;
        std::size_t edges;
        std::ptrdiff_t euler;
        bool is_closed;
        bool is_oriented;
    } rows[] = {
        {"cube", make_polygon_shell(kCorners, kCube), 12, 2, true, true},
        {"open box", make_polygon_shell(kCorners, open), 12, 1, false, true},
        {"cube with a fin", make_polygon_shell(kCorners, finned), 14, 1, false, false},
        {"band", band(0), 48, 0, false, true},
        {"twisted twice", band(2), 48, 0, false, true},
        {"one-sided", band(1), 48, 0, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_TRUE(row.made.left_out.empty());
        const Shape& shell = row.made.report.shell;
        EXPECT_EQ(distinct_sub_shapes(shell, ShapeKind::Edge).size(), row.edges);
        EXPECT_EQ(euler(shell), row.euler);
        EXPECT_EQ(row.made.report.is_closed, row.is_closed);
        EXPECT_EQ(row.made.report.is_oriented, row.is_oriented);
        samples::expect_sound(shell);
    }
}

TEST(PolygonShell, MergesPointsAndLeavesOutBadPolygons) {
    std::vector<Point> points = kCorners;
    points.push_back(Point(1, 1, 1 + 1e-8));                              // 8: stands for 6
    points.emplace_back(std::numeric_limits<double>::quiet_NaN(), 0, 0);  // 9
    points.emplace_back(2, 0, 0);                                         // 10: in line with 0 and 1
    points.emplace_back(1, 1, 0.5);                                       // 11: off the plane of 0, 1, 3
    Polygons polygons = kCube;
    polygons[1] = {4, 5, 5, 8, 7};
    const PolygonShell whole = make_polygon_shell(points, polygons);
    EXPECT_TRUE(whole.report.is_closed);
    EXPECT_NEAR(area(whole.report.shell), 6, 1e-7);

    const Polygons bad = {{0, 9, 1}, {0, 1, 10}, {0, 1, 11, 3}, {6, 8}, {}, {0, 1, 0}};
    const PolygonShell none = make_polygon_shell(points, bad);
    EXPECT_TRUE(none.report.shell.is_null());
    ASSERT_EQ(none.left_out.size(), bad.size());
    const PlanarFault faults[] = {PlanarFault::NotAWire, PlanarFault::NoArea,   PlanarFault::NotPlanar,
                                  PlanarFault::NotAWire, PlanarFault::NotAWire, PlanarFault::NoArea};
    for (std::size_t i = 0; i < bad.size(); ++i) EXPECT_EQ(none.left_out[i].fault, faults[i]) << i;
    EXPECT_THROW(make_polygon_shell(points, Polygons{{0, 1, 12}}), KernelError);
}

TEST(Shells, AreWhatHangsTogether) {
    PolygonNet net(kCorners);
    std::vector<Shape> faces;
    for (const std::size_t i : {0u, 1u}) faces.push_back(make_planar_face(net.wire(kCube[i])).face);
    EXPECT_EQ(make_shells(faces).size(), 2u);
    faces.push_back(make_planar_face(net.wire(kCube[2])).face.reversed());
    const std::vector<ShellReport> joined = make_shells(faces);
    ASSERT_EQ(joined.size(), 1u);
    EXPECT_TRUE(joined[0].is_oriented);
    EXPECT_TRUE(is_equal(own_child(joined[0].shell, 0), faces[0]));
    const Shape pipe = prism(make_edge(samples::circle()), {0, 0, 1});
    EXPECT_TRUE(make_shell(std::vector{pipe}).is_oriented);
    EXPECT_FALSE(make_shell(std::vector{pipe}).is_closed);
    EXPECT_THROW(make_shells(std::vector{make_vertex({0, 0, 0})}), KernelError);
    EXPECT_THROW(make_shell({}), KernelError);
}

}  // namespace
}  // namespace veltrane::kernel
