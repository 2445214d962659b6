// Clipping after Liang and Barsky, "A New Concept and Method for Line Clipping" (1984).
#include "veltrane/output/rect.hpp"

#include <algorithm>

namespace veltrane {

Rect Rect::enlarged(double distance) const {
    Rect result = *this;
    result.min_.array() -= distance;
    result.max_.array() += distance;
    return result;
}

std::optional<std::pair<kernel::Point2, kernel::Point2>> clipped_line(const kernel::Point2& base,
                                                                      const kernel::Vector2& direction,
                                                                      const kernel::Interval& range,
                                                                      const Rect& rect) {
    if (rect.is_empty() || (direction.x() == 0 && direction.y() == 0)) return std::nullopt;
    double first = range.first;
    double last = range.last;
    for (int axis = 0; axis < 2; ++axis) {
        const double low = rect.min()[axis] - base[axis];
        const double high = rect.max()[axis] - base[axis];
        if (direction[axis] == 0) {
            if (low > 0 || high < 0) return std::nullopt;
            continue;
        }
        // A direction so small that these overflow is as good as along the slab: infinity says just that.
        const double a = low / direction[axis];
        const double b = high / direction[axis];
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
    }
    if (!(first <= last)) return std::nullopt;
    const auto inside = [&](double t) -> kernel::Point2 {
        return (base + t * direction).cwiseMax(rect.min()).cwiseMin(rect.max());
    };
    return std::pair(inside(first), inside(last));
}

}  // namespace veltrane
