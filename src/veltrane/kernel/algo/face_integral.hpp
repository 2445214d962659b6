// Integrals over faces.
#pragma once

#include "veltrane/kernel/topo/definition.hpp"

#include <functional>

namespace veltrane::kernel {

/// A density over the parameter plane of a surface, per du dv.
using FaceDensity = std::function<double(double u, double v)>;

/// The integral of a density over the parameters within the loops of a face, or over the whole surface when
/// there are none. By Green's theorem it is taken along the loops, of integrals along v; pieces are cut where
/// curves and surface have knots. The relative error is about 1e-12 for analytic surfaces; B-spline surfaces
/// whose boundary crosses knots aslant are good to 1e-9. Throws KernelError for an unbounded face.
double integrate(const FaceDefinition& face, const FaceDensity& density);

}  // namespace veltrane::kernel
