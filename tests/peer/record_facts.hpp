// What the programs share that print facts on the records of a drawing.
#pragma once

#include "veltrane/control/reader.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/handle_text.hpp"
#include "veltrane/section/model.hpp"

#include <cstdio>
#include <string>

namespace veltrane::peer {

/// In drawing units, for the peer measures in them.
inline bool read(DxfControl_Reader& reader, const char* name) {
    StaticParameters::SetText("read.dxf.insunits.scale", "Off");
    return reader.ReadFile(name) == ExchangeStatus::Done;
}

/// Handle, type and container of an entity; false, and nothing printed, for what is none.
inline bool print_head(const DxfSection_Object& record, const std::string& container) {
    const auto* entity = as<const DxfSection_Entity>(&record);
    const auto* registrator = entity ? DxfFile_ObjectRegistrator::Find(entity->DynamicType()) : nullptr;
    if (!registrator) return false;
    const std::string handle = DxfSection::HexToString(entity->Handle).str();
    std::printf("%s\t%s\t%s", handle.c_str(), registrator->Name(), container.c_str());
    return true;
}

template <class Visitor>
void visit_records(const Ref<DxfSection_HSequenceOfObject>& records, const std::string& container,
                   const Visitor& visitor) {
    if (!records) return;
    for (const Ref<DxfSection_Object>& record : *records) {
        if (const auto* block = as<const DxfSection_Block>(record.get())) {
            visit_records(block->Objects, "BLOCK " + block->BlockName1.str(), visitor);
        } else if (record) {
            const auto* entity = as<const DxfSection_Entity>(record.get());
            const bool paper = entity && entity->InModelSpace != 0;
            visitor(record, container.empty() ? (paper ? "PAPER" : "MODEL") : container);
        }
    }
}

/// visitor(record, container) for whatever stands in blocks, and then in the drawing itself.
template <class Visitor>
void visit_records(DxfSection_Model& model, const Visitor& visitor) {
    for (const char* name : {"BLOCKS", "ENTITIES"}) {
        const auto section = model.FindSection(name, false);
        if (section) visit_records(section->Objects, "", visitor);
    }
}

}  // namespace veltrane::peer
