#include "veltrane/kernel/mesh/insertion_order.hpp"

#include <algorithm>
#include <cstdint>
#include <random>
#include <utility>

namespace veltrane::kernel {

namespace {

constexpr std::uint32_t kCells = 1u << 15;  // along a side

/// The place of a cell along the Hilbert curve through all cells.
std::uint32_t hilbert_place(std::uint32_t x, std::uint32_t y) {
    std::uint32_t place = 0;
    for (std::uint32_t side = kCells / 2; side > 0; side /= 2) {
        const bool right = (x & side) != 0, upper = (y & side) != 0;
        place += side * side * ((right ? 3u : 0u) ^ (upper ? 1u : 0u));
        if (upper) continue;
        if (right) {
            x = kCells - 1 - x;
            y = kCells - 1 - y;
        }
        std::swap(x, y);
    }
    return place;
}

}  // namespace

std::vector<int> insertion_order(std::span<const Point2> points) {
    if (points.empty()) return {};
    Point2 low = points.front(), high = low;
    for (const Point2& p : points) {
        low = low.cwiseMin(p);
        high = high.cwiseMax(p);
    }
    const double size = std::max({high.x() - low.x(), high.y() - low.y(), 1e-300});
    const auto cell = [&](double offset) { return static_cast<std::uint32_t>(offset / size * (kCells - 1)); };
    struct Entry {
        std::uint32_t place;
        int index;
    };
    std::vector<Entry> entries;
    for (const Point2& p : points) {
        const Vector2 offset = p - low;
        entries.push_back(
            {hilbert_place(cell(offset.x()), cell(offset.y())), static_cast<int>(entries.size())});
    }
    std::mt19937 random;
    for (std::size_t i = entries.size(); i > 1; --i) std::swap(entries[i - 1], entries[random() % i]);
    for (std::size_t end = entries.size(); end > 0; end /= 2) {
        const std::size_t begin = end < 64 ? 0 : end / 2;
        std::sort(entries.begin() + begin, entries.begin() + end, [](const Entry& a, const Entry& b) {
            return std::pair(a.place, a.index) < std::pair(b.place, b.index);
        });
        if (begin == 0) break;
    }
    std::vector<int> order;
    for (const Entry& entry : entries) order.push_back(entry.index);
    return order;
}

}  // namespace veltrane::kernel
