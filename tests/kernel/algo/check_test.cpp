#include "veltrane/kernel/algo/check.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/outline_crossing.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/shell.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/geom/line.hpp"

#include <algorithm>
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
Shape wire_of(const std::vector<Shape>& edges) {
    return make_wire(edges);
}
Shape ring(double radius, const Point& centre = {0, 0, 0}) {
    return wire_of({make_edge(samples::circle(radius, centre))});
}
Shape spline_edge(const std::vector<Point>& poles) {
    const int degree = static_cast<int>(poles.size()) - 1;
    return make_edge(make<BSplineCurve>(BSplineData{degree, poles, {}, {0, 1}, {degree + 1, degree + 1}}));
}
Shape face(const Shape& wire, const std::vector<Shape>& holes = {}) {
    return make_planar_face(Plane(Frame()), wire, holes).face;
}
Shape cube(bool inwards = false) {
    const Shape solid = prism(face(square(1)), {0, 0, 2});
    return inwards ? make_group(ShapeKind::Solid, {own_child(solid, 0).reversed()}) : solid;
}
Shape with_faces(std::vector<Shape> faces) {
    return make_group(ShapeKind::Solid, {make_group(ShapeKind::Shell, std::move(faces))});
}
std::vector<Shape> cube_faces() {
    return children(own_child(cube(), 0));
}

std::vector<Flaw> flaws(const Shape& shape) {
    std::vector<Flaw> result;
    for (const Finding& finding : check(shape)) {
        result.push_back(finding.flaw);
        EXPECT_FALSE(finding.shape.is_null());
        EXPECT_FALSE(message(finding.flaw).empty());
    }
    return result;
}

TEST(Check, FindsNothingInSoundShapes) {
    const Transform away =
        Transform::translation({3e6, 4e6, -1e5}) * Transform::rotation({0, 0, 0}, {1, 2, 3}, 1);
    std::vector<samples::Sample> sound = samples::all();
    sound.push_back({"holes", face(square(5), {ring(1), ring(1, {3, 3, 0})})});
    sound.push_back({"cube", cube()});
    sound.push_back({"pipe", prism(face(ring(3), {ring(2)}), {1, 0, 2})});
    for (const samples::Sample& sample : sound) {
        EXPECT_EQ(flaws(sample.shape), std::vector<Flaw>()) << sample.name;
        EXPECT_EQ(flaws(transformed(sample.shape, AffineMap(away))), std::vector<Flaw>()) << sample.name;
    }
    EXPECT_TRUE(check(Shape()).empty());
}

TEST(Check, FindsFlaws) {
    const auto vertex = [](const Point& at) { return make<VertexDefinition>(at); };
    const auto line = make<Line>(Point(0, 0, 0), Vector(1, 0, 0));
    const Shape off(make<EdgeDefinition>(line, Interval{0, 1}, vertex({0, 0, 0}), vertex({1, 1e-3, 0})));
    const Shape tiny(make<EdgeDefinition>(line, Interval{0, 1e-8}, vertex({0, 0, 0}), vertex({0, 0, 0})));
    const Shape broken =
        make_group(ShapeKind::Wire, {make_edge({0, 0, 0}, {1, 0, 0}), make_edge({2, 0, 0}, {3, 0, 0})});
    const Loop circle{ring(1, {0, 0, 1e-3}), {{make_circle2({0, 0}, 1)}}};
    const Shape lifted(make<FaceDefinition>(make<Plane>(Frame()), std::vector<Loop>{circle}));
    const Shape whole = face(square(1));
    const FaceDefinition& open_face = face_definition(whole);
    Loop cut = open_face.loops()[0];
    std::vector<Shape> three = own_children(cut.wire);
    three.pop_back();
    cut.wire = make_group(ShapeKind::Wire, three);
    cut.parameter_curves.pop_back();
    const Shape open(make<FaceDefinition>(open_face.surface(), std::vector<Loop>{cut}));
    std::vector<Shape> turned = cube_faces(), five = cube_faces();
    turned[2] = turned[2].reversed();
    five.pop_back();

    const struct {
        const char* what;
        Shape shape;
        Flaw flaw;
    } rows[] = {
        {"vertex off", off, Flaw::VertexOffEdge},
        {"tiny edge", tiny, Flaw::DegenerateEdge},
        {"gap in wire", broken, Flaw::BrokenWire},
        {"open loop", open, Flaw::OpenLoop},
        {"circle above its plane", lifted, Flaw::EdgeOffSurface},
        {"bow tie", face(polygon({{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 3, 0}})), Flaw::CrossingBoundary},
        {"hole across", face(square(2), {ring(1, {2, 0, 0})}), Flaw::CrossingBoundary},
        {"hole outside", face(square(1), {ring(1, {5, 0, 0})}), Flaw::MisplacedLoop},
        {"hole in hole", face(square(5), {ring(2), ring(1)}), Flaw::MisplacedLoop},
        {"face turned", make_group(ShapeKind::Shell, turned), Flaw::UnorientedShell},
        {"open solid", with_faces(five), Flaw::OpenShell},
        {"inside out", cube(true), Flaw::InsideOut},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(flaws(row.shape), std::vector<Flaw>{row.flaw}) << row.what;
        // A shape that is used often is reported once.
        EXPECT_EQ(flaws(make_compound({row.shape, row.shape.reversed()})), std::vector<Flaw>{row.flaw})
            << row.what;
    }
    EXPECT_NEAR(check(lifted)[0].size, 1e-3, 1e-12);
}

