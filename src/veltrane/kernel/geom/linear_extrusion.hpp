// Surfaces swept by a curve along a straight line.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/geom/surface.hpp"

namespace veltrane::kernel {

/// basis(u) + v direction, unbounded in v.
class LinearExtrusion : public Typed<LinearExtrusion, Surface> {
public:
    static constexpr const char* kTypeName = "LinearExtrusion";

    /// The direction is brought to length 1. Throws KernelError for a null basis, a zero direction and a
    /// straight basis along the direction.
    LinearExtrusion(const Ref<Curve>& basis, const Vector& direction);

    const Ref<Curve>& basis() const { return basis_; }
    const Vector& direction() const { return direction_; }

    SurfaceKind kind() const override { return SurfaceKind::LinearExtrusion; }
    Interval u_range() const override { return basis_->range(); }
    Interval v_range() const override { return {-kInfinite, kInfinite}; }
    double u_period() const override { return basis_->period(); }
    using Surface::value;
    Point value(double u, double v) const override { return basis_->value(u) + v * direction_; }
    SurfaceDerivatives derivatives(double u, double v) const override;
    Point2 project(const Point& p) const override;
    MappedSurface transform_surface(const Transform& transform) const override;
    MappedSurface map_surface(const AffineMap& map) const override;

private:
    Ref<Curve> basis_;
    Vector direction_;
    MappedCurve flat_;  // the basis seen along the direction: projection becomes a planar matter
};

}  // namespace veltrane::kernel
