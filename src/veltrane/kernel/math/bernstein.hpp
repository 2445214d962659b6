// Polynomials in the Bernstein basis over [0, 1], and all their real roots there. The basis is the
// numerically stable one for the polynomials that belong to Bezier pieces (R. T. Farouki, "The Bernstein
// polynomial basis: a centennial retrospective", Computer Aided Geometric Design 29, 2012).
#pragma once

#include <vector>

namespace veltrane::kernel {

/// Coefficients b_0 .. b_n of sum b_i C(n, i) u^i (1 - u)^(n - i). An empty list is the zero polynomial.
using Bernstein = std::vector<double>;

double evaluate(const Bernstein& p, double u);
Bernstein derivative(const Bernstein& p);
Bernstein multiply(const Bernstein& p, const Bernstein& q);
/// p + factor x q; the one of lower degree is raised first.
Bernstein add(const Bernstein& p, const Bernstein& q, double factor = 1);
/// The same polynomial written with a higher degree.
Bernstein elevate(const Bernstein& p, int degree);

/// Roots in [0, 1], ascending, a multiple root once or a few times close together. Finds every root of
/// odd multiplicity; touching roots as far as rounding shows them. A polynomial that vanishes everywhere
/// or holds a number that is not finite has none. The work is bounded by the degree.
std::vector<double> roots(const Bernstein& p);

}  // namespace veltrane::kernel
