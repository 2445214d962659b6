// Readers and writers of layouts, plot settings and viewports.
#pragma once

#include "veltrane/ent/layouts.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_PlotSettingsData>();
using DxfFile_RWPlotSettingsData = DxfFile_SubRecordRW<DxfEnt_PlotSettingsData>;

template <>
const RecordTable& record_table<DxfEnt_PlotSettings>();
using DxfFile_RWPlotSettings = DxfFile_RecordRW<DxfEnt_PlotSettings>;

template <>
const RecordTable& record_table<DxfEnt_Layout>();
using DxfFile_RWLayout = DxfFile_RecordRW<DxfEnt_Layout>;

template <>
const RecordTable& record_table<DxfEnt_ViewPort>();
using DxfFile_RWViewPort = DxfFile_RecordRW<DxfEnt_ViewPort>;

}  // namespace veltrane
