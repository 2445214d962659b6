// Intervals found by a value inside them.
#pragma once

#include "veltrane/kernel/math/interval.hpp"

#include <cstddef>
#include <span>
#include <vector>

namespace veltrane::kernel {

/// Sorts intervals into equal bins over their whole range. There are as many bins as keep the entries below a
/// few times the number of intervals, so that building takes linear time and space.
class IntervalBins {
public:
    /// The intervals must be bounded; an interval is known by its index.
    explicit IntervalBins(std::span<const Interval> intervals);

    /// Indices, ascending, of a set that includes every interval that holds `value`; empty outside the range.
    std::span<const std::size_t> at(double value) const;

private:
    std::size_t bin_of(double value) const;

    Interval range_;
    std::size_t count_ = 0;
    std::vector<std::size_t> begin_;  // of a bin's entries
    std::vector<std::size_t> entries_;
};

}  // namespace veltrane::kernel
