// vdxf convert: a drawing as another DXF file, a picture or a shape dump.
#pragma once

#include "vdxf/options.hpp"

namespace veltrane::tool {

Command declare_convert(CLI::App& application);

}  // namespace veltrane::tool
