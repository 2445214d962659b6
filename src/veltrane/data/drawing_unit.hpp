// The units that $INSUNITS can name.
#pragma once

#include <cstdint>
#include <optional>

namespace veltrane::DxfData {

/// Millimetres per drawing unit for a value of $INSUNITS; nothing for a value that names no unit.
std::optional<double> millimetres_per_unit(std::int32_t insunits);

}  // namespace veltrane::DxfData
