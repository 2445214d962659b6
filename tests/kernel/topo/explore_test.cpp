#include "veltrane/kernel/topo/explore.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/dump.hpp"

#include <limits>

namespace veltrane::kernel {
namespace {

std::size_t count(const Shape& shape, ShapeKind kind) {
    return count_by_kind(shape)[static_cast<std::size_t>(kind)];
}

TEST(Explore, CountsUsesAndDistinctShapes) {
    const Shape shell =
        prism(make_wire(samples::polygon_edges({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}})), {0, 0, 1});
    const Shape twice =
        make_compound({shell, moved(shell, Transform::translation({5, 0, 0})), shell.reversed()});
    const struct {
        ShapeKind kind;
        std::size_t uses, distinct;
    } rows[] = {
        {ShapeKind::Compound, 1, 1}, {ShapeKind::Solid, 0, 0}, {ShapeKind::Shell, 3, 2},
        {ShapeKind::Face, 12, 8},    {ShapeKind::Wire, 12, 8}, {ShapeKind::Edge, 48, 24},
        {ShapeKind::Vertex, 96, 16},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(name_of(row.kind));
        EXPECT_EQ(count(twice, row.kind), row.uses);
        EXPECT_EQ(sub_shapes(twice, row.kind).size(), row.uses);
        EXPECT_EQ(distinct_sub_shapes(twice, row.kind).size(), row.distinct);
    }
}

TEST(Explore, AccumulatesPlacementAndOrientation) {
    const Transform move = Transform::translation({10, 0, 0});
    const Transform turn = Transform::rotation({0, 0, 0}, {0, 0, 1}, samples::kPi / 2);
    const Shape edge = moved(make_edge({0, 0, 0}, {1, 0, 0}), turn).reversed();
    const Shape nested = moved(make_compound({make_compound({edge}).reversed()}), move);
    const std::vector<Shape> found = sub_shapes(nested, ShapeKind::Edge);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_FALSE(found[0].is_reversed());
    EXPECT_LT(distance(vertex_point(first_vertex(found[0])), {10, 0, 0}), 1e-15);
    EXPECT_LT(distance(vertex_point(last_vertex(found[0])), {10, 1, 0}), 1e-15);
    const EdgeGeometry geometry = edge_geometry(found[0]);
    EXPECT_LT(distance(geometry.curve->value(geometry.range.last), {10, 1, 0}), 1e-15);
    EXPECT_TRUE(own_children(nested)[0].is_reversed());
}

TEST(Explore, OrdersEdgesByTheWiresDirection) {
    const Shape wire = samples::mixed_wire();
    for (const Shape& directed : {wire, wire.reversed()}) {
        const std::vector<Shape> edges = edges_in_order(directed);
        ASSERT_EQ(edges.size(), 3u);
        EXPECT_TRUE(is_same(last_vertex(edges[0]), first_vertex(edges[1])));
        EXPECT_TRUE(is_same(last_vertex(edges[1]), first_vertex(edges[2])));
    }
    EXPECT_LT(distance(vertex_point(first_vertex(edges_in_order(wire)[0])), {-3, -2, 0}), 1e-12);
    EXPECT_LT(distance(vertex_point(first_vertex(edges_in_order(wire.reversed())[0])), {-3, 2, 0}), 1e-12);
}

TEST(Explore, StopsWhenTheVisitorSaysSo) {
    int visits = 0;
    visit(samples::mixed_wire(), ShapeKind::Edge, [&](const Shape&) { return ++visits < 2; });
    EXPECT_EQ(visits, 2);
}

TEST(Explore, RefusesOtherKinds) {
    const Shape vertex = make_vertex({0, 0, 0});
    EXPECT_THROW(edge_geometry(vertex), KernelError);
    EXPECT_THROW(face_surface(vertex), KernelError);
    EXPECT_THROW(edges_in_order(vertex), KernelError);
    EXPECT_THROW(child(vertex, 0), KernelError);
    EXPECT_THROW(vertex_point(Shape()), KernelError);
    EXPECT_TRUE(sub_shapes(Shape(), ShapeKind::Edge).empty());
}

/// Every operation on shapes, for nestings that recursion or repeated work would not survive.
void expect_survived(const Shape& shape, double expected_length) {
    EXPECT_DOUBLE_EQ(length(shape), expected_length);
    EXPECT_EQ(area(shape), 0);
    EXPECT_TRUE(bounding_box(shape).is_finite());
    EXPECT_FALSE(dump(shape).empty());
    EXPECT_DOUBLE_EQ(length(transformed(shape, Transform::scaling({0, 0, 0}, 2))), 2 * expected_length);
    EXPECT_DOUBLE_EQ(length(transformed(shape, AffineMap(Transform::scaling({0, 0, 0}, -2)))),
                     2 * expected_length);
}

TEST(Explore, DeepNestingIsSafe) {
    Shape shape = make_edge({0, 0, 0}, {1, 0, 0});
    for (int depth = 0; depth < 100000; ++depth) {
        shape = moved(make_compound({std::move(shape)}), Transform::translation({1, 0, 0}));
    }
    EXPECT_EQ(count(shape, ShapeKind::Compound), 100000u);
    EXPECT_EQ(sub_shapes(shape, ShapeKind::Edge).size(), 1u);
    EXPECT_NEAR(bounding_box(shape).max().x(), 100001, 1e-6);
    expect_survived(shape, 1);
}

TEST(Explore, RepeatedDoublingTakesNoTime) {
    Shape shape = make_edge({0, 0, 0}, {1, 0, 0});
    for (int depth = 0; depth < 50; ++depth) {
        shape = make_compound({shape, moved(shape, Transform::translation({1, 0, 0}))});
    }
    EXPECT_EQ(count(shape, ShapeKind::Edge), std::size_t{1} << 50);
    expect_survived(shape, std::ldexp(1.0, 50));
    for (int depth = 0; depth < 20; ++depth) shape = make_compound({shape, shape, shape, shape});
    EXPECT_EQ(count(shape, ShapeKind::Edge), std::numeric_limits<std::size_t>::max());
}

}  // namespace
}  // namespace veltrane::kernel
