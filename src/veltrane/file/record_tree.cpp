#include "veltrane/file/record_tree.hpp"

#include "veltrane/file/object_registrator.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/record_handle.hpp"

namespace veltrane {

namespace {

std::string_view type_of(const DxfSection_Object& record) {
    if (const auto* whole = as<const DxfSection_UnrecognizedObject>(&record)) return whole->Type.view();
    const auto* registrator = DxfFile_ObjectRegistrator::Find(record.DynamicType());
    return registrator ? registrator->Name() : record.DynamicType().name();
}

}  // namespace

RecordTree::RecordTree(const DxfSection_Model& model) {
    records_.emplace_back();
    if (const auto& sections = model.DxfFile()->Sections) {
        for (const auto& record : *sections) add(record.get(), 0);
    }
    records_[0].first = 1;
    records_[0].count = size() - 1;
    for (int place = 1; place < size(); ++place) add_contents(place);
}

void RecordTree::add_contents(int place) {
    const int first = size();
    const DxfSection_Object* record = (*this)[place].record;
    if (const auto contents = record->GetSubObjects()) {
        for (const auto& inside : *contents) add(inside.get(), place);
    }
    if (const auto* block = as<const DxfSection_Block>(record)) add(block->EndMarker.get(), place);
    (*this)[place].first = first;
    (*this)[place].count = size() - first;
}

void RecordTree::add(const DxfSection_Object* record, int container) {
    if (!record) return;
    TreeRecord added;
    added.record = record;
    added.container = container;
    added.type = type_of(*record);
    added.handle = record_handle(*record);
    if (added.handle > 0) places_.try_emplace(added.handle, size());
    records_.push_back(added);
}

int RecordTree::find(std::int32_t handle) const {
    const auto found = places_.find(handle);
    return found == places_.end() ? -1 : found->second;
}

int RecordTree::section_of(int place) const {
    while ((*this)[place].container > 0) place = (*this)[place].container;
    return place;
}

}  // namespace veltrane
