#include "veltrane/kernel/mesh/outline.hpp"

#include "veltrane/kernel/math/error.hpp"

#include <algorithm>
#include <cmath>

namespace veltrane::kernel {

namespace {

/// A closed sequence of corners; a walk around moves u by `turn`.
struct Ring {
    Polygon corners;
    double turn = 0;
};

void shift(Polygon& corners, double u) {
    for (Corner& corner : corners) corner.parameters.x() += u;
}

Interval extent_in_u(const Polygon& corners) {
    Interval extent{corners.front().parameters.x(), corners.front().parameters.x()};
    for (const Corner& corner : corners) {
        extent.first = std::min(extent.first, corner.parameters.x());
        extent.last = std::max(extent.last, corner.parameters.x());
    }
    return extent;
}

/// The multiple of the period that brings `from` nearest to `to`.
double turns_between(double from, double to, double period) {
    return period > 0 ? std::round((to - from) / period) * period : 0;
}

Ring ring_of(const Outline& outline, double period, const std::vector<Point>& points,
             std::vector<SamePoint>& same_points) {
    constexpr double kSameParameter = 1e-6;  // relative
    Ring ring;
    std::vector<Polygon> uses = outline.uses;
    for (std::size_t i = 1; i < uses.size(); ++i) {
        shift(uses[i],
              turns_between(uses[i].front().parameters.x(), uses[i - 1].back().parameters.x(), period));
    }
    for (std::size_t i = 0; i < uses.size(); ++i) {
        const Polygon& use = uses[i];
        ring.corners.insert(ring.corners.end(), use.begin(), use.end() - 1);
        const Corner& end = use.back();
        Corner begin = uses[(i + 1) % uses.size()].front();
        if (distance(points[end.point], points[begin.point]) > kZeroLength) {
            throw KernelError("A loop of a face does not close");
        }
        if (end.point != begin.point) same_points.emplace_back(end.point, begin.point);
        if (i + 1 == uses.size()) {
            ring.turn = turns_between(begin.parameters.x(), end.parameters.x(), period);
            begin.parameters.x() += ring.turn;
        }
        const double gap = (end.parameters - begin.parameters).cwiseAbs().maxCoeff();
        const double size = (use.front().parameters - end.parameters).cwiseAbs().maxCoeff();
        if (gap > kSameParameter * (size + period + gap)) ring.corners.push_back(end);
    }
    return ring;
}

/// The corners from one on, once around and back to it.
Polygon once_around(const Ring& ring, std::size_t start) {
    Polygon result(ring.corners.begin() + static_cast<std::ptrdiff_t>(start), ring.corners.end());
    Polygon rest(ring.corners.begin(), ring.corners.begin() + static_cast<std::ptrdiff_t>(start) + 1);
    shift(rest, ring.turn);
    result.insert(result.end(), rest.begin(), rest.end());
    return result;
}

/// Cuts the strip between two loops that run around a surface open, at a place that holds none of the rings
/// between them.
class OpenStrip {
public:
    OpenStrip(const Ring& forth, const Ring& back, double period)
        : forth_(forth), back_(back), period_(period) {}

    Polygon cut(const std::vector<Ring>& between) {
        std::size_t at = 0;
        for (std::size_t i = 0; i < forth_.corners.size(); ++i) {
            if (is_free(i, between)) {
                at = i;
                break;
            }
        }
        Polygon strip = once_around(forth_, at);
        Polygon other = once_around(back_, opposite(at));
        shift(other, turns_between(other.front().parameters.x(), strip.back().parameters.x(), period_));
        start_ = strip.front().parameters.x();
        strip.insert(strip.end(), other.begin(), other.end());
        return strip;
    }

    /// Into the strip.
    void move_inside(Polygon& corners) const {
        shift(corners, turns_between(extent_in_u(corners).middle(), start_ + period_ / 2, period_));
    }

private:
    double apart(double a, double b) const { return std::abs(std::remainder(a - b, period_)); }

    std::size_t opposite(std::size_t i) const {
        const double u = forth_.corners[i].parameters.x();
        const auto nearest = std::min_element(
            back_.corners.begin(), back_.corners.end(), [&](const Corner& a, const Corner& b) {
                return apart(a.parameters.x(), u) < apart(b.parameters.x(), u);
            });
        return static_cast<std::size_t>(nearest - back_.corners.begin());
    }

    bool is_free(std::size_t i, const std::vector<Ring>& between) const {
        const double a = forth_.corners[i].parameters.x();
        const double b = back_.corners[opposite(i)].parameters.x();
        return std::none_of(between.begin(), between.end(), [&](const Ring& ring) {
            const Interval extent = extent_in_u(ring.corners);
            const double reach = extent.length() / 2;
            return apart(a, extent.middle()) <= reach || apart(b, extent.middle()) <= reach;
        });
    }

    const Ring& forth_;
    const Ring& back_;
    double period_;
    double start_ = 0;
};

}  // namespace

std::vector<Polygon> closed_polygons(const Surface& surface, const std::vector<Outline>& outlines,
                                     const std::vector<Point>& points, std::vector<SamePoint>& same_points) {
    const double period = surface.u_period();
    std::vector<Ring> around, plain;
    for (const Outline& outline : outlines) {
        if (outline.uses.empty()) continue;
        Ring ring = ring_of(outline, period, points, same_points);
        (ring.turn == 0 ? plain : around).push_back(std::move(ring));
    }
    std::vector<Polygon> result;
    for (const Ring& ring : plain) result.push_back(ring.corners);
    if (around.empty()) return result;
    if (around.size() != 2 || around[0].turn != -around[1].turn) {
        throw KernelError("A loop runs around a surface without another that closes the face");
    }
    const bool first_is_forth = around[0].turn > 0;
    OpenStrip strip(around[first_is_forth ? 0 : 1], around[first_is_forth ? 1 : 0], period);
    Polygon outer = strip.cut(plain);
    for (Polygon& polygon : result) strip.move_inside(polygon);
    result.push_back(std::move(outer));
    return result;
}

}  // namespace veltrane::kernel
