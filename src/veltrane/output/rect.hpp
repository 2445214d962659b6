// Upright rectangles of the picture plane.
#pragma once

#include "veltrane/kernel/math/interval.hpp"
#include "veltrane/kernel/math/vector.hpp"

#include <limits>
#include <optional>
#include <utility>

namespace veltrane {

/// Empty until something is added.
class Rect {
public:
    Rect() = default;
    Rect(const kernel::Point2& a, const kernel::Point2& b) { add(a), add(b); }

    void add(const kernel::Point2& p) {
        min_ = min_.cwiseMin(p);
        max_ = max_.cwiseMax(p);
    }
    void add(const Rect& other) {
        if (other.is_empty()) return;
        add(other.min_), add(other.max_);
    }

    bool is_empty() const { return min_.x() > max_.x(); }
    /// The corners; meaningless for an empty rectangle.
    const kernel::Point2& min() const { return min_; }
    const kernel::Point2& max() const { return max_; }
    kernel::Point2 centre() const { return min_ + (max_ - min_) / 2; }
    double width() const { return is_empty() ? 0 : max_.x() - min_.x(); }
    double height() const { return is_empty() ? 0 : max_.y() - min_.y(); }
    double long_side() const { return width() > height() ? width() : height(); }

    /// Every side moved outwards.
    Rect enlarged(double distance) const;

private:
    static constexpr double kHuge = std::numeric_limits<double>::infinity();
    kernel::Point2 min_{kHuge, kHuge};
    kernel::Point2 max_{-kHuge, -kHuge};
};

/// The part of the straight line base + t direction, t in `range`, that lies inside a rectangle: its ends in
/// the order of t, never outside. Nothing when there is no such part, or when the direction is zero. The
/// range may reach to infinity and the direction have any length.
std::optional<std::pair<kernel::Point2, kernel::Point2>> clipped_line(const kernel::Point2& base,
                                                                      const kernel::Vector2& direction,
                                                                      const kernel::Interval& range,
                                                                      const Rect& rect);

}  // namespace veltrane
