#include "vdxf/census.hpp"

#include "vdxf/drawing_text.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/output/record_walk.hpp"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace veltrane::tool {

namespace {

/// Types are few and names are short-lived, so counts stand under the name's own text.
class Counter {
public:
    TypeCount& of(const DxfSection_Object& record) {
        if (&record.DynamicType() == last_type_ && !is_carried_through(record)) return counts_[last_];
        const std::string name = dxf_name(record);
        const auto [found, is_new] = places_.try_emplace(name, counts_.size());
        if (is_new) counts_.push_back({name, is_carried_through(record)});
        last_type_ = &record.DynamicType();
        last_ = found->second;
        return counts_[last_];
    }
    std::vector<TypeCount> take() { return std::move(counts_); }

private:
    std::vector<TypeCount> counts_;
    std::unordered_map<std::string, std::size_t> places_;
    const Type* last_type_ = nullptr;
    std::size_t last_ = 0;
};

}  // namespace

std::string dxf_name(const DxfSection_Object& record) {
    return without_controls(type_name(record, [](const DxfSection_Object& object) {
        const auto* registrator = DxfFile_ObjectRegistrator::Find(object.DynamicType());
        return registrator ? std::string(registrator->Name()) : std::string(object.DynamicType().name());
    }));
}

std::string handle_of(const DxfSection_Object& record) {
    const std::string label = handle_label(record);
    return label.empty() ? label : label.substr(1);  // without its '#'
}

Text layer_of(const DxfSection_Object& record) {
    if (const auto* entity = as<const DxfSection_Entity>(&record)) return entity->Layer;
    const auto* unknown = as<const DxfSection_UnrecognizedObject>(&record);
    if (!unknown || !unknown->Data) return {};
    for (const DxfSection_DxfGroup& group : *unknown->Data) {
        if (group.Code == 8) return group.Value;
    }
    return {};
}

bool is_carried_through(const DxfSection_Object& record) {
    return record.is_kind(DxfSection_UnrecognizedObject::type());
}

std::vector<TypeCount> count_types(const DxfSection_Model& model) {
    Counter counter;
    std::string_view section;  // records are listed as they were read, so a section stands before its own
    for (const Ref<Transient>& listed : model.records()) {
        const auto* record = as<const DxfSection_Object>(listed.get());
        if (!record) continue;
        TypeCount& count = counter.of(*record);
        ++count.records;
        if (const auto* begun = as<const DxfSection_Section>(record)) {
            section = begun->Name.view();
            continue;
        }
        if (section == "ENTITIES") ++count.in_entities;
        if (section == "BLOCKS") ++count.in_blocks;
    }
    std::vector<TypeCount> counts = counter.take();
    std::stable_sort(counts.begin(), counts.end(),
                     [](const TypeCount& a, const TypeCount& b) { return a.records > b.records; });
    return counts;
}

std::size_t type_width(const std::vector<TypeCount>& types) {
    std::size_t width = 20;
    for (const TypeCount& type : types) width = std::max(width, type.type.size());
    return std::min<std::size_t>(width, 40);  // a broken file may have names of any length
}

}  // namespace veltrane::tool
