// Readers and writers of multilines and their styles.
#pragma once

#include "veltrane/ent/multiline.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_MLine>();
using DxfFile_RWMLine = DxfFile_RecordRW<DxfEnt_MLine>;

template <>
const RecordTable& record_table<DxfEnt_MLineStyle>();
using DxfFile_RWMLineStyle = DxfFile_RecordRW<DxfEnt_MLineStyle>;

template <>
const RecordTable& record_table<DxfEnt_MLineVertex>();
using DxfFile_RWMLineVertex = DxfFile_SubRecordRW<DxfEnt_MLineVertex>;

template <>
const RecordTable& record_table<DxfEnt_MLineVertexParams>();
using DxfFile_RWMLineVertexParams = DxfFile_SubRecordRW<DxfEnt_MLineVertexParams>;

template <>
const RecordTable& record_table<DxfEnt_MLineStyleElement>();
using DxfFile_RWMLineStyleElement = DxfFile_SubRecordRW<DxfEnt_MLineStyleElement>;

}  // namespace veltrane
