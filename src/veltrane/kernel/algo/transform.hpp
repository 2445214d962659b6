// Transforming shapes: rigid motions place, everything else makes new geometry.
#pragma once

#include "veltrane/kernel/math/transform.hpp"
#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane::kernel {

/// The transformed shape. A rigid motion only moves the placement. A scale or a mirror gives new definitions
/// without placement; what was shared inside the shape is shared in the result. Nesting of any depth is safe.
Shape transformed(const Shape& shape, const Transform& transform);

/// The shape under an affine map, always with new geometry (a circle may become an ellipse); what was shared
/// at places that differ by no more than a translation is shared in the result. Nesting of any depth is safe.
/// Throws KernelError when an edge shrinks to a point or a face has no surface as its image.
Shape transformed(const Shape& shape, const AffineMap& map);

/// The orientation that the image of a shape of this kind takes under a mirror. Curves and surfaces keep
/// their parameters, so that the direction of edges carries over; the normal of a surface comes to lie on the
/// other side, so that a face turns to keep its material where it was.
Orientation mirrored(ShapeKind kind, Orientation orientation);

}  // namespace veltrane::kernel
