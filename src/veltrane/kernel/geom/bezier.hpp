// Bezier pieces of curves.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/math/bernstein.hpp"
#include "veltrane/kernel/math/box.hpp"

#include <array>

namespace veltrane::kernel {

/// One Bezier piece over u in [0, 1], rational when it has weights.
struct BezierSegment {
    Interval parameters;  ///< of the curve, at the ends of the piece
    std::vector<Point> poles;
    std::vector<double> weights;  ///< empty: not rational

    int degree() const { return static_cast<int>(poles.size()) - 1; }
    bool is_rational() const { return !weights.empty(); }
    Point value(double u) const;
    /// Holds the piece, not tightly.
    Box hull() const;
};

/// The curve over the interval as exact Bezier pieces in order: lines of degree 1, conics as rational
/// quadratics of at most a quarter turn, a B-spline cut at its knots. For B-splines u runs evenly with
/// the curve's parameter. Throws KernelError for an unbounded interval.
std::vector<BezierSegment> bezier_segments(const Curve& curve, const Interval& interval);

/// Four control points of a polynomial cubic.
using CubicSegment = std::array<Point, 4>;

/// The curve over the interval as cubic Bezier pieces that join exactly, for outputs that know no others:
/// exact where the curve is a polynomial of degree up to 3, else within `tolerance`, as far as a bounded
/// number of pieces allows.
std::vector<CubicSegment> cubic_segments(const Curve& curve, const Interval& interval, double tolerance);

}  // namespace veltrane::kernel
