// vdxf params: the named parameters.
#pragma once

#include "vdxf/options.hpp"

namespace veltrane::tool {

Command declare_params(CLI::App& application);

}  // namespace veltrane::tool
