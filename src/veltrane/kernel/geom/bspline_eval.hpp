// Polar forms of B-spline curves. Every algorithm of this folder on B-splines is an evaluation of the
// polar form (blossom) of one polynomial piece: L. Ramshaw, "Blossoms are polar forms", Computer Aided
// Geometric Design 6, 1989. Internal to the folder.
#pragma once

#include "veltrane/kernel/geom/bspline_curve.hpp"

#include <span>
#include <vector>

namespace veltrane::kernel {

/// A B-spline written out: flat knots and homogeneous poles, poles repeated when the curve is periodic,
/// so that knots.size() == poles.size() + degree + 1.
struct FlatSpline {
    int degree = 0;
    std::vector<double> knots;
    std::vector<HomogeneousPoint> poles;

    int count() const { return static_cast<int>(poles.size()); }
};

/// The curve over [first, first + turns x period] of a periodic curve, over its range otherwise.
FlatSpline write_out(const BSplineData& data, int turns = 1);

/// The poles first, .., first + degree that act on a span; indices wrap for a periodic curve.
void local_poles(const BSplineData& data, int span, HomogeneousPoint* out);

/// The blossom of the polynomial on the span, given its degree + 1 local poles (overwritten), at the
/// `degree` arguments.
HomogeneousPoint blossom(std::span<const double> knots, int degree, int span, HomogeneousPoint* local,
                         const double* arguments);

/// Point and derivatives in homogeneous form.
struct HomogeneousJet {
    HomogeneousPoint point, first, second;
};
/// By de Boor's algorithm, whose last levels hold the derivatives. `local` is overwritten.
HomogeneousJet de_boor(std::span<const double> knots, int degree, int span, HomogeneousPoint* local,
                       double t);

/// The poles for a finer knot vector, or for a part of the old one (the Oslo algorithm: Cohen, Lyche and
/// Riesenfeld, Computer Graphics and Image Processing 14, 1980). Every knot of the old curve inside the
/// range of the new one must occur there at least as often.
std::vector<HomogeneousPoint> refined_poles(const FlatSpline& curve, std::span<const double> knots);

/// Bezier poles of the piece [a, b] of the curve, which holds no knot inside.
std::vector<HomogeneousPoint> bezier_poles(const BSplineCurve& curve, double a, double b);

}  // namespace veltrane::kernel
