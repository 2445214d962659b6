#include "veltrane/kernel/geom/bezier.hpp"

#include "veltrane/kernel/geom/bspline_eval.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/conic.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

namespace {

constexpr int kMaxDepth = 12;               // halvings of one piece
constexpr std::size_t kMaxCubics = 200000;  // pieces in all

/// Ellipse and circle alike.
std::vector<BezierSegment> conic_segments(const Frame& frame, double a, double b, const Interval& interval) {
    std::vector<BezierSegment> result;
    for (const UnitArc& arc : unit_arcs(interval)) {
        BezierSegment piece{arc.angles, {}, {arc.weight.begin(), arc.weight.end()}};
        for (int i = 0; i < 3; ++i) {
            piece.poles.push_back(
                frame.in_plane(a * arc.cosine[i] / arc.weight[i], b * arc.sine[i] / arc.weight[i]));
        }
        result.push_back(std::move(piece));
    }
    return result;
}

std::vector<BezierSegment> bspline_segments(const BSplineCurve& curve, const Interval& interval) {
    std::vector<BezierSegment> result;
    const std::vector<double> ends = curve.breaks(interval);
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
        BezierSegment piece;
        piece.parameters = {ends[i], ends[i + 1]};
        for (const HomogeneousPoint& pole : bezier_poles(curve, ends[i], ends[i + 1])) {
            const double w = curve.is_rational() ? pole[3] : 1;
            piece.poles.push_back(pole.head<3>() / w);
            if (curve.is_rational()) piece.weights.push_back(w);
        }
        result.push_back(std::move(piece));
    }
    return result;
}

CubicSegment raised_to_cubic(const std::vector<Point>& p) {
    if (p.size() == 2) return {p[0], p[0] + (p[1] - p[0]) / 3, p[0] + 2 * (p[1] - p[0]) / 3, p[1]};
    if (p.size() == 3) return {p[0], p[0] + 2 * (p[1] - p[0]) / 3, p[2] + 2 * (p[1] - p[2]) / 3, p[2]};
    return {p[0], p[1], p[2], p[3]};
}

Point value_of(const CubicSegment& c, double u) {
    const double v = 1 - u;
    return v * v * v * c[0] + 3 * v * v * u * c[1] + 3 * v * u * u * c[2] + u * u * u * c[3];
}

bool is_conic(const Curve& curve) {
    const CurveKind kind = curve.kind() == CurveKind::Trimmed
                               ? static_cast<const TrimmedCurve&>(curve).basis()->kind()
                               : curve.kind();
    return kind == CurveKind::Circle || kind == CurveKind::Ellipse;
}

/// The cubic with the end points and tangents of the curve over the piece. An arc of a conic by angle is
/// nearest with handles of 4/3 tan(angle / 4) times the derivative.
CubicSegment hermite(const Curve& curve, const Interval& piece) {
    const double handle = is_conic(curve) ? 4.0 / 3 * std::tan(piece.length() / 4) : piece.length() / 3;
    const CurveDerivatives a = curve.derivatives(piece.first), b = curve.derivatives(piece.last);
    return {a.point, a.point + handle * a.first, b.point - handle * b.first, b.point};
}

void append_cubics(const Curve& curve, const Interval& piece, double tolerance, int depth,
                   std::vector<CubicSegment>& result) {
    const CubicSegment cubic = hermite(curve, piece);
    double deviation = 0;
    for (const double u : {0.2, 0.4, 0.5, 0.6, 0.8}) {
        deviation = std::max(deviation, distance(value_of(cubic, u), curve.value(piece.at(u))));
    }
    if (deviation <= tolerance || depth >= kMaxDepth || result.size() >= kMaxCubics) {
        result.push_back(cubic);
        return;
    }
    append_cubics(curve, {piece.first, piece.middle()}, tolerance, depth + 1, result);
    append_cubics(curve, {piece.middle(), piece.last}, tolerance, depth + 1, result);
}

}  // namespace

Point BezierSegment::value(double u) const {
    Point sum = Point::Zero();
    double total = 0;
    const int n = degree();
    // Bernstein polynomials by recurrence, from the end that keeps the ratio at most 1.
    const bool flip = u > 0.5;
    const double x = flip ? 1 - u : u;
    const double ratio = x / (1 - x);
    double factor = std::pow(1 - x, n);
    for (int i = 0; i <= n; ++i) {
        const int pole = flip ? n - i : i;
        const double share = factor * (weights.empty() ? 1.0 : weights[pole]);
        sum += share * poles[pole];
        total += share;
        factor *= ratio * (n - i) / (i + 1);
    }
    return sum / total;
}

Box BezierSegment::hull() const {
    Box box;
    for (const Point& pole : poles) box.add(pole);
    return box;
}

std::vector<BezierSegment> bezier_segments(const Curve& curve, const Interval& interval) {
    curve.require_piece(interval);
    switch (curve.kind()) {
        case CurveKind::Line:
            return {{interval, {curve.value(interval.first), curve.value(interval.last)}, {}}};
        case CurveKind::Circle: {
            const Circle& circle = static_cast<const Circle&>(curve);
            return conic_segments(circle.frame(), circle.radius(), circle.radius(), interval);
        }
        case CurveKind::Ellipse: {
            const Ellipse& ellipse = static_cast<const Ellipse&>(curve);
            return conic_segments(ellipse.frame(), ellipse.major_radius(), ellipse.minor_radius(), interval);
        }
        case CurveKind::BSpline:
            return bspline_segments(static_cast<const BSplineCurve&>(curve), interval);
        case CurveKind::Trimmed:
            return bezier_segments(*static_cast<const TrimmedCurve&>(curve).basis(), interval);
    }
    throw KernelError("A curve has no Bezier form");
}

std::vector<CubicSegment> cubic_segments(const Curve& curve, const Interval& interval, double tolerance) {
    if (!(tolerance > 0)) tolerance = kConfusion;
    std::vector<CubicSegment> result;
    for (const BezierSegment& piece : bezier_segments(curve, interval)) {
        if (!piece.is_rational() && piece.degree() <= 3) {
            result.push_back(raised_to_cubic(piece.poles));
        } else {
            append_cubics(curve, piece.parameters, tolerance, 0, result);
        }
    }
    return result;
}

}  // namespace veltrane::kernel
