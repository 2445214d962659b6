// vdxf measure: how much of what is in a drawing.
#pragma once

#include "vdxf/options.hpp"

namespace veltrane::tool {

Command declare_measure(CLI::App& application);

}  // namespace veltrane::tool
