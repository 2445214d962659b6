// Circles.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"

namespace veltrane::kernel {

/// A full circle: parameter 0 on the X axis of its frame, counter-clockwise about Z, in radians.
class Circle : public Typed<Circle, Curve> {
public:
    static constexpr const char* kTypeName = "Circle";

    /// A left-handed frame is made right-handed by its Z axis. Throws KernelError when the radius is not
    /// positive or a number is unusable.
    Circle(const Frame& frame, double radius);

    const Frame& frame() const { return frame_; }
    const Point& centre() const { return frame_.origin; }
    const Vector& axis() const { return frame_.z; }
    double radius() const { return radius_; }

    CurveKind kind() const override { return CurveKind::Circle; }
    Interval range() const override { return {0, kTwoPi}; }
    bool is_closed() const override { return true; }
    bool is_periodic() const override { return true; }
    double period() const override { return kTwoPi; }
    Point value(double t) const override;
    CurveDerivatives derivatives(double t) const override;
    using Curve::project;
    double project(const Point& p, const Interval& interval) const override;
    MappedCurve transform_curve(const Transform& transform) const override;
    MappedCurve map_curve(const AffineMap& map) const override;
    MappedCurve reverse_curve() const override;

private:
    Frame frame_;
    double radius_;
};

}  // namespace veltrane::kernel
