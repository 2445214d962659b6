#include "veltrane/kernel/mesh/mesh.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "kernel/algo/spline_face.hpp"
#include "kernel/geom/samples.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/geom/surface_fit.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/mesh/mesh_measure.hpp"

namespace veltrane::kernel {
namespace {

using samples::kPi;

Shape loop_of(const Shape& edge) {
    return make_wire(std::vector<Shape>{edge});
}
Shape polygon(const std::vector<Point>& corners) {
    return make_wire(samples::polygon_edges(corners));
}
Shape ring(double x, double y, double radius) {
    return loop_of(make_edge(samples::circle(radius, {x, y, 0})));
}
Shape face_of(const Shape& outer, const std::vector<Shape>& holes = {}) {
    return make_planar_face(outer, holes).face;
}
Shape rectangle(double width, double height) {
    return polygon({{0, 0, 0}, {width, 0, 0}, {width, height, 0}, {0, height, 0}});
}
/// A side of a spline, closed by straight ones.
Shape spline_profile() {
    const std::vector<Shape> edges = {make_edge(samples::spline(), {0.1, 0.9})};
    const Point a = vertex_point(first_vertex(edges[0])), b = vertex_point(last_vertex(edges[0]));
    const Point flat_a(a.x(), a.y(), 0), flat_b(b.x(), b.y(), 0);
    BSplineData data{3, {flat_a, {1, 3, 0}, {3, 4, 0}, flat_b}, {}, {0, 1}, {4, 4}, false};
    return make_wire(std::vector<Shape>{make_edge(Ref<Curve>(make<BSplineCurve>(std::move(data)))),
                                        make_edge(flat_b, {3, -3, 0}), make_edge({3, -3, 0}, flat_a)});
}
/// A cylinder between two circles without a seam, with a window.
Shape seamless_tube() {
    const auto around = [](double z, bool forward) {
        const Shape edge = make_edge(samples::circle(2, {0, 0, z}));
        const Ref<Curve2> path = make_line2({0, z}, {1, 0});
        return Loop{make_wire(std::vector<Shape>{forward ? edge : edge.reversed()}), {{path}}};
    };
    return Shape(make<FaceDefinition>(make<Cylinder>(Frame(), 2),
                                      std::vector<Loop>{around(0, true), around(5, false)}));
}

struct Body {
    const char* what;
    Shape shape;
    long long euler;
};

std::vector<Body> bodies() {
    const Vector up(0, 0, 5);
    std::vector<Shape> sieve;
    for (int i = 0; i < 9; ++i) sieve.push_back(ring(2 + 3 * (i % 3), 2 + 3 * (i / 3), 1));
    const Shape plate = prism(face_of(rectangle(10, 10), sieve), up);
    const Shape bilinear =
        samples::spline_face(fit({2, 2, {{0, 0, 0}, {4, 0, 1}, {0, 4, 1}, {4, 4, -2}}}, 0.001));
    return {
        {"box", prism(face_of(rectangle(3, 4)), up), 2},
        {"cylinder", prism(face_of(ring(1, 1, 3)), up), 2},
        {"leaning cylinder", prism(face_of(ring(1, 1, 3)), {1, 2, 5}), 2},
        {"tall cylinder", prism(face_of(ring(0, 0, 0.5)), {0, 0, 1000}), 2},
        {"flat cylinder", prism(face_of(ring(0, 0, 50)), {0, 0, 0.01}), 2},
        {"sieve", plate, 2 - 2 * 9},
        {"sieve, mirrored", transformed(plate, Transform::mirror_in_plane({0, 0, 1}, {1, 2, 3})), 2 - 2 * 9},
        {"sieve, stretched", transformed(plate, AffineMap::scaling(Frame(), {1, -3, 0.5})), 2 - 2 * 9},
        {"profile with a spline", prism(face_of(spline_profile()), up), 2},
        {"hills", prism(samples::spline_face(make<BSplineSurface>(samples::hilly_data(true))), {0, 0, -6}),
         2},
        {"hills, stretched",
         transformed(
             prism(samples::spline_face(make<BSplineSurface>(samples::hilly_data(false))), {0, 1, -6}),
             AffineMap::scaling(Frame(), {-0.2, 2, 1})),
         2},
        {"twisted", prism(bilinear, {0, 0, 9}), 2},
    };
}

void expect_no_messages(const Mesh& mesh) {
    for (const MeshFace& face : mesh.faces) EXPECT_EQ(face.message, "");
    for (const MeshEdge& edge : mesh.edges) EXPECT_EQ(edge.message, "");
}

TEST(Mesh, OfBodiesIsClosedAndTendsToThem) {
    for (const Body& body : bodies()) {
        const double exact = volume(body.shape), surface = area(body.shape);
        for (const double deflection : {0.3, 0.03, 0.003}) {
            SCOPED_TRACE(std::string(body.what) + " within " + std::to_string(deflection));
            const Mesh result = mesh(body.shape, {.deflection = deflection});
            expect_no_messages(result);
            EXPECT_TRUE(is_watertight(result));
            EXPECT_EQ(euler_number(result), body.euler);
            EXPECT_LT(std::abs(volume(result) - exact), 1.05 * deflection * surface);
            EXPECT_LT(std::abs(area(result) - surface), 0.2 * surface);
            EXPECT_LT(result.triangles.size(), 40000u);
        }
    }
}

TEST(Mesh, OfBodiesThatTouchThemselvesIsClosed) {
    const struct {
        const char* what;
        std::vector<Shape> holes;
    } rows[] = {
        {"at a vertex of both", {ring(1, 0, 2)}},
        {"at a vertex of one", {ring(-2, 0, 1)}},
        {"between vertices", {ring(0, 1, 2)}},
        {"at two places and each other", {ring(1, 0, 2), ring(-2, 0, 1)}},
        {"nearly", {ring(0.7, 0.7, 2)}},
        {"and cross a little", {ring(0.7072, 0.7072, 2)}},
    };
    for (const auto& row : rows) {
        for (const double deflection : {0.3, 0.03, 0.003}) {
            SCOPED_TRACE(row.what);
            const Shape body = prism(face_of(ring(0, 0, 3), row.holes), {0, 0, 5});
            const Mesh result = mesh(body, {.deflection = deflection});
            expect_no_messages(result);
            EXPECT_TRUE(is_watertight(result));
            EXPECT_LT(std::abs(volume(result) - volume(body)), deflection * area(body));
        }
    }
}

TEST(Mesh, TrianglesLieOnTheirFaces) {
    for (const Body& body : bodies()) {
        SCOPED_TRACE(body.what);
        const double deflection = 0.01;
        const Mesh result = mesh(body.shape, {.deflection = deflection});
        double worst = 0;
        for (const MeshFace& face : result.faces) {
            ASSERT_GT(face.triangle_count, 0u);
            const Ref<Surface> surface = face_surface(face.face);
            for (std::size_t i = 0; i < face.triangle_count; i += 7) {
                const auto& [a, b, c] = result.triangles[face.first_triangle + i];
                const Point &p = result.points[a], &q = result.points[b], &r = result.points[c];
                const Point middle = (p + q + r) / 3;
                const Point2 at = surface->project(middle);
                worst = std::max(worst, distance(surface->value(at), middle));
                const Vector normal = surface->normal(at.x(), at.y());
                EXPECT_GT(cross(q - p, r - p).dot(face.face.is_reversed() ? Vector(-normal) : normal), 0);
            }
        }
        EXPECT_LT(worst, 1.05 * deflection);
    }
}

TEST(Mesh, FacesShareTheirEdgesPoints) {
    const Shape shape = bodies()[5].shape;
    const Mesh result = mesh(make_compound({shape, make_edge(samples::spline())}), {.deflection = 0.01});
    EXPECT_EQ(result.edges.size(), distinct_sub_shapes(shape, ShapeKind::Edge).size() + 1);
    EXPECT_EQ(result.faces.size(), sub_shapes(shape, ShapeKind::Face).size());
    for (const MeshEdge& edge : result.edges) {
        const EdgeGeometry geometry = edge_geometry(edge.edge);
        ASSERT_GE(edge.points.size(), 2u);
        EXPECT_LT(distance(result.points[edge.points.front()], geometry.curve->value(geometry.range.first)),
                  1e-9);
        for (std::size_t i = 1; i < edge.points.size(); ++i) {
            const Point middle = (result.points[edge.points[i - 1]] + result.points[edge.points[i]]) / 2;
            const double t = geometry.curve->project(middle, geometry.range);
            EXPECT_LT(distance(geometry.curve->value(t), middle), 0.0105);
        }
    }
}

TEST(Mesh, OfSingleFaces) {
    const struct {
        const char* what;
        Shape shape;
        double area;
    } rows[] = {
        {"hole that touches a side", face_of(rectangle(4, 4), {polygon({{2, 0, 0}, {1, 2, 0}, {3, 2, 0}})}),
         14},
        {"hole that touches a corner", face_of(rectangle(4, 4), {polygon({{0, 0, 0}, {1, 2, 0}, {2, 1, 0}})}),
         14.5},
        {"reversed", face_of(rectangle(4, 4)).reversed(), 16},
        {"tube without a seam", seamless_tube(), 20 * kPi},
        {"cone-like map of a tube", transformed(seamless_tube(), AffineMap::scaling(Frame(), {2, 2, 1})),
         40 * kPi},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Mesh result = mesh(row.shape, {.deflection = 0.001});
        expect_no_messages(result);
        EXPECT_NEAR(area(result), row.area, 1e-3 * row.area);
        EXPECT_FALSE(is_watertight(result));
    }
}

TEST(Mesh, LimitsWinOverDeflections) {
    const Shape hills = samples::spline_face(make<BSplineSurface>(samples::hilly_data(false)));
    MeshOptions options{.deflection = 1e-30, .angle = 1e-30};
    options.max_divisions = 60;
    options.max_face_points = 500;
    const Mesh result = mesh(make_compound({hills, make_edge(samples::circle())}), options);
    expect_no_messages(result);
    EXPECT_LT(result.points.size(), 1500u);
    EXPECT_LE(result.edges.back().points.size(), 61u);
    options.max_points = 100;
    EXPECT_THROW(mesh(hills, options), KernelError);
    for (const MeshOptions& bad : {MeshOptions{.deflection = 0}, MeshOptions{.deflection = std::nan("")},
                                   MeshOptions{.angle = -1}, MeshOptions{.max_divisions = 0}}) {
        EXPECT_THROW(mesh(hills, bad), KernelError);
    }
}

TEST(Mesh, WhatCannotBeMeshedHasAMessage) {
    const Shape plane(make<FaceDefinition>(make<Plane>(Frame()), std::vector<Loop>()));
    const Shape ray = make_edge(Ref<Curve>(make<Line>(Point(0, 0, 0), Vector(1, 0, 0))), {0, kInfinite});
    const Shape fine = face_of(rectangle(1, 1));
    const Mesh result = mesh(make_compound({plane, fine, ray}));
    ASSERT_EQ(result.faces.size(), 2u);
    EXPECT_EQ(result.faces[0].message, "A face has no boundary");
    EXPECT_EQ(result.faces[1].triangle_count, 2u);
    EXPECT_EQ(result.edges.back().message, "The edge is unbounded");
    EXPECT_TRUE(mesh(Shape()).points.empty());
    EXPECT_TRUE(mesh(make_vertex({1, 2, 3})).triangles.empty());
}

}  // namespace
}  // namespace veltrane::kernel
