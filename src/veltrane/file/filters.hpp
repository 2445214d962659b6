// Readers and writers of filters and indexes.
#pragma once

#include "veltrane/ent/filters.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_SpatialFilter>();
using DxfFile_RWSpatialFilter = DxfFile_RecordRW<DxfEnt_SpatialFilter>;

template <>
const RecordTable& record_table<DxfEnt_SpatialIndex>();
using DxfFile_RWSpatialIndex = DxfFile_RecordRW<DxfEnt_SpatialIndex>;

template <>
const RecordTable& record_table<DxfEnt_LayerFilter>();
using DxfFile_RWLayerFilter = DxfFile_RecordRW<DxfEnt_LayerFilter>;

template <>
const RecordTable& record_table<DxfEnt_LayerIndex>();
using DxfFile_RWLayerIndex = DxfFile_RecordRW<DxfEnt_LayerIndex>;

}  // namespace veltrane
