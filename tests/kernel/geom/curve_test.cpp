#include "kernel/geom/samples.hpp"
#include "veltrane/kernel/geom/curve2.hpp"
#include "veltrane/kernel/geom/describe.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace veltrane::kernel {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(Curve, DerivativesAgreeWithDifferences) {
    for (const auto& [name, curve] : samples::curves()) {
        for (const double t : samples::parameters(curve->range())) {
            constexpr double h = 1e-4;
            const CurveDerivatives d = curve->derivatives(t);
            const Point before = curve->value(t - h), after = curve->value(t + h);
            EXPECT_EQ(d.point, curve->value(t)) << name;
            EXPECT_NEAR(((after - before) / (2 * h) - d.first).norm(), 0, 1e-4 * (1 + d.second.norm()))
                << name;
            const Vector second = (after - 2 * d.point + before) / (h * h);
            EXPECT_NEAR((second - d.second).norm(), 0, 1e-3 * (1 + d.second.norm())) << name;
        }
    }
}

TEST(Curve, ProjectingItsOwnPointsGivesTheirParameters) {
    for (const auto& [name, curve] : samples::curves()) {
        const bool edge_on = name == "thin ellipse";
        for (const double t : samples::parameters(curve->range(), 25)) {
            const double found = curve->project(curve->value(t));
            EXPECT_NEAR(found, t, edge_on ? 1e-8 : 1e-10) << name;
        }
    }
}

TEST(Curve, ProjectionFindsTheNearestPoint) {
    samples::Random random(7);
    for (const auto& [name, curve] : samples::bounded_curves()) {
        for (int i = 0; i < 12; ++i) {
            const Point p = random.point(i % 2 ? 6 : 30);
            const double t = curve->project(p);
            EXPECT_TRUE(curve->range().contains(t)) << name;
            double nearest = 1e9;
            for (int k = 0; k <= 2000; ++k) {
                nearest = std::min(nearest, distance(p, curve->value(curve->range().at(k / 2000.0))));
            }
            EXPECT_LE(distance(p, curve->value(t)), nearest + 1e-12) << name;
        }
    }
}

/// The image of every point lies where the image curve has it.
void expect_same_image(const Curve& curve, const MappedCurve& image, const AffineMap& map,
                       const std::string& name) {
    const double shift = image.curve->is_periodic() ? image.curve->period() : 0;
    for (const double t : samples::parameters(curve.range())) {
        const Point expected = map.point(curve.value(t));
        const double image_t = image.parameters(t);
        EXPECT_NEAR(distance(image.curve->value(image_t), expected), 0, 1e-12 * (1 + expected.norm()))
            << name;
        EXPECT_TRUE(image.curve->range().contains(image_t, shift + 1e-9)) << name;
    }
}

TEST(Curve, MappingCommutesWithEvaluation) {
    for (const auto& [name, curve] : samples::curves()) {
        for (const auto& [map_name, map] : samples::maps()) {
            const std::string what = name + ", " + map_name;
            expect_same_image(*curve, curve->map_curve(map), map, what);
            const auto similarity = map.as_transform();
            if (!similarity) continue;
            const MappedCurve moved = curve->transform_curve(*similarity);
            expect_same_image(*curve, moved, map, what);
            EXPECT_EQ(moved.curve->kind(), curve->kind()) << what;
        }
    }
}

TEST(Curve, ReversalRunsBackwards) {
    for (const auto& [name, curve] : samples::curves()) {
        const MappedCurve back = curve->reverse_curve();
        expect_same_image(*curve, back, AffineMap(), name);
        EXPECT_EQ(back.curve->is_periodic(), curve->is_periodic());
        const double t = samples::parameters(curve->range())[3];
        const Vector forth = curve->derivatives(t).first;
        EXPECT_NEAR((back.curve->derivatives(back.parameters(t)).first + forth).norm(), 0, 1e-10) << name;
        expect_same_image(*back.curve, back.curve->reverse_curve(), AffineMap(), name);
    }
}

