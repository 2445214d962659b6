#include "veltrane/kernel/geom/trimmed_curve.hpp"

#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

namespace {

/// The end moved by whole periods into (first, first + period]; untouched when it is there already.
Interval within_period(double first, double last, double period) {
    const double little = kParametric * period;
    double span = last - first;
    if (span > little && span <= period) return {first, last};
    if (!(span > period && span <= period + little)) {
        span = std::fmod(span, period);
        if (span < 0) span += period;
        if (span <= little || span >= period - little) span = period;
    }
    return {first, first + std::min(span, period)};
}

Interval within_range(double first, double last, const Interval& range) {
    if (!range.contains(first, kParametric) || !range.contains(last, kParametric)) {
        throw KernelError("A curve cannot be trimmed outside its range");
    }
    return {range.clamp(first), range.clamp(last)};
}

/// The image of a basis, trimmed where the parameters of the old interval went. An unbounded end stays
/// unbounded, whatever the scale.
MappedCurve trimmed_image(const MappedCurve& basis, const Interval& interval) {
    double first = basis.parameters(interval.first);
    double last = basis.parameters(interval.last);
    if (first > last) std::swap(first, last);
    if (!basis.curve->is_periodic()) {
        first = basis.curve->range().clamp(first);
        last = basis.curve->range().clamp(last);
    }
    return {make<TrimmedCurve>(basis.curve, first, last), basis.parameters};
}

}  // namespace

TrimmedCurve::TrimmedCurve(const Ref<Curve>& basis, double first, double last) : basis_(untrimmed(basis)) {
    if (!basis_) throw KernelError("A trimmed curve needs a basis");
    if (!is_usable(first) || !is_usable(last)) throw KernelError("A trimming parameter is not usable");
    interval_ = basis_->is_periodic() ? within_period(first, last, basis_->period())
                                      : within_range(first, last, basis_->range());
    if (!(interval_.first < interval_.last)) throw KernelError("A trimmed curve has no extent");
}

bool TrimmedCurve::is_closed() const {
    return interval_.is_bounded() && distance(start(), end()) <= kConfusion;
}

double TrimmedCurve::project(const Point& p, const Interval& interval) const {
    return basis_->project(p, interval);
}

MappedCurve TrimmedCurve::transform_curve(const Transform& transform) const {
    return trimmed_image(basis_->transform_curve(transform), interval_);
}

MappedCurve TrimmedCurve::map_curve(const AffineMap& map) const {
    return trimmed_image(basis_->map_curve(map), interval_);
}

MappedCurve TrimmedCurve::reverse_curve() const {
    return trimmed_image(basis_->reverse_curve(), interval_);
}

Ref<TrimmedCurve> make_segment(const Point& a, const Point& b) {
    const double length = distance(a, b);
    if (!(length > kConfusion)) throw KernelError("The ends of a segment coincide");
    return make<TrimmedCurve>(make<Line>(a, b - a), 0, length);
}

Ref<TrimmedCurve> make_arc(const Point& a, const Point& b, const Point& c) {
    const Vector u = b - a, v = c - a;
    const double shortest = std::min({u.norm(), v.norm(), distance(b, c)});
    if (!(shortest > kConfusion)) throw KernelError("Two of the three points of an arc coincide");
    const Vector normal = cross(u, v);
    const double square = normal.squaredNorm();
    if (!(std::sqrt(square) > kAngular * u.norm() * v.norm())) {
        throw KernelError("The three points of an arc lie on a line");
    }
    const Vector to_centre =
        (v.squaredNorm() * cross(normal, u) + u.squaredNorm() * cross(v, normal)) / (2 * square);
    const Frame frame = Frame::from_normal_and_x(a + to_centre, normal, -to_centre);
    const Point end = frame.to_local(c);
    return make<TrimmedCurve>(make<Circle>(frame, to_centre.norm()), 0, std::atan2(end.y(), end.x()));
}

Ref<Curve> untrimmed(const Ref<Curve>& curve) {
    const TrimmedCurve* trimmed = as<TrimmedCurve>(curve.get());
    return trimmed ? trimmed->basis() : curve;
}

}  // namespace veltrane::kernel
