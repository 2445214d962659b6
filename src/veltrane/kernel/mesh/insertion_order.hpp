// The order in which points are best inserted into a triangulation.
#pragma once

#include "veltrane/kernel/math/vector.hpp"

#include <span>
#include <vector>

namespace veltrane::kernel {

/// Every index once, in rounds of random choice, each twice as large as all before it, and within a round
/// along a Hilbert curve. Equal points give an equal order. See triangulation.hpp for the source.
std::vector<int> insertion_order(std::span<const Point2> points);

}  // namespace veltrane::kernel
