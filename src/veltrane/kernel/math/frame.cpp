#include "veltrane/kernel/math/frame.hpp"

#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

namespace {

void require_origin(const Point& origin) {
    if (!is_usable(origin)) throw KernelError("The origin of a frame is not a usable point");
}

}  // namespace

Frame Frame::from_normal(const Point& origin, const Vector& normal) {
    require_origin(origin);
    const Vector z = unit(normal);
    const Vector x = perpendicular(z);
    return {origin, x, unit(cross(z, x)), z};
}

Frame Frame::from_normal_and_x(const Point& origin, const Vector& normal, const Vector& x) {
    require_origin(origin);
    const Vector z = unit(normal);
    const Vector along = unit(x);
    const Vector in_plane = along - along.dot(z) * z;
    if (in_plane.norm() < kAngular) throw KernelError("The X direction of a frame is parallel to its normal");
    const Vector x_axis = unit(in_plane);
    return {origin, x_axis, unit(cross(z, x_axis)), z};
}

bool Frame::is_valid() const {
    Matrix3 axes;
    axes << x, y, z;
    return is_usable(origin) && axes.allFinite() &&
           (axes.transpose() * axes - Matrix3::Identity()).cwiseAbs().maxCoeff() < 1e-9;
}

}  // namespace veltrane::kernel
