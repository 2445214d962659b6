// The names by which records are known.
#pragma once

#include "veltrane/section/object.hpp"

namespace veltrane {

/// The name by which a section, table, block, table entry or class is known in its container; null for
/// records of other kinds.
Text record_name(const DxfSection_Object& record);

}  // namespace veltrane
