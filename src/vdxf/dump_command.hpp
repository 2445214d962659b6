// vdxf dump: the records of a drawing, readable.
#pragma once

#include "vdxf/options.hpp"

namespace veltrane::tool {

Command declare_dump(CLI::App& application);

}  // namespace veltrane::tool
