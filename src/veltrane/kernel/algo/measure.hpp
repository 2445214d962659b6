// Length, area, volume and centre of shapes.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane::kernel {

/// The length of the edges of a shape. A wire counts each pass over an edge. A face, shell or solid counts an
/// edge once, however many of its faces meet there. A compound adds up its members, so that a block placed
/// twice counts twice. An unbounded edge makes the length infinite; a shape without edges has length 0.
double length(const Shape& shape);

/// The area of the faces of a shape, each use counted; 0 for a shape without faces and infinity for an
/// unbounded face. The relative error is below 1e-9, and near 1e-12 for planes, cylinders and extrusions.
double area(const Shape& shape);

/// The volume within the solids of a shape and within those of its shells that are closed, by the divergence
/// theorem over their faces; negative where the faces look inwards. Open shells and loose faces enclose
/// nothing; the orientation of compounds plays no part. Errors are those of area(), relative to area x size.
/// Throws KernelError for a closed shell or a solid with an unbounded face.
double volume(const Shape& shape);

/// The centre of mass of the richest parts of a shape, each use counted: of solids by their volume, else of
/// faces (and shells) by area, else of edges by length, else of vertices. Throws KernelError when there is no
/// such part, or one of them is unbounded, or their sizes add up to nothing.
Point centre(const Shape& shape);

}  // namespace veltrane::kernel
