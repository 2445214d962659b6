// Readers and writers of raster images.
#pragma once

#include "veltrane/ent/images.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_Image>();
using DxfFile_RWImage = DxfFile_RecordRW<DxfEnt_Image>;

template <>
const RecordTable& record_table<DxfEnt_ImageDef>();
using DxfFile_RWImageDef = DxfFile_RecordRW<DxfEnt_ImageDef>;

template <>
const RecordTable& record_table<DxfEnt_ImageDefReactor>();
using DxfFile_RWImageDefReactor = DxfFile_RecordRW<DxfEnt_ImageDefReactor>;

template <>
const RecordTable& record_table<DxfEnt_RasterVariables>();
using DxfFile_RWRasterVariables = DxfFile_RecordRW<DxfEnt_RasterVariables>;

}  // namespace veltrane
