#include "veltrane/kernel/geom/circle.hpp"

#include "veltrane/kernel/geom/conic.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

Circle::Circle(const Frame& frame, double radius) : frame_(conic_frame(frame)), radius_(radius) {
    if (!(radius > 0) || !is_usable(radius)) throw KernelError("The radius of a circle is not positive");
}

Point Circle::value(double t) const {
    return frame_.in_plane(radius_ * std::cos(t), radius_ * std::sin(t));
}

CurveDerivatives Circle::derivatives(double t) const {
    const double c = radius_ * std::cos(t), s = radius_ * std::sin(t);
    return {frame_.in_plane(c, s), c * frame_.y - s * frame_.x, -c * frame_.x - s * frame_.y};
}

double Circle::project(const Point& p, const Interval& interval) const {
    if (!is_usable(p)) throw KernelError("A point to project is not usable");
    const Point local = frame_.to_local(p);
    if (local.x() == 0 && local.y() == 0) return interval.first;
    return nearest_angle(std::atan2(local.y(), local.x()), interval);
}

MappedCurve Circle::transform_curve(const Transform& transform) const {
    const Vector x = transform.direction(frame_.x), y = transform.direction(frame_.y);
    const Frame frame{transform.point(frame_.origin), x, y, cross(x, y)};
    return {make<Circle>(frame, std::abs(transform.scale_factor()) * radius_), {}};
}

MappedCurve Circle::map_curve(const AffineMap& map) const {
    if (const auto similarity = map.as_transform()) return transform_curve(*similarity);
    return conic_from_diameters(map.point(frame_.origin), map.vector(radius_ * frame_.x),
                                map.vector(radius_ * frame_.y));
}

MappedCurve Circle::reverse_curve() const {
    return {make<Circle>(frame_.flipped(), radius_), {-1, kTwoPi}};
}

}  // namespace veltrane::kernel
