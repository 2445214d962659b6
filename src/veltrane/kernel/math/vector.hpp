// Points and vectors: Eigen's fixed-size types under the names of the field, and the few operations
// that would otherwise pull in more of Eigen.
#pragma once

#include "veltrane/kernel/math/tolerance.hpp"

#include <Eigen/Core>

namespace veltrane::kernel {

using Point = Eigen::Vector3d;
using Vector = Eigen::Vector3d;
using Matrix3 = Eigen::Matrix3d;

/// Two-dimensional types ask for no over-alignment, so that plain records may hold them.
using Point2 = Eigen::Matrix<double, 2, 1, Eigen::DontAlign>;
using Vector2 = Eigen::Matrix<double, 2, 1, Eigen::DontAlign>;
using Matrix2 = Eigen::Matrix<double, 2, 2, Eigen::DontAlign>;

inline Vector cross(const Vector& a, const Vector& b) {
    return {a.y() * b.z() - a.z() * b.y(), a.z() * b.x() - a.x() * b.z(), a.x() * b.y() - a.y() * b.x()};
}
/// The third co-ordinate of the cross product of two plane vectors.
inline double cross2(const Vector2& a, const Vector2& b) {
    return a.x() * b.y() - a.y() * b.x();
}

inline double distance(const Point& a, const Point& b) {
    return (a - b).norm();
}

/// True when every co-ordinate is one that geometry can be made of (see is_usable(double)).
template <class Derived>
bool is_usable(const Eigen::MatrixBase<Derived>& v) {
    return (v.array().abs() <= kLargest).all();
}

/// Angle between two vectors in [0, pi]; accurate also near 0 and pi. 0 when one of them is zero.
double angle_between(const Vector& a, const Vector& b);

/// The vector scaled to length 1, without overflow or underflow on the way.
/// Throws KernelError for a zero vector and for one that is not finite.
Vector unit(const Vector& v);
Vector2 unit2(const Vector2& v);

/// Some unit vector perpendicular to `v`, chosen by the arbitrary-axis rule of DXF.
/// Throws KernelError for a zero vector.
Vector perpendicular(const Vector& v);

}  // namespace veltrane::kernel
