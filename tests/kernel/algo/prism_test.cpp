#include "veltrane/kernel/algo/prism.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {
namespace {

using samples::kPi;

TEST(Prism, ResultsAreSound) {
    for (const samples::Sample& sample : samples::faces()) {
        SCOPED_TRACE(sample.name);
        samples::expect_sound(sample.shape);
    }
}

TEST(Prism, SweepsIntoTheSimplestSurface) {
    const Shape slanted = make_edge(samples::circle(2, {0, 0, 0}, {1, 0, 1}));
    const struct {
        const char* what;
        Shape edge;
        Vector sweep;
        SurfaceKind kind;
        double area;
    } rows[] = {
        {"line", make_edge({0, 0, 0}, {3, 4, 0}), {0, 0, 2}, SurfaceKind::Plane, 10},
        {"line aslant", make_edge({0, 0, 0}, {3, 0, 0}), {1, 0, -2}, SurfaceKind::Plane, 6},
        {"circle", make_edge(samples::circle()), {0, 0, 5}, SurfaceKind::Cylinder, 20 * kPi},
        {"circle downwards", make_edge(samples::circle()), {0, 0, -5}, SurfaceKind::Cylinder, 20 * kPi},
        {"arc over the seam", make_edge(samples::circle(), {6, 7}), {0, 0, 5}, SurfaceKind::Cylinder, 10},
        {"slanted circle", slanted, {1, 0, 1}, SurfaceKind::Cylinder, 4 * kPi * std::sqrt(2)},
        // Arc length of an ellipse with radii 3 and 1: 4 x 3 x E(m = 8/9).
        {"ellipse",
         make_edge(samples::ellipse()),
         {0, 0, 2},
         SurfaceKind::LinearExtrusion,
         2 * 13.364893220555258},
        // Along the sweep the half circle has breadth 2 r on each side.
        {"half circle in its plane",
         make_edge(samples::circle(), {0, kPi}),
         {0, 7, 0},
         SurfaceKind::LinearExtrusion,
         28},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Shape face = prism(row.edge, row.sweep);
        EXPECT_EQ(face_surface(face)->kind(), row.kind);
        EXPECT_NEAR(area(face), row.area, 1e-9 * row.area);
    }
}

TEST(Prism, NormalIsAlongTravelTimesSweep) {
    for (const samples::Sample& sample : samples::edges()) {
        for (const Vector& sweep : {Vector(0, 0, 5), Vector(0, 0, -5), Vector(0.5, 0.25, 2)}) {
            for (const Shape& edge : {sample.shape, sample.shape.reversed()}) {
                SCOPED_TRACE(sample.name);
                const EdgeGeometry geometry = edge_geometry(edge);
                const Vector along = geometry.curve->derivatives(geometry.range.middle()).first;
                const Vector expected = unit(cross(edge.is_reversed() ? Vector(-along) : along, sweep));
                EXPECT_LT((samples::face_normal(prism(edge, sweep)) - expected).norm(), 1e-9);
            }
        }
    }
}

TEST(Prism, WireGivesAShellWithSharedEdges) {
    const Shape open = prism(samples::mixed_wire(), {0, 0, 4});
    EXPECT_TRUE(open.is(ShapeKind::Shell));
    EXPECT_EQ(sub_shapes(open, ShapeKind::Face).size(), 3u);
    EXPECT_EQ(distinct_sub_shapes(open, ShapeKind::Edge).size(), 10u);
    EXPECT_EQ(distinct_sub_shapes(open, ShapeKind::Vertex).size(), 8u);
    EXPECT_NEAR(area(open), 4 * (8 + 2 * kPi), 1e-9);

    const Shape closed =
        prism(make_wire(samples::polygon_edges({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}})), {0, 0, 1});
    EXPECT_EQ(distinct_sub_shapes(closed, ShapeKind::Edge).size(), 9u);
    EXPECT_EQ(distinct_sub_shapes(closed, ShapeKind::Vertex).size(), 6u);
}

TEST(Prism, FaceGivesASolidAndACompoundItsMembers) {
    const Shape square = make_wire(samples::polygon_edges({{0, 0, 0}, {3, 0, 0}, {3, 3, 0}, {0, 3, 0}}));
    const Shape hole = make_wire(samples::polygon_edges({{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}}));
    const Shape face = make_planar_face(square, std::span(&hole, 1)).face;
    for (const Shape& given : {face, face.reversed(), moved(face, Transform::translation({1, 2, 3}))}) {
        const Shape solid = prism(given, {1, 0, -2});
        ASSERT_TRUE(solid.is(ShapeKind::Solid));
        EXPECT_EQ(distinct_sub_shapes(solid, ShapeKind::Face).size(), 10u);
        EXPECT_EQ(distinct_sub_shapes(solid, ShapeKind::Edge).size(), 24u);
        EXPECT_EQ(distinct_sub_shapes(solid, ShapeKind::Vertex).size(), 16u);
        EXPECT_NEAR(volume(solid), 16, 1e-12);
        samples::expect_sound(solid);
    }
    const Shape both =
        prism(make_compound({face, make_compound({make_edge({0, 0, 0}, {1, 0, 0})})}), {0, 0, 1});
    ASSERT_EQ(child_count(both), 2u);
    EXPECT_TRUE(child(both, 0).is(ShapeKind::Solid));
    EXPECT_TRUE(child(both, 1).is(ShapeKind::Face));
}

TEST(Prism, WireOfTurnedPlacedEdgesIsSharedToo) {
    const Transform turn = Transform::rotation({0, 0, 0}, {0, 0, 1}, kPi / 2);
    const Shape edge = make_edge({1, 0, 0}, {0, 1, 0});
    const Shape wire = make_group(ShapeKind::Wire, {moved(edge, turn).reversed(), edge.reversed()});
    const Shape shell = prism(moved(wire, turn), {0, 0, 3});
    samples::expect_sound(shell);
    EXPECT_EQ(distinct_sub_shapes(shell, ShapeKind::Edge).size(), 7u);
    EXPECT_NEAR(area(shell), 6 * std::sqrt(2.0), 1e-9);
}

TEST(Prism, SweepsVerticesWhereTheyStand) {
    const Transform turn = Transform::rotation({0, 0, 0}, {1, 0, 0}, kPi / 2);
    const Shape edge = prism(moved(make_vertex({0, 1, 0}), turn), {0, 0, 2});
    EXPECT_LT(distance(vertex_point(first_vertex(edge)), {0, 0, 1}), 1e-12);
    EXPECT_LT(distance(vertex_point(last_vertex(edge)), {0, 0, 3}), 1e-12);
}

TEST(Prism, RefusesWhatCannotBeSwept) {
    const Shape edge = make_edge({0, 0, 0}, {1, 0, 0});
    const Shape line = make_edge(Ref<Curve>(make<Line>(Point(0, 0, 0), Vector(1, 0, 0))));
    EXPECT_THROW(prism(edge, {0, 0, 0}), KernelError);
    EXPECT_THROW(prism(edge, {0, 0, std::nan("")}), KernelError);
    EXPECT_THROW(prism(edge, {-2, 0, 0}), KernelError);
    EXPECT_THROW(prism(line, {0, 0, 1}), KernelError);
    const Shape square = make_wire(samples::polygon_edges({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}));
    EXPECT_THROW(prism(prism(square, {0, 0, 1}), {0, 0, 1}), KernelError);
    EXPECT_THROW(prism(make_planar_face(square).face, {1, 2, 0}), KernelError);
    EXPECT_THROW(prism(Shape(), {0, 0, 1}), KernelError);
}

}  // namespace
}  // namespace veltrane::kernel
