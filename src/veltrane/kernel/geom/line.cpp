#include "veltrane/kernel/geom/line.hpp"

#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

Line::Line(const Point& origin, const Vector& direction) : origin_(origin), direction_(unit(direction)) {
    if (!is_usable(origin)) throw KernelError("The origin of a line is not a usable point");
}

CurveDerivatives Line::derivatives(double t) const {
    return {value(t), direction_, Vector::Zero()};
}

double Line::project(const Point& p, const Interval& interval) const {
    if (!is_usable(p)) throw KernelError("A point to project is not usable");
    return interval.clamp((p - origin_).dot(direction_));
}

MappedCurve Line::transform_curve(const Transform& transform) const {
    return {make<Line>(transform.point(origin_), transform.direction(direction_)),
            {std::abs(transform.scale_factor()), 0}};
}

MappedCurve Line::map_curve(const AffineMap& map) const {
    const Vector image = map.vector(direction_);
    const double size = map.linear_part().cwiseAbs().maxCoeff();
    if (!(image.norm() > 1e-15 * size)) throw KernelError("The image of a line is a point");
    return {make<Line>(map.point(origin_), image), {image.norm(), 0}};
}

MappedCurve Line::reverse_curve() const {
    return {make<Line>(origin_, -direction_), {-1, 0}};
}

}  // namespace veltrane::kernel
