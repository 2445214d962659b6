// The lines of a hatch's pattern. Internal to the folder.
#pragma once

#include "veltrane/ent/hatch.hpp"
#include "veltrane/kernel/topo/shape.hpp"

namespace veltrane {

/// The pattern of a hatch within its faces, as a compound of straight edges and points. `faces` is what the
/// hatch became, in millimetres and where the hatch itself stands; `unit_scale` is in millimetres per drawing
/// unit. Where the hatch has a pattern's name alone, the outline of the faces. Null for a solid hatch and for
/// a pattern so dense (some hundred thousand strokes) that no picture would show more than a shade.
kernel::Shape hatch_pattern(const DxfEnt_Hatch& hatch, const kernel::Shape& faces, double unit_scale);

/// What lies in the plane of `faces`, carried over to where an image of the same faces lies: moved, scaled or
/// sheared. Null when the faces have too few points to tell how.
kernel::Shape carried_over(const kernel::Shape& flat, const kernel::Shape& faces, const kernel::Shape& image);

}  // namespace veltrane
