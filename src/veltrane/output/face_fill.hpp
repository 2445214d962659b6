// Faces as filled paths. Internal to the folder.
#pragma once

#include "veltrane/output/canvas.hpp"
#include "veltrane/output/projection.hpp"

namespace veltrane {

/// Fills a planar face, seen from anywhere, and strokes its contours where the pen has a width. Curves
/// deviate by `deviation` (millimetres) at most. False, with nothing drawn, when there are no loops or they
/// are not bounded.
bool fill_face(const kernel::Shape& face, const Pen& pen, const Projection& projection, double deviation,
               Canvas& canvas);

}  // namespace veltrane
