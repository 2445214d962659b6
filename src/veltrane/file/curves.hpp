// Readers and writers of the curve and point entities.
#pragma once

#include "veltrane/ent/curves.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Line>();
using DxfFile_RWLine = DxfFile_RecordRW<DxfEnt_Line>;

template <>
const RecordTable& record_table<DxfEnt_Point>();
using DxfFile_RWPoint = DxfFile_RecordRW<DxfEnt_Point>;

template <>
const RecordTable& record_table<DxfEnt_Circle>();
using DxfFile_RWCircle = DxfFile_RecordRW<DxfEnt_Circle>;

template <>
const RecordTable& record_table<DxfEnt_Arc>();
using DxfFile_RWArc = DxfFile_RecordRW<DxfEnt_Arc>;

template <>
const RecordTable& record_table<DxfEnt_Ellipse>();
using DxfFile_RWEllipse = DxfFile_RecordRW<DxfEnt_Ellipse>;

template <>
const RecordTable& record_table<DxfEnt_Ray>();
using DxfFile_RWRay = DxfFile_RecordRW<DxfEnt_Ray>;

template <>
const RecordTable& record_table<DxfEnt_XLine>();
using DxfFile_RWXLine = DxfFile_RecordRW<DxfEnt_XLine>;

template <>
const RecordTable& record_table<DxfEnt_Spline>();
using DxfFile_RWSpline = DxfFile_RecordRW<DxfEnt_Spline>;

}  // namespace veltrane
