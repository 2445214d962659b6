// Readers and writers of inserts, attributes and shapes.
#pragma once

#include "veltrane/ent/inserts.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Insert>();
using DxfFile_RWInsert = DxfFile_RecordRW<DxfEnt_Insert>;

template <>
const RecordTable& record_table<DxfEnt_Attrib>();
using DxfFile_RWAttrib = DxfFile_RecordRW<DxfEnt_Attrib>;

template <>
const RecordTable& record_table<DxfEnt_AttDef>();
using DxfFile_RWAttDef = DxfFile_RecordRW<DxfEnt_AttDef>;

template <>
const RecordTable& record_table<DxfEnt_Shape>();
using DxfFile_RWShape = DxfFile_RecordRW<DxfEnt_Shape>;

}  // namespace veltrane
