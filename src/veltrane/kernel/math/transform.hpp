// Maps of space: similarities (Transform) and general affine maps (AffineMap), and their counterpart
// in the parameter plane.
#pragma once

#include "veltrane/kernel/math/frame.hpp"

#include <optional>

namespace veltrane::kernel {

/// A similarity: rotation, one signed scale, translation. A negative scale holds every mirror, because a
/// mirror is a point reflection and a rotation: p -> scale * (rotation * p) + translation.
class Transform {
public:
    /// The identity.
    Transform() = default;

    static Transform identity() { return {}; }
    static Transform translation(const Vector& offset);
    /// Counter-clockwise about the axis, in radians. Throws KernelError for a zero axis.
    static Transform rotation(const Point& origin, const Vector& axis, double angle);
    /// Point reflection.
    static Transform mirror_in_point(const Point& centre);
    /// Reflection in an axis, which is half a turn about it. Throws KernelError for a zero direction.
    static Transform mirror_in_axis(const Point& origin, const Vector& direction);
    /// Reflection in a plane. Throws KernelError for a zero normal.
    static Transform mirror_in_plane(const Point& origin, const Vector& normal);
    /// Throws KernelError for factor 0. A negative factor also reflects in the centre.
    static Transform scaling(const Point& centre, double factor);
    /// Takes local co-ordinates of the frame to world co-ordinates. A left-handed frame gives a mirror.
    static Transform from_frame(const Frame& frame);
    /// Takes one frame onto another.
    static Transform between(const Frame& from, const Frame& to);
    /// From a matrix that already is orthogonal up to one scale (within `tolerance`, relative). Throws
    /// KernelError for any other matrix.
    static Transform from_matrix(const Matrix3& linear, const Vector& translation,
                                 double tolerance = kAngular);

    Point point(const Point& p) const { return scale_ * (rotation_ * p) + translation_; }
    /// A difference of points: scaled, not translated.
    Vector vector(const Vector& v) const { return scale_ * (rotation_ * v); }
    /// A direction: turned and mirrored; its length stays.
    Vector direction(const Vector& v) const {
        return is_mirrored() ? Vector(-(rotation_ * v)) : Vector(rotation_ * v);
    }

    /// The map that applies `first`, then this one.
    Transform operator*(const Transform& first) const;
    Transform inverse() const;

    /// Never 0; negative when the map mirrors.
    double scale_factor() const { return scale_; }
    bool is_mirrored() const { return scale_ < 0; }
    /// True when no co-ordinate moves (every entry within `tolerance` of the identity's).
    bool is_identity(double tolerance = 0) const;
    /// A rotation matrix (determinant 1).
    const Matrix3& rotation_part() const { return rotation_; }
    const Vector& translation_part() const { return translation_; }
    /// scale x rotation.
    Matrix3 linear_part() const { return scale_ * rotation_; }

    /// Same numbers, bit for bit.
    friend bool operator==(const Transform& a, const Transform& b) {
        return a.scale_ == b.scale_ && a.rotation_ == b.rotation_ && a.translation_ == b.translation_;
    }

private:
    Transform(const Matrix3& rotation, double scale, const Vector& translation);

    Matrix3 rotation_ = Matrix3::Identity();
    double scale_ = 1;
    Vector translation_ = Vector::Zero();
};

/// Any affine map of space, also singular ones: p -> linear * p + translation.
class AffineMap {
public:
    AffineMap() = default;
    /// Throws KernelError when a number is not usable.
    AffineMap(const Matrix3& linear, const Vector& translation);
    AffineMap(const Transform& transform);  // implicit: every similarity is an affine map

    /// Factors along the axes of `frame`, about its origin.
    static AffineMap scaling(const Frame& frame, const Vector& factors);

    Point point(const Point& p) const { return linear_ * p + translation_; }
    Vector vector(const Vector& v) const { return linear_ * v; }
    /// The map that applies `first`, then this one.
    AffineMap operator*(const AffineMap& first) const;
    /// Throws KernelError for a singular map.
    AffineMap inverse() const;
    double determinant() const;

    /// The same map as a similarity, when it is one within `tolerance` (relative).
    std::optional<Transform> as_transform(double tolerance = kAngular) const;

    const Matrix3& linear_part() const { return linear_; }
    const Vector& translation_part() const { return translation_; }

private:
    Matrix3 linear_ = Matrix3::Identity();
    Vector translation_ = Vector::Zero();
};

/// An affine map of the parameter plane.
struct AffineMap2 {
    Matrix2 linear = Matrix2::Identity();
    Vector2 translation = Vector2::Zero();

    static AffineMap2 scaling(double u, double v);

    Point2 point(const Point2& p) const { return linear * p + translation; }
    Vector2 vector(const Vector2& v) const { return linear * v; }
    AffineMap2 operator*(const AffineMap2& first) const {
        return {linear * first.linear, linear * first.translation + translation};
    }
    /// Throws KernelError for a singular map.
    AffineMap2 inverse() const;
    double determinant() const { return linear(0, 0) * linear(1, 1) - linear(0, 1) * linear(1, 0); }
    bool is_identity() const { return linear == Matrix2::Identity() && translation == Vector2::Zero(); }
    /// The same map on the plane z = 0 of space; z stays.
    AffineMap in_space() const;
};

/// The frame carried along: the origin moved, the axes turned and mirrored. A mirror gives a frame of
/// the other hand.
Frame transformed(const Frame& frame, const Transform& transform);

}  // namespace veltrane::kernel
