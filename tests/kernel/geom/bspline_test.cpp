#include "kernel/geom/samples.hpp"
#include "veltrane/kernel/geom/bezier.hpp"
#include "veltrane/kernel/geom/bspline_knots.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <limits>

namespace veltrane::kernel {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

const BSplineCurve& spline(const samples::NamedCurve& named) {
    return *as<BSplineCurve>(named.curve.get());
}

void expect_same_curve(const Curve& a, const Curve& b, const Interval& range, double tolerance,
                       const std::string& name) {
    for (int i = 0; i <= 40; ++i) {
        const double t = range.at(i / 40.0);
        EXPECT_NEAR(distance(a.value(t), b.value(t)), 0, tolerance) << name << " at " << t;
    }
}

/// Sum of N_i(t) P_i straight from the recursive definition of the basis functions.
Point by_definition(const BSplineData& data, double t) {
    const std::vector<double> u = flat_knots(data);
    std::function<double(int, int)> basis = [&](int i, int p) -> double {
        if (p == 0) return u[i] <= t && t < u[i + 1] ? 1 : 0;
        const double left = u[i + p] - u[i], right = u[i + p + 1] - u[i + 1];
        return (left > 0 ? (t - u[i]) / left * basis(i, p - 1) : 0) +
               (right > 0 ? (u[i + p + 1] - t) / right * basis(i + 1, p - 1) : 0);
    };
    Point sum = Point::Zero();
    double total = 0;
    const int count = static_cast<int>(data.poles.size());
    for (int i = 0; i < count + (data.periodic ? data.degree : 0); ++i) {
        const double share = basis(i, data.degree) * (data.weights.empty() ? 1 : data.weights[i % count]);
        sum += share * data.poles[i % count];
        total += share;
    }
    return sum / total;
}

TEST(BSpline, EvaluatesItsDefinition) {
    for (const auto& named : samples::splines()) {
        const BSplineCurve& curve = spline(named);
        for (const double t : samples::parameters(curve.range(), 7)) {
            EXPECT_NEAR(distance(curve.value(t), by_definition(curve.data(), t)), 0, 1e-12) << named.name;
        }
        if (curve.is_periodic()) {
            const double t = curve.range().at(0.3);
            EXPECT_NEAR(distance(curve.value(t), curve.value(t - 3 * curve.period())), 0, 1e-11)
                << named.name;
        }
    }
}

TEST(BSpline, EndsOfAClampedCurveAreItsPoles) {
    const BSplineCurve& curve = spline(samples::splines()[1]);
    EXPECT_EQ(curve.start(), curve.poles().front());
    EXPECT_EQ(curve.end(), curve.poles().back());
    const Interval unclamped = spline(samples::splines()[4]).range();
    EXPECT_EQ(unclamped, (Interval{3, 5}));
}

TEST(BSpline, RefusesBadData) {
    const BSplineData good = samples::spline_data(3, {0, 1, 2}, {4, 1, 4}, true, false);
    const BSplineData periodic = samples::spline_data(3, {0, 1, 2, 3}, {2, 1, 1, 2}, false, true);
    EXPECT_NO_THROW(validate(good));
    EXPECT_NO_THROW(validate(periodic));
    struct Row {
        const char* name;
        std::function<void(BSplineData&)> spoil;
    };
    const Row rows[] = {
        {"degree 0", [](BSplineData& d) { d.degree = 0; }},
        {"degree 26", [](BSplineData& d) { d.degree = 26; }},
        {"degree -1", [](BSplineData& d) { d.degree = -1; }},
        {"no poles", [](BSplineData& d) { d.poles.clear(); }},
        {"one pole less", [](BSplineData& d) { d.poles.pop_back(); }},
        {"pole not a number", [](BSplineData& d) { d.poles[1].y() = kNan; }},
        {"pole too far", [](BSplineData& d) { d.poles[1].y() = 1e300; }},
        {"one weight", [](BSplineData& d) { d.weights = {1}; }},
        {"zero weight", [](BSplineData& d) { d.weights.assign(d.poles.size(), 0); }},
        {"negative weight", [](BSplineData& d) { d.weights.assign(d.poles.size(), -1); }},
        {"weight not a number", [](BSplineData& d) { d.weights.assign(d.poles.size(), kNan); }},
        {"no knots", [](BSplineData& d) { d.knots.clear(), d.multiplicities.clear(); }},
        {"unsorted knots", [](BSplineData& d) { std::swap(d.knots[0], d.knots[1]); }},
        {"equal knots", [](BSplineData& d) { d.knots[1] = d.knots[0]; }},
        {"knot not a number", [](BSplineData& d) { d.knots[1] = kNan; }},
        {"knot too far", [](BSplineData& d) { d.knots.back() = 1e300; }},
        {"multiplicity 0", [](BSplineData& d) { d.multiplicities[1] = 0; }},
        {"huge multiplicity", [](BSplineData& d) { d.multiplicities[1] = std::numeric_limits<int>::max(); }},
        {"missing multiplicity", [](BSplineData& d) { d.multiplicities.pop_back(); }},
        {"end multiplicity", [](BSplineData& d) { ++d.multiplicities[0]; }},
    };
    for (const Row& row : rows) {
        for (BSplineData data : {good, periodic}) {
            row.spoil(data);
            EXPECT_THROW(BSplineCurve{data}, KernelError) << row.name;
            EXPECT_THROW(remove_knot(data, 1, 0, 1e-7), KernelError) << row.name;
            EXPECT_THROW(lower_excess_knots(data, 1e-7), KernelError) << row.name;
        }
    }
    BSplineData pieces = samples::spline_data(3, {0, 1, 2}, {4, 4, 4}, false, false);
    EXPECT_THROW(BSplineCurve{pieces}, KernelError);
    EXPECT_THROW(BSplineCurve(samples::spline_data(3, {0, 1, 2}, {1, 4, 1}, false, false)), KernelError);
}

TEST(BSpline, InsertingAndRemovingKnotsKeepsTheShape) {
    for (const auto& named : samples::splines()) {
        const BSplineCurve& curve = spline(named);
        const Interval range = curve.range();
        std::vector<double> places{range.at(0.1), range.at(0.77), range.first};
        for (const double knot : curve.knots()) {
            if (range.contains(knot)) places.push_back(knot);
        }
        for (const double t : places) {
            for (int m = 1; m <= curve.degree(); ++m) {
                const auto finer = with_knot(curve, t, m);
                expect_same_curve(curve, *finer, range, 1e-11,
                                  named.name + " with a knot at " + std::to_string(t));
                EXPECT_EQ(finer->range(), range);
                const auto place = std::find(finer->knots().begin(), finer->knots().end(), t);
                ASSERT_NE(place, finer->knots().end());
                const int index = static_cast<int>(place - finer->knots().begin());
                EXPECT_GE(finer->multiplicities()[index], m);
                const auto old = std::find(curve.knots().begin(), curve.knots().end(), t);
                const int before =
                    old == curve.knots().end() ? 0 : curve.multiplicities()[old - curve.knots().begin()];
                if (before >= m || (!curve.is_periodic() && t == range.first)) continue;
                const auto back = without_knot(*finer, index, before, 1e-8);
                ASSERT_TRUE(back) << named.name << " at " << t << " from " << m << " to " << before;
                EXPECT_EQ(back->multiplicities(), curve.multiplicities()) << named.name;
                expect_same_curve(curve, *back, range, 1e-9, named.name);
            }
        }
    }
}

TEST(BSpline, RemovalHonoursItsTolerance) {
    const BSplineCurve& curve = spline(samples::splines()[1]);
    for (const double push : {1e-9, 1e-4, 1e-2}) {
        BSplineData data = with_knot(curve, 1.5, 1)->data();
        data.poles[2].x() += push;
        const BSplineCurve pushed(data);
        EXPECT_FALSE(without_knot(pushed, 2, 0, push / 100));
        const auto lower = without_knot(pushed, 2, 0, push * 2);
        ASSERT_TRUE(lower);
        expect_same_curve(pushed, *lower, curve.range(), push * 2, "pushed");
    }
    BSplineData data = curve.data();
    EXPECT_THROW(remove_knot(data, 0, 1, 1), KernelError);
    EXPECT_THROW(remove_knot(data, 3, 1, 1), KernelError);
    EXPECT_THROW(remove_knot(data, -1, 1, 1), KernelError);
    EXPECT_THROW(remove_knot(data, 4, 1, 1), KernelError);
    EXPECT_FALSE(remove_knot(data, 1, 0, kNan));
    // Of an unclamped curve only knots with poles on both sides can go.
    BSplineData unclamped = spline(samples::splines()[4]).data();
    EXPECT_FALSE(remove_knot(unclamped, 1, 0, 1));
    EXPECT_FALSE(remove_knot(unclamped, 7, 0, 1));
}

TEST(BSpline, RemovalDoesNotDependOnThePlace) {
    // Far from the origin homogeneous poles are large; what is removable near by is removable there.
    BSplineData data = spline(samples::splines()[3]).data();
    for (Point& pole : data.poles) pole += Vector(1e6, -2e6, 0);
    const BSplineCurve far(data);
    const auto back = without_knot(*with_knot(far, 1.5, 1), 2, 0, 1e-7);
    ASSERT_TRUE(back);
    expect_same_curve(far, *back, far.range(), 1e-7, "far");
}

/// Two cubic pieces, written with `copies` knots between them; `gap` apart there.
BSplineData pieces(int copies, double gap, bool rational) {
    BSplineData data = samples::spline_data(3, {0, 1, 3}, {4, 3, 4}, rational, false);
    const int idle = copies - 3;
    data.multiplicities[1] = copies;
    data.poles.insert(data.poles.begin() + 4, idle, Point(99, 99, 99));
    data.poles[3 + idle] = data.poles[3] + Vector(gap, 0, 0);
    if (rational) {
        data.weights.insert(data.weights.begin() + 4, idle, 7);
        data.weights[3 + idle] = data.weights[3];
    }
    return data;
}

TEST(BSpline, ExcessMultiplicitiesAreLoweredWherePiecesMeet) {
    for (const bool rational : {false, true}) {
        const BSplineData expected = samples::spline_data(3, {0, 1, 3}, {4, 3, 4}, rational, false);
        for (const int copies : {3, 4, 5, 9}) {
            for (const double gap : {0.0, 1e-9, 1e-5}) {
                BSplineData by_removal = pieces(copies, gap, rational);
                BSplineData at_once = by_removal;
                const bool meets = copies == 3 || gap < 1e-7;
                EXPECT_EQ(remove_knot(by_removal, 1, 3, 1e-7), meets) << copies << " " << gap;
                EXPECT_EQ(lower_excess_knots(at_once, 1e-7), meets) << copies << " " << gap;
                if (!meets || copies == 3) continue;
                expect_same_curve(BSplineCurve(expected), BSplineCurve(by_removal), {0, 3}, 1e-8, "removal");
                expect_same_curve(BSplineCurve(expected), BSplineCurve(at_once), {0, 3}, 1e-8, "at once");
            }
        }
    }
    // A periodic curve: the joint of its two pieces is an interior knot.
    BSplineData periodic = samples::spline_data(2, {0, 1, 2}, {1, 2, 1}, false, true);
    const BSplineCurve expected(periodic);
    periodic.multiplicities[1] = 4;
    periodic.poles.insert(periodic.poles.begin() + 2, 2, periodic.poles[2]);
    ASSERT_TRUE(lower_excess_knots(periodic, 1e-7));
    expect_same_curve(expected, BSplineCurve(periodic), {0, 2}, 1e-12, "periodic");
}

TEST(BSpline, ManyExcessKnotsTakeLinearTime) {
    BSplineData data;
    data.degree = 3;
    constexpr int kPieces = 40000;
    for (int i = 0; i <= kPieces; ++i) {
        data.knots.push_back(i);
        data.multiplicities.push_back(i == 0 || i == kPieces ? 4 : 5);
    }
    data.poles.assign(5 * (kPieces - 1) + 4, Point(1, 2, 3));
    const std::clock_t begin = std::clock();
    EXPECT_TRUE(lower_excess_knots(data, 1e-7));
    EXPECT_NO_THROW(BSplineCurve{std::move(data)});
    EXPECT_LT((std::clock() - begin) / CLOCKS_PER_SEC, 5);
}

TEST(BSpline, PeriodicFormsKeepTheShape) {
    for (const auto& named : samples::splines()) {
        const BSplineCurve& curve = spline(named);
        const auto clamped = make_clamped(curve);
        EXPECT_FALSE(clamped->is_periodic());
        EXPECT_EQ(clamped->multiplicities().front(), curve.degree() + 1);
        EXPECT_NEAR(distance(clamped->poles().front(), curve.start()), 0, 1e-12) << named.name;
        EXPECT_NEAR(distance(clamped->poles().back(), curve.end()), 0, 1e-12) << named.name;
        expect_same_curve(curve, *clamped, curve.range(), 1e-12, named.name);
        if (!curve.is_periodic()) {
            EXPECT_THROW(make_periodic(curve), KernelError) << named.name;
            EXPECT_THROW(with_first_multiplicity(curve, 1, 1), KernelError);
            continue;
        }
        EXPECT_TRUE(clamped->is_closed());
        const auto again = make_periodic(*clamped);
        EXPECT_TRUE(again->is_periodic());
        EXPECT_EQ(again->multiplicities().front(), curve.degree());
        expect_same_curve(curve, *again, curve.range(), 1e-12, named.name);
        const auto smooth = with_first_multiplicity(*again, 1, 1e-7);
        EXPECT_EQ(smooth->multiplicities(), curve.multiplicities()) << named.name;
        expect_same_curve(curve, *smooth, curve.range(), 1e-7, named.name);
    }
}

TEST(BSpline, ASeamWithACornerKeepsItsMultiplicity) {
    BSplineData data = samples::spline_data(3, {0, 1, 2}, {4, 1, 4}, false, false);
    data.poles.back() = data.poles.front();
    const auto periodic = make_periodic(BSplineCurve(data));
    const auto lowered = with_first_multiplicity(*periodic, 1, 1e-7);
    EXPECT_EQ(lowered->multiplicities().front(), 3);
    expect_same_curve(BSplineCurve(data), *lowered, {0, 2}, 1e-12, "corner");
    data.poles.back().x() += 1e-3;
    EXPECT_THROW(make_periodic(BSplineCurve(data)), KernelError);
}

TEST(BSpline, SegmentsBezierPiecesAndHigherDegreesKeepTheShape) {
    for (const auto& named : samples::splines()) {
        const BSplineCurve& curve = spline(named);
        const Interval range = curve.range();
        const double shift = curve.is_periodic() ? 0.6 * range.length() : 0;
        const Interval part{range.at(0.15) + shift, range.at(0.8) + shift};
        const auto piece = segment(curve, part);
        EXPECT_EQ(piece->range(), part);
        expect_same_curve(curve, *piece, part, 1e-12, named.name);
        expect_same_curve(curve, *with_degree(curve, curve.degree() + 2), range, 1e-11, named.name);
        for (const BezierSegment& bezier : bezier_segments(curve, part)) {
            for (const double u : {0.0, 0.3, 0.7, 1.0}) {
                EXPECT_NEAR(distance(bezier.value(u), curve.value(bezier.parameters.at(u))), 0, 1e-12)
                    << named.name;
            }
        }
        EXPECT_THROW(segment(curve, {range.first, range.first}), KernelError);
        EXPECT_THROW(segment(curve, {range.first, kNan}), KernelError);
        EXPECT_THROW(segment(curve, {range.first, range.last + 1}), KernelError);
        EXPECT_THROW(with_degree(curve, 26), KernelError);
    }
}

TEST(BSpline, ConversionIsExact) {
    for (const auto& [name, curve] : samples::bounded_curves()) {
        const Interval range = curve->range();
        for (const auto& converted : {to_bspline(*curve, range), to_bspline(*curve)}) {
            EXPECT_EQ(converted->range().first, range.first) << name;
            EXPECT_NEAR(converted->range().last, range.last, 1e-14) << name;
            EXPECT_NEAR(distance(converted->start(), curve->start()), 0, 1e-12) << name;
            EXPECT_NEAR(distance(converted->end(), curve->end()), 0, 1e-12) << name;
            // The parameters of conics differ between knots, the points do not leave the curve.
            for (const double t : samples::parameters(range, 23)) {
                const Point p = converted->value(t);
                EXPECT_NEAR(distance(curve->value(curve->project(p)), p), 0, 1e-12) << name;
                EXPECT_NEAR(curve->project(p), t, 0.05) << name;
            }
        }
    }
    const auto circle = to_bspline(Circle(Frame(), 5));
    EXPECT_TRUE(circle->is_periodic() && circle->is_rational() && circle->degree() == 2);
    EXPECT_FALSE(to_bspline(Circle(Frame(), 5), {0, kTwoPi})->is_periodic());
    EXPECT_THROW(to_bspline(Line({0, 0, 0}, {1, 0, 0})), KernelError);
    EXPECT_THROW(to_bspline(Circle(Frame(), 5), {0, 100}), KernelError);
}

TEST(BSpline, CubicsStayWithinTolerance) {
    for (const auto& [name, curve] : samples::bounded_curves()) {
        const auto pieces = cubic_segments(*curve, curve->range(), 1e-4);
        Point at = curve->start();
        for (const CubicSegment& c : pieces) {
            EXPECT_NEAR(distance(c[0], at), 0, 1e-12) << name;
            at = c[3];
            for (const double u : {0.15, 0.5, 0.9}) {
                const double v = 1 - u;
                const Point p =
                    v * v * v * c[0] + 3 * v * v * u * c[1] + 3 * v * u * u * c[2] + u * u * u * c[3];
                EXPECT_LE(distance(curve->value(curve->project(p)), p), 1.1e-4) << name;
            }
        }
        EXPECT_NEAR(distance(at, curve->end()), 0, 1e-12) << name;
        EXPECT_LT(pieces.size(), 400u) << name;
    }
}

TEST(BSpline, DistinctKnotsGatherEqualNeighbours) {
    const double flat[] = {0, 0, 0, 1, 1 + 1e-12, 2};
    EXPECT_EQ(distinct_knots(flat).multiplicities, (std::vector<int>{3, 1, 1, 1}));
    EXPECT_EQ(distinct_knots(flat, 1e-10).multiplicities, (std::vector<int>{3, 2, 1}));
}

}  // namespace
}  // namespace veltrane::kernel
