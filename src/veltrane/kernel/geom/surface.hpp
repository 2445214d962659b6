// Surfaces.
#pragma once

#include "veltrane/kernel/geom/geometry.hpp"
#include "veltrane/kernel/math/interval.hpp"
#include "veltrane/kernel/math/transform.hpp"

namespace veltrane::kernel {

class Surface;

enum class SurfaceKind { Plane, Cylinder, LinearExtrusion, BSpline };

struct SurfaceDerivatives {
    Point point;
    Vector du, dv;
    Vector duu, duv, dvv;
};

/// A surface that was moved or mapped, and where its parameters went: the image of value(u, v) is
/// surface->value(parameters(u, v)).
struct MappedSurface {
    Ref<Surface> surface;
    AffineMap2 parameters;
};

/// A parametric surface. Immutable; every number in it is finite. The natural normal is du x dv. Moving
/// by a mirror moves the points, so the natural normal then turns against the mirrored one, for every
/// kind alike.
class Surface : public Typed<Surface, Geometry> {
public:
    static constexpr const char* kTypeName = "Surface";

    virtual SurfaceKind kind() const = 0;
    /// +-kInfinite where the surface is unbounded.
    virtual Interval u_range() const = 0;
    virtual Interval v_range() const = 0;
    /// 0 when not periodic in that direction.
    virtual double u_period() const { return 0; }
    virtual double v_period() const { return 0; }

    virtual Point value(double u, double v) const = 0;
    virtual SurfaceDerivatives derivatives(double u, double v) const = 0;
    Point value(const Point2& uv) const { return value(uv.x(), uv.y()); }
    /// Unit normal, du x dv; the zero vector where the surface has none.
    Vector normal(double u, double v) const;

    /// Parameters of a point of the surface nearest to `p`; periodic ones within their range. Throws
    /// KernelError when `p` is not usable.
    virtual Point2 project(const Point& p) const = 0;

    /// Moved by a similarity; the kind stays.
    Ref<Surface> transformed(const Transform& transform) const {
        return transform_surface(transform).surface;
    }
    virtual MappedSurface transform_surface(const Transform& transform) const = 0;

    /// The exact image under an affine map: a plane stays a plane, a cylinder becomes the extrusion of an
    /// ellipse, an extrusion and a B-spline stay what they are. Throws KernelError when the image is no
    /// surface.
    Ref<Surface> mapped(const AffineMap& map) const { return map_surface(map).surface; }
    virtual MappedSurface map_surface(const AffineMap& map) const = 0;
};

}  // namespace veltrane::kernel
