// Walking the tree of a drawing, and what its records are called.
#pragma once

#include "veltrane/section/model.hpp"

#include <functional>
#include <string>

namespace veltrane {

/// Visits the records directly in the ENTITIES section, in file order. A drawing with several such sections
/// has them all visited.
void visit_entities(const DxfSection_Model& model,
                    const std::function<void(const Ref<DxfSection_Object>&)>& visitor);

/// Gives a record's DXF name ("LWPOLYLINE"). Who reads files knows them; without such a function records
/// go by the name of their class.
using RecordNames = std::function<std::string(const DxfSection_Object&)>;

/// The type text of a record that was kept whole; otherwise what `names` says, or the class's name without
/// its prefix in upper case.
std::string type_name(const DxfSection_Object& record, const RecordNames& names);

/// The handle as "#2F"; empty when there is none. A record that was kept whole is looked into.
std::string handle_label(const DxfSection_Object& record);

}  // namespace veltrane
