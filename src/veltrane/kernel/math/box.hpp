// Axis-parallel boxes.
#pragma once

#include "veltrane/kernel/math/transform.hpp"

#include <limits>

namespace veltrane::kernel {

/// A box with sides along the world axes; empty until something is added. A side that stands for
/// infinity (see is_infinite) makes it open.
class Box {
public:
    Box() = default;
    Box(const Point& a, const Point& b) { add(a), add(b); }

    /// Points with a co-ordinate that is not a number are passed over.
    void add(const Point& p);
    void add(const Box& other);

    bool is_empty() const { return min_.x() > max_.x(); }
    /// True when some side stands for infinity.
    bool is_open() const;
    /// Neither empty nor open.
    bool is_finite() const { return !is_empty() && !is_open(); }

    /// The corners; meaningless for an empty box.
    const Point& min() const { return min_; }
    const Point& max() const { return max_; }
    Point centre() const { return min_ + (max_ - min_) / 2; }
    /// Lengths of the sides; zero for an empty box.
    Vector size() const { return is_empty() ? Vector(Vector::Zero()) : Vector(max_ - min_); }
    /// Length of the diagonal; zero for an empty box.
    double diagonal() const { return size().norm(); }

    bool contains(const Point& p, double tolerance = 0) const;
    bool intersects(const Box& other, double tolerance = 0) const;
    /// Distance of the point to the box; 0 inside. Infinite for an empty box.
    double distance_to(const Point& p) const;

    /// Every side moved outwards; an empty box stays empty.
    Box enlarged(double distance) const;
    /// The box of the eight moved corners: bounds the moved content, not tightly. Open sides stay open.
    Box transformed(const AffineMap& map) const;

private:
    static constexpr double kHuge = std::numeric_limits<double>::infinity();
    Point min_{kHuge, kHuge, kHuge};
    Point max_{-kHuge, -kHuge, -kHuge};
};

Box unite(const Box& a, const Box& b);

}  // namespace veltrane::kernel
