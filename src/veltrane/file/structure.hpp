// Readers and writers of the file's structure: root, sections, header variables, and records kept whole.
#pragma once

#include "veltrane/file/record_io.hpp"
#include "veltrane/section/structure.hpp"

namespace veltrane {

template <>
const RecordTable& record_table<DxfSection_Section>();
using DxfFile_RWSection = DxfFile_RecordRW<DxfSection_Section>;

template <>
const RecordTable& record_table<DxfSection_Class>();
using DxfFile_RWClass = DxfFile_RecordRW<DxfSection_Class>;

template <>
const RecordTable& record_table<DxfSection_ThumbNailImage>();
using DxfFile_RWThumbNailImage = DxfFile_RecordRW<DxfSection_ThumbNailImage>;

template <>
const RecordTable& record_table<DxfSection_AcDsRecord>();
using DxfFile_RWAcDsRecord = DxfFile_RecordRW<DxfSection_AcDsRecord>;
template <>
Ref<DxfSection_AcDsRecord> DxfFile_RecordRW<DxfSection_AcDsRecord>::Read(std::istream& stream,
                                                                         DxfFile_FileReader& reader);

template <>
const RecordTable& record_table<DxfSection_UnrecognizedObject>();
using DxfFile_RWUnrecognizedObject = DxfFile_RecordRW<DxfSection_UnrecognizedObject>;

/// The root: comments and top-level records up to EOF. It is no record of the model.
struct DxfFile_RWDxfFile {
    static Ref<DxfSection_DxfFile> Read(std::istream& stream, DxfFile_FileReader& reader);
    static bool ReadField(std::istream& stream, DxfFile_FileReader& reader, DxfSection_DxfFile& root);
    static void Write(std::ostream& stream, DxfFile_FileWriter& writer, const DxfSection_DxfFile& root);
    static void Dump(std::ostream& stream, const DxfSection_DxfFile& root, int level);
};

/// A header variable: a group 9 and every group up to the next 9 or 0. It is no record of the model.
struct DxfFile_RWVariable {
    static Ref<DxfSection_Variable> Read(std::istream& stream, DxfFile_FileReader& reader);
    static bool ReadField(std::istream& stream, DxfFile_FileReader& reader, DxfSection_Variable& variable);
    static void Write(std::ostream& stream, DxfFile_FileWriter& writer, const DxfSection_Variable& variable);
    static void Dump(std::ostream& stream, const DxfSection_Variable& variable, int level);
};

}  // namespace veltrane
