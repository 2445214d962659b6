#include "veltrane/kernel/algo/planar_face.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/check.hpp"
#include "veltrane/kernel/algo/fit_plane.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"

#include <cmath>

namespace veltrane::kernel {
namespace {

using samples::kPi;

Shape polygon(const std::vector<Point>& corners) {
    return make_wire(samples::polygon_edges(corners));
}
Shape square(double half, const Point& centre = {0, 0, 0}) {
    const Vector x(half, 0, 0), y(0, half, 0);
    return polygon({centre - x - y, centre + x - y, centre + x + y, centre - x + y});
}
Shape ring(double radius, const Point& centre = {0, 0, 0}) {
    const Shape edge = make_edge(samples::circle(radius, centre));
    return make_wire(std::span(&edge, 1));
}
/// A Bezier arc over the unit segment, and the segment back: the area between them is 3/5.
Shape bow() {
    BSplineData data;
    data.degree = 3;
    data.poles = {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}};
    data.knots = {0, 1};
    data.multiplicities = {4, 4};
    return make_wire(std::vector{make_edge(make<BSplineCurve>(data)), make_edge({1, 0, 0}, {0, 0, 0})});
}
Shape half_ellipse() {
    const Ref<Curve> arc = make<Ellipse>(Frame(), 3, 1);
    return make_wire(std::vector{make_edge(arc, {0, kPi}), make_edge({-3, 0, 0}, {3, 0, 0})});
}

struct FaceRow {
    const char* what;
    Shape wire;
    std::vector<Shape> holes;
    double area;
    bool turns_down = false;
};

std::vector<FaceRow> face_rows() {
    return {
        {"square", square(1), {}, 4},
        {"clockwise", square(1).reversed(), {}, 4},
        {"circle", ring(2), {}, 4 * kPi},
        {"lines and arc",
         make_wire(std::vector{make_edge(samples::circle(2, {0, 0, 0}), {0, kPi}),
                               make_edge({-2, 0, 0}, {2, 0, 0})}),
         {},
         2 * kPi},
        {"half ellipse", half_ellipse(), {}, 1.5 * kPi},
        {"spline", bow(), {}, 0.6, true},
        {"sliver", polygon({{0, 0, 0}, {1e4, 1e-5, 0}, {5e3, 2e-5, 0}}), {}, 0.075},
        {"holes either way round", square(5), {ring(1), ring(1, {3, 3, 0}).reversed()}, 100 - 2 * kPi},
        {"hole that touches", square(5), {square(1, {4, 0, 0})}, 96},
        {"huge", square(1e9), {}, 4e18},
        {"tiny", square(1e-5), {}, 4e-10},
    };
}

TEST(PlanarFace, TakesItsPlaneFromTheWire) {
    const Transform places[] = {
        Transform(), Transform::rotation({1, 2, 3}, {1, -1, 2}, 1.1),
        Transform::translation({3e6, -5e6, 1e5}) * Transform::rotation({0, 0, 0}, {1, 0, 0}, 2.5)};
    for (const FaceRow& row : face_rows()) {
        for (const Transform& place : places) {
            for (const bool baked : {false, true}) {
                SCOPED_TRACE(row.what);
                const auto put = [&](const Shape& shape) {
                    return baked ? transformed(shape, AffineMap(place)) : moved(shape, place);
                };
                std::vector<Shape> holes;
                for (const Shape& hole : row.holes) holes.push_back(put(hole));
                const PlanarFace made = make_planar_face(put(row.wire), holes);
                ASSERT_EQ(made.fault, PlanarFault::None);
                // Rounding of far co-ordinates moves the boundary.
                const Box box = bounding_box(made.face);
                const double reach =
                    std::max(box.min().cwiseAbs().maxCoeff(), box.max().cwiseAbs().maxCoeff());
                const double slack = baked ? 1e-15 * reach * length(row.wire) : 0;
                EXPECT_NEAR(area(made.face), row.area, 1e-11 * row.area + slack);
                if (reach < 1e6) samples::expect_sound(made.face);
                if (row.area < 0.1) continue;  // narrow and tiny ones turn with the rounding
                const bool down = row.wire.is_reversed() || row.turns_down;
                const Vector normal = place.direction(Vector(0, 0, down ? -1 : 1));
                EXPECT_LT((samples::face_normal(made.face) - normal).norm(), 1e-6);
            }
        }
    }
}

TEST(PlanarFace, KeepsTheEdgesOfTheWire) {
    const Shape wire = moved(square(1), Transform::translation({1, 2, 3}));
    const std::vector<Shape> mine = sub_shapes(make_planar_face(wire).face, ShapeKind::Edge);
    const std::vector<Shape> given = sub_shapes(wire, ShapeKind::Edge);
    ASSERT_EQ(mine.size(), given.size());
    for (std::size_t i = 0; i < mine.size(); ++i) EXPECT_TRUE(is_same(mine[i], given[i]));
}

TEST(PlanarFace, TakesTheNormalOfAGivenPlane) {
    const Plane below(Frame::from_normal({0, 0, 3}, {0, 0, -1}));
    const Shape wire = moved(square(2), Transform::translation({5, 5, 3}));
    for (const Shape& outer : {wire, wire.reversed()}) {
        const PlanarFace made = make_planar_face(below, outer, std::vector{ring(1, {5, 5, 3})});
        EXPECT_NEAR(area(made.face), 16 - kPi, 1e-12);
        EXPECT_LT((samples::face_normal(made.face) - Vector(0, 0, -1)).norm(), 1e-12);
    }
    EXPECT_EQ(make_planar_face(below, square(1)).fault, PlanarFault::NotPlanar);
}

TEST(PlanarFace, SaysWhyThereIsNone) {
    const Shape there = make_edge({0, 0, 0}, {1, 0, 0});
    const struct {
        const char* what;
        Shape wire;
        std::vector<Shape> holes;
        PlanarFault fault;
        std::size_t at;
    } rows[] = {
        {"null", Shape(), {}, PlanarFault::NotAWire, 0},
        {"edge", there, {}, PlanarFault::NotAWire, 0},
        {"empty wire", make_group(ShapeKind::Wire, {}), {}, PlanarFault::NotAWire, 0},
        {"open", samples::mixed_wire(), {}, PlanarFault::Open, 0},
        {"skew", polygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 1e-5}, {0, 1, 0}}), {}, PlanarFault::NotPlanar, 0},
        {"there and back", make_wire(std::vector{there, there.reversed()}), {}, PlanarFault::NoArea, 0},
        {"balanced eight", polygon({{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}}), {}, PlanarFault::NoArea, 0},
        {"hole above", square(5), {square(1), square(1, {0, 0, 1})}, PlanarFault::NotPlanar, 2},
        {"open hole", square(5), {samples::mixed_wire()}, PlanarFault::Open, 1},
    };
    for (const auto& row : rows) {
        const PlanarFace made = make_planar_face(row.wire, row.holes);
        EXPECT_TRUE(made.face.is_null()) << row.what;
        EXPECT_EQ(made.fault, row.fault) << row.what << ": " << message(made.fault);
        EXPECT_EQ(made.wire, row.at) << row.what;
    }
    const Shape nearly = polygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 1e-5}, {0, 1, 0}});
    EXPECT_NEAR(area(make_planar_face(nearly, {}, 1e-5).face), 1, 1e-9);
}