CrossingSearch search(const std::vector<Shape>& wires, std::size_t budget = 20'000'000) {
    std::vector<std::vector<OutlinePiece>> outlines;
    for (const Shape& wire : wires) {
        std::vector<ParameterCurve> curves;
        for (const Shape& edge : own_children(wire)) {
            curves.push_back({make<Curve2>(edge_definition(edge).curve())});
        }
        outlines.push_back(outline_pieces({wire, curves}));
    }
    return find_crossing(outlines, 1e-7, budget);
}

TEST(Crossing, IsToldFromTouching) {
    const Shape chord = make_edge({-2, 0, 0}, {2, 0, 0});
    const struct {
        const char* what;
        std::vector<Shape> wires;
        bool crosses;
    } rows[] = {
        {"square", {square(1)}, false},
        {"circle", {ring(1)}, false},
        {"nested", {square(2), ring(2), ring(1)}, false},
        {"side along side", {square(2), square(1, {1, 0, 0})}, false},
        {"corner on side", {square(2), polygon({{0, 0, 0}, {2, 1, 0}, {0, 1, 0}})}, false},
        {"corner on corner",
         {polygon({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}}), polygon({{0, 0, 0}, {-1, 0, 0}, {-1, -2, 0}})},
         false},
        {"arc along arc",
         {ring(2), wire_of({make_edge(samples::circle(2, {0, 0, 0}), {0.3, 2}),
                            make_edge(samples::circle(2, {0, 0, 0})->value(2),
                                      samples::circle(2, {0, 0, 0})->value(0.3))})},
         false},
        {"circles that touch", {ring(1), ring(1, {2, 0, 0})}, false},
        {"circles that nearly cross", {ring(1), ring(1, {2 - 1e-15, 0, 0})}, false},
        {"there and back", {polygon({{0, 0, 0}, {2, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}})}, false},
        {"hole at a vertex of the same loop",
         {polygon({{0, 0, 0}, {4, 0, 0}, {2, 2, 0}, {3, 3, 0}, {1, 3, 0}, {2, 2, 0}})},
         false},
        {"bow tie", {polygon({{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}})}, true},
        {"bow tie through a vertex",
         {polygon({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {2, 0, 0}, {1, 1, 0}, {0, 2, 0}})},
         true},
        {"through a corner", {square(2), polygon({{2, 0, 0}, {3, 1, 0}, {0, 1, 0}, {1, -1, 0}})}, true},
        {"circles", {ring(1), ring(1, {1, 0, 0})}, true},
        {"circles at quarters", {ring(1), ring(1, {1, 1, 0})}, true},
        {"circles, barely", {ring(1), ring(1, {2 - 1e-5, 0, 0})}, true},
        {"line through a circle",
         {ring(1), wire_of({chord, make_edge({2, 0, 0}, {0, 5, 0}), make_edge({0, 5, 0}, {-2, 0, 0})})},
         true},
        {"looped cubic",
         {wire_of({spline_edge({{0, 0, 0}, {4, 3, 0}, {-3, 3, 0}, {1, 0, 0}}),
                   make_edge({1, 0, 0}, {0, -3, 0}), make_edge({0, -3, 0}, {0, 0, 0})})},
         true},
        {"flat arch",
         {wire_of(
             {spline_edge({{0, 0, 0}, {1, 3, 0}, {2, 3, 0}, {3, 0, 0}}), make_edge({3, 0, 0}, {0, 0, 0})})},
         false},
        {"arch cut by its chord",
         {wire_of({spline_edge({{-2, 0, 0}, {-1, 3, 0}, {1, -3, 0}, {2, 0, 0}}), chord.reversed()})},
         true},
    };
    for (const auto& row : rows) {
        const CrossingSearch result = search(row.wires);
        EXPECT_EQ(result.crossing.has_value(), row.crosses) << row.what;
        EXPECT_TRUE(result.is_complete) << row.what;
        // The same far from the origin and aslant.
        const AffineMap turn(Transform::translation({2e3, -5e3, 0}) *
                             Transform::rotation({0, 0, 0}, {0, 0, 1}, 0.7));
        std::vector<Shape> turned;
        for (const Shape& wire : row.wires) turned.push_back(transformed(wire, turn));
        EXPECT_EQ(search(turned).crossing.has_value(), row.crosses) << row.what << ", turned";
    }
}

/// Boundaries of many long sides, whose boxes overlap along both axes.
TEST(Crossing, IsFoundAmongManyPiecesWithFewComparisons) {
    std::vector<Point> comb;
    constexpr int kTeeth = 5000;
    for (int i = 0; i < kTeeth; ++i) {
        const Vector along(i * 1e-2, -i * 1e-2, 0), tooth(900, 900, 0), step(5e-3, -5e-3, 0);
        comb.insert(comb.end(), {along, along + tooth, along + tooth + step, along + step});
    }
    comb.push_back({-10, -100, 0});
    const CrossingSearch sound = search({polygon(comb)}, 100 * comb.size());
    EXPECT_FALSE(sound.crossing.has_value());
    EXPECT_TRUE(sound.is_complete);
    std::swap(comb[8001], comb[8002]);
    EXPECT_TRUE(search({polygon(comb)}, 100 * comb.size()).crossing.has_value());
}

TEST(Crossing, SearchIsGivenUpWhenTheBudgetIsSpent) {
    const std::vector<Shape> heap(1000, square(1));  // they touch everywhere and cross nowhere
    const CrossingSearch result = search(heap, 1'000'000);
    EXPECT_FALSE(result.crossing.has_value());
    EXPECT_FALSE(result.is_complete);
}

}  // namespace
}  // namespace veltrane::kernel
