// The mesh of one face. Internal to the folder.
#pragma once

#include "veltrane/kernel/mesh/mesh.hpp"
#include "veltrane/kernel/mesh/outline.hpp"

namespace veltrane::kernel {

struct FaceMesh {
    std::vector<MeshTriangle> triangles;  ///< by the surface's natural normal
    std::vector<SamePoint> same_points;   ///< what the face shows to be one point
};

/// Fills the outlines with triangles; points inside are appended to `points`, which holds those of the
/// outlines. What an odd number of outlines encloses is inside. Throws KernelError for a face without
/// outlines, and for one whose outlines do not close or cross.
FaceMesh mesh_face(const Surface& surface, const std::vector<Outline>& outlines, const MeshOptions& options,
                   std::vector<Point>& points);

}  // namespace veltrane::kernel
