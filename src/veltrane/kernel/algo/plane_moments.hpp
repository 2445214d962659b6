// Area and first moments of what curves of a plane enclose.
#pragma once

#include "veltrane/kernel/geom/curve2.hpp"
#include "veltrane/kernel/topo/definition.hpp"

namespace veltrane::kernel {

/// Area and the integral of the position over it, both relative to a point of the plane; negative where the
/// boundary runs clockwise.
struct PlaneMoments {
    double area = 0;
    Vector2 first = Vector2::Zero();

    PlaneMoments& operator+=(const PlaneMoments& other) {
        area += other.area;
        first += other.first;
        return *this;
    }
    PlaneMoments operator-() const { return {-area, -first}; }
};

/// What the ray from `about` to the curve sweeps as it runs over the interval. The area under lines and
/// conics is exact; everything else is integrated piece by piece to about 1e-13, relative.
PlaneMoments swept_moments(const Curve2& curve, const Interval& interval, const Point2& about);

/// What a loop encloses in the parameter plane, with the orientations of its wire and edges. Gaps between the
/// parameter curves of neighbours are bridged by segments. A point near the loop keeps digits. Throws
/// KernelError for an unbounded edge.
PlaneMoments loop_moments(const Loop& loop, const Point2& about);

/// Where the first edge of a loop starts in the parameter plane; the origin for a wire without edges.
Point2 point_of(const Loop& loop);

}  // namespace veltrane::kernel
