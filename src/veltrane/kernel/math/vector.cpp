#include "veltrane/kernel/math/vector.hpp"

#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/interval.hpp"

namespace veltrane::kernel {

namespace {

template <class V>
V normalized(const V& v) {
    if (!v.allFinite()) throw KernelError("A direction is not a number");
    const double largest = v.cwiseAbs().maxCoeff();
    if (largest == 0) throw KernelError("A direction has zero length");
    const V scaled = largest > 1e100 || largest < 1e-100 ? V(v / largest) : v;
    const double square = scaled.squaredNorm();
    // What already has length 1 stays as it is, so that repeated use does not creep.
    if (std::abs(square - 1) <= 4e-16) return scaled;
    return scaled / std::sqrt(square);
}

}  // namespace

double angle_between(const Vector& a, const Vector& b) {
    return std::atan2(cross(a, b).norm(), a.dot(b));
}

Vector unit(const Vector& v) {
    return normalized(v);
}

Vector2 unit2(const Vector2& v) {
    return normalized(v);
}

Vector perpendicular(const Vector& v) {
    const Vector n = unit(v);
    constexpr double kNearZ = 1.0 / 64;
    const bool near_z = std::abs(n.x()) < kNearZ && std::abs(n.y()) < kNearZ;
    return unit(near_z ? cross(Vector::UnitY(), n) : cross(Vector::UnitZ(), n));
}

double into_period(double t, double first, double period) {
    double offset = std::fmod(t - first, period);
    if (offset < 0) offset += period;
    if (offset >= period - kParametric * period) return first;
    return first + offset;
}

double wrapped(double t, const Interval& period) {
    if (period.contains(t)) return t;
    return period.clamp(t - std::floor((t - period.first) / period.length()) * period.length());
}

}  // namespace veltrane::kernel
