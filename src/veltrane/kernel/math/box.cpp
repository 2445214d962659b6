#include "veltrane/kernel/math/box.hpp"

namespace veltrane::kernel {

void Box::add(const Point& p) {
    if (p.hasNaN()) return;
    min_ = min_.cwiseMin(p);
    max_ = max_.cwiseMax(p);
}

void Box::add(const Box& other) {
    min_ = min_.cwiseMin(other.min_);
    max_ = max_.cwiseMax(other.max_);
}

bool Box::is_open() const {
    if (is_empty()) return false;
    for (int axis = 0; axis < 3; ++axis) {
        if (is_infinite(min_[axis]) || is_infinite(max_[axis])) return true;
    }
    return false;
}

bool Box::contains(const Point& p, double tolerance) const {
    return distance_to(p) <= tolerance;
}

bool Box::intersects(const Box& other, double tolerance) const {
    for (int axis = 0; axis < 3; ++axis) {
        if (!(min_[axis] - tolerance <= other.max_[axis])) return false;
        if (!(other.min_[axis] - tolerance <= max_[axis])) return false;
    }
    return true;
}

double Box::distance_to(const Point& p) const {
    if (is_empty()) return kHuge;
    return (min_ - p).cwiseMax(p - max_).cwiseMax(0).norm();
}

Box Box::enlarged(double distance) const {
    Box result = *this;
    if (is_empty()) return result;
    result.min_.array() -= distance;
    result.max_.array() += distance;
    return result;
}

Box Box::transformed(const AffineMap& map) const {
    Box result;
    if (is_empty()) return result;
    // Sums of factors times sides, axis by axis; an open side opens each axis it has a share in.
    for (int row = 0; row < 3; ++row) {
        double low = map.translation_part()[row];
        double high = low;
        for (int column = 0; column < 3; ++column) {
            const double factor = map.linear_part()(row, column);
            if (factor == 0) continue;
            const auto image = [&](double side) {
                return is_infinite(side) ? std::copysign(kInfinite, factor * side) : factor * side;
            };
            const double a = image(min_[column]);
            const double b = image(max_[column]);
            low += std::min(a, b);
            high += std::max(a, b);
        }
        result.min_[row] = low;
        result.max_[row] = high;
    }
    return result;
}

Box unite(const Box& a, const Box& b) {
    Box result = a;
    result.add(b);
    return result;
}

}  // namespace veltrane::kernel
