// Cylinders.
#pragma once

#include "veltrane/kernel/geom/surface.hpp"

namespace veltrane::kernel {

/// An unbounded circular cylinder: origin + radius (cos u X + sin u Y) + v Z. A right-handed frame gives
/// an outward natural normal, a left-handed one (after a mirror) an inward one.
class Cylinder : public Typed<Cylinder, Surface> {
public:
    static constexpr const char* kTypeName = "Cylinder";

    /// Throws KernelError when the radius is not positive or a number is unusable.
    Cylinder(const Frame& frame, double radius);

    const Frame& frame() const { return frame_; }
    double radius() const { return radius_; }

    SurfaceKind kind() const override { return SurfaceKind::Cylinder; }
    Interval u_range() const override { return {0, kTwoPi}; }
    Interval v_range() const override { return {-kInfinite, kInfinite}; }
    double u_period() const override { return kTwoPi; }
    using Surface::value;
    Point value(double u, double v) const override;
    SurfaceDerivatives derivatives(double u, double v) const override;
    Point2 project(const Point& p) const override;
    MappedSurface transform_surface(const Transform& transform) const override;
    MappedSurface map_surface(const AffineMap& map) const override;

private:
    Frame frame_;
    double radius_;
};

}  // namespace veltrane::kernel
