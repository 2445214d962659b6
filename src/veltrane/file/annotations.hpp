// Readers and writers of texts, dimensions, leaders and tolerances.
#pragma once

#include "veltrane/ent/annotations.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Text>();
using DxfFile_RWText = DxfFile_RecordRW<DxfEnt_Text>;

template <>
const RecordTable& record_table<DxfEnt_MText>();
using DxfFile_RWMText = DxfFile_RecordRW<DxfEnt_MText>;

template <>
const RecordTable& record_table<DxfEnt_Dimension>();
using DxfFile_RWDimension = DxfFile_RecordRW<DxfEnt_Dimension>;

template <>
const RecordTable& record_table<DxfEnt_Leader>();
using DxfFile_RWLeader = DxfFile_RecordRW<DxfEnt_Leader>;

template <>
const RecordTable& record_table<DxfEnt_Tolerance>();
using DxfFile_RWTolerance = DxfFile_RecordRW<DxfEnt_Tolerance>;

}  // namespace veltrane
