// The plane that points lie in.
#pragma once

#include "veltrane/kernel/math/frame.hpp"

#include <span>

namespace veltrane::kernel {

enum class PlaneFit {
    Found,
    Straight,   ///< the points lie on a line or in one point: any plane through it would do
    NotPlanar,  ///< no plane passes within the tolerance of all points
};

struct FittedPlane {
    PlaneFit fit = PlaneFit::Straight;
    Frame frame;           ///< origin at the first point if it can; which way the normal shows is left open
    double deviation = 0;  ///< the greatest distance of a point to the plane
};

/// Fits a plane through points within `tolerance` (drawing units), which is widened to the rounding of the
/// co-ordinates where these are large. Points count as lying on a line when none is farther from it than the
/// tolerance. The three points that span the widest triangle are tried first, so that the plane of exact
/// points is exact however narrow their figure is; scattered points get the plane of least squares. Time is
/// linear in the number of points.
FittedPlane fit_plane(std::span<const Point> points, double tolerance);

/// `tolerance`, or the rounding to be expected in points with co-ordinates up to `largest` if that is more.
double above_rounding(double tolerance, double largest);

}  // namespace veltrane::kernel
