// The numbers that define a B-spline curve, and the checks on them. After L. Piegl and W. Tiller, "The
// NURBS Book", 2nd edition, Springer 1997.
#pragma once

#include "veltrane/kernel/math/interval.hpp"
#include "veltrane/kernel/math/vector.hpp"

#include <span>
#include <vector>

namespace veltrane::kernel {

inline constexpr int kMaxDegree = 25;

/// A pole times its weight, and the weight: (w x, w y, w z, w).
using HomogeneousPoint = Eigen::Matrix<double, 4, 1, Eigen::DontAlign>;

/// Degree, poles, weights (none: not rational), distinct ascending knots with their multiplicities.
///
/// Not periodic: multiplicities add up to poles + degree + 1; end knots may have any multiplicity up to
/// degree + 1, and the curve runs over the flat knots number `degree` to `poles` (counted from 0), so an
/// unclamped knot vector is legal.
/// Periodic: the first and last multiplicity are equal and at most the degree; multiplicities but the
/// last add up to the number of poles. Poles and knots repeat without end; pole 0 is the first of the
/// `degree` + 1 poles that act just after the first knot.
struct BSplineData {
    int degree = 0;
    std::vector<Point> poles;
    std::vector<double> weights;
    std::vector<double> knots;
    std::vector<int> multiplicities;
    bool periodic = false;
};

/// Throws KernelError, with a message naming the fault, unless the degree is 1 to kMaxDegree, there are
/// at least two poles, weights are none or one positive number per pole, knots ascend strictly,
/// multiplicities are at least 1 and at most the degree (degree + 1 at the ends of a curve that is not
/// periodic), their sum fits the poles, and every number is usable.
///
/// With `pieces` interior multiplicities may exceed the degree: such data, as drawings hold it, describes
/// a curve in pieces until the multiplicities are lowered (see lower_excess_knots).
void validate(const BSplineData& data, bool pieces = false);

/// Every knot as often as it counts. For a periodic curve the sequence is continued on both sides so
/// that flat[degree] is the first knot and flat[degree + poles] the last: it then fits the poles repeated
/// from the start.
std::vector<double> flat_knots(const BSplineData& data);

/// The range of parameters: from flat[degree] to flat[poles], or [first knot, last knot] when periodic.
Interval parameter_range(const BSplineData& data);

struct DistinctKnots {
    std::vector<double> knots;
    std::vector<int> multiplicities;
};
/// Gathers equal neighbours of a flat knot sequence (within `tolerance`).
DistinctKnots distinct_knots(std::span<const double> flat, double tolerance = 0);

/// Poles in homogeneous form (weight 1 when not rational) and back. set_homogeneous keeps the curve
/// rational or not, as it was.
std::vector<HomogeneousPoint> homogeneous_poles(const BSplineData& data);
void set_homogeneous(BSplineData& data, std::span<const HomogeneousPoint> poles);

/// The span i with flat[i] <= t < flat[i + 1] among the spans of the curve (algorithm A2.1); `count` is
/// the number of poles the sequence belongs to. Parameters outside, and NaN, give an end span.
int find_span(std::span<const double> flat, int degree, int count, double t);

}  // namespace veltrane::kernel
