#include "veltrane/kernel/geom/ellipse.hpp"

#include "veltrane/kernel/geom/conic.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

Ellipse::Ellipse(const Frame& frame, double major_radius, double minor_radius)
    : frame_(conic_frame(frame)), major_(major_radius), minor_(minor_radius) {
    if (!(major_ > 0) || !is_usable(major_))
        throw KernelError("The major radius of an ellipse is not positive");
    if (!(minor_ >= 0 && minor_ <= major_)) {
        throw KernelError("The minor radius of an ellipse is negative or above the major radius");
    }
}

Point Ellipse::value(double t) const {
    return frame_.in_plane(major_ * std::cos(t), minor_ * std::sin(t));
}

CurveDerivatives Ellipse::derivatives(double t) const {
    const double c = std::cos(t), s = std::sin(t);
    const Vector x = major_ * frame_.x, y = minor_ * frame_.y;
    return {frame_.in_plane(major_ * c, minor_ * s), c * y - s * x, -c * x - s * y};
}

double Ellipse::project(const Point& p, const Interval& interval) const {
    if (!is_usable(p)) throw KernelError("A point to project is not usable");
    const Point local = frame_.to_local(p);
    return nearest_on_ellipse(major_, minor_, local.head<2>(), interval);
}

MappedCurve Ellipse::transform_curve(const Transform& transform) const {
    const Vector x = transform.direction(frame_.x), y = transform.direction(frame_.y);
    const Frame frame{transform.point(frame_.origin), x, y, cross(x, y)};
    const double scale = std::abs(transform.scale_factor());
    return {make<Ellipse>(frame, scale * major_, scale * minor_), {}};
}

MappedCurve Ellipse::map_curve(const AffineMap& map) const {
    if (const auto similarity = map.as_transform()) return transform_curve(*similarity);
    return conic_from_diameters(map.point(frame_.origin), map.vector(major_ * frame_.x),
                                map.vector(minor_ * frame_.y));
}

MappedCurve Ellipse::reverse_curve() const {
    return {make<Ellipse>(frame_.flipped(), major_, minor_), {-1, kTwoPi}};
}

}  // namespace veltrane::kernel
