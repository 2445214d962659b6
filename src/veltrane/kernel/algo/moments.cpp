#include "veltrane/kernel/algo/moments.hpp"

#include "veltrane/kernel/algo/face_integral.hpp"
#include "veltrane/kernel/algo/plane_moments.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/quadrature.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <cmath>

namespace veltrane::kernel {
namespace {

/// Of a planar face, by area, negative when its loops run the wrong way.
Moments planar_moments(const FaceDefinition& face, const Plane& plane, const Point& about) {
    const Point2 base = point_of(face.loops().front());
    PlaneMoments sum;
    for (const Loop& loop : face.loops()) sum += loop_moments(loop, base);
    const Frame& frame = plane.frame();
    return shifted({sum.area, sum.first.x() * frame.x + sum.first.y() * frame.y}, plane.value(base) - about);
}

/// The plane of a face that a plane's formulas can be used for.
const Plane* bounded_plane(const FaceDefinition& face) {
    return face.loops().empty() ? nullptr : as<const Plane>(face.surface().get());
}

/// A size with its moments, from the density of the size at a point.
template <class Density>
Moments integrated(const FaceDefinition& face, const Point& about, Density density) {
    const Surface& surface = *face.surface();
    Moments result;
    const auto at = [&](double u, double v) { return density(surface.derivatives(u, v)); };
    result.size = integrate(face, at);
    for (int axis = 0; axis < 3; ++axis) {
        result.first[axis] = integrate(face, [&](double u, double v) {
            const SurfaceDerivatives d = surface.derivatives(u, v);
            return (d.point[axis] - about[axis]) * density(d);
        });
    }
    return result;
}

/// The face in its own co-ordinates, and the point in these.
Point in_own_place(const Shape& face, const Point& about) {
    return face.placement() ? face.placement()->transform().inverse().point(about) : about;
}

/// Moments about a point turned to the axes of the world.
Moments turned(Moments moments, const Shape& face) {
    if (face.placement()) moments.first = face.placement()->transform().vector(moments.first);
    return moments;
}

Moments negated(const Moments& moments) {
    return {-moments.size, -moments.first};
}

}  // namespace

Moments length_moments(const Shape& edge, const Point& about) {
    const EdgeGeometry geometry = edge_geometry(edge);
    if (!geometry.range.is_bounded()) throw KernelError("The edge is unbounded");
    const Curve& curve = *geometry.curve;
    Moments result;
    result.size = length(curve, geometry.range);
    if (curve.kind() == CurveKind::Line) {
        result.first = result.size * (curve.value(geometry.range.middle()) - about);
        return result;
    }
    const std::vector<double> cuts = curve.breaks(geometry.range);
    for (std::size_t i = 1; i < cuts.size(); ++i) {
        for (int axis = 0; axis < 3; ++axis) {
            const auto rate = [&](double t) {
                const CurveDerivatives at = curve.derivatives(t);
                return (at.point[axis] - about[axis]) * at.first.norm();
            };
            result.first[axis] += integrate(rate, {cuts[i - 1], cuts[i]}, 1e-12).value;
        }
    }
    return result;
}

Moments area_moments(const Shape& shape, const Point& about) {
    const FaceDefinition& face = face_definition(shape);
    const Point own = in_own_place(shape, about);
    const Plane* plane = bounded_plane(face);
    const Moments moments =
        plane
            ? planar_moments(face, *plane, own)
            : integrated(face, own, [](const SurfaceDerivatives& at) { return cross(at.du, at.dv).norm(); });
    return turned(moments.size < 0 ? negated(moments) : moments, shape);
}

Moments cone_moments(const Shape& shape, const Point& about) {
    const FaceDefinition& face = face_definition(shape);
    const Point own = in_own_place(shape, about);
    const Plane* plane = bounded_plane(face);
    Moments moments;
    if (plane) {
        const double height = -plane->signed_distance(own);
        moments = planar_moments(face, *plane, own);
        moments.size *= height / 3;
        moments.first *= height / 3;
    } else {
        moments = integrated(face, own, [&](const SurfaceDerivatives& at) {
            return (at.point - own).dot(cross(at.du, at.dv)) / 3;
        });
    }
    // The centre of a cone lies at three quarters of the way to that of its base.
    moments.first *= 0.75;
    return turned(shape.is_reversed() ? negated(moments) : moments, shape);
}

Point some_point(const Shape& shape) {
    Point point = Point::Zero();
    visit(shape, ShapeKind::Vertex, [&](const Shape& vertex) {
        point = vertex_point(vertex);
        return false;
    });
    return point;
}

}  // namespace veltrane::kernel
