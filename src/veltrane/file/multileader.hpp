// Readers and writers of multileaders; the blocks inside one are read by their owners.
#pragma once

#include "veltrane/ent/multileader.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_MLeader>();
using DxfFile_RWMLeader = DxfFile_RecordRW<DxfEnt_MLeader>;

template <>
const RecordTable& record_table<DxfEnt_MLeaderContext>();

template <>
const RecordTable& record_table<DxfEnt_MLeaderLeader>();

template <>
const RecordTable& record_table<DxfEnt_MLeaderLine>();

}  // namespace veltrane
