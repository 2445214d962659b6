// Planes.
#pragma once

#include "veltrane/kernel/geom/surface.hpp"

namespace veltrane::kernel {

/// An unbounded plane: origin + u X + v Y. Its natural normal is Z of its frame, which is right-handed.
class Plane : public Typed<Plane, Surface> {
public:
    static constexpr const char* kTypeName = "Plane";

    /// A left-handed frame is made right-handed by its Z axis. Throws KernelError for an unusable frame.
    explicit Plane(const Frame& frame);

    const Frame& frame() const { return frame_; }
    const Vector& normal() const { return frame_.z; }
    /// Distance of `p` above the plane (negative below).
    double signed_distance(const Point& p) const { return (p - frame_.origin).dot(frame_.z); }

    SurfaceKind kind() const override { return SurfaceKind::Plane; }
    Interval u_range() const override { return {-kInfinite, kInfinite}; }
    Interval v_range() const override { return {-kInfinite, kInfinite}; }
    using Surface::value;
    Point value(double u, double v) const override { return frame_.in_plane(u, v); }
    using Surface::normal;
    SurfaceDerivatives derivatives(double u, double v) const override;
    Point2 project(const Point& p) const override;
    MappedSurface transform_surface(const Transform& transform) const override;
    MappedSurface map_surface(const AffineMap& map) const override;

private:
    Frame frame_;
};

}  // namespace veltrane::kernel
