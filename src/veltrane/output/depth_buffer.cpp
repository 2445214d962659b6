#include "veltrane/output/depth_buffer.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veltrane {
namespace {

using kernel::Point;

constexpr double kLeastArea = 1e-9;     // pixels; twice the area of what is seen edge-on
constexpr double kSteepest = 1e6;       // depth over pixels
constexpr float kSameDepth = 1.f / 64;  // pixels; rounding of triangles in one plane
constexpr double kSlack = 1;            // pixels

/// The first pixel whose centre lies at or after a place, within [0, size].
int first_centre(double place, int size) {
    const double first = std::ceil(place - 0.5);
    return first > 0 ? static_cast<int>(std::min<double>(first, size)) : 0;
}

std::uint32_t packed(Rgb colour) {
    return 0xff000000u | static_cast<std::uint32_t>(colour.red) << 16 |
           static_cast<std::uint32_t>(colour.green) << 8 | colour.blue;
}

float steepness(float x, float y) {
    return std::max(std::abs(x), std::abs(y));
}

/// A side from its upper to its lower end, so that both triangles of a side find the same places on it.
struct Side {
    const Point* upper;
    const Point* lower;

    Side(const Point& a, const Point& b) : upper(&a), lower(&b) {
        if (a.y() > b.y()) std::swap(upper, lower);
    }
    bool crosses(double y) const { return upper->y() <= y && y < lower->y(); }
    double x_at(double y) const {
        return upper->x() + (y - upper->y()) * (lower->x() - upper->x()) / (lower->y() - upper->y());
    }
};

}  // namespace

struct DepthBuffer::Plane {
    Point base;
    double slope_x, slope_y;
    double least, greatest;  // depths of the triangle
    std::uint32_t colour;

    double depth_at(double x, double y) const {
        const double depth = base.z() + slope_x * (x - base.x()) + slope_y * (y - base.y());
        return std::clamp(depth, least, greatest);
    }
};

DepthBuffer::DepthBuffer(int width, int height, std::uint64_t most_work)
    : width_(width),
      height_(height),
      depths_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
              -std::numeric_limits<float>::infinity()),
      cells_(depths_.size()),
      most_work_(most_work) {}

void DepthBuffer::add(const std::array<Point, 3>& corners, Rgb colour) {
    const auto& [a, b, c] = corners;
    const kernel::Vector u = b - a, v = c - a;
    const double area = u.x() * v.y() - u.y() * v.x();
    if (!(std::abs(area) > kLeastArea) || !std::isfinite(area * (a.z() + b.z() + c.z()))) return;
    const auto slope = [&](double numerator) { return std::clamp(numerator / area, -kSteepest, kSteepest); };
    const auto [least, greatest] = std::minmax({a.z(), b.z(), c.z()});
    const Plane plane{a,
                      slope(u.z() * v.y() - v.z() * u.y()),
                      slope(v.z() * u.x() - u.z() * v.x()),
                      least,
                      greatest,
                      packed(colour)};
    const std::array<Side, 3> sides = {Side(a, b), Side(b, c), Side(c, a)};
    const auto [top, bottom] = std::minmax({a.y(), b.y(), c.y()});
    const int first = first_centre(top, height_), end = first_centre(bottom, height_);
    work_ += static_cast<std::uint64_t>(std::min(std::abs(area) / 2, 1.0 * width_ * height_)) + 1 +
             static_cast<std::uint64_t>(std::max(end - first, 0));
    if (work_ > most_work_) return;
    for (int row = first; row < end; ++row) {
        double left = std::numeric_limits<double>::infinity();
        double right = -left;
        for (const Side& side : sides) {
            if (!side.crosses(row + 0.5)) continue;
            const double x = side.x_at(row + 0.5);
            left = std::min(left, x);
            right = std::max(right, x);
        }
        fill_row(row, left, right, plane);
    }
}

void DepthBuffer::fill_row(int row, double left, double right, const Plane& plane) {
    const int first = first_centre(left, width_), end = first_centre(right, width_);
    if (first >= end) return;
    const auto slope_x = static_cast<float>(plane.slope_x), slope_y = static_cast<float>(plane.slope_y);
    const float slope = steepness(slope_x, slope_y);
    const auto least = static_cast<float>(plane.least), greatest = static_cast<float>(plane.greatest);
    const auto start = static_cast<float>(plane.depth_at(first + 0.5, row + 0.5));
    float* depths = depths_.data() + index(first, row);
    Cell* cells = cells_.data() + index(first, row);
    for (int i = 0; i < end - first; ++i) {
        const float depth = std::clamp(start + slope_x * static_cast<float>(i), least, greatest);
        if (depth < depths[i]) {
            // As near as can be told counts as nearer, for triangles in one plane.
            const float gentler = std::min(slope, steepness(cells[i].slope_x, cells[i].slope_y));
            if (depth < depths[i] - kSameDepth * (1 + gentler)) continue;
        }
        depths[i] = depth;
        cells[i] = {slope_x, slope_y, plane.colour};
    }
}

bool DepthBuffer::hides(const Point& place) const {
    if (!(place.x() >= 0 && place.y() >= 0 && place.x() < width_ && place.y() < height_)) return false;
    const int column = static_cast<int>(place.x()), row = static_cast<int>(place.y());
    const std::size_t at = index(column, row);
    const double behind = depths_[at] - place.z();
    if (!(behind > kSlack)) return false;
    // The triangle's plane, carried on to the place, is exact for edges of the triangle. Of steep triangles
    // it may come far too near beyond their sides, where the depth in the middle of the pixel is the better
    // one.
    const double slope_x = cells_[at].slope_x, slope_y = cells_[at].slope_y;
    const double carried = slope_x * (place.x() - column - 0.5) + slope_y * (place.y() - row - 0.5);
    return behind + std::min(carried, 0.0) > kSlack * std::sqrt(1 + slope_x * slope_x + slope_y * slope_y);
}

RasterImage DepthBuffer::image() const {
    RasterImage image{width_, height_, {}};
    image.pixels.reserve(cells_.size());
    for (const Cell& cell : cells_) image.pixels.push_back(cell.colour);
    return image;
}

}  // namespace veltrane
