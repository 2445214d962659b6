// Lengths, boxes and polylines of curves.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/math/box.hpp"

namespace veltrane::kernel {

/// Arc length over the interval: exact for lines and circles, else by quadrature (relative error about
/// 1e-12 unless the input is hostile; the work is bounded in any case). An unbounded piece has a length
/// that is_infinite.
double length(const Curve& curve, const Interval& interval);
double length(const Curve& curve);

/// The tight box over the interval: from the extremes of the curve, not from poles. Sides towards which
/// the curve is unbounded are infinite.
Box bounding_box(const Curve& curve, const Interval& interval);
Box bounding_box(const Curve& curve);

/// How finely a curve is divided.
struct Deflection {
    double chord = 0.1;       ///< greatest distance between chord and curve (drawing units)
    double angle = 0.5;       ///< greatest turn of the tangent along a chord (radians)
    int max_points = 100000;  ///< the deflections give way to this
};

/// Ascending parameters, the ends of the interval included, whose points make a polyline within the
/// deflection. Straight pieces are not divided. Throws KernelError for an unbounded interval.
std::vector<double> polyline_parameters(const Curve& curve, const Interval& interval,
                                        const Deflection& deflection);
std::vector<Point> polyline(const Curve& curve, const Interval& interval, const Deflection& deflection);

}  // namespace veltrane::kernel
