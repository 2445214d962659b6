#include "veltrane/kernel/geom/surface.hpp"

namespace veltrane::kernel {

Vector Surface::normal(double u, double v) const {
    const SurfaceDerivatives d = derivatives(u, v);
    const Vector n = cross(d.du, d.dv);
    const double size = d.du.norm() * d.dv.norm();
    if (!(n.norm() > kAngular * size)) return Vector::Zero();
    return unit(n);
}

}  // namespace veltrane::kernel
