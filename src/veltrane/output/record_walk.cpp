#include "veltrane/output/record_walk.hpp"

#include "veltrane/base/letter_case.hpp"
#include "veltrane/section/handle_text.hpp"
#include "veltrane/section/record_handle.hpp"

namespace veltrane {
namespace {

std::string class_name(const DxfSection_Object& record) {
    std::string_view name = record.DynamicType().name();
    const std::size_t prefix = name.find('_');
    if (prefix != std::string_view::npos) name.remove_prefix(prefix + 1);
    return upper_case(name);
}

}  // namespace

void visit_entities(const DxfSection_Model& model,
                    const std::function<void(const Ref<DxfSection_Object>&)>& visitor) {
    const auto& root = model.DxfFile();
    if (!root || !root->Sections) return;
    for (const auto& top : *root->Sections) {
        const auto* section = as<const DxfSection_Section>(top.get());
        if (!section || !(section->Name == "ENTITIES") || !section->Objects) continue;
        for (const auto& record : *section->Objects) {
            if (record) visitor(record);
        }
    }
}

std::string type_name(const DxfSection_Object& record, const RecordNames& names) {
    if (const auto* whole = as<const DxfSection_UnrecognizedObject>(&record)) return whole->Type.str();
    std::string name = names ? names(record) : std::string();
    return name.empty() ? class_name(record) : name;
}

std::string handle_label(const DxfSection_Object& record) {
    const std::int32_t handle = record_handle(record);
    return handle > 0 ? "#" + DxfSection::HexToString(handle).str() : std::string();
}

}  // namespace veltrane
