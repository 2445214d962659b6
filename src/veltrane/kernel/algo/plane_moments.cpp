#include "veltrane/kernel/algo/plane_moments.hpp"

#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/quadrature.hpp"

#include <utility>

namespace veltrane::kernel {
namespace {

PlaneMoments swept_by_segment(const Vector2& a, const Vector2& b) {
    const double doubled = cross2(a, b);
    return {doubled / 2, doubled / 6 * (a + b)};
}

/// Twice the area swept per parameter, by Green's theorem.
double doubled_rate(const Curve2Derivatives& at, const Point2& about) {
    return cross2(at.point - about, at.first);
}

PlaneMoments swept_by_piece(const Curve2& curve, const Interval& piece, const Point2& about) {
    const auto along = [&](auto value) {
        return integrate([&](double t) { return value(curve.derivatives(t)); }, piece).value;
    };
    const auto first = [&](int axis) {
        return along([&](const Curve2Derivatives& at) {
            return (at.point[axis] - about[axis]) * doubled_rate(at, about) / 3;
        });
    };
    return {along([&](const Curve2Derivatives& at) { return doubled_rate(at, about) / 2; }),
            Vector2(first(0), first(1))};
}

/// Of centre + a cos t + b sin t.
double area_of_conic(const Curve2& curve, const Interval& interval, const Point2& about) {
    const Curve2Derivatives at = curve.derivatives(interval.first);
    const Point2 centre = at.point + at.second;
    const double sector = cross2(at.first, at.second) * interval.length();
    return (cross2(centre - about, curve.value(interval.last) - at.point) + sector) / 2;
}

/// Start and end of an edge's use in the parameter plane, in running order.
std::pair<Point2, Point2> ends_of(const ParameterCurve& path, const Interval& range, bool back) {
    std::pair<Point2, Point2> ends(path.value(range.first), path.value(range.last));
    if (back) std::swap(ends.first, ends.second);
    return ends;
}

/// In the direction of the edge's curve.
PlaneMoments swept_by_edge(const ParameterCurve& path, const Interval& range, const Point2& about) {
    const double a = path.from_edge(range.first), b = path.from_edge(range.last);
    return a <= b ? swept_moments(*path.curve, {a, b}, about) : -swept_moments(*path.curve, {b, a}, about);
}

}  // namespace

PlaneMoments swept_moments(const Curve2& curve, const Interval& interval, const Point2& about) {
    const CurveKind kind = untrimmed(curve.in_plane())->kind();
    if (kind == CurveKind::Line) {
        return swept_by_segment(curve.value(interval.first) - about, curve.value(interval.last) - about);
    }
    const std::vector<double> ends = curve.in_plane()->breaks(interval);
    PlaneMoments sum;
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
        if (ends[i] < ends[i + 1]) sum += swept_by_piece(curve, {ends[i], ends[i + 1]}, about);
    }
    if (kind != CurveKind::BSpline) sum.area = area_of_conic(curve, interval, about);
    return sum;
}

PlaneMoments loop_moments(const Loop& loop, const Point2& about) {
    const std::vector<Shape>& edges = group_definition(loop.wire).children();
    const bool wire_is_reversed = loop.wire.is_reversed();
    PlaneMoments sum;
    if (edges.empty()) return sum;
    Point2 at_start, at_end;
    for (std::size_t n = 0; n < edges.size(); ++n) {
        const std::size_t i = wire_is_reversed ? edges.size() - 1 - n : n;
        const Interval& range = edge_definition(edges[i]).range();
        if (!range.is_bounded()) throw KernelError("An unbounded edge encloses nothing");
        const bool back = wire_is_reversed != edges[i].is_reversed();
        const PlaneMoments part = swept_by_edge(loop.parameter_curves[i], range, about);
        sum += back ? -part : part;
        const auto [start, end] = ends_of(loop.parameter_curves[i], range, back);
        if (n == 0) {
            at_start = start;
        } else {
            sum += swept_by_segment(at_end - about, start - about);
        }
        at_end = end;
    }
    sum += swept_by_segment(at_end - about, at_start - about);
    return sum;
}

Point2 point_of(const Loop& loop) {
    const std::vector<Shape>& edges = group_definition(loop.wire).children();
    if (edges.empty()) return Point2::Zero();
    const Interval& range = edge_definition(edges.front()).range();
    return range.is_bounded() ? loop.parameter_curves.front().value(range.first) : Point2(Point2::Zero());
}

}  // namespace veltrane::kernel
