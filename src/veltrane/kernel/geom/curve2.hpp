// Curves in a plane, and in the parameter plane of a surface.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"

namespace veltrane::kernel {

struct Curve2Derivatives {
    Point2 point;
    Vector2 first;
    Vector2 second;
};

/// A curve of the plane: a curve of space that lies in the plane z = 0, seen without its z. Thus every
/// kind of curve exists in the plane with the same evaluation, projection and conversion.
class Curve2 : public Typed<Curve2, Geometry> {
public:
    static constexpr const char* kTypeName = "Curve2";

    /// Throws KernelError for a null curve and one that leaves the plane z = 0.
    explicit Curve2(const Ref<Curve>& in_plane);

    /// The curve in the plane z = 0 of space.
    const Ref<Curve>& in_plane() const { return curve_; }

    CurveKind kind() const { return curve_->kind(); }
    Interval range() const { return curve_->range(); }
    bool is_closed() const { return curve_->is_closed(); }
    bool is_periodic() const { return curve_->is_periodic(); }
    double period() const { return curve_->period(); }
    Point2 value(double t) const { return curve_->value(t).head<2>(); }
    Curve2Derivatives derivatives(double t) const;
    double project(const Point2& p) const { return curve_->project(Point(p.x(), p.y(), 0)); }

    /// The image in space when the plane is laid on X and Y of the frame; the parameters stay.
    Ref<Curve> placed(const Frame& frame) const;
    /// Mapped within the plane. The curve's parameters t go to `parameters`(t) when that is given.
    Ref<Curve2> mapped(const AffineMap2& map, ParameterMap* parameters = nullptr) const;
    Ref<Curve2> reversed() const;

private:
    Ref<Curve> curve_;
};

/// The unbounded line through `origin`, measured by length.
Ref<Curve2> make_line2(const Point2& origin, const Vector2& direction);
/// The segment from `a` to `b`, over [0, distance]. Throws KernelError when they coincide.
Ref<Curve2> make_segment2(const Point2& a, const Point2& b);
/// The circle from the X axis, counter-clockwise or clockwise.
Ref<Curve2> make_circle2(const Point2& centre, double radius, bool counter_clockwise = true);
/// The ellipse whose major axis ends at `centre` + `major_axis`.
Ref<Curve2> make_ellipse2(const Point2& centre, const Vector2& major_axis, double ratio,
                          bool counter_clockwise = true);
/// The piece of a curve; see TrimmedCurve.
Ref<Curve2> trim(const Curve2& curve, double first, double last);

}  // namespace veltrane::kernel