TEST(FitPlane, BalancesScatteredPoints) {
    std::vector<Point> points;
    for (int i = 0; i < 100; ++i) points.emplace_back(i % 10, i / 10, i % 3 == 0 ? 0.9e-3 : -0.9e-3);
    points.emplace_back(0, 0, -1.5e-3);  // an end of the widest triangle, off by more than its share
    const FittedPlane plane = fit_plane(points, 2e-3);
    EXPECT_EQ(plane.fit, PlaneFit::Found);
    EXPECT_LE(plane.deviation, 2e-3);
    EXPECT_EQ(fit_plane(points, 1e-4).fit, PlaneFit::NotPlanar);
}

TEST(PlanarFaces, NestAlternately) {
    // Squares in squares, side by side with a circle, in no order.
    std::vector<Shape> wires = {square(1), ring(2, {20, 0, 0}), square(3).reversed(), square(4), square(2)};
    PlanarFaces made = make_planar_faces(wires);
    EXPECT_TRUE(made.left_out.empty());
    ASSERT_EQ(made.faces.size(), 3u);
    EXPECT_NEAR(area(made.faces[0]), 4 * kPi, 1e-12);
    EXPECT_NEAR(area(made.faces[1]), 64 - 36, 1e-12);
    EXPECT_NEAR(area(made.faces[2]), 16 - 4, 1e-12);
    for (const Shape& face : made.faces) samples::expect_sound(face);

    wires.push_back(square(3));                   // again
    wires.push_back(samples::mixed_wire());       // open
    wires.push_back(square(0.5, {0, 0, 0.001}));  // off the plane
    made = make_planar_faces(Plane(Frame()), wires);
    ASSERT_EQ(made.faces.size(), 3u);
    ASSERT_EQ(made.left_out.size(), 3u);
    const PlanarFault faults[] = {PlanarFault::Repeated, PlanarFault::Open, PlanarFault::NotPlanar};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(made.left_out[i].wire, 5 + i);
        EXPECT_EQ(made.left_out[i].fault, faults[i]);
    }
}

