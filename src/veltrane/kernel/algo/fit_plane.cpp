#include "veltrane/kernel/algo/fit_plane.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace veltrane::kernel {
namespace {

/// The point for which `measure` is greatest.
template <class Measure>
Point farthest(std::span<const Point> points, Measure measure) {
    const Point* best = &points.front();
    double best_value = -1;
    for (const Point& point : points) {
        const double value = measure(point);
        if (!(value > best_value)) continue;
        best = &point;
        best_value = value;
    }
    return *best;
}

double largest_coordinate(std::span<const Point> points) {
    double largest = 0;
    for (const Point& point : points) largest = std::max(largest, point.cwiseAbs().maxCoeff());
    return largest;
}

/// Least and greatest height over the plane of a frame.
std::array<double, 2> heights(std::span<const Point> points, const Frame& frame) {
    std::array<double, 2> range{std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity()};
    for (const Point& point : points) {
        const double height = (point - frame.origin).dot(frame.z);
        range = {std::min(range[0], height), std::max(range[1], height)};
    }
    return range;
}

/// Turns the frame so that the squares of the heights become least, in a system scaled to the extent of the
/// points: a narrow figure is then as well conditioned as a round one.
Frame least_squares(std::span<const Point> points, const Frame& guess) {
    Vector mean = Vector::Zero(), extent = Vector::Zero();
    for (const Point& point : points) {
        const Vector local = guess.to_local(point);
        mean += local / static_cast<double>(points.size());
        extent = extent.cwiseMax(local.cwiseAbs());
    }
    double uu = 0, uv = 0, vv = 0, uw = 0, vw = 0;
    for (const Point& point : points) {
        const Vector local = guess.to_local(point) - mean;
        const double u = local.x() / extent.x(), v = local.y() / extent.y();
        uu += u * u, uv += u * v, vv += v * v;
        uw += u * local.z(), vw += v * local.z();
    }
    const double determinant = uu * vv - uv * uv;
    if (!(determinant > 0)) return guess;
    const double du = (uw * vv - vw * uv) / determinant / extent.x();
    const double dv = (vw * uu - uw * uv) / determinant / extent.y();
    const Vector normal = guess.z - du * guess.x - dv * guess.y;
    return Frame::from_normal_and_x(guess.to_world(mean), normal, guess.x);
}

FittedPlane judged(std::span<const Point> points, Frame frame, double tolerance) {
    std::array<double, 2> range = heights(points, frame);
    double deviation = std::max(-range[0], range[1]);
    if (deviation > tolerance && range[1] - range[0] <= 2 * tolerance) {
        frame.origin += (range[0] + range[1]) / 2 * frame.z;
        deviation = (range[1] - range[0]) / 2;
    }
    return {deviation <= tolerance ? PlaneFit::Found : PlaneFit::NotPlanar, frame, deviation};
}

}  // namespace

double above_rounding(double tolerance, double largest) {
    return std::max(tolerance, 32 * std::numeric_limits<double>::epsilon() * largest);
}

FittedPlane fit_plane(std::span<const Point> points, double tolerance) {
    if (points.empty()) return {};
    tolerance = above_rounding(tolerance, largest_coordinate(points));
    const Point origin = points.front();
    const Point a = farthest(points, [&](const Point& p) { return distance(p, origin); });
    const Point b = farthest(points, [&](const Point& p) { return distance(p, a); });
    if (distance(a, b) <= tolerance) return {};
    const Vector along = unit(b - a);
    const Point c = farthest(points, [&](const Point& p) { return cross(along, p - a).norm(); });
    const Vector across = cross(along, c - a);
    if (across.norm() <= tolerance) return {};

    const Frame widest = Frame::from_normal_and_x(origin, across, along);
    const FittedPlane exact = judged(points, widest, tolerance);
    if (exact.fit == PlaneFit::Found) return exact;
    return judged(points, least_squares(points, widest), tolerance);
}

}  // namespace veltrane::kernel