TEST(Curve, ConicsMapToConicsExactly) {
    const Circle circle(Frame(), 2);
    const auto squeezed = circle.mapped(AffineMap::scaling(Frame(), {1, 3, 1}));
    ASSERT_EQ(squeezed->kind(), CurveKind::Ellipse);
    EXPECT_DOUBLE_EQ(as<Ellipse>(squeezed)->major_radius(), 6);
    EXPECT_DOUBLE_EQ(as<Ellipse>(squeezed)->minor_radius(), 2);
    EXPECT_EQ(squeezed->mapped(AffineMap::scaling(Frame(), {3, 1, 1}))->kind(), CurveKind::Circle);
    // A circle seen from the side is an ellipse without height, not nothing.
    const auto edge_on = circle.map_curve(AffineMap::scaling(Frame(), {0, 1, 1}));
    ASSERT_EQ(edge_on.curve->kind(), CurveKind::Ellipse);
    EXPECT_EQ(as<Ellipse>(edge_on.curve)->minor_radius(), 0);
    expect_same_image(circle, edge_on, AffineMap::scaling(Frame(), {0, 1, 1}), "edge on");
    EXPECT_THROW(circle.mapped(AffineMap::scaling(Frame(), {0, 0, 1})), KernelError);
    EXPECT_THROW(Line({0, 0, 0}, {0, 0, 1}).mapped(AffineMap::scaling(Frame(), {1, 1, 0})), KernelError);
}

TEST(Curve, EllipseWithoutHeightProjects) {
    const Ellipse flat(Frame(), 3, 0);
    EXPECT_NEAR(flat.value(flat.project({1.5, 4, 0})).x(), 1.5, 1e-12);
    EXPECT_NEAR(flat.value(flat.project({-9, 1, 0})).x(), -3, 1e-12);
}

TEST(TrimmedCurve, MovesTheEndByWholePeriods) {
    const auto circle = make<Circle>(Frame(), 1);
    struct Row {
        double first, last, expected_first, expected_last;
    };
    const Row rows[] = {
        {0, 1, 0, 1},
        {5, 1, 5, 1 + kTwoPi},
        {-1, 1, -1, 1},
        {0, kTwoPi, 0, kTwoPi},
        {1, 1, 1, 1 + kTwoPi},
        {2, 2 - 1e-12, 2, 2 + kTwoPi},
        {2, 2 + 1e-12, 2, 2 + kTwoPi},
        {1, 2 + 5 * kTwoPi, 1, 2},
        {0, kTwoPi + 1e-10, 0, kTwoPi},
        {1, -30, 1, -30 + 5 * kTwoPi},
    };
    for (const Row& row : rows) {
        const TrimmedCurve arc(circle, row.first, row.last);
        EXPECT_DOUBLE_EQ(arc.first(), row.expected_first) << row.first << " " << row.last;
        EXPECT_NEAR(arc.last(), row.expected_last, 1e-13) << row.first << " " << row.last;
        EXPECT_EQ(arc.is_closed(), row.expected_last - row.expected_first > 6.28);
    }
    const auto inner = make<TrimmedCurve>(circle, 0, 3);
    EXPECT_EQ(TrimmedCurve(inner, 1, 2).basis(), circle);
}

TEST(TrimmedCurve, ArcRunsThroughItsThreePoints) {
    samples::Random random(3);
    for (int i = 0; i < 50; ++i) {
        const Point a = random.point(), b = random.point(), c = random.point();
        const auto arc = make_arc(a, b, c);
        EXPECT_NEAR(distance(arc->start(), a), 0, 1e-11);
        EXPECT_NEAR(distance(arc->end(), c), 0, 1e-11);
        const double t = arc->project(b);
        EXPECT_NEAR(distance(arc->value(t), b), 0, 1e-11);
    }
    EXPECT_THROW(make_arc({0, 0, 0}, {1, 0, 0}, {2, 0, 0}), KernelError);
    EXPECT_THROW(make_arc({0, 0, 0}, {1, 0, 0}, {1, 0, 0}), KernelError);
    EXPECT_THROW(make_segment({0, 0, 0}, {1e-8, 0, 0}), KernelError);
}

