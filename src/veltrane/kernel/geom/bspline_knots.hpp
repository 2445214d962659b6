// Inserting and removing knots. After Piegl and Tiller, "The NURBS Book", chapter 5.
#pragma once

#include "veltrane/kernel/geom/bspline_curve.hpp"

namespace veltrane::kernel {

/// The curve unchanged, with the knot at `t` raised to `multiplicity` (no more than the degree; no-op
/// when it already counts as often). A parameter within kParametric of a knot means that knot. Throws
/// KernelError when t lies outside the curve's range.
void insert_knot(BSplineData& data, double t, int multiplicity);
Ref<BSplineCurve> with_knot(const BSplineCurve& curve, double t, int multiplicity);

/// Lowers the multiplicity of the knot with this index (from 0) to `multiplicity`, which may be 0, when
/// the curve then stays within `tolerance` of what it was; false, and nothing changed, when it does not.
/// Works on data whose interior multiplicities exceed the degree, too (the curve is then in pieces, and
/// the pieces must meet). Of a periodic curve any knot may be lowered, the first and last together, but
/// these not to 0. A knot outside the range of an unclamped curve stays (false). Throws KernelError for
/// data that validate() refuses and for an index that cannot be lowered.
bool remove_knot(BSplineData& data, int index, int multiplicity, double tolerance);
/// Null when the tolerance does not permit it.
Ref<BSplineCurve> without_knot(const BSplineCurve& curve, int index, int multiplicity, double tolerance);

/// Lowers every interior multiplicity above the degree to the degree, in linear time: false, and nothing
/// changed, when the pieces of the curve do not meet within `tolerance` at one of these knots.
bool lower_excess_knots(BSplineData& data, double tolerance);

/// The periodic curve with its first knot lowered to `multiplicity`, or as far as `tolerance` permits.
/// Throws KernelError for a curve that is not periodic.
Ref<BSplineCurve> with_first_multiplicity(const BSplineCurve& curve, int multiplicity, double tolerance);

}  // namespace veltrane::kernel
