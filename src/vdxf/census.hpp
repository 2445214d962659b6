// How many records of which type a drawing holds, and where they stand.
#pragma once

#include "veltrane/section/model.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace veltrane::tool {

/// The name of a record's type in the file; that of a record kept whole is the file's own.
std::string dxf_name(const DxfSection_Object& record);

/// The handle in hexadecimal; empty when the record has none. A record kept whole is looked into.
std::string handle_of(const DxfSection_Object& record);

/// The layer's name as the record has it; null when it has none.
Text layer_of(const DxfSection_Object& record);

/// True for a record whose type has no fields of its own here: it is kept and written group for group.
bool is_carried_through(const DxfSection_Object& record);

struct TypeCount {
    std::string type;
    bool carried_through = false;
    std::size_t records = 0;
    std::size_t in_entities = 0;  ///< of these, in the ENTITIES section
    std::size_t in_blocks = 0;    ///< of these, in the BLOCKS section
};

/// Every record that begins with a group 0, those inside tables and blocks included; by type, most first.
std::vector<TypeCount> count_types(const DxfSection_Model& model);

/// The column that names of types need.
std::size_t type_width(const std::vector<TypeCount>& types);

}  // namespace veltrane::tool