TEST(Curve, HostileNumbersAreRefused) {
    const auto circle = make<Circle>(Frame(), 1);
    const auto line = make<Line>(Point(0, 0, 0), Vector(1, 0, 0));
    const auto cubic = samples::splines()[1].curve;
    Frame broken;
    broken.x = {1, 1, 0};
    for (const double bad : {kNan, 1e300, -1e300, std::numeric_limits<double>::infinity()}) {
        EXPECT_THROW(Line({bad, 0, 0}, {1, 0, 0}), KernelError);
        EXPECT_THROW(Circle(Frame(), bad), KernelError);
        EXPECT_THROW(Ellipse(Frame(), bad, 1), KernelError);
        EXPECT_THROW(Ellipse(Frame(), 1, bad), KernelError);
        EXPECT_THROW(TrimmedCurve(circle, 0, bad), KernelError);
        EXPECT_THROW(TrimmedCurve(line, bad, 1), KernelError);
        EXPECT_THROW(TrimmedCurve(cubic, bad, 1), KernelError);
        EXPECT_THROW(make_segment({0, 0, 0}, {0, bad, 0}), KernelError);
        for (const auto& [name, curve] : samples::curves()) {
            EXPECT_THROW(curve->project({0, 0, bad}), KernelError) << name;
            curve->derivatives(bad);  // any value, but no crash
        }
    }
    EXPECT_THROW(Line({0, 0, 0}, {0, 0, 0}), KernelError);
    EXPECT_THROW(Circle(Frame(), 0), KernelError);
    EXPECT_THROW(Circle(Frame(), -1), KernelError);
    EXPECT_THROW(Circle(broken, 1), KernelError);
    EXPECT_THROW(Ellipse(Frame(), 1, 1.5), KernelError);
    EXPECT_THROW(Ellipse(Frame(), 0, 0), KernelError);
    EXPECT_THROW(TrimmedCurve(line, 1, 1), KernelError);
    EXPECT_THROW(TrimmedCurve(line, 2, 1), KernelError);
    EXPECT_THROW(TrimmedCurve(cubic, -1, 1), KernelError);
    EXPECT_THROW(TrimmedCurve(nullptr, 0, 1), KernelError);
}

TEST(Curve2, IsACurveOfThePlane) {
    const auto arc = trim(*make_ellipse2({1, 2}, {0, 3}, 0.5, false), 0.5, 2);
    const auto segment = make_segment2({0, 0}, {3, 4});
    EXPECT_DOUBLE_EQ(segment->range().last, 5);
    EXPECT_EQ(make_circle2({0, 0}, 2, false)->value(std::numbers::pi / 2),
              Point2(make_circle2({0, 0}, 2)->value(-std::numbers::pi / 2)));
    AffineMap2 map;
    map.linear << 0, 2, -1, 0.5;
    map.translation = {4, 5};
    const Frame frame = samples::tilted_frame();
    for (const auto& curve : {arc, segment}) {
        ParameterMap parameters;
        const auto image = curve->mapped(map, &parameters);
        const auto placed = curve->placed(frame);
        for (const double t : samples::parameters(curve->range())) {
            const Point2 p = curve->value(t);
            EXPECT_NEAR((image->value(parameters(t)) - map.point(p)).norm(), 0, 1e-14);
            EXPECT_NEAR(distance(placed->value(t), frame.in_plane(p.x(), p.y())), 0, 1e-14);
            EXPECT_NEAR(curve->project(p), t, 1e-12);
        }
    }
    map.linear << 1, 0, 0, 0;  // flattened, and still in the plane
    EXPECT_EQ(make_circle2({0, 0}, 2)->mapped(map)->in_plane()->value(1).z(), 0);
    EXPECT_THROW(Curve2(make<Line>(Point(0, 0, 0), Vector(0, 1, 1))), KernelError);
    EXPECT_THROW(Curve2(nullptr), KernelError);
    EXPECT_THROW(make_segment2({1, 1}, {1, 1}), KernelError);
}

TEST(Describe, NamesKindAndNumbers) {
    EXPECT_EQ(describe(*make<Circle>(Frame(), 0.1)), "circle centre (0 0 0) axis (0 0 1) radius 0.1");
    EXPECT_EQ(describe(*make_segment({0, 0, 0}, {0, 2, 0})), "line through (0 0 0) along (0 1 0) over [0 2]");
    for (const auto& [name, curve] : samples::curves()) EXPECT_FALSE(describe(*curve).empty()) << name;
    for (const auto& [name, surface] : samples::surfaces()) EXPECT_FALSE(describe(*surface).empty()) << name;
}

}  // namespace
}  // namespace veltrane::kernel
