#include "veltrane/kernel/geom/curve_measure.hpp"

#include "veltrane/kernel/geom/bspline_eval.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/bernstein.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/quadrature.hpp"

#include <algorithm>

namespace veltrane::kernel {

namespace {

constexpr double kRelative = 1e-12;

/// The derivative of a Bezier piece A / w by u: (A' w - A w') / w^2 per axis.
struct Hodograph {
    std::array<Bernstein, 3> numerators;
    Bernstein weight;  ///< empty when not rational

    double speed(double u) const {
        const Vector v(evaluate(numerators[0], u), evaluate(numerators[1], u), evaluate(numerators[2], u));
        if (weight.empty()) return v.norm();
        const double w = evaluate(weight, u);
        return v.norm() / (w * w);
    }
};

Hodograph hodograph(const BSplineCurve& curve, const Interval& piece) {
    const std::vector<HomogeneousPoint> poles = bezier_poles(curve, piece.first, piece.last);
    Hodograph result;
    Bernstein w_slope;
    if (curve.is_rational()) {
        for (const HomogeneousPoint& pole : poles) result.weight.push_back(pole[3]);
        w_slope = derivative(result.weight);
    }
    // About the first pole, so that a far origin costs no digits.
    const Point origin = poles.front().head<3>() / poles.front()[3];
    for (int axis = 0; axis < 3; ++axis) {
        Bernstein a;
        for (const HomogeneousPoint& pole : poles) a.push_back(pole[axis] - pole[3] * origin[axis]);
        Bernstein& slope = result.numerators[axis] = derivative(a);
        if (curve.is_rational()) slope = add(multiply(slope, result.weight), multiply(a, w_slope), -1);
    }
    return result;
}

/// Places where the speed is least. At a cusp it has a kink, which quadrature must not straddle.
std::vector<double> slow_places(const Hodograph& slopes) {
    Bernstein square;
    for (const Bernstein& slope : slopes.numerators) {
        const Bernstein product = multiply(slope, slope);
        square = square.empty() ? product : add(square, product);
    }
    std::vector<double> places{0};
    for (const double u : roots(derivative(square))) {
        if (u > places.back() && u < 1) places.push_back(u);
    }
    places.push_back(1);
    return places;
}

double piece_length(const Hodograph& slopes) {
    constexpr int kFewPieces = 12, kManyPieces = 400;
    const auto speed = [&](double u) { return slopes.speed(u); };
    const Integral whole = integrate(speed, {0, 1}, kRelative, kFewPieces);
    if (whole.error <= kRelative * whole.value) return whole.value;
    const std::vector<double> places = slow_places(slopes);
    const int share = std::max(kFewPieces, kManyPieces / static_cast<int>(places.size()));
    double sum = 0;
    for (std::size_t i = 0; i + 1 < places.size(); ++i) {
        sum += integrate(speed, {places[i], places[i + 1]}, kRelative, share).value;
    }
    return sum;
}

double bspline_length(const BSplineCurve& curve, const Interval& interval) {
    const std::vector<double> ends = curve.breaks(interval);
    double sum = 0;
    for (std::size_t i = 0; i + 1 < ends.size(); ++i)
        sum += piece_length(hodograph(curve, {ends[i], ends[i + 1]}));
    return sum;
}

/// Between the ends of the axes the integrand is monotone, and a flat ellipse is slow only at the ends.
double ellipse_length(const Ellipse& ellipse, const Interval& interval) {
    constexpr double kQuarter = std::numbers::pi / 2;
    const auto speed = [&](double t) { return ellipse.derivatives(t).first.norm(); };
    double sum = 0;
    double from = interval.first;
    const double turns = std::floor(from / kQuarter);
    for (int i = 1; i <= 6 && from < interval.last; ++i) {
        const double to = i == 6 ? interval.last : std::min((turns + i) * kQuarter, interval.last);
        if (to > from) sum += integrate(speed, {from, to}, kRelative, 200).value;
        from = std::max(from, to);
    }
    return sum;
}

/// Extremes along each axis: centre +- hypot at the angle of (x, y) components, where the interval holds
/// that angle.
Box conic_box(const Curve& curve, const Frame& frame, double a, double b, const Interval& interval) {
    Box box(curve.value(interval.first), curve.value(interval.last));
    Point low = box.min(), high = box.max();
    for (int axis = 0; axis < 3; ++axis) {
        const double x = a * frame.x[axis], y = b * frame.y[axis];
        const double reach = std::hypot(x, y);
        if (reach == 0) continue;
        const auto holds = [&](double angle) {
            const double turns = std::ceil((interval.first - angle) / kTwoPi);
            return angle + turns * kTwoPi <= interval.last;
        };
        const double angle = std::atan2(y, x);
        if (holds(angle)) high[axis] = std::max(high[axis], frame.origin[axis] + reach);
        if (holds(angle + std::numbers::pi)) low[axis] = std::min(low[axis], frame.origin[axis] - reach);
    }
    return {low, high};
}

Box line_box(const Line& line, const Interval& interval) {
    Box box;
    for (const double t : {interval.first, interval.last}) {
        Point end = line.value(t);
        if (is_infinite(t)) {
            for (int axis = 0; axis < 3; ++axis) {
                const double along = line.direction()[axis];
                const bool across = std::abs(along) <= kAngular;
                end[axis] = across ? line.origin()[axis] : std::copysign(kInfinite, along * t);
            }
        }
        box.add(end);
    }
    return box;
}

Box bspline_box(const BSplineCurve& curve, const Interval& interval) {
    Box box;
    const std::vector<double> ends = curve.breaks(interval);
    for (const double t : ends) box.add(curve.value(t));
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
        const std::vector<HomogeneousPoint> poles = bezier_poles(curve, ends[i], ends[i + 1]);
        Box hull;
        for (const HomogeneousPoint& pole : poles) hull.add(Point(pole.head<3>() / pole[3]));
        Hodograph slopes;
        for (int axis = 0; axis < 3; ++axis) {
            if (hull.min()[axis] >= box.min()[axis] && hull.max()[axis] <= box.max()[axis]) continue;
            if (slopes.numerators[0].empty()) slopes = hodograph(curve, {ends[i], ends[i + 1]});
            for (const double u : roots(slopes.numerators[axis])) {
                box.add(curve.value(Interval{ends[i], ends[i + 1]}.at(u)));
            }
        }
    }
    return box;
}

}  // namespace

