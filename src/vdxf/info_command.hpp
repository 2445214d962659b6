// vdxf info: what a drawing is and what it holds.
#pragma once

#include "vdxf/options.hpp"

namespace veltrane::tool {

Command declare_info(CLI::App& application);

}  // namespace veltrane::tool
