// Readers and writers of records that tie others together.
#pragma once

#include "veltrane/ent/links.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Group>();
using DxfFile_RWGroup = DxfFile_RecordRW<DxfEnt_Group>;

template <>
const RecordTable& record_table<DxfEnt_SortEntStable>();
using DxfFile_RWSortEntStable = DxfFile_RecordRW<DxfEnt_SortEntStable>;

template <>
const RecordTable& record_table<DxfEnt_IDBuffer>();
using DxfFile_RWIDBuffer = DxfFile_RecordRW<DxfEnt_IDBuffer>;

template <>
const RecordTable& record_table<DxfEnt_DimAssoc>();
using DxfFile_RWDimAssoc = DxfFile_RecordRW<DxfEnt_DimAssoc>;

template <>
const RecordTable& record_table<DxfEnt_ObjectPtr>();
using DxfFile_RWObjectPtr = DxfFile_RecordRW<DxfEnt_ObjectPtr>;

}  // namespace veltrane
