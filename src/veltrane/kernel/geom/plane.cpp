#include "veltrane/kernel/geom/plane.hpp"

#include "veltrane/kernel/geom/conic.hpp"
#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

Plane::Plane(const Frame& frame) : frame_(conic_frame(frame)) {}

SurfaceDerivatives Plane::derivatives(double u, double v) const {
    const Vector zero = Vector::Zero();
    return {value(u, v), frame_.x, frame_.y, zero, zero, zero};
}

Point2 Plane::project(const Point& p) const {
    if (!is_usable(p)) throw KernelError("A point to project is not usable");
    return frame_.to_local(p).head<2>();
}

MappedSurface Plane::transform_surface(const Transform& transform) const {
    const Vector x = transform.direction(frame_.x), y = transform.direction(frame_.y);
    const double scale = std::abs(transform.scale_factor());
    return {make<Plane>(Frame{transform.point(frame_.origin), x, y, cross(x, y)}),
            AffineMap2::scaling(scale, scale)};
}

MappedSurface Plane::map_surface(const AffineMap& map) const {
    if (const auto similarity = map.as_transform()) return transform_surface(*similarity);
    const Vector a = map.vector(frame_.x), b = map.vector(frame_.y);
    if (!(cross(a, b).norm() > kAngular * map.linear_part().squaredNorm())) {
        throw KernelError("The image of a plane is a line or a point");
    }
    const Vector x = unit(a);
    const Vector across = b - b.dot(x) * x;
    const Vector y = unit(across);
    AffineMap2 parameters;
    parameters.linear << a.norm(), b.dot(x), 0, across.norm();
    return {make<Plane>(Frame{map.point(frame_.origin), x, y, unit(cross(x, y))}), parameters};
}

}  // namespace veltrane::kernel
