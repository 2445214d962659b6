// Readers and writers of hatches and of what they hold.
#pragma once

#include "veltrane/ent/hatch.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Hatch>();
using DxfFile_RWHatch = DxfFile_RecordRW<DxfEnt_Hatch>;

template <>
const RecordTable& record_table<DxfEnt_HatchBoundary>();
using DxfFile_RWHatchBoundary = DxfFile_SubRecordRW<DxfEnt_HatchBoundary>;

template <>
const RecordTable& record_table<DxfEnt_HatchPolylineBoundary>();
using DxfFile_RWHatchPolylineBoundary = DxfFile_SubRecordRW<DxfEnt_HatchPolylineBoundary>;

template <>
const RecordTable& record_table<DxfEnt_HatchBoundaryEdges>();
using DxfFile_RWHatchBoundaryEdges = DxfFile_SubRecordRW<DxfEnt_HatchBoundaryEdges>;

template <>
const RecordTable& record_table<DxfEnt_HatchBoundaryEdge>();
using DxfFile_RWHatchBoundaryEdge = DxfFile_SubRecordRW<DxfEnt_HatchBoundaryEdge>;

template <>
const RecordTable& record_table<DxfEnt_HatchElementaryEdge>();
using DxfFile_RWHatchElementaryEdge = DxfFile_SubRecordRW<DxfEnt_HatchElementaryEdge>;

template <>
const RecordTable& record_table<DxfEnt_HatchSplineEdge>();
using DxfFile_RWHatchSplineEdge = DxfFile_SubRecordRW<DxfEnt_HatchSplineEdge>;

template <>
const RecordTable& record_table<DxfEnt_HatchPatternData>();
using DxfFile_RWHatchPatternData = DxfFile_SubRecordRW<DxfEnt_HatchPatternData>;

}  // namespace veltrane
