// Length and area of shapes.
#pragma once

#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane::kernel {

/// The length of the edges of a shape. A wire counts each pass over an edge. A face, shell or solid counts an
/// edge once, however many of its faces meet there. A compound adds up its members, so that a block placed
/// twice counts twice. An unbounded edge makes the length infinite; a shape without edges has length 0.
double length(const Shape& shape);

/// The area of the faces of a shape, each use counted; 0 for a shape without faces and infinity for an
/// unbounded face. The relative error is below 1e-9 for planes, cylinders and extrusions.
double area(const Shape& shape);

}  // namespace veltrane::kernel
