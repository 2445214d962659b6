// Where curved faces turn away from the eye. Internal to the folder.
#pragma once

#include "veltrane/kernel/mesh/mesh.hpp"

#include <array>
#include <span>
#include <vector>

namespace veltrane {

using PlacedSegment = std::array<kernel::Point, 2>;

/// The sides between triangles that show their fronts and those that show their backs, among triangles of one
/// face. `places` are the points of the mesh, z towards the eye.
std::vector<PlacedSegment> silhouette(std::span<const kernel::MeshTriangle> triangles,
                                      std::span<const kernel::Point> places);

}  // namespace veltrane
