// Other forms of B-spline curves, and B-spline forms of other curves.
#pragma once

#include "veltrane/kernel/geom/bspline_curve.hpp"

namespace veltrane::kernel {

/// The closed curve as a periodic one, with the first knot as often as the degree. A periodic curve is
/// returned as it is. Throws KernelError when the ends do not meet within kConfusion or carry different
/// weights.
Ref<BSplineCurve> make_periodic(const BSplineCurve& curve);

/// The curve, not periodic, with end knots of multiplicity degree + 1: first and last pole are its ends.
Ref<BSplineCurve> make_clamped(const BSplineCurve& curve);

/// The clamped piece over the interval, with the parameters it had. A periodic curve may be cut across
/// its seam. Throws KernelError when the interval is empty or outside the curve.
Ref<BSplineCurve> segment(const BSplineCurve& curve, const Interval& interval);

/// The same curve with a higher degree, up to kMaxDegree (throws KernelError beyond); clamped.
Ref<BSplineCurve> with_degree(const BSplineCurve& curve, int degree);

/// Exact conversion. Lines give degree 1. Conics give rational quadratics by the tangent of the half
/// angle, in arcs of at most a quarter turn; the knots are the angles, while between knots parameters
/// differ from the angles. Full untrimmed conics give a periodic curve; periodic B-splines stay so.
/// Throws KernelError for a curve that is not bounded.
Ref<BSplineCurve> to_bspline(const Curve& curve);
/// The piece over the interval, always clamped.
Ref<BSplineCurve> to_bspline(const Curve& curve, const Interval& interval);

}  // namespace veltrane::kernel
