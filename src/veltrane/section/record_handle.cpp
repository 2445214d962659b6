#include "veltrane/section/record_handle.hpp"

#include "veltrane/section/handle_text.hpp"

#include <algorithm>

namespace veltrane {

namespace {

std::int32_t handle_among(const DxfSection_UnrecognizedObject& record) {
    if (!record.Data) return 0;
    for (const DxfSection_DxfGroup& group : *record.Data) {
        if (group.Code == 5) return DxfSection::StringToHex(group.Value);
        if (group.Code == 100 || group.Code >= 1000) break;
    }
    return 0;
}

}  // namespace

std::int32_t record_handle(const DxfSection_Object& record) {
    std::int32_t handle = 0;
    if (const auto* handled = as<const DxfSection_HandledObject>(&record)) handle = handled->Handle;
    if (const auto* whole = as<const DxfSection_UnrecognizedObject>(&record)) handle = handle_among(*whole);
    return std::max(handle, 0);
}

}  // namespace veltrane
