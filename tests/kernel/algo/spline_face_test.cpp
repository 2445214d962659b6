#include "veltrane/kernel/algo/spline_face.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/geom/surface_fit.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {
namespace {

const std::vector<Point> kCorners = {{1, 0, 0}, {5, 0, 1}, {5, 4, 0.1}, {1, 3, 0}};

Ref<BSplineSurface> patch() {
    return fit({2, 2, {kCorners[0], kCorners[1], kCorners[3], kCorners[2]}}, 0.001);
}

TEST(SplineFace, StandsWithinTheSidesOfItsPatch) {
    const Shape wire = make_wire(samples::polygon_edges(kCorners));
    const Shape start_elsewhere =
        make_wire(samples::polygon_edges({kCorners[2], kCorners[1], kCorners[0], kCorners[3]}));
    const Ref<BSplineSurface> whole = patch();
    const Transform motion = Transform::rotation({1, 2, 3}, {1, 1, 0}, 0.4);
    const auto moved_patch = as<BSplineSurface>(whole->transformed(motion));
    const Vector normal = whole->normal(0.5, 0.5);
    constexpr int kSteps = 100;
    double summed = 0;
    for (int i = 0; i < kSteps * kSteps; ++i) {
        const SurfaceDerivatives d =
            whole->derivatives((i / kSteps + 0.5) / kSteps, (i % kSteps + 0.5) / kSteps);
        summed += cross(d.du, d.dv).norm() / (kSteps * kSteps);
    }
    for (const Shape& outline : {wire, wire.reversed(), start_elsewhere, start_elsewhere.reversed()}) {
        const Shape face = make_spline_face(whole, outline);
        samples::expect_sound(face);
        EXPECT_GT(samples::face_normal(face).dot(normal), 0.9);
        EXPECT_NEAR(area(face), summed, 1e-3);
        const Shape placed = make_spline_face(moved_patch, moved(outline, motion));
        samples::expect_sound(placed);
        EXPECT_NEAR(area(placed), area(face), 1e-9);
    }
}

TEST(SplineFace, WhatDoesNotFitIsRefused) {
    std::vector<Shape> bent = samples::polygon_edges(kCorners);
    const Point a = kCorners[0], b = kCorners[1];
    bent[0] = make_edge(Ref<Curve>(make_arc(a, (a + b) / 2 + Vector(0, 0, 0.1), b)));
    std::vector<Shape> open = samples::polygon_edges(kCorners);
    open.pop_back();
    const Shape there_and_back = make_wire(samples::polygon_edges({kCorners[0], kCorners[1]}));
    for (const Shape& wire : {make_wire(bent), make_wire(open), there_and_back, make_edge(a, b),
                              make_wire(samples::polygon_edges({a, b, {3, 3, 3}}))}) {
        EXPECT_THROW(make_spline_face(patch(), wire), KernelError);
    }
}

}  // namespace
}  // namespace veltrane::kernel
