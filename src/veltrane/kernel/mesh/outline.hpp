// The outline of a face as polygons in its parameter plane. Internal to the folder.
#pragma once

#include "veltrane/kernel/geom/surface.hpp"

#include <cstdint>
#include <utility>
#include <vector>

namespace veltrane::kernel {

/// A corner of the outline of a face: parameters on the surface, and the place of its point.
struct Corner {
    Point2 parameters;
    std::uint32_t point;
};

/// A loop as polygons, one for each use of an edge, in the sense in which the loop runs through them. Each
/// use ends where the next one begins.
struct Outline {
    std::vector<std::vector<Corner>> uses;
};

using Polygon = std::vector<Corner>;                        ///< the last corner is joined to the first
using SamePoint = std::pair<std::uint32_t, std::uint32_t>;  ///< two places that stand for one point

/// Polygons that close in the parameter plane. Uses are moved by whole periods to join each other. Two loops
/// that run around a closed surface are cut open between two corners and become one polygon. Where uses end
/// at different places of one point, these are added to `same_points`; where they end at different parameters
/// of one point, as at the tip of a surface, both are corners. Throws KernelError for a loop that does not
/// close.
std::vector<Polygon> closed_polygons(const Surface& surface, const std::vector<Outline>& outlines,
                                     const std::vector<Point>& points, std::vector<SamePoint>& same_points);

}  // namespace veltrane::kernel
