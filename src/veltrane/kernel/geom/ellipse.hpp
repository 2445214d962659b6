// Ellipses.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"

namespace veltrane::kernel {

/// A full ellipse: centre + major cos t X + minor sin t Y, about Z of its frame. The parameter is the
/// angle on the circumscribed circle, not the polar angle. A minor radius of 0 is legal: drawings hold
/// ellipses seen edge-on.
class Ellipse : public Typed<Ellipse, Curve> {
public:
    static constexpr const char* kTypeName = "Ellipse";

    /// Throws KernelError unless 0 <= minor <= major, major > 0 and every number is usable. A left-handed
    /// frame is made right-handed by its Z axis.
    Ellipse(const Frame& frame, double major_radius, double minor_radius);

    const Frame& frame() const { return frame_; }
    const Point& centre() const { return frame_.origin; }
    const Vector& axis() const { return frame_.z; }
    double major_radius() const { return major_; }
    double minor_radius() const { return minor_; }

    CurveKind kind() const override { return CurveKind::Ellipse; }
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
    double major_;
    double minor_;
};

}  // namespace veltrane::kernel
