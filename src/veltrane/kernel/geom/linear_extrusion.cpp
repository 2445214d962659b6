#include "veltrane/kernel/geom/linear_extrusion.hpp"

#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

namespace {

/// Projection along the direction onto the plane across it through the origin.
AffineMap flattening(const Vector& direction) {
    return {Matrix3::Identity() - direction * direction.transpose(), Vector::Zero()};
}

}  // namespace

LinearExtrusion::LinearExtrusion(const Ref<Curve>& basis, const Vector& direction)
    : basis_(basis), direction_(unit(direction)) {
    if (!basis_) throw KernelError("An extrusion needs a curve");
    flat_ = basis_->map_curve(flattening(direction_));
}

SurfaceDerivatives LinearExtrusion::derivatives(double u, double v) const {
    const CurveDerivatives d = basis_->derivatives(u);
    return {d.point + v * direction_, d.first, direction_, d.second, Vector::Zero(), Vector::Zero()};
}

Point2 LinearExtrusion::project(const Point& p) const {
    if (!is_usable(p)) throw KernelError("A point to project is not usable");
    double u = flat_.parameters.inverse(flat_.curve->project(flattening(direction_).point(p)));
    const Interval range = u_range();
    u = u_period() > 0 ? into_period(u, range.first, u_period()) : range.clamp(u);
    return {u, (p - basis_->value(u)).dot(direction_)};
}

MappedSurface LinearExtrusion::transform_surface(const Transform& transform) const {
    return map_surface(transform);
}

MappedSurface LinearExtrusion::map_surface(const AffineMap& map) const {
    const auto similarity = map.as_transform();
    const MappedCurve basis = similarity ? basis_->transform_curve(*similarity) : basis_->map_curve(map);
    const Vector image = map.vector(direction_);
    AffineMap2 parameters = AffineMap2::scaling(basis.parameters.scale, image.norm());
    parameters.translation.x() = basis.parameters.shift;
    return {make<LinearExtrusion>(basis.curve, image), parameters};
}

}  // namespace veltrane::kernel
