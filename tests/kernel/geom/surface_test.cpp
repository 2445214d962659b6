#include "kernel/geom/samples.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace veltrane::kernel {
namespace {

template <class Action>
void for_each_parameter(const Surface& surface, Action action) {
    for (const double u : samples::parameters(surface.u_range(), 5)) {
        for (const double v : samples::parameters(surface.v_range(), 3)) action(u, v);
    }
}

TEST(Surface, DerivativesAgreeWithDifferences) {
    for (const auto& [name, surface] : samples::surfaces()) {
        for_each_parameter(*surface, [&, &name = name, &surface = surface](double u, double v) {
            constexpr double h = 1e-4;
            const SurfaceDerivatives d = surface->derivatives(u, v);
            const double tolerance = 1e-3 * (1 + d.duu.norm() + d.dvv.norm());
            const auto at = [&](double du, double dv) { return surface->value(u + du, v + dv); };
            EXPECT_NEAR(distance(d.point, at(0, 0)), 0, 1e-14) << name;
            EXPECT_NEAR(((at(h, 0) - at(-h, 0)) / (2 * h) - d.du).norm(), 0, tolerance) << name;
            EXPECT_NEAR(((at(0, h) - at(0, -h)) / (2 * h) - d.dv).norm(), 0, tolerance) << name;
            EXPECT_NEAR(((at(h, 0) - 2 * at(0, 0) + at(-h, 0)) / (h * h) - d.duu).norm(), 0, tolerance)
                << name;
            EXPECT_NEAR(((at(0, h) - 2 * at(0, 0) + at(0, -h)) / (h * h) - d.dvv).norm(), 0, tolerance)
                << name;
            EXPECT_NEAR(((at(h, h) - at(h, -h) - at(-h, h) + at(-h, -h)) / (4 * h * h) - d.duv).norm(), 0,
                        tolerance)
                << name;
            EXPECT_NEAR(surface->normal(u, v).dot(d.du), 0, 1e-12 * d.du.norm()) << name;
        });
    }
}

TEST(Surface, ProjectingItsOwnPointsGivesTheirParameters) {
    for (const auto& [name, surface] : samples::surfaces()) {
        const bool crosses_itself = name.find("extruded") == 0;  // seen along the direction
        for_each_parameter(*surface, [&, &name = name, &surface = surface](double u, double v) {
            const Point p = surface->value(u, v);
            const Point2 found = surface->project(p);
            EXPECT_NEAR(distance(surface->value(found), p), 0, 1e-9) << name;
            EXPECT_TRUE(crosses_itself || (found - Point2(u, v)).norm() < 1e-11) << name;
        });
    }
}

TEST(Surface, MappingCommutesWithEvaluation) {
    for (const auto& [name, surface] : samples::surfaces()) {
        for (const auto& [map_name, map] : samples::maps()) {
            const MappedSurface image = surface->map_surface(map);
            const auto similarity = map.as_transform();
            EXPECT_TRUE(!similarity || surface->transformed(*similarity)->kind() == surface->kind());
            const double hand = map.determinant() * image.parameters.determinant();
            for_each_parameter(*surface, [&, &name = name, &surface = surface, &map = map](double u,
                                                                                           double v) {
                const Point expected = map.point(surface->value(u, v));
                const Point2 uv = image.parameters.point({u, v});
                EXPECT_NEAR(distance(image.surface->value(uv), expected), 0, 1e-12 * (1 + expected.norm()))
                    << name << ", " << map_name;
                if (!similarity) return;
                const Vector mapped_normal = similarity->direction(surface->normal(u, v));
                EXPECT_NEAR(image.surface->normal(uv.x(), uv.y()).dot(mapped_normal), hand > 0 ? 1 : -1, 1e-9)
                    << name << ", " << map_name;
            });
        }
    }
}

TEST(Surface, KindsUnderAffineMaps) {
    const AffineMap squeeze = AffineMap::scaling(Frame(), {1, 2, 1});
    EXPECT_EQ(Cylinder(Frame(), 1).mapped(squeeze)->kind(), SurfaceKind::LinearExtrusion);
    EXPECT_EQ(Cylinder(Frame(), 1).mapped(Transform::scaling({0, 0, 0}, 2))->kind(), SurfaceKind::Cylinder);
    EXPECT_EQ(Plane(Frame()).mapped(squeeze)->kind(), SurfaceKind::Plane);
    EXPECT_THROW(Plane(Frame()).mapped(AffineMap::scaling(Frame(), {1, 0, 1})), KernelError);
    EXPECT_EQ(Plane(Frame()).normal(0, 0), Vector(0, 0, 1));
    EXPECT_DOUBLE_EQ(Plane(Frame()).signed_distance({5, 6, -7}), -7);
}

TEST(Surface, HostileNumbersAreRefused) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Frame broken;
    broken.origin.x() = nan;
    const auto line = make<Line>(Point(0, 0, 0), Vector(0, 0, 1));
    EXPECT_THROW(Plane{broken}, KernelError);
    EXPECT_THROW(Cylinder(broken, 1), KernelError);
    EXPECT_THROW(Cylinder(Frame(), 0), KernelError);
    EXPECT_THROW(Cylinder(Frame(), nan), KernelError);
    EXPECT_THROW(LinearExtrusion(line, {0, 0, 1}), KernelError);
    EXPECT_THROW(LinearExtrusion(line, {0, 0, 0}), KernelError);
    EXPECT_THROW(LinearExtrusion(nullptr, {0, 0, 1}), KernelError);
    for (const auto& [name, surface] : samples::surfaces()) {
        EXPECT_THROW(surface->project({nan, 0, 0}), KernelError) << name;
    }
}

}  // namespace
}  // namespace veltrane::kernel
