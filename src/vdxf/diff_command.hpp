// vdxf diff: what changed between two drawings.
#pragma once

#include "vdxf/options.hpp"

namespace veltrane::tool {

Command declare_diff(CLI::App& application);

}  // namespace veltrane::tool
