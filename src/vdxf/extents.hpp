// The box around what a drawing shows.
#pragma once

#include "vdxf/drawing.hpp"
#include "veltrane/kernel/math/box.hpp"

#include <cstddef>
#include <optional>
#include <utility>

namespace veltrane::tool {

struct MeasuredExtents {
    kernel::Box box;            ///< of the bounded shapes, in drawing units; may be empty
    std::size_t shapes = 0;     ///< records that gave a shape
    std::size_t unbounded = 0;  ///< of these, those that go on for ever
};

/// The box around the shapes of a translated drawing's records in model space; around those in paper space
/// when there are no others.
MeasuredExtents measure_extents(Drawing& drawing);

/// What the header says ($EXTMIN, $EXTMAX); nothing unless both corners stand there.
std::optional<std::pair<kernel::Point, kernel::Point>> header_extents(const DxfSection_Model& model);

}  // namespace veltrane::tool
