// Readers and writers of symbol tables and their entries.
#pragma once

#include "veltrane/file/record_io.hpp"
#include "veltrane/section/tables.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfSection_Table>();
using DxfFile_RWTable = DxfFile_RecordRW<DxfSection_Table>;

template <>
const RecordTable& record_table<DxfSection_TabEntry>();
using DxfFile_RWTabEntry = DxfFile_RecordRW<DxfSection_TabEntry>;

template <>
const RecordTable& record_table<DxfSection_AppId>();
using DxfFile_RWAppId = DxfFile_RecordRW<DxfSection_AppId>;

template <>
const RecordTable& record_table<DxfSection_BlockRecord>();
using DxfFile_RWBlockRecord = DxfFile_RecordRW<DxfSection_BlockRecord>;

template <>
const RecordTable& record_table<DxfSection_Layer>();
using DxfFile_RWLayer = DxfFile_RecordRW<DxfSection_Layer>;

template <>
const RecordTable& record_table<DxfSection_LineTypeElement>();

template <>
const RecordTable& record_table<DxfSection_LType>();
using DxfFile_RWLType = DxfFile_RecordRW<DxfSection_LType>;

template <>
const RecordTable& record_table<DxfSection_Style>();
using DxfFile_RWStyle = DxfFile_RecordRW<DxfSection_Style>;

template <>
const RecordTable& record_table<DxfSection_UCS>();
using DxfFile_RWUCS = DxfFile_RecordRW<DxfSection_UCS>;

template <>
const RecordTable& record_table<DxfSection_View>();
using DxfFile_RWView = DxfFile_RecordRW<DxfSection_View>;

template <>
const RecordTable& record_table<DxfSection_VPort>();
using DxfFile_RWVPort = DxfFile_RecordRW<DxfSection_VPort>;

template <>
const RecordTable& record_table<DxfSection_DimStyle>();
using DxfFile_RWDimStyle = DxfFile_RecordRW<DxfSection_DimStyle>;

}  // namespace veltrane
