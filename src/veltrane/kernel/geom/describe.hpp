// Geometry in one line of text, for dumps and messages.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/geom/curve2.hpp"
#include "veltrane/kernel/geom/surface.hpp"

#include <string>

namespace veltrane::kernel {

/// For example "circle centre (0 0 0) axis (0 0 1) radius 5".
std::string describe(const Curve& curve);
std::string describe(const Curve2& curve);
std::string describe(const Surface& surface);

/// "(1 2 3)": shortest digits that read back the same.
std::string describe(const Point& point);

}  // namespace veltrane::kernel
