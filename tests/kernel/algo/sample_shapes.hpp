// Shapes and checks that the tests of topology and algorithms share.
#pragma once

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/kernel/geom/bspline_curve.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>

#include <numbers>
#include <string>
#include <utility>
#include <vector>

namespace veltrane::kernel::samples {

inline constexpr double kPi = std::numbers::pi;

inline Ref<Curve> circle(double radius = 2, const Point& centre = {1, 2, 3},
                         const Vector& normal = {0, 0, 1}) {
    return make<Circle>(Frame::from_normal(centre, normal), radius);
}
inline Ref<Curve> ellipse() {
    return make<Ellipse>(Frame::from_normal_and_x({1, 1, 0}, {0, 0, 1}, {3, 1, 0}), 3, 1);
}
inline Ref<Curve> spline() {
    BSplineData data;
    data.degree = 3;
    data.poles = {{0, 0, 0}, {1, 2, 0}, {3, 2, 1}, {4, 0, 0}, {6, 1, 0}};
    data.knots = {0, 0.4, 1};
    data.multiplicities = {4, 1, 4};
    return make<BSplineCurve>(std::move(data));
}

inline std::vector<Shape> polygon_edges(const std::vector<Point>& corners) {
    std::vector<Shape> edges;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        edges.push_back(make_edge(corners[i], corners[(i + 1) % corners.size()]));
    }
    return edges;
}

/// A straight side, half a turn, a straight side, and a spline back: open.
inline Shape mixed_wire() {
    const std::vector<Shape> edges = {
        make_edge({-3, -2, 0}, {1, -2, 0}),
        make_edge(circle(2, {1, 0, 0}), {-kPi / 2, kPi / 2}),
        make_edge({1, 2, 0}, {-3, 2, 0}),
    };
    return make_wire(edges);
}

struct Sample {
    std::string name;
    Shape shape;
};

inline std::vector<Sample> edges() {
    return {
        {"segment", make_edge({1, 2, 3}, {4, 6, 3})},
        {"circle", make_edge(circle())},
        {"arc over the seam", make_edge(circle(), {6, 7.5})},
        {"ellipse", make_edge(ellipse())},
        {"ellipse arc", make_edge(ellipse(), {0.3, 2})},
        {"spline", make_edge(spline())},
        {"reversed spline piece", make_edge(spline(), {0.2, 0.7}).reversed()},
    };
}

/// Every kind of swept face, a shell, and what nests them.
inline std::vector<Sample> faces() {
    const Vector up(0, 0, 5);
    std::vector<Sample> result;
    for (const Sample& edge : edges()) {
        result.push_back({edge.name + " upwards", prism(edge.shape, up)});
        result.push_back({edge.name + " downwards", prism(edge.shape, -up)});
        result.push_back({edge.name + " aslant", prism(edge.shape, {0.5, 0.25, 2})});
    }
    result.push_back({"wire", prism(mixed_wire(), up)});
    result.push_back({"reversed wire, downwards", prism(mixed_wire().reversed(), -up)});
    const Transform turn = Transform::rotation({1, 0, 0}, {1, 1, 0}, 0.7);
    result.push_back({"turned wire", prism(moved(mixed_wire(), turn), up)});
    const Shape inner = make_compound({prism(mixed_wire(), up), moved(make_edge(spline()), turn)});
    result.push_back(
        {"compound", make_compound({inner, moved(inner, turn), moved(inner.reversed(), turn * turn)})});
    return result;
}

inline std::vector<Sample> all() {
    std::vector<Sample> result = edges();
    for (Sample& face : faces()) result.push_back(std::move(face));
    result.push_back({"vertex", moved(make_vertex({1, 2, 3}), Transform::translation({1, 1, 1}))});
    return result;
}

/// Twice the signed area within a loop in the parameter plane, by a polygon.
inline double doubled_parameter_area(const Loop& loop) {
    std::vector<Point2> points;
    const auto& edges = group_definition(loop.wire).children();
    for (std::size_t n = 0; n < edges.size(); ++n) {
        const std::size_t i = loop.wire.is_reversed() ? edges.size() - 1 - n : n;
        const Interval& range = edge_definition(edges[i]).range();
        const bool back = loop.wire.is_reversed() != edges[i].is_reversed();
        for (int step = 0; step < 16; ++step) {
            const double fraction = step / 16.0;
            points.push_back(loop.parameter_curves[i].value(range.at(back ? 1 - fraction : fraction)));
        }
    }
    double sum = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        sum += cross2(points[i] - points[0], points[(i + 1) % points.size()] - points[0]);
    }
    return sum;
}

inline void expect_sound_loop(const Surface& surface, const Loop& loop) {
    const std::vector<Shape> own = children(loop.wire);
    for (std::size_t i = 0; i < own.size(); ++i) {
        const EdgeGeometry edge = edge_geometry(own[i]);
        for (const double fraction : {0.0, 0.3, 0.5, 0.9, 1.0}) {
            const double t = edge.range.at(fraction);
            const Point on_surface = surface.value(loop.parameter_curves[i].value(t));
            EXPECT_LT(distance(on_surface, edge.curve->value(t)), 1e-9) << "edge " << i << " at " << fraction;
        }
    }
    const std::vector<Shape> edges = edges_in_order(loop.wire);
    for (std::size_t i = 0; i < edges.size(); ++i) {
        EXPECT_TRUE(is_same(last_vertex(edges[i]), first_vertex(edges[(i + 1) % edges.size()])))
            << "edge " << i;
    }
}

/// Edges end in their vertices; parameter curves lie under their edges; loops are closed, the first one of a
/// face runs counter-clockwise and the others clockwise.
inline void expect_sound(const Shape& shape) {
    for (const Shape& edge : sub_shapes(shape, ShapeKind::Edge)) {
        const EdgeGeometry geometry = edge_geometry(edge);
        const Shape forward = edge.oriented(Orientation::Forward);
        EXPECT_LT(distance(vertex_point(first_vertex(forward)), geometry.curve->value(geometry.range.first)),
                  1e-9);
        EXPECT_LT(distance(vertex_point(last_vertex(forward)), geometry.curve->value(geometry.range.last)),
                  1e-9);
    }
    for (const Shape& face : sub_shapes(shape, ShapeKind::Face)) {
        const FaceDefinition& definition = face_definition(face);
        for (const Loop& loop : definition.loops()) {
            expect_sound_loop(*definition.surface(), loop);
            EXPECT_EQ(doubled_parameter_area(loop) > 0, &loop == &definition.loops().front());
        }
    }
}

/// The normal of a face at the middle of the first edge of its first loop, by its orientation.
inline Vector face_normal(const Shape& face) {
    const Loop& loop = face_definition(face).loops().front();
    const Interval& range = edge_definition(group_definition(loop.wire).children().front()).range();
    const Point2 at = loop.parameter_curves.front().value(range.middle());
    const Vector natural = face_surface(face)->normal(at.x(), at.y());
    return face.is_reversed() ? Vector(-natural) : natural;
}

}  // namespace veltrane::kernel::samples
