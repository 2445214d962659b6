#include "veltrane/kernel/geom/conic.hpp"

#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/math/bernstein.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

namespace {

constexpr double kQuarter = std::numbers::pi / 2;

Bernstein as_list(const std::array<double, 3>& coefficients, double factor = 1) {
    return {factor * coefficients[0], factor * coefficients[1], factor * coefficients[2]};
}

/// Zeros of the derivative of the squared distance, over one arc: with c = C / W and s = S / W the
/// derivative (a^2 - b^2) c s - x a s + y b c becomes a polynomial of degree 4.
std::vector<double> critical_angles(double a, double b, const Point2& p, const UnitArc& arc) {
    const Bernstein c = as_list(arc.cosine), s = as_list(arc.sine), w = as_list(arc.weight);
    const Bernstein cs = multiply(c, s);
    const Bernstein linear = add(as_list(arc.cosine, p.y() * b), s, -p.x() * a);
    const Bernstein f = add(multiply(linear, w), cs, (a - b) * (a + b));
    std::vector<double> angles;
    for (const double u : roots(f)) {
        const double cosine = evaluate(c, u), sine = evaluate(s, u);
        const double middle = arc.angles.middle();
        // Relative to the middle of the arc, so that no branch cut is near.
        angles.push_back(middle + std::atan2(sine * std::cos(middle) - cosine * std::sin(middle),
                                             cosine * std::cos(middle) + sine * std::sin(middle)));
    }
    return angles;
}

double squared_distance(double a, double b, const Point2& p, double t) {
    return (Point2(a * std::cos(t), b * std::sin(t)) - p).squaredNorm();
}

/// One step of Newton's method on the derivative of the squared distance.
double polished(double a, double b, const Point2& p, double t) {
    const double c = std::cos(t), s = std::sin(t);
    const double f = (a - b) * (a + b) * c * s - p.x() * a * s + p.y() * b * c;
    const double slope = (a - b) * (a + b) * (c * c - s * s) - p.x() * a * c - p.y() * b * s;
    const double step = f / slope;
    return std::abs(step) < 1e-4 ? t - step : t;
}

}  // namespace

std::vector<UnitArc> unit_arcs(const Interval& angles) {
    const int count = std::clamp(static_cast<int>(std::ceil(angles.length() / kQuarter - 1e-9)), 1, 64);
    std::vector<UnitArc> arcs(count);
    for (int i = 0; i < count; ++i) {
        const Interval piece{angles.at(static_cast<double>(i) / count),
                             angles.at(static_cast<double>(i + 1) / count)};
        const double middle = piece.middle();
        arcs[i] = {piece,
                   {std::cos(piece.first), std::cos(middle), std::cos(piece.last)},
                   {std::sin(piece.first), std::sin(middle), std::sin(piece.last)},
                   {1, std::cos(piece.length() / 2), 1}};
    }
    return arcs;
}

double nearest_on_ellipse(double major, double minor, const Point2& p, const Interval& interval) {
    const double size = std::max(major, p.cwiseAbs().maxCoeff());
    const double a = major / size, b = minor / size;
    const Point2 q = p / size;
    double best = interval.first;
    double best_distance = squared_distance(a, b, q, best);
    const auto consider = [&](double t) {
        t = interval.clamp(t);
        const double distance = squared_distance(a, b, q, t);
        if (distance >= best_distance) return;
        best = t;
        best_distance = distance;
    };
    consider(interval.last);
    for (const UnitArc& arc : unit_arcs(interval)) {
        consider(arc.angles.first);
        for (const double t : critical_angles(a, b, q, arc)) consider(polished(a, b, q, t));
    }
    return best;
}

ConicAxes principal_axes(const Point& centre, const Vector& a, const Vector& b) {
    const double size = std::max(a.norm(), b.norm());
    if (!(size > 0) || !is_usable(size)) throw KernelError("The image of a conic is a point");
    const Vector p = a / size, q = b / size;
    const double product = p.dot(q);
    const double difference = p.squaredNorm() - q.squaredNorm();
    const bool round = std::abs(product) <= kAngular && std::abs(difference) <= kAngular;
    const double turn = round ? 0 : std::atan2(2 * product, difference) / 2;
    const Vector major = std::cos(turn) * p + std::sin(turn) * q;
    const Vector minor = std::cos(turn) * q - std::sin(turn) * p;
    ConicAxes axes;
    axes.turn = turn;
    axes.major = major.norm() * size;
    const Vector x = unit(major);
    const Vector across = minor - minor.dot(x) * x;
    const double width = across.norm();
    if (width <= 1e-15) {
        // Seen edge-on. What lies in the plane z = 0 stays in it.
        const Vector y = perpendicular(x);
        axes.frame = {centre, x, y, cross(x, y)};
        return axes;
    }
    const Vector y = across / width;
    axes.frame = {centre, x, y, unit(cross(x, y))};
    axes.minor = round ? axes.major : std::min(width * size, axes.major);
    return axes;
}

MappedCurve conic_from_diameters(const Point& centre, const Vector& a, const Vector& b) {
    const ConicAxes axes = principal_axes(centre, a, b);
    const ParameterMap parameters{1, -axes.turn};
    if (axes.minor == axes.major) return {make<Circle>(axes.frame, axes.major), parameters};
    return {make<Ellipse>(axes.frame, axes.major, axes.minor), parameters};
}

Frame conic_frame(const Frame& frame) {
    if (!frame.is_valid()) throw KernelError("A frame is not orthonormal or not finite");
    if (frame.is_right_handed()) return frame;
    return {frame.origin, frame.x, -frame.y, frame.z};
}

double nearest_angle(double angle, const Interval& interval) {
    const double t = into_period(angle, interval.first, kTwoPi);
    if (t <= interval.last) return t;
    return t - interval.last <= interval.first + kTwoPi - t ? interval.last : interval.first;
}

}  // namespace veltrane::kernel
