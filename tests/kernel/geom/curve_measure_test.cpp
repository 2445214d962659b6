#include "veltrane/kernel/geom/curve_measure.hpp"

#include "kernel/geom/samples.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>

namespace veltrane::kernel {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

Ref<Curve> bezier(std::vector<Point> poles) {
    const int degree = static_cast<int>(poles.size()) - 1;
    return make<BSplineCurve>(
        BSplineData{degree, std::move(poles), {}, {0, 1}, {degree + 1, degree + 1}, false});
}

TEST(Length, AgreesWithKnownValues) {
    // Complete elliptic integrals and the parabola's closed form; to the precision of doubles.
    const auto ellipse = make<Ellipse>(samples::tilted_frame(), 2, 1);
    struct Row {
        const char* name;
        Ref<Curve> curve;
        double length;
    };
    const Row rows[] = {
        {"segment", make_segment({1, 2, 3}, {4, 6, 3}), 5},
        {"circle", make<Circle>(Frame(), 3), 6 * std::numbers::pi},
        {"ellipse", ellipse, 9.688448220547675},
        {"quarter ellipse", make<TrimmedCurve>(ellipse, std::numbers::pi, 1.5 * std::numbers::pi),
         9.688448220547675 / 4},
        {"ellipse as B-spline", to_bspline(*ellipse), 9.688448220547675},
        {"circle as B-spline", to_bspline(Circle(Frame(), 3)), 6 * std::numbers::pi},
        {"flat ellipse", make<Ellipse>(Frame(), 1, 0), 4},
        {"parabola", bezier({{-1, 1, 0}, {0, -1, 0}, {1, 1, 0}}), 2.957885715089195},
        {"cusp", bezier({{0, 0, 0}, {1, 1, 0}, {0, 1, 0}, {1, 0, 0}}), 2 * std::numbers::sqrt2 - 1},
        {"there and back", bezier({{0, 0, 0}, {1, 0, 0}, {0, 0, 0}}), 1},
        {"polyline",
         make<BSplineCurve>(
             BSplineData{1, {{0, 0, 0}, {3, 4, 0}, {3, 4, 5}}, {}, {0, 1, 3}, {2, 1, 2}, false}),
         10},
    };
    for (const Row& row : rows) EXPECT_NEAR(length(*row.curve) / row.length, 1, 1e-12) << row.name;
    EXPECT_TRUE(is_infinite(length(Line({0, 0, 0}, {1, 0, 0}))));
    EXPECT_EQ(length(*ellipse, {1, 1}), 0);
}

TEST(Length, AddsUpAndIsInvariant) {
    for (const auto& [name, curve] : samples::bounded_curves()) {
        const Interval range = curve->range();
        const double whole = length(*curve);
        const double middle = range.at(0.371);
        const double parts = length(*curve, {range.first, middle}) + length(*curve, {middle, range.last});
        EXPECT_NEAR(parts / whole, 1, 1e-11) << name;
        EXPECT_NEAR(length(*curve->reversed()) / whole, 1, 1e-11) << name;
        const auto moved = curve->transformed(Transform::scaling({1, 2, 3}, -2) *
                                              Transform::rotation({0, 0, 0}, {1, 2, 3}, 1));
        EXPECT_NEAR(length(*moved) / whole, 2, 1e-11) << name;
        EXPECT_NEAR(length(*curve->transformed(Transform::translation({1e6, -2e6, 0}))) / whole, 1, 1e-9)
            << name;
        double chords = 0;
        Point at = curve->start();
        for (const double t : samples::dense_parameters(*curve, 4000)) {
            chords += distance(at, curve->value(t));
            at = curve->value(t);
        }
        EXPECT_NEAR(whole / chords, 1, 1e-5) << name;
    }
}

TEST(BoundingBox, IsTight) {
    for (const auto& [name, curve] : samples::bounded_curves()) {
        const Box box = bounding_box(*curve);
        Box sampled;
        for (const double t : samples::dense_parameters(*curve, 6000)) sampled.add(curve->value(t));
        const double size = box.diagonal();
        EXPECT_TRUE((box.min() - sampled.min()).maxCoeff() <= 1e-12 * size) << name;
        EXPECT_TRUE((sampled.max() - box.max()).maxCoeff() <= 1e-12 * size) << name;
        EXPECT_TRUE((sampled.min() - box.min()).maxCoeff() <= 1e-6 * size) << name;
        EXPECT_TRUE((box.max() - sampled.max()).maxCoeff() <= 1e-6 * size) << name;
    }
    // The same points in another form have the same box.
    const Ellipse ellipse(samples::tilted_frame(), 5, 2);
    const Box exact = bounding_box(ellipse), converted = bounding_box(*to_bspline(ellipse));
    EXPECT_NEAR(distance(exact.min(), converted.min()), 0, 1e-13);
    EXPECT_NEAR(distance(exact.max(), converted.max()), 0, 1e-13);
    const Box cubic = bounding_box(*bezier({{0, 0, 0}, {0, 3, 0}, {1, 3, 0}, {1, 0, 0}}));
    EXPECT_DOUBLE_EQ(cubic.max().y(), 2.25);
}

TEST(BoundingBox, IsOpenWhereTheCurveIsUnbounded) {
    const auto line = make<Line>(Point(1, 2, 3), Vector(0, 1, 0));
    const Box whole = bounding_box(*line);
    EXPECT_TRUE(whole.is_open() && is_infinite(whole.min().y()) && is_infinite(whole.max().y()));
    EXPECT_EQ(whole.max().x(), 1);
    const Box ray = bounding_box(TrimmedCurve(line, 0, kInfinite));
    EXPECT_EQ(ray.min(), Point(1, 2, 3));
    EXPECT_TRUE(is_infinite(ray.max().y()));
}

TEST(Polyline, StaysWithinItsDeflection) {
    for (const auto& [name, curve] : samples::bounded_curves()) {
        for (const Deflection& d : {Deflection{0.1, 3.0}, Deflection{0.001, 3.0}, Deflection{10, 0.2}}) {
            const std::vector<double> ts = polyline_parameters(*curve, curve->range(), d);
            ASSERT_GE(ts.size(), 2u);
            EXPECT_EQ(ts.front(), curve->range().first);
            EXPECT_EQ(ts.back(), curve->range().last);
            EXPECT_LT(ts.size(), 3000u) << name;
            for (std::size_t i = 0; i + 1 < ts.size(); ++i) {
                ASSERT_LT(ts[i], ts[i + 1]);
                const Point a = curve->value(ts[i]), b = curve->value(ts[i + 1]);
                if (distance(a, b) < 1e-6) continue;
                const auto chord = make_segment(a, b);
                for (const double f : {0.13, 0.5, 0.81}) {
                    const Point p = curve->value(Interval{ts[i], ts[i + 1]}.at(f));
                    EXPECT_LE(distance(chord->value(chord->project(p)), p), 1.05 * d.chord) << name;
                }
            }
        }
    }
    EXPECT_EQ(polyline(*make_segment({0, 0, 0}, {1, 0, 0}), {0, 1}, {}).size(), 2u);
    EXPECT_EQ(polyline(Circle(Frame(), 1), {0, kTwoPi}, {100, kTwoPi / 12}).size(), 13u);
    const BSplineCurve corner(
        {2, {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {2, 2, 0}}, {}, {0, 1, 2}, {3, 2, 3}, false});
    EXPECT_EQ(polyline(corner, {0, 2}, {}).size(), 3u);
}

TEST(Polyline, HasBoundedSizeWhateverIsAsked) {
    for (const auto& [name, curve] : samples::bounded_curves()) {
        for (const Deflection& d : {Deflection{0, 0.5, 1000}, Deflection{kNan, kNan, 1000},
                                    Deflection{-1, 1e-300, 1000}, Deflection{1e-300, 1, -5}}) {
            EXPECT_LE(polyline(*curve, curve->range(), d).size(), 1010u) << name;
        }
    }
    EXPECT_THROW(polyline(Line({0, 0, 0}, {1, 0, 0}), {-kInfinite, kInfinite}, {}), KernelError);
    EXPECT_THROW(polyline(Circle(Frame(), 1), {0, kNan}, {}), KernelError);
}

TEST(Measures, HostileCurvesTakeBoundedTime) {
    samples::Random random(5);
    std::vector<Ref<Curve>> hostile;
    for (const double size : {1e-100, 9e101}) {
        BSplineData data = samples::spline_data(25, {0, 1e-9, 1, 1e9}, {26, 25, 3, 26}, true, false);
        for (Point& p : data.poles) p *= size / 10;
        for (double& w : data.weights) w = std::pow(10, random(-90, 90));
        hostile.push_back(make<BSplineCurve>(data));
        data.weights.clear();
        hostile.push_back(make<BSplineCurve>(data));
        hostile.push_back(make<Ellipse>(Frame(), size, size * 1e-14));
        hostile.push_back(make<Circle>(Frame(), size));
    }
    hostile.push_back(bezier(std::vector<Point>(26, Point(1, 1, 1))));
    const std::clock_t begin = std::clock();
    for (const auto& curve : hostile) {
        length(*curve);
        bounding_box(*curve);
        polyline(*curve, curve->range(), {1e-9, 1e-9, 2000});
        curve->project({1, 2, 3});
        to_bspline(*curve);
    }
    EXPECT_LT((std::clock() - begin) / CLOCKS_PER_SEC, 60);
}

}  // namespace
}  // namespace veltrane::kernel
