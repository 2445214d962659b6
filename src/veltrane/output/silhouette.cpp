#include "veltrane/output/silhouette.hpp"

#include <algorithm>
#include <cstdint>

namespace veltrane {
namespace {

/// A side of a triangle, from its lesser to its greater point.
struct Side {
    std::uint32_t from, to;
    bool is_front;

    bool is_along(const Side& other) const { return from == other.from && to == other.to; }
};

double seen_area(const kernel::MeshTriangle& triangle, std::span<const kernel::Point> places) {
    const kernel::Point& base = places[triangle[0]];
    const kernel::Vector a = places[triangle[1]] - base, b = places[triangle[2]] - base;
    return a.x() * b.y() - a.y() * b.x();
}

}  // namespace

std::vector<PlacedSegment> silhouette(std::span<const kernel::MeshTriangle> triangles,
                                      std::span<const kernel::Point> places) {
    const auto is_front = [&](const kernel::MeshTriangle& t) { return seen_area(t, places) > 0; };
    const auto fronts = static_cast<std::size_t>(std::count_if(triangles.begin(), triangles.end(), is_front));
    if (fronts == 0 || fronts == triangles.size()) return {};

    std::vector<Side> sides;
    sides.reserve(triangles.size() * 3);
    for (const kernel::MeshTriangle& triangle : triangles) {
        for (std::size_t i = 0; i < 3; ++i) {
            const auto [from, to] = std::minmax({triangle[i], triangle[(i + 1) % 3]});
            sides.push_back({from, to, is_front(triangle)});
        }
    }
    std::sort(sides.begin(), sides.end(),
              [](const Side& a, const Side& b) { return a.from != b.from ? a.from < b.from : a.to < b.to; });
    std::vector<PlacedSegment> segments;
    for (std::size_t i = 0; i + 1 < sides.size(); ++i) {
        if (!sides[i].is_along(sides[i + 1]) || sides[i].is_front == sides[i + 1].is_front) continue;
        segments.push_back({places[sides[i].from], places[sides[i].to]});
    }
    return segments;
}

}  // namespace veltrane
