#include "veltrane/kernel/geom/cylinder.hpp"

#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

Cylinder::Cylinder(const Frame& frame, double radius) : frame_(frame), radius_(radius) {
    if (!frame.is_valid()) throw KernelError("A frame is not orthonormal or not finite");
    if (!(radius > 0) || !is_usable(radius)) throw KernelError("The radius of a cylinder is not positive");
}

Point Cylinder::value(double u, double v) const {
    return frame_.to_world({radius_ * std::cos(u), radius_ * std::sin(u), v});
}

SurfaceDerivatives Cylinder::derivatives(double u, double v) const {
    const double c = radius_ * std::cos(u), s = radius_ * std::sin(u);
    const Vector outward = c * frame_.x + s * frame_.y;
    const Vector zero = Vector::Zero();
    return {
        frame_.origin + outward + v * frame_.z, c * frame_.y - s * frame_.x, frame_.z, -outward, zero, zero};
}

Point2 Cylinder::project(const Point& p) const {
    if (!is_usable(p)) throw KernelError("A point to project is not usable");
    const Point local = frame_.to_local(p);
    return {into_period(std::atan2(local.y(), local.x()), 0, kTwoPi), local.z()};
}

MappedSurface Cylinder::transform_surface(const Transform& transform) const {
    const double scale = std::abs(transform.scale_factor());
    return {make<Cylinder>(kernel::transformed(frame_, transform), scale * radius_),
            AffineMap2::scaling(1, scale)};
}

MappedSurface Cylinder::map_surface(const AffineMap& map) const {
    if (const auto similarity = map.as_transform()) return transform_surface(*similarity);
    const Frame section{frame_.origin, frame_.x, frame_.y, cross(frame_.x, frame_.y)};
    return LinearExtrusion(make<Circle>(section, radius_), frame_.z).map_surface(map);
}

}  // namespace veltrane::kernel
