// A closed range of a parameter.
#pragma once

#include "veltrane/kernel/math/tolerance.hpp"

#include <algorithm>

namespace veltrane::kernel {

struct Interval {
    double first = 0;
    double last = 0;

    double length() const { return last - first; }
    double middle() const { return first + (last - first) / 2; }
    bool contains(double t, double tolerance = 0) const {
        return t >= first - tolerance && t <= last + tolerance;
    }
    double clamp(double t) const { return t < first ? first : t > last ? last : t; }
    /// The parameter at a fraction of the range; exact at 0 and 1.
    double at(double fraction) const { return first * (1 - fraction) + last * fraction; }
    /// False when an end stands for infinity or is not a number.
    bool is_bounded() const {
        return is_usable(first) && is_usable(last) && !is_infinite(first) && !is_infinite(last);
    }
    friend bool operator==(const Interval&, const Interval&) = default;
};

/// `t` moved by whole periods into [first, first + period). A value within kParametric periods below
/// the upper end goes to `first`, so that the seam has one parameter.
double into_period(double t, double first, double period);

/// The same without the snap at the seam, for evaluation: always inside the interval, which is the period.
double wrapped(double t, const Interval& period);

}  // namespace veltrane::kernel
