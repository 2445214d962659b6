#include "veltrane/kernel/algo/free_edges.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/geom/line.hpp"

#include <algorithm>
#include <cmath>
#include <random>

namespace veltrane::kernel {
namespace {

const Point kA(0, 0, 0), kB(1, 0, 0), kC(1, 1, 0), kD(0, 1, 0), kE(2, 0, 0), kF(2, 1, 0);

std::vector<std::size_t> edge_counts(const std::vector<Shape>& wires) {
    std::vector<std::size_t> counts;
    for (const Shape& wire : wires) counts.push_back(child_count(wire));
    return counts;
}

TEST(FreeEdges, BecomeWires) {
    using Counts = std::vector<std::size_t>;
    const auto line = [](const Point& a, const Point& b) { return make_edge(a, b); };
    const Vector off(0, 0, 5e-4);
    const Shape endless = make_edge(Ref<Curve>(make<Line>(kA, Vector(0, 0, 1))));
    const struct {
        const char* what;
        std::vector<Shape> edges;
        double tolerance;
        Counts closed, open;
        std::size_t turned;
        double gap;
    } rows[] = {
        {"none", {}, 1e-7, {}, {}, 0, 0},
        {"square in disorder", {line(kA, kB), line(kC, kD), line(kC, kB), line(kD, kA)}, 1e-7, {4}, {}, 1, 0},
        {"gaps", {line(kA, kB), line(kB + off, kC), line(kC, kA - off)}, 1e-3, {3}, {}, 0, 5e-4},
        {"gaps too wide", {line(kA, kB), line(kB + off, kC), line(kC, kA - off)}, 1e-4, {}, {1, 2}, 0, 0},
        {"whisker first", {line(kB, kE), line(kA, kB), line(kB, kC), line(kC, kA)}, 1e-7, {3}, {1}, 0, 0},
        {"whiskers of two",
         {line(kE, kF), line(kA, kB), line(kB, kC), line(kC, kA), line(kB, kE)},
         1e-7,
         {3},
         {2},
         0,
         0},
        {"eight",
         {line(kA, kB), line(kB, kE), line(kE, kF), line(kF, kB), line(kB, kC), line(kC, kA)},
         1e-7,
         {3, 3},
         {},
         0,
         0},
        {"with a partition",
         {line(kA, kE), line(kE, kF), line(kF, kD), line(kD, kA), line(kE, kD)},
         1e-7,
         {4},
         {1},
         0,
         0},
        {"closed edges", {make_edge(samples::circle()), line(kA, kB), line(kB, kA)}, 1e-7, {1, 2}, {}, 0, 0},
        {"crumb", {line(kA, kA + off), line(kA, kB), line(kB, kC), line(kC, kA)}, 1e-3, {3}, {1}, 0, 5e-4},
        {"endless", {endless, line(kA, kB)}, 1e-7, {}, {1, 1}, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const FreeEdgeWires wires = wires_of_free_edges(row.edges, row.tolerance);
        EXPECT_EQ(edge_counts(wires.closed), row.closed);
        EXPECT_EQ(edge_counts(wires.open), row.open);
        EXPECT_EQ(wires.turned, row.turned);
        EXPECT_NEAR(wires.largest_gap, row.gap, 1e-12);
        for (const Shape& wire : wires.closed) EXPECT_TRUE(is_closed_wire(wire));
    }
}

/// A net of streets: every edge comes out once, and no closed wire meets a vertex twice.
TEST(FreeEdges, OfALargeNetAreAllUsedOnce) {
    constexpr int kSide = 120;
    std::vector<Shape> edges;
    for (int i = 0; i < kSide; ++i) {
        for (int j = 0; j < kSide; ++j) {
            edges.push_back(make_edge({1.0 * i, 1.0 * j, 0}, {i + 1.0, 1.0 * j, 0}));
            edges.push_back(make_edge({1.0 * i, j + 1.0, 0}, {1.0 * i, 1.0 * j, 0}));
        }
    }
    std::shuffle(edges.begin(), edges.end(), std::mt19937(7));
    const FreeEdgeWires wires = wires_of_free_edges(edges);
    std::size_t count = 0;
    for (const Shape& wire : wires.open) count += child_count(wire);
    for (const Shape& wire : wires.closed) {
        count += child_count(wire);
        EXPECT_TRUE(is_closed_wire(wire));
        EXPECT_EQ(distinct_sub_shapes(wire, ShapeKind::Vertex).size(), child_count(wire));
    }
    EXPECT_EQ(count, edges.size());
}

}  // namespace
}  // namespace veltrane::kernel
