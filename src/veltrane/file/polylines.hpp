// Readers and writers of polylines and subdivision meshes.
#pragma once

#include "veltrane/ent/polylines.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Polyline>();
using DxfFile_RWPolyline = DxfFile_RecordRW<DxfEnt_Polyline>;

template <>
const RecordTable& record_table<DxfEnt_Vertex>();
using DxfFile_RWVertex = DxfFile_RecordRW<DxfEnt_Vertex>;

template <>
const RecordTable& record_table<DxfEnt_SeqEnd>();
using DxfFile_RWSeqEnd = DxfFile_RecordRW<DxfEnt_SeqEnd>;

template <>
const RecordTable& record_table<DxfEnt_LWPolyline>();
using DxfFile_RWLWPolyline = DxfFile_RecordRW<DxfEnt_LWPolyline>;

template <>
const RecordTable& record_table<DxfEnt_LWPolylineVertex>();
using DxfFile_RWLWPolylineVertex = DxfFile_SubRecordRW<DxfEnt_LWPolylineVertex>;

template <>
const RecordTable& record_table<DxfEnt_Mesh>();
using DxfFile_RWMesh = DxfFile_RecordRW<DxfEnt_Mesh>;

}  // namespace veltrane
