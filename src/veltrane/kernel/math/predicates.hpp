// Signs of determinants that geometry decides by, always right: a floating-point filter first, exact
// expansions where that is in doubt. After J. R. Shewchuk, "Adaptive Precision Floating-Point Arithmetic and
// Fast Robust Geometric Predicates", Discrete & Computational Geometry 18, 1997.
#pragma once

#include "veltrane/kernel/math/vector.hpp"

namespace veltrane::kernel {

/// 1 when a, b, c run counter-clockwise, -1 clockwise, 0 when they lie exactly on a line. Exact as long as
/// products of four co-ordinates neither overflow nor underflow (magnitudes between 1e-60 and 1e60, or 0).
int orientation(const Point2& a, const Point2& b, const Point2& c);

/// 1 when d lies inside the circle through a, b, c, which run counter-clockwise; -1 outside, 0 exactly on it.
/// Exact under the same condition.
int in_circle(const Point2& a, const Point2& b, const Point2& c, const Point2& d);

}  // namespace veltrane::kernel
