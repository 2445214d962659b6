// The linear sweep of a shape.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane::kernel {

/// Sweeps a vertex to an edge, an edge to a face, a wire to a shell, a face to a solid, from where it stands
/// to where it stands plus `sweep`; a compound becomes the compound of its swept members. Sweeping a line
/// gives a plane, a circle along its axis a cylinder, any other curve an extrusion; a closed edge gives a
/// face with a seam. Neighbours in a wire share the edge swept by their vertex. The normal of each face is
/// (direction of travel along the edge) x (sweep); the faces of a solid look outwards.
/// Throws KernelError for a vector shorter than kConfusion, an unbounded edge, a line along the sweep, a face
/// that is swept within itself, and for shapes of other kinds.
Shape prism(const Shape& shape, const Vector& sweep);

}  // namespace veltrane::kernel
