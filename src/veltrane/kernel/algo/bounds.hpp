// The box around a shape.
#pragma once

#include "veltrane/kernel/math/box.hpp"
#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane::kernel {

/// The smallest box with sides along the world axes that holds the shape where it stands, without any margin
/// for tolerances. It is open where the shape is unbounded and empty for a shape without geometry. Curves are
/// boxed where they stand, so that a turned circle has a tight box too. Faces are exact for surfaces with
/// straight rulings along v (planes, cylinders, cones, extrusions). A face on a B-spline surface is boxed
/// over the rectangle of parameters that its loops span, within 1e-7 of the size.
Box bounding_box(const Shape& shape);

}  // namespace veltrane::kernel
