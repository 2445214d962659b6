#include "veltrane/kernel/geom/bspline_curve.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"

#include <algorithm>

namespace veltrane::kernel {

namespace {

constexpr int kMaxLevels = 24;

double distance_to_segment(const Point& p, const Point& a, const Point& b) {
    const Vector along = b - a;
    const double square = along.squaredNorm();
    if (!(square > 0)) return distance(p, a);
    const double share = std::clamp((p - a).dot(along) / square, 0.0, 1.0);
    return distance(p, a + share * along);
}

/// Whether the chord over the piece may stand for the curve. What has shrunk to a point is flat, whatever
/// its tangent does: cusps turn it at once.
bool is_flat(const Curve& curve, const Interval& piece, const Deflection& deflection, int samples) {
    // At a knot the tangent may jump to that of the next piece.
    constexpr double kJustBeforeTheEnd = 1 - 1e-9;
    const CurveDerivatives a = curve.derivatives(piece.first), b = curve.derivatives(piece.last);
    const Vector last_tangent = curve.derivatives(piece.at(kJustBeforeTheEnd)).first;
    bool turns = angle_between(a.first, last_tangent) > deflection.angle;
    double extent = distance(a.point, b.point);
    for (int i = 1; i <= samples; ++i) {
        const CurveDerivatives d = curve.derivatives(piece.at(static_cast<double>(i) / (samples + 1)));
        if (distance_to_segment(d.point, a.point, b.point) > deflection.chord) return false;
        turns = turns || angle_between(a.first, d.first) > deflection.angle;
        extent = std::max(extent, distance(a.point, d.point));
    }
    return !turns || extent <= kConfusion;
}

/// Equal steps, as many as the chord's height and the angle ask for.
std::vector<double> circle_parameters(double radius, const Interval& interval, const Deflection& deflection) {
    const double cosine = 1 - deflection.chord / radius;
    const double by_chord = cosine > -1 ? 2 * std::acos(std::max(cosine, -1.0)) : kTwoPi;
    const double step = std::min({deflection.angle, by_chord, kTwoPi / 3});
    const double wanted = std::ceil(interval.length() / step - 1e-9);
    const int count = static_cast<int>(std::clamp<double>(wanted, 1, deflection.max_points - 1));
    std::vector<double> result(count + 1);
    for (int i = 0; i <= count; ++i) result[i] = interval.at(static_cast<double>(i) / count);
    return result;
}

/// Pieces to begin with: between the knots, and quarter turns of an ellipse, whose halves look straight
/// from their ends.
std::vector<double> first_cut(const Curve& curve, const Interval& interval) {
    if (curve.kind() != CurveKind::Ellipse) return curve.breaks(interval);
    std::vector<double> result;
    const int count = std::max(1, static_cast<int>(std::ceil(4 * interval.length() / kTwoPi - 1e-9)));
    for (int i = 0; i <= count; ++i) result.push_back(interval.at(static_cast<double>(i) / count));
    return result;
}

/// Level by level, so that a limit on the number of points coarsens the whole curve alike.
std::vector<double> divided(const Curve& curve, std::vector<double> parameters, const Deflection& deflection,
                            int samples) {
    std::vector<bool> done(parameters.size() - 1, false);
    for (int level = 0; level < kMaxLevels; ++level) {
        std::vector<double> finer{parameters.front()};
        std::vector<bool> finer_done;
        std::size_t count = parameters.size();
        for (std::size_t i = 0; i + 1 < parameters.size(); ++i) {
            const Interval piece{parameters[i], parameters[i + 1]};
            const bool keep = done[i] || count >= static_cast<std::size_t>(deflection.max_points) ||
                              !(piece.middle() > piece.first && piece.middle() < piece.last) ||
                              is_flat(curve, piece, deflection, samples);
            if (!keep) {
                finer.push_back(piece.middle());
                finer_done.push_back(false);
                ++count;
            }
            finer.push_back(piece.last);
            finer_done.push_back(keep);
        }
        const bool settled = finer.size() == parameters.size();
        parameters = std::move(finer);
        done = std::move(finer_done);
        if (settled) break;
    }
    return parameters;
}

Deflection sensible(Deflection deflection) {
    if (!(deflection.chord > 0)) deflection.chord = kConfusion;
    if (!(deflection.angle > 0)) deflection.angle = std::numbers::pi;
    deflection.max_points = std::max(deflection.max_points, 2);
    return deflection;
}

}  // namespace

std::vector<double> polyline_parameters(const Curve& curve, const Interval& interval,
                                        const Deflection& deflection) {
    curve.require_piece(interval);
    const Deflection limits = sensible(deflection);
    switch (curve.kind()) {
        case CurveKind::Line:
            return {interval.first, interval.last};
        case CurveKind::Circle:
            return circle_parameters(static_cast<const Circle&>(curve).radius(), interval, limits);
        case CurveKind::Ellipse:
            return divided(curve, first_cut(curve, interval), limits, 3);
        case CurveKind::BSpline: {
            const BSplineCurve& spline = static_cast<const BSplineCurve&>(curve);
            if (spline.degree() == 1) return curve.breaks(interval);
            return divided(curve, first_cut(curve, interval), limits, spline.degree() + 1);
        }
        case CurveKind::Trimmed:
            return polyline_parameters(*static_cast<const TrimmedCurve&>(curve).basis(), interval, limits);
    }
    return {};
}

std::vector<Point> polyline(const Curve& curve, const Interval& interval, const Deflection& deflection) {
    std::vector<Point> points;
    for (const double t : polyline_parameters(curve, interval, deflection)) points.push_back(curve.value(t));
    return points;
}

}  // namespace veltrane::kernel