double length(const Curve& curve, const Interval& interval) {
    if (curve.kind() == CurveKind::Trimmed) {
        return length(*static_cast<const TrimmedCurve&>(curve).basis(), interval);
    }
    if (interval.first == interval.last) return 0;
    if (curve.kind() == CurveKind::Line) return interval.length();
    curve.require_piece(interval);
    switch (curve.kind()) {
        case CurveKind::Circle:
            return static_cast<const Circle&>(curve).radius() * interval.length();
        case CurveKind::Ellipse:
            return ellipse_length(static_cast<const Ellipse&>(curve), interval);
        case CurveKind::BSpline:
            return bspline_length(static_cast<const BSplineCurve&>(curve), interval);
        case CurveKind::Line:
        case CurveKind::Trimmed:
            break;
    }
    throw KernelError("A curve has no length");
}

double length(const Curve& curve) {
    return length(curve, curve.range());
}

Box bounding_box(const Curve& curve, const Interval& interval) {
    if (curve.kind() == CurveKind::Trimmed) {
        return bounding_box(*static_cast<const TrimmedCurve&>(curve).basis(), interval);
    }
    if (curve.kind() == CurveKind::Line) return line_box(static_cast<const Line&>(curve), interval);
    if (interval.first == interval.last) return {curve.value(interval.first), curve.value(interval.last)};
    curve.require_piece(interval);
    switch (curve.kind()) {
        case CurveKind::Circle: {
            const Circle& circle = static_cast<const Circle&>(curve);
            return conic_box(curve, circle.frame(), circle.radius(), circle.radius(), interval);
        }
        case CurveKind::Ellipse: {
            const Ellipse& ellipse = static_cast<const Ellipse&>(curve);
            return conic_box(curve, ellipse.frame(), ellipse.major_radius(), ellipse.minor_radius(),
                             interval);
        }
        case CurveKind::BSpline:
            return bspline_box(static_cast<const BSplineCurve&>(curve), interval);
        case CurveKind::Line:
        case CurveKind::Trimmed:
            break;
    }
    throw KernelError("A curve has no box");
}

Box bounding_box(const Curve& curve) {
    return bounding_box(curve, curve.range());
}

}  // namespace veltrane::kernel
