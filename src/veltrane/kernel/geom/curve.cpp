#include "veltrane/kernel/geom/curve.hpp"

#include "veltrane/kernel/math/error.hpp"

namespace veltrane::kernel {

void Curve::require_piece(const Interval& interval) const {
    if (!interval.is_bounded()) throw KernelError("A piece of a curve must be bounded");
    if (!(interval.first < interval.last)) throw KernelError("A piece of a curve has no extent");
    if (is_periodic() && interval.length() > period() * (1 + kParametric)) {
        throw KernelError("A piece of a periodic curve is longer than its period");
    }
}

}  // namespace veltrane::kernel
