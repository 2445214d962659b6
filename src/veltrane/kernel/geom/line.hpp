// Straight lines.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"

namespace veltrane::kernel {

/// An unbounded line, measured by length from its origin.
class Line : public Typed<Line, Curve> {
public:
    static constexpr const char* kTypeName = "Line";

    /// The direction is brought to length 1. Throws KernelError when it is zero or a number is unusable.
    Line(const Point& origin, const Vector& direction);

    const Point& origin() const { return origin_; }
    const Vector& direction() const { return direction_; }

    CurveKind kind() const override { return CurveKind::Line; }
    Interval range() const override { return {-kInfinite, kInfinite}; }
    bool is_closed() const override { return false; }
    Point value(double t) const override { return origin_ + t * direction_; }
    CurveDerivatives derivatives(double t) const override;
    using Curve::project;
    double project(const Point& p, const Interval& interval) const override;
    MappedCurve transform_curve(const Transform& transform) const override;
    MappedCurve map_curve(const AffineMap& map) const override;
    MappedCurve reverse_curve() const override;

private:
    Point origin_;
    Vector direction_;
};

}  // namespace veltrane::kernel
