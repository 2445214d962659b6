#include "veltrane/kernel/math/transform.hpp"

#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

namespace {

Matrix3 columns(const Frame& frame) {
    Matrix3 matrix;
    matrix << frame.x, frame.y, frame.z;
    return matrix;
}

double determinant_of(const Matrix3& m) {
    return cross(m.col(0), m.col(1)).dot(m.col(2));
}

struct Similarity {
    Matrix3 rotation;
    double scale;
};

/// Splits a matrix into a rotation and a signed scale, when it has no other part.
std::optional<Similarity> split(const Matrix3& linear, double tolerance) {
    const double size = (linear.col(0).norm() + linear.col(1).norm() + linear.col(2).norm()) / 3;
    if (!(size > 0) || !is_usable(size)) return {};
    const Matrix3 shape = linear / size;
    const double deviation = (shape.transpose() * shape - Matrix3::Identity()).cwiseAbs().maxCoeff();
    if (!(deviation <= tolerance)) return {};
    if (determinant_of(shape) < 0) return Similarity{-shape, -size};
    return Similarity{shape, size};
}

/// Rodrigues' formula.
Matrix3 rotation_about(const Vector& axis, double angle) {
    const Vector n = unit(axis);
    Matrix3 cross_matrix;
    cross_matrix << 0, -n.z(), n.y(), n.z(), 0, -n.x(), -n.y(), n.x(), 0;
    return Matrix3::Identity() + std::sin(angle) * cross_matrix +
           (1 - std::cos(angle)) * cross_matrix * cross_matrix;
}

}  // namespace

Transform::Transform(const Matrix3& rotation, double scale, const Vector& translation)
    : rotation_(rotation), scale_(scale), translation_(translation) {
    if (!rotation.allFinite() || !is_usable(scale) || !is_usable(translation)) {
        throw KernelError("A transformation holds a number that is not usable");
    }
}

Transform Transform::translation(const Vector& offset) {
    return {Matrix3::Identity(), 1, offset};
}

Transform Transform::rotation(const Point& origin, const Vector& axis, double angle) {
    const Matrix3 turn = rotation_about(axis, angle);
    return {turn, 1, origin - turn * origin};
}

Transform Transform::mirror_in_point(const Point& centre) {
    return {Matrix3::Identity(), -1, 2 * centre};
}

Transform Transform::mirror_in_axis(const Point& origin, const Vector& direction) {
    const Vector n = unit(direction);
    const Matrix3 turn = 2 * n * n.transpose() - Matrix3::Identity();
    return {turn, 1, origin - turn * origin};
}

Transform Transform::mirror_in_plane(const Point& origin, const Vector& normal) {
    const Vector n = unit(normal);
    const Matrix3 turn = 2 * n * n.transpose() - Matrix3::Identity();
    return {turn, -1, origin + turn * origin};
}

Transform Transform::scaling(const Point& centre, double factor) {
    if (factor == 0) throw KernelError("A transformation cannot scale by zero");
    return {Matrix3::Identity(), factor, centre - factor * centre};
}

Transform Transform::from_frame(const Frame& frame) {
    if (!frame.is_valid()) throw KernelError("A frame is not orthonormal");
    const Matrix3 axes = columns(frame);
    if (frame.is_right_handed()) return {axes, 1, frame.origin};
    return {-axes, -1, frame.origin};
}

Transform Transform::between(const Frame& from, const Frame& to) {
    return from_frame(to) * from_frame(from).inverse();
}

Transform Transform::from_matrix(const Matrix3& linear, const Vector& translation, double tolerance) {
    const auto parts = split(linear, tolerance);
    if (!parts) throw KernelError("A matrix is not a rotation or mirror with one scale");
    return {parts->rotation, parts->scale, translation};
}

Transform Transform::operator*(const Transform& first) const {
    return {rotation_ * first.rotation_, scale_ * first.scale_, point(first.translation_)};
}

Transform Transform::inverse() const {
    const Matrix3 back = rotation_.transpose();
    return {back, 1 / scale_, -(back * translation_) / scale_};
}

bool Transform::is_identity(double tolerance) const {
    return std::abs(scale_ - 1) <= tolerance && translation_.cwiseAbs().maxCoeff() <= tolerance &&
           (rotation_ - Matrix3::Identity()).cwiseAbs().maxCoeff() <= tolerance;
}

AffineMap::AffineMap(const Matrix3& linear, const Vector& translation)
    : linear_(linear), translation_(translation) {
    if (!linear.allFinite() || linear.cwiseAbs().maxCoeff() > kLargest || !is_usable(translation)) {
        throw KernelError("An affine map holds a number that is not usable");
    }
}

AffineMap::AffineMap(const Transform& transform)
    : linear_(transform.linear_part()), translation_(transform.translation_part()) {}

AffineMap AffineMap::scaling(const Frame& frame, const Vector& factors) {
    const Matrix3 axes = columns(frame);
    const Matrix3 linear = axes * factors.asDiagonal() * axes.transpose();
    return {linear, frame.origin - linear * frame.origin};
}

AffineMap AffineMap::operator*(const AffineMap& first) const {
    return {linear_ * first.linear_, point(first.translation_)};
}

double AffineMap::determinant() const {
    return determinant_of(linear_);
}

AffineMap AffineMap::inverse() const {
    const Vector a = linear_.col(0), b = linear_.col(1), c = linear_.col(2);
    const double size = a.norm() * b.norm() * c.norm();
    const double det = determinant();
    if (!(std::abs(det) > 1e-15 * size)) throw KernelError("A singular map has no inverse");
    Matrix3 inverse;
    inverse.row(0) = cross(b, c) / det;
    inverse.row(1) = cross(c, a) / det;
    inverse.row(2) = cross(a, b) / det;
    return {inverse, -(inverse * translation_)};
}

std::optional<Transform> AffineMap::as_transform(double tolerance) const {
    if (!split(linear_, tolerance)) return {};
    return Transform::from_matrix(linear_, translation_, tolerance);
}

AffineMap2 AffineMap2::scaling(double u, double v) {
    AffineMap2 map;
    map.linear << u, 0, 0, v;
    return map;
}

AffineMap2 AffineMap2::inverse() const {
    const double det = determinant();
    if (!(std::abs(det) > 1e-15 * linear.col(0).norm() * linear.col(1).norm())) {
        throw KernelError("A singular map has no inverse");
    }
    AffineMap2 map;
    map.linear << linear(1, 1) / det, -linear(0, 1) / det, -linear(1, 0) / det, linear(0, 0) / det;
    map.translation = -(map.linear * translation);
    return map;
}

AffineMap AffineMap2::in_space() const {
    Matrix3 matrix = Matrix3::Identity();
    matrix.topLeftCorner<2, 2>() = linear;
    return {matrix, Vector(translation.x(), translation.y(), 0)};
}

Frame transformed(const Frame& frame, const Transform& transform) {
    return {transform.point(frame.origin), transform.direction(frame.x), transform.direction(frame.y),
            transform.direction(frame.z)};
}

}  // namespace veltrane::kernel
