#include "veltrane/file/record_name.hpp"

#include "veltrane/file/object_registrator.hpp"
#include "veltrane/file/record_table.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/structure.hpp"
#include "veltrane/section/tables.hpp"

namespace veltrane {

namespace {

/// The group that holds the name of a record that is known by one; 0 for other records.
int name_code(const DxfSection_Object& record) {
    if (record.is_kind(DxfSection_Class::type())) return 1;
    const bool is_named =
        record.is_kind(DxfSection_Section::type()) || record.is_kind(DxfSection_Table::type()) ||
        record.is_kind(DxfSection_TabEntry::type()) || record.is_kind(DxfSection_Block::type());
    return is_named ? 2 : 0;
}

}  // namespace

Text record_name(const DxfSection_Object& record) {
    const int code = name_code(record);
    const auto* registrator = code ? DxfFile_ObjectRegistrator::Find(record.DynamicType()) : nullptr;
    const Row* row = registrator ? registrator->Table().find(code) : nullptr;
    if (!row || row->kind != ValueKind::String) return {};
    const Text& name = static_cast<const Transient&>(record).*row->field.text;
    return name.is_null() ? Text("") : name;
}

}  // namespace veltrane
