// What codes of the format mean to people.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace veltrane::tool {

/// "R2000" for AC1015; empty for a version code that is not known.
std::string_view release_label(std::string_view version_code);

/// "millimetres" for 4, "no unit" for 0; empty for a number that names no unit.
std::string_view unit_label(std::int32_t insunits);

}  // namespace veltrane::tool