TEST(PlanarFaces, LetLoopsTouch) {
    const struct {
        const char* what;
        std::vector<Shape> wires;
        std::vector<double> areas;
    } rows[] = {
        {"hole at a side", {square(5), square(1, {4, 0, 0})}, {96}},
        {"hole at a corner", {square(5), square(1, {4, 4, 0})}, {96}},
        {"circle in its square", {ring(1), square(1)}, {4 - kPi}},
        {"circles inside each other", {ring(1, {1, 0, 0}), ring(2, {2, 0, 0})}, {3 * kPi}},
        {"neighbours", {square(1), square(1, {2, 0, 0})}, {4, 4}},
        {"two holes that touch", {square(1, {-1, 0, 0}), square(1, {1, 0, 0}), square(5)}, {92}},
        {"in the bay, not in the figure",
         {square(0.5, {3, 5, 0}),
          polygon({{0, 0, 0}, {6, 0, 0}, {6, 8, 0}, {4, 8, 0}, {4, 2, 0}, {2, 2, 0}, {2, 8, 0}, {0, 8, 0}})},
         {1, 36}},
    };
    for (const auto& row : rows) {
        for (const double scale : {1.0, 1e-3, 1e8}) {
            SCOPED_TRACE(row.what);
            std::vector<Shape> wires;
            for (const Shape& wire : row.wires) {
                const Transform grown =
                    Transform::rotation({0, 0, 0}, {1, 2, 3}, 0.4) * Transform::scaling({0, 0, 0}, scale);
                wires.push_back(transformed(wire, grown));
            }
            const PlanarFaces made = make_planar_faces(wires);
            EXPECT_TRUE(made.left_out.empty());
            ASSERT_EQ(made.faces.size(), row.areas.size());
            for (std::size_t i = 0; i < row.areas.size(); ++i) {
                EXPECT_NEAR(area(made.faces[i]), row.areas[i] * scale * scale, 1e-9 * scale * scale);
            }
            for (const Finding& finding : check(make_compound(made.faces))) {
                ADD_FAILURE() << message(finding.flaw) << ", " << finding.size << ", scale " << scale;
            }
        }
    }
}

TEST(PlanarFaces, ManyLoopsTakeLittleTime) {
    std::vector<Shape> wires;
    for (int i = 0; i < 60; ++i) {
        for (int j = 0; j < 60; ++j) wires.push_back(ring(1, {3.0 * i, 3.0 * j, 0}));
    }
    wires.push_back(square(200));
    const PlanarFaces made = make_planar_faces(wires);
    ASSERT_EQ(made.faces.size(), 1u);
    EXPECT_EQ(face_definition(made.faces[0]).loops().size(), wires.size());
    EXPECT_NEAR(area(made.faces[0]), 160000 - 3600 * kPi, 1e-6);
}

}  // namespace
}  // namespace veltrane::kernel
