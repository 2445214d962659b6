// Measures and checks of meshes.
#pragma once

#include "veltrane/kernel/mesh/mesh.hpp"

namespace veltrane::kernel {

/// True when there are triangles and each side is used as often in one direction as in the other: the mesh
/// encloses space without gaps. Sides are used once each way, but where the shape touches itself along an
/// edge.
bool is_watertight(const Mesh& mesh);

/// The volume that the triangles enclose, positive when their normals point outwards. Means nothing unless
/// the mesh is watertight.
double volume(const Mesh& mesh);

/// The area of all triangles.
double area(const Mesh& mesh);

/// Points used by triangles - sides + triangles: 2 for each closed surface without holes through it, less 2
/// for each hole.
long long euler_number(const Mesh& mesh);

}  // namespace veltrane::kernel
