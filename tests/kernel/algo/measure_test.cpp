#include "veltrane/kernel/algo/measure.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/shell.hpp"
#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <cmath>

namespace veltrane::kernel {
namespace {

using samples::kPi;

TEST(Length, CountsEdgesAsOneWould) {
    const Shape segment = make_edge({0, 0, 0}, {3, 0, 0});
    const Shape there_and_back = make_wire(std::vector{segment, segment.reversed()});
    const Shape pipe = prism(make_edge(samples::circle(2)), {0, 0, 5});
    const Shape block = make_compound({segment});
    const struct {
        const char* what;
        Shape shape;
        double length;
    } rows[] = {
        {"null", Shape(), 0},
        {"vertex", make_vertex({1, 2, 3}), 0},
        {"edge", segment, 3},
        {"arc", make_edge(samples::circle(2), {6, 7}), 2},
        {"there and back", there_and_back, 6},
        {"face", prism(segment, {0, 0, 2}), 10},
        {"seam counts once", pipe, 8 * kPi + 5},
        {"shell counts shared edges once",
         prism(make_wire(samples::polygon_edges({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}})), {0, 0, 1}),
         12},
        {"block placed twice", make_compound({block, moved(block, Transform::translation({0, 1, 0})), block}),
         9},
    };
    for (const auto& row : rows) EXPECT_NEAR(length(row.shape), row.length, 1e-9) << row.what;
    EXPECT_TRUE(std::isinf(
        length(make_compound({make_edge(Ref<Curve>(make<Line>(Point(0, 0, 0), Vector(1, 0, 0))))}))));
}

/// A face in a plane within circles; the first is the outer one, the others are holes.
Shape disc(const Frame& frame, const std::vector<std::pair<Point2, double>>& circles) {
    std::vector<Loop> loops;
    for (const auto& [centre, radius] : circles) {
        const Ref<Curve2> flat = make_circle2(centre, radius, loops.empty());
        const Shape edge = make_edge(flat->placed(frame));
        loops.push_back({make_wire(std::span(&edge, 1)), {{flat}}});
    }
    return Shape(make<FaceDefinition>(make<Plane>(frame), std::move(loops)));
}

TEST(Area, TakesHolesAndPlaces) {
    const Frame far = Frame::from_normal({1e6, -2e6, 3e5}, {1, 2, 3});
    EXPECT_NEAR(area(disc(Frame(), {{{0, 0}, 2}})), 4 * kPi, 1e-9);
    const Shape washer = disc(far, {{{1, 5}, 3}, {{1, 4}, 1}, {{1, 7}, 0.5}});
    EXPECT_NEAR(area(washer), 7.75 * kPi, 1e-9 * 25);
    EXPECT_NEAR(area(moved(washer.reversed(), Transform::rotation({9, 9, 9}, {1, 0, 2}, 2))), 7.75 * kPi,
                1e-9 * 25);
    EXPECT_NEAR(area(make_compound({washer, make_compound({washer, washer})})), 3 * 7.75 * kPi, 1e-9 * 75);
    EXPECT_EQ(area(make_edge({0, 0, 0}, {1, 0, 0})), 0);
    EXPECT_TRUE(std::isinf(area(Shape(make<FaceDefinition>(make<Plane>(Frame()), std::vector<Loop>())))));
}

TEST(Area, OfASweepIsBreadthTimesHeight) {
    for (const samples::Sample& sample : samples::edges()) {
        if (sample.name.find("spline") != std::string::npos) continue;  // not planar: no simple formula
        SCOPED_TRACE(sample.name);
        const double expected = 5 * length(sample.shape);
        EXPECT_NEAR(area(prism(sample.shape, {0, 0, 5})), expected, 1e-9 * expected);
    }
    // Seen along the sweep the spline is its projection.
    BSplineData flat = as<const BSplineCurve>(samples::spline().get())->data();
    for (Point& pole : flat.poles) pole.z() = 0;
    const double expected = 5 * length(*make<BSplineCurve>(std::move(flat)));
    EXPECT_NEAR(area(prism(make_edge(samples::spline()), {0, 0, 5})), expected, 1e-9 * expected);
}

/// Solids whose volume and centre are known: what stands on the plane z = 0 is swept upwards.
struct Solid {
    const char* what;
    Shape shape;
    double volume;
    Point centre;
};

Shape face_on(const std::vector<Shape>& edges) {
    return make_planar_face(make_wire(edges)).face;
}

std::vector<Solid> solids() {
    const Shape square = face_on(samples::polygon_edges({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}));
    const Shape plate = disc(Frame(), {{{0, 0}, 3}, {{1, 0}, 1}});
    const Ref<Curve> round = samples::circle(2, {0, 0, 0});
    const Shape half = face_on({make_edge(round, {0, kPi}), make_edge({-2, 0, 0}, {2, 0, 0})});
    const Ref<Curve> oval = make<Ellipse>(Frame(), 3, 2);
    // Under the parabola y = 1 - x^2: area 4/3, centre at 2/5.
    BSplineData parabola{2, {{-1, 0, 0}, {0, 2, 0}, {1, 0, 0}}, {}, {-1, 1}, {3, 3}};
    const Shape bow = face_on({make_edge(make<BSplineCurve>(parabola)), make_edge({1, 0, 0}, {-1, 0, 0})});
    return {
        {"cube", prism(square, {0, 0, 2}), 8, {1, 1, 1}},
        {"aslant and downwards", prism(square.reversed(), {1, 3, -2}), 8, {1.5, 2.5, -1}},
        {"cylinder", prism(disc(Frame(), {{{0, 0}, 2}}), {0, 0, 3}), 12 * kPi, {0, 0, 1.5}},
        {"slanted cylinder", prism(disc(Frame(), {{{0, 0}, 2}}), {3, 0, 3}), 12 * kPi, {1.5, 0, 1.5}},
        {"bored", prism(plate, {0, 0, 2}), 16 * kPi, {-1.0 / 8, 0, 1}},
        {"half", prism(half, {0, 0, 1}), 2 * kPi, {0, 8 / (3 * kPi), 0.5}},
        {"oval", prism(face_on({make_edge(oval)}), {0, 0, 1}), 6 * kPi, {0, 0, 0.5}},
        {"vault", prism(bow, {0, 0, 3}), 4, {0, 0.4, 1.5}},
    };
}

TEST(Volume, AndCentreOfSolidsStandAnywhere) {
    const Transform places[] = {Transform(), Transform::rotation({1, 2, 3}, {3, -1, 2}, 2.2),
                                Transform::translation({4e5, -7e5, 1e6})};
    for (const Solid& solid : solids()) {
        for (const Transform& place : places) {
            SCOPED_TRACE(solid.what);
            const Shape shape = moved(solid.shape, place);
            ASSERT_TRUE(shape.is(ShapeKind::Solid));
            EXPECT_NEAR(volume(shape), solid.volume, 1e-9 * solid.volume);
            EXPECT_NEAR(volume(shape.reversed()), -solid.volume, 1e-9 * solid.volume);
            EXPECT_LT(distance(centre(shape), place.point(solid.centre)), 2e-9);
            const Shape pair = make_compound({shape, make_compound({shape})});
            EXPECT_NEAR(volume(moved(pair, place)), 2 * solid.volume, 1e-9 * solid.volume);
            EXPECT_LT(distance(centre(moved(pair, place)), (place * place).point(solid.centre)), 2e-9);
        }
        const Shape shell = own_child(solid.shape, 0);
        EXPECT_TRUE(make_shell(children(shell)).is_closed) << solid.what;
        EXPECT_EQ(make_shell(children(shell)).turned, 0u) << solid.what;
        samples::expect_sound(own_child(shell, 1));
    }
}

TEST(Volume, NeedsAClosedShell) {
    const Shape cube = solids()[0].shape;
    std::vector<Shape> faces = children(own_child(cube, 0));
    EXPECT_NEAR(volume(make_group(ShapeKind::Shell, faces)), 8, 1e-12);
    faces[0] = faces[0].reversed();
    EXPECT_NEAR(volume(make_solid(make_group(ShapeKind::Shell, faces))), 8, 1e-12);
    faces.pop_back();
    EXPECT_EQ(volume(make_group(ShapeKind::Shell, faces)), 0);
    EXPECT_THROW(make_solid(make_group(ShapeKind::Shell, faces)), KernelError);
    EXPECT_EQ(volume(Shape()), 0);
}

TEST(Centre, OfTheRichestParts) {
    const Shape rod = make_edge({0, 0, 0}, {2, 0, 0});
    const Shape arc = make_edge(samples::circle(2, {0, 0, 0}), {0, kPi});
    const Shape sheet = prism(rod, {0, 0, 4});
    const Shape dot = make_vertex({9, 9, 9});
    const struct {
        const char* what;
        Shape shape;
        Point centre;
    } rows[] = {
        {"vertices", make_compound({dot, make_vertex({1, 1, 1})}), {5, 5, 5}},
        {"edge", rod, {1, 0, 0}},
        {"arc", arc, {0, 4 / kPi, 0}},
        {"edges", make_compound({dot, rod, moved(rod, Transform::translation({0, 4, 0}))}), {1, 2, 0}},
        {"face", make_compound({sheet, rod, dot}), {1, 0, 2}},
        {"half a pipe", prism(arc, {0, 0, 2}), {0, 4 / kPi, 1}},
        {"hole", disc(Frame(), {{{0, 0}, 3}, {{1, 0}, 1}}), {-1.0 / 8, 0, 0}},
    };
    for (const auto& row : rows) EXPECT_LT(distance(centre(row.shape), row.centre), 1e-12) << row.what;
    EXPECT_THROW(centre(Shape()), KernelError);
    EXPECT_THROW(centre(make_compound({})), KernelError);
    EXPECT_THROW(centre(make_edge(Ref<Curve>(make<Line>(Point(0, 0, 0), Vector(1, 0, 0))))), KernelError);
}

/// A paraboloid over a square, z = x^2 + y^2 / 2, trimmed by a circle in its parameters.
TEST(Area, OfATrimmedSplineSurface) {
    BSplineAxis axis{2, {-1, 1}, {3, 3}};
    BSplineSurfaceData data{axis, axis, {}, {}};
    const double x[] = {-1, 0, 1}, square[] = {1, -1, 1};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) data.poles.emplace_back(x[i], x[j], square[i] + square[j]);
    }
    const auto bowl = make<BSplineSurface>(data);
    const Shape whole(make<FaceDefinition>(bowl, std::vector<Loop>()));
    // Over the disc of radius 1 the rotational paraboloid has area pi / 6 (5 sqrt 5 - 1).
    const Ref<Curve2> flat = make_circle2({0, 0}, 1);
    const Shape rim = make_edge(samples::circle(1, {0, 0, 1}));
    const Shape cup(make<FaceDefinition>(bowl, std::vector<Loop>{{make_wire(std::span(&rim, 1)), {{flat}}}}));
    EXPECT_NEAR(area(cup), kPi / 6 * (5 * std::sqrt(5.0) - 1), 1e-11);
    EXPECT_NEAR(area(whole), 7.446256723, 1e-8);  // by Simpson's rule on 400 x 400 cells
    EXPECT_NEAR(centre(cup).z(), 0.5589371284879, 1e-12);
}

}  // namespace
}  // namespace veltrane::kernel
