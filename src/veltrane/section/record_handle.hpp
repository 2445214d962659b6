// The handle of any record.
#pragma once

#include "veltrane/section/object.hpp"

#include <cstdint>

namespace veltrane {

/// The record's handle; 0 when it has none. A record that was kept whole is looked into.
std::int32_t record_handle(const DxfSection_Object& record);

}  // namespace veltrane
