#include "veltrane/output/visible_stroke.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace veltrane {
namespace {

using kernel::Point;

constexpr std::size_t kMostPlaces = 200'000'000;  // at full resolution: a few seconds
constexpr double kFewPlaces = 16;                 // of each stroke after those
constexpr double kManyPlaces = 50'000;

/// De Casteljau's algorithm on at most four poles.
Point value_at(std::span<const Point> poles, double u) {
    if (poles.size() == 2) return poles[0] + u * (poles[1] - poles[0]);
    std::array<Point, 4> p;
    std::copy(poles.begin(), poles.end(), p.begin());
    for (std::size_t left = poles.size() - 1; left > 0; --left) {
        for (std::size_t i = 0; i < left; ++i) p[i] += u * (p[i + 1] - p[i]);
    }
    return p[0];
}

double length_on_page(std::span<const Point> poles) {
    double length = 0;
    for (std::size_t i = 1; i < poles.size(); ++i) {
        length += std::hypot(poles[i].x() - poles[i - 1].x(), poles[i].y() - poles[i - 1].y());
    }
    return length;
}

}  // namespace

std::optional<bool> HeightSlab::shows_all(const kernel::Box& box) const {
    if (contains(box.min().z()) && contains(box.max().z())) return true;
    if (box.max().z() < low_ || box.min().z() >= high_) return false;
    return std::nullopt;
}

std::size_t StrokeCutter::place_count(std::span<const Point> poles) {
    const double wanted = std::ceil(length_on_page(poles) / visibility_.resolution());
    const double most = places_ < kMostPlaces ? kManyPlaces : kFewPlaces;
    const auto count = static_cast<std::size_t>(wanted >= 1 ? std::min(wanted, most) : 1);
    places_ += count;
    return count;
}

std::vector<kernel::Interval> StrokeCutter::parts(std::span<const Point> poles) {
    kernel::Box box;
    for (const Point& pole : poles) box.add(pole);
    if (const auto all = visibility_.shows_all(box)) {
        return *all ? std::vector<kernel::Interval>{{0, 1}} : std::vector<kernel::Interval>();
    }
    const std::size_t count = place_count(poles);
    const auto n = static_cast<double>(count);
    std::vector<kernel::Interval> parts;
    for (std::size_t i = 0; i < count;) {
        std::size_t end = i;
        while (end < count && visibility_.shows(value_at(poles, (static_cast<double>(end) + 0.5) / n))) ++end;
        const bool is_speck = end == i + 1 && count > 2;
        if (end > i && !is_speck) parts.push_back({static_cast<double>(i) / n, static_cast<double>(end) / n});
        i = end + 1;
    }
    return parts;
}

}  // namespace veltrane
