// Local coordinate systems.
#pragma once

#include "veltrane/kernel/math/vector.hpp"

namespace veltrane::kernel {

/// An origin and three orthonormal axes. Frames are right-handed unless a function says otherwise; a
/// mirror may make a left-handed one.
struct Frame {
    Point origin{0, 0, 0};
    Vector x{1, 0, 0};
    Vector y{0, 1, 0};
    Vector z{0, 0, 1};

    /// Z along the normal, X by the arbitrary-axis rule of DXF: world Y x normal when the normal is
    /// within 1/64 of the world Z axis, else world Z x normal. Throws KernelError for a zero normal.
    static Frame from_normal(const Point& origin, const Vector& normal);
    /// Z along the normal, X along `x` projected onto the plane across the normal. Throws KernelError
    /// when one of them is zero or both are parallel.
    static Frame from_normal_and_x(const Point& origin, const Vector& normal, const Vector& x);

    Point to_world(const Point& local) const {
        return origin + x * local.x() + y * local.y() + z * local.z();
    }
    Point to_local(const Point& world) const {
        const Vector d = world - origin;
        return {d.dot(x), d.dot(y), d.dot(z)};
    }
    Vector vector_to_world(const Vector& local) const {
        return x * local.x() + y * local.y() + z * local.z();
    }
    Vector vector_to_local(const Vector& world) const { return {world.dot(x), world.dot(y), world.dot(z)}; }
    /// The point at (u, v) in the plane of X and Y.
    Point in_plane(double u, double v) const { return origin + x * u + y * v; }

    bool is_right_handed() const { return cross(x, y).dot(z) > 0; }
    /// Usable co-ordinates and orthonormal axes (within 1e-9); either hand.
    bool is_valid() const;
    /// Each axis negated where a right-handed frame of the opposite normal is wanted: X stays.
    Frame flipped() const { return {origin, x, -y, -z}; }
};

}  // namespace veltrane::kernel
