// Readers and writers of 3DFACE, TRACE and SOLID.
#pragma once

#include "veltrane/ent/faces.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Face3d>();
using DxfFile_RWFace3d = DxfFile_RecordRW<DxfEnt_Face3d>;

template <>
const RecordTable& record_table<DxfEnt_Trace>();
using DxfFile_RWTrace = DxfFile_RecordRW<DxfEnt_Trace>;

template <>
const RecordTable& record_table<DxfEnt_Solid>();
using DxfFile_RWSolid = DxfFile_RecordRW<DxfEnt_Solid>;

}  // namespace veltrane
