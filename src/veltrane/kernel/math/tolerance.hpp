// Every tolerance and limit of the kernel, by name.
#pragma once

#include <cmath>
#include <numbers>

namespace veltrane::kernel {

/// Two points closer than this are one point (drawing units).
inline constexpr double kConfusion = 1e-7;
/// Lengths and radii up to this count as zero where a drawing gives them (drawing units).
inline constexpr double kZeroLength = 1e-6;
/// Directions whose angle is below this are parallel (radians); also the relative deviation at which a
/// matrix still counts as orthogonal.
inline constexpr double kAngular = 1e-12;
/// Two parameters of a curve closer than this are one parameter.
inline constexpr double kParametric = 1e-9;

/// The parameter bound of unbounded curves and surfaces.
inline constexpr double kInfinite = 2e100;
/// Co-ordinates, radii, weights and parameters beyond this are refused. Squares and cubes of anything
/// smaller stay finite, so that formulas need no guard against overflow.
inline constexpr double kLargest = 1e102;

inline constexpr double kTwoPi = 2 * std::numbers::pi;

/// True for a parameter or co-ordinate that stands for infinity.
inline bool is_infinite(double value) {
    return std::abs(value) >= 1e99;
}

/// True for a number that geometry can be made of: neither NaN nor beyond kLargest.
inline bool is_usable(double value) {
    return std::abs(value) <= kLargest;
}

}  // namespace veltrane::kernel
