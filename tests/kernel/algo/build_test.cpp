#include "veltrane/kernel/algo/build.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <cmath>

namespace veltrane::kernel {
namespace {

const Ref<Curve> kLine = make<Line>(Point(1, 0, 0), Vector(0, 1, 0));

TEST(MakeEdge, KnowsItsEnds) {
    const struct {
        const char* what;
        Shape edge;
        std::size_t vertices;
        bool closed;
    } rows[] = {
        {"segment", make_edge({0, 0, 0}, {1, 0, 0}), 2, false},
        {"whole line", make_edge(kLine), 0, false},
        {"ray", make_edge(make<TrimmedCurve>(kLine, 0, 2e100)), 1, false},
        {"circle", make_edge(samples::circle()), 2, true},
        {"whole turn from anywhere", make_edge(samples::circle(), {1, 1 + kTwoPi}), 2, true},
        {"arc over the seam", make_edge(samples::circle(), {6, 7}), 2, false},
        {"trimmed arc", make_edge(make<TrimmedCurve>(samples::circle(), 5, 1)), 2, false},
        {"spline", make_edge(samples::spline()), 2, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(child_count(row.edge), row.vertices);
        EXPECT_EQ(edge_definition(row.edge).is_closed(), row.closed);
        EXPECT_NE(edge_definition(row.edge).curve()->kind(), CurveKind::Trimmed);
        if (row.vertices == 2) samples::expect_sound(row.edge);
    }
}

TEST(MakeEdge, RefusesWhatIsNoEdge) {
    const double nan = std::nan("");
    EXPECT_THROW(make_edge(nullptr), KernelError);
    EXPECT_THROW(make_edge({1, 1, 1}, {1, 1, 1 + 1e-8}), KernelError);
    EXPECT_THROW(make_edge({0, 0, 0}, {nan, 0, 0}), KernelError);
    EXPECT_THROW(make_edge({0, 0, 0}, {1e300, 0, 0}), KernelError);
    EXPECT_THROW(make_vertex({0, nan, 0}), KernelError);
    for (const Interval& range : {Interval{1, 1}, {2, 1}, {nan, 1}, {0, nan}, {0, 1e200}, {0, 1e-9}}) {
        EXPECT_THROW(make_edge(kLine, range), KernelError) << range.first << " " << range.last;
    }
    EXPECT_THROW(make_edge(samples::circle(), {0, 7}), KernelError);
    EXPECT_THROW(make_edge(samples::spline(), {0, 1.5}), KernelError);
}

TEST(MakeWire, SharesVerticesWhereEdgesMeet) {
    const Shape square = make_wire(samples::polygon_edges({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}));
    EXPECT_EQ(distinct_sub_shapes(square, ShapeKind::Vertex).size(), 4u);
    EXPECT_TRUE(is_closed_wire(square));

    const Shape apart =
        make_wire(std::vector{make_edge({0, 0, 0}, {1, 0, 0}), make_edge({2, 0, 0}, {3, 0, 0})});
    EXPECT_EQ(distinct_sub_shapes(apart, ShapeKind::Vertex).size(), 4u);
    EXPECT_FALSE(is_closed_wire(apart));

    const Shape there_and_round =
        make_wire(std::vector{make_edge({0, 0, 0}, {3, 2, 3}), make_edge(samples::circle())});
    EXPECT_EQ(distinct_sub_shapes(there_and_round, ShapeKind::Vertex).size(), 2u);
    samples::expect_sound(there_and_round);

    EXPECT_THROW(make_wire({}), KernelError);
    EXPECT_THROW(make_wire(std::vector{make_vertex({0, 0, 0})}), KernelError);
}

TEST(MakeWire, TakesPlacedEdges) {
    const Transform move = Transform::translation({1, 0, 0});
    const Shape edge = make_edge({0, 0, 0}, {1, 0, 0});
    const Shape next = make_edge({1, 0, 0}, {2, 1, 0});

    const Shape alike = make_wire(std::vector{moved(edge, move), moved(next, move)});
    EXPECT_TRUE(alike.placement());
    EXPECT_TRUE(is_partner(own_child(alike, 0), edge));
    EXPECT_EQ(distinct_sub_shapes(alike, ShapeKind::Vertex).size(), 3u);

    const Shape unlike = make_wire(std::vector{edge, moved(edge, move)});
    EXPECT_EQ(distinct_sub_shapes(unlike, ShapeKind::Vertex).size(), 3u);
    EXPECT_EQ(vertex_point(last_vertex(edges_in_order(unlike)[1])), Point(2, 0, 0));
}

TEST(MakeCompound, LeavesOutNullShapes) {
    EXPECT_EQ(child_count(make_compound({Shape(), make_vertex({0, 0, 0}), Shape()})), 1u);
    EXPECT_EQ(child_count(make_compound({})), 0u);
}

}  // namespace
}  // namespace veltrane::kernel
