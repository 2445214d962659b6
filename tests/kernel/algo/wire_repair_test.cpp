#include "veltrane/kernel/algo/wire_repair.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>
#include <random>

namespace veltrane::kernel {
namespace {

Shape segment(double a, double b) {
    return make_edge({a, 0, 0}, {b, 0, 0});
}

std::vector<double> starts(const Shape& wire) {
    std::vector<double> result;
    for (const Shape& edge : edges_in_order(wire)) result.push_back(vertex_point(first_vertex(edge)).x());
    return result;
}

TEST(WireRepair, OrdersTurnsAndReports) {
    const struct {
        const char* what;
        std::vector<Shape> edges;
        std::vector<double> starts;
        std::size_t chains, turned, gaps;
    } rows[] = {
        {"in order", {segment(0, 1), segment(1, 2)}, {0, 1}, 1, 0, 0},
        {"shuffled", {segment(2, 3), segment(0, 1), segment(1, 2)}, {0, 1, 2}, 1, 0, 0},
        {"one turned", {segment(0, 1), segment(2, 1), segment(2, 3)}, {0, 1, 2}, 1, 1, 0},
        {"turned before the first", {segment(1, 2), segment(1, 0)}, {0, 1}, 1, 1, 0},
        {"given reversed", {segment(1, 2), segment(1, 0).reversed()}, {0, 1}, 1, 0, 0},
        {"small gap", {segment(0, 1), segment(1 + 5e-8, 2)}, {0, 1 + 2.5e-8}, 1, 0, 1},
        {"wide gap", {segment(0, 1), segment(1.1, 2)}, {0, 1.1}, 2, 0, 0},
        {"two chains mixed",
         {segment(5, 6), segment(0, 1), segment(6, 7), segment(1, 2)},
         {5, 6, 0, 1},
         2,
         0,
         0},
        {"single", {segment(4, 3)}, {4}, 1, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const WireRepair repair = repair_wire(row.edges);
        ASSERT_EQ(edges_in_order(repair.wire).size(), row.starts.size());
        for (std::size_t i = 0; i < row.starts.size(); ++i) {
            EXPECT_NEAR(starts(repair.wire)[i], row.starts[i], 1e-12);
        }
        EXPECT_EQ(repair.chain_starts.size(), row.chains);
        EXPECT_EQ(repair.turned, row.turned);
        EXPECT_EQ(repair.closed_gaps, row.gaps);
        EXPECT_EQ(connected_wires(row.edges).size(), row.chains);
    }
}

TEST(WireRepair, VertexCoversAClosedGap) {
    const WireRepair repair = repair_wire(std::vector{segment(0, 1), segment(1.01, 2)}, 0.05);
    EXPECT_NEAR(repair.largest_gap, 0.01, 1e-12);
    const Shape vertex = last_vertex(edges_in_order(repair.wire)[0]);
    EXPECT_TRUE(is_same(vertex, first_vertex(edges_in_order(repair.wire)[1])));
    EXPECT_NEAR(vertex_point(vertex).x(), 1.005, 1e-12);
    EXPECT_GE(vertex_definition(vertex).tolerance(), 0.005);
    EXPECT_LT(vertex_definition(vertex).tolerance(), 0.006);
}

/// Every edge once, each starting in the vertex where the one before ends.
void expect_one_chain(const WireRepair& repair, std::size_t edges) {
    EXPECT_TRUE(repair.is_one_chain());
    const std::vector<Shape> chain = edges_in_order(repair.wire);
    ASSERT_EQ(chain.size(), edges);
    for (std::size_t i = 1; i < chain.size(); ++i) {
        ASSERT_TRUE(is_same(last_vertex(chain[i - 1]), first_vertex(chain[i])));
    }
}

TEST(WireRepair, AnyOrderOfAnyPolygonGivesItBack) {
    std::mt19937 random(7);
    for (const std::size_t corners : {3u, 10u, 500u, 20000u}) {
        std::vector<Point> points;
        for (std::size_t i = 0; i < corners; ++i) {
            const double angle = kTwoPi * static_cast<double>(i) / static_cast<double>(corners);
            points.emplace_back(100 * std::cos(angle), 100 * std::sin(angle), angle);
        }
        std::vector<Shape> edges = samples::polygon_edges(points);
        for (Shape& edge : edges) {
            if (random() % 2) edge = edge.reversed();
        }
        std::shuffle(edges.begin(), edges.end(), random);
        const WireRepair repair = repair_wire(edges);
        expect_one_chain(repair, corners);
        EXPECT_TRUE(is_closed_wire(repair.wire));
        EXPECT_TRUE(repair_wire(repair.wire).turned == 0);
    }
}

TEST(WireRepair, StaysLinearWhereManyEdgesMeet) {
    std::vector<Shape> star, stack;
    for (int i = 0; i < 20000; ++i) {
        star.push_back(make_edge({0, 0, 0}, {std::cos(i), std::sin(i), i * 0.01}));
        stack.push_back(make_edge({1e-9 * i, 0, 0}, {0, 0, 1 + 1e-9 * i}));
    }
    EXPECT_EQ(chain_edges(star).size(), 10000u);
    EXPECT_LE(chain_edges(stack, 1e-7).size(), stack.size());
}

TEST(WireRepair, TakesClosedUnboundedAndPlacedEdges) {
    const Shape circle = make_edge(samples::circle(1, {0, 0, 0}));
    const WireRepair with_circle = repair_wire(std::vector{segment(5, 1), circle, segment(1, 2)});
    expect_one_chain(with_circle, 3);

    const Shape ray = make_edge(Ref<Curve>(make<Line>(Point(1, 0, 0), Vector(0, 1, 0))), {0, kInfinite});
    expect_one_chain(repair_wire(std::vector{ray, segment(0, 1)}), 2);

    const Shape nearly = make_edge(samples::circle(1, {0, 0, 0}), {0.001, kTwoPi});
    EXPECT_FALSE(is_closed_wire(repair_wire(std::vector{nearly}).wire));
    EXPECT_TRUE(is_closed_wire(repair_wire(std::vector{nearly}, 0.01).wire));

    const Transform move = Transform::translation({1, 0, 0});
    const Shape edge = segment(0, 1);
    expect_one_chain(repair_wire(std::vector{moved(edge, move), edge}), 2);
    expect_one_chain(repair_wire(std::vector{moved(segment(1, 2), move), moved(edge, move)}), 2);
}

TEST(WireRepair, StrangeNumbersDoNoHarm) {
    const std::vector<Shape> far = {make_edge({1e101, 0, 0}, {1e101, 1, 0}),
                                    make_edge({1e101, 1, 0}, {3, 4, 5})};
    for (const double tolerance : {0.0, -1.0, 1e-300, 1e300, std::nan(""), HUGE_VAL}) {
        EXPECT_EQ(edges_in_order(repair_wire(far, tolerance).wire).size(), 2u) << tolerance;
    }
    EXPECT_THROW(repair_wire(std::vector<Shape>()), KernelError);
    EXPECT_THROW(repair_wire(std::vector{make_vertex({0, 0, 0})}), KernelError);
    EXPECT_THROW(chain_edges(std::vector{Shape()}), KernelError);
    EXPECT_TRUE(chain_edges({}).empty());
}

}  // namespace
}  // namespace veltrane::kernel
