// Numerical integration.
#pragma once

#include "veltrane/kernel/math/interval.hpp"

#include <functional>

namespace veltrane::kernel {

/// Result of an integration.
struct Integral {
    double value = 0;
    double error = 0;  ///< estimate, absolute
};

/// The integral of `f` over the interval by adaptive Gauss-Kronrod quadrature with 15 nodes (R. Piessens
/// et al., QUADPACK, Springer 1983, routine QAG). Halves the piece with the largest error until the sum
/// of errors is below `relative` x value, or `max_pieces` pieces are reached. Smooth integrands reach
/// machine precision; split the interval yourself where the integrand has a kink.
Integral integrate(const std::function<double(double)>& f, const Interval& interval, double relative = 1e-13,
                   int max_pieces = 400);

}  // namespace veltrane::kernel
