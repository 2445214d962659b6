// Readers and writers of dictionaries and of what they name.
#pragma once

#include "veltrane/ent/dictionaries.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfEnt_DictionaryEntry>();
using DxfFile_RWDictionaryEntry = DxfFile_SubRecordRW<DxfEnt_DictionaryEntry>;

template <>
const RecordTable& record_table<DxfEnt_Dictionary>();
using DxfFile_RWDictionary = DxfFile_RecordRW<DxfEnt_Dictionary>;

template <>
const RecordTable& record_table<DxfEnt_AcDbDictionaryWDflt>();
using DxfFile_RWAcDbDictionaryWDflt = DxfFile_RecordRW<DxfEnt_AcDbDictionaryWDflt>;

template <>
const RecordTable& record_table<DxfEnt_DictionaryVar>();
using DxfFile_RWDictionaryVar = DxfFile_RecordRW<DxfEnt_DictionaryVar>;

template <>
const RecordTable& record_table<DxfEnt_AcDbPlaceHolder>();
using DxfFile_RWAcDbPlaceHolder = DxfFile_RecordRW<DxfEnt_AcDbPlaceHolder>;

template <>
const RecordTable& record_table<DxfEnt_XRecordData>();
using DxfFile_RWXRecordData = DxfFile_SubRecordRW<DxfEnt_XRecordData>;

template <>
const RecordTable& record_table<DxfEnt_XRecord>();
using DxfFile_RWXRecord = DxfFile_RecordRW<DxfEnt_XRecord>;

}  // namespace veltrane
