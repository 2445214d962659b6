// Readers and writers of block definitions.
#pragma once

#include "veltrane/file/record_io.hpp"
#include "veltrane/section/block.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfSection_EndBlk>();
using DxfFile_RWEndBlk = DxfFile_RecordRW<DxfSection_EndBlk>;

template <>
const RecordTable& record_table<DxfSection_Block>();
using DxfFile_RWBlock = DxfFile_RecordRW<DxfSection_Block>;

}  // namespace veltrane
