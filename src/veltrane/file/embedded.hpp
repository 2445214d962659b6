// Readers and writers of data of other programs.
#pragma once

#include "veltrane/ent/embedded.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_AcadProxyEntity>();
using DxfFile_RWAcadProxyEntity = DxfFile_RecordRW<DxfEnt_AcadProxyEntity>;

template <>
const RecordTable& record_table<DxfEnt_AcadProxyObject>();
using DxfFile_RWAcadProxyObject = DxfFile_RecordRW<DxfEnt_AcadProxyObject>;

template <>
const RecordTable& record_table<DxfEnt_OLEFrame>();
using DxfFile_RWOLEFrame = DxfFile_RecordRW<DxfEnt_OLEFrame>;

template <>
const RecordTable& record_table<DxfEnt_OLE2Frame>();
using DxfFile_RWOLE2Frame = DxfFile_RecordRW<DxfEnt_OLE2Frame>;

template <>
const RecordTable& record_table<DxfEnt_VbaProject>();
using DxfFile_RWVbaProject = DxfFile_RecordRW<DxfEnt_VbaProject>;

}  // namespace veltrane
