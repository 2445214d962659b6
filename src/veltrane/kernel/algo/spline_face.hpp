// Faces on B-spline surfaces.
#pragma once

#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane::kernel {

/// The face on a surface within a closed wire whose edges run straight and evenly in its parameters, as the
/// sides of a fitted patch do (see surface_fit.hpp). The wire is turned where it would run clockwise about
/// the surface's normal; its edges are not copied. Throws KernelError for a shape that is no wire, an
/// unbounded or closed edge, an edge that leaves its straight way on the surface by more than `tolerance`
/// (drawing units), and a wire that does not close or encloses nothing in the parameters.
Shape make_spline_face(const Ref<BSplineSurface>& surface, const Shape& wire, double tolerance = kConfusion);

}  // namespace veltrane::kernel
