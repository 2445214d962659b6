// What circles and ellipses have in common. Internal to the folder.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/geom/geometry.hpp"

#include <array>
#include <vector>

namespace veltrane::kernel {

/// A quadratic Bezier arc of the unit circle, (C(u), S(u)) / W(u), by the tangent of the half angle:
/// coefficients in the Bernstein basis.
struct UnitArc {
    Interval angles;
    std::array<double, 3> cosine;
    std::array<double, 3> sine;
    std::array<double, 3> weight;
};

/// The range of angles in arcs of equal size and at most a quarter turn. At most a few turns.
std::vector<UnitArc> unit_arcs(const Interval& angles);

/// Angle in the interval of the point nearest to (x, y) on the ellipse (major cos t, minor sin t), or on
/// the part of it over an interval at most a turn long.
double nearest_on_ellipse(double major, double minor, const Point2& p, const Interval& interval);

/// The axes of the ellipse centre + cos t a + sin t b, given by two conjugate half diameters; `turn` is
/// the parameter of the major axis. Throws KernelError when it is a point.
struct ConicAxes {
    Frame frame;
    double major = 0;
    double minor = 0;
    double turn = 0;
};
ConicAxes principal_axes(const Point& centre, const Vector& a, const Vector& b);

/// The image of centre + cos t a + sin t b, which is an ellipse or a circle.
MappedCurve conic_from_diameters(const Point& centre, const Vector& a, const Vector& b);

/// A frame as a conic keeps it: orthonormal (throws KernelError if not) and right-handed.
Frame conic_frame(const Frame& frame);

/// A positive multiple of whole turns puts `angle` into [first, first + 2 pi); if that is beyond the
/// interval, the end nearer by angle is returned.
double nearest_angle(double angle, const Interval& interval);

}  // namespace veltrane::kernel
