// The fields that all records share, and the pieces that hang off any handled record.
#pragma once

#include "veltrane/file/record_io.hpp"

namespace veltrane {

/// Handle, application data, owner and extended data.
template <>
const RecordTable& record_table<DxfSection_HandledObject>();
template <>
const RecordTable& record_table<DxfSection_Entity>();
template <>
const RecordTable& record_table<DxfSection_NgEntity>();

/// The rows of a handled record whose handle stands under `handle_code`.
std::vector<Row> handled_rows(int handle_code);

/// The write function of a row: extended data, which other records are written without.
void write_extended_data(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record);

/// The operations that every record has.
struct DxfFile_RWObject {
    /// The end of every record's reading: true for a group that is skipped, false at a group 0.
    static bool ReadField(std::istream& stream, DxfFile_FileReader& reader, DxfSection_Object& record);
    /// Dumps a record of any registered class; nothing for others.
    static void Dump(std::ostream& stream, const DxfSection_Object& record, int level);
};
using DxfFile_RWHandledObject = DxfFile_RecordRW<DxfSection_HandledObject>;
using DxfFile_RWEntity = DxfFile_RecordRW<DxfSection_Entity>;
using DxfFile_RWNgEntity = DxfFile_RecordRW<DxfSection_NgEntity>;

/// Each reads from the current group and pushes back the first group that is not its own.
struct DxfFile_RWAppData {
    static Ref<DxfSection_AppData> Read(std::istream& stream, DxfFile_FileReader& reader);
    static bool ReadField(std::istream& stream, DxfFile_FileReader& reader, DxfSection_AppData& data);
    static void Write(std::ostream& stream, DxfFile_FileWriter& writer, const DxfSection_AppData& data);
    static void Dump(std::ostream& stream, const DxfSection_AppData& data, int level);
};
struct DxfFile_RWXData {
    /// `depth` counts the levels around this one.
    static Ref<DxfSection_XData> Read(std::istream& stream, DxfFile_FileReader& reader, int depth = 0);
    static bool ReadField(std::istream& stream, DxfFile_FileReader& reader, DxfSection_XData& data,
                          int depth = 0);
    static void Write(std::ostream& stream, DxfFile_FileWriter& writer, const DxfSection_XData& data);
    static void Dump(std::ostream& stream, const DxfSection_XData& data, int level);
};
struct DxfFile_RWBinData {
    static Ref<DxfSection_BinData> Read(std::istream& stream, DxfFile_FileReader& reader);
    static bool ReadField(std::istream& stream, DxfFile_FileReader& reader, DxfSection_BinData& data);
    static void Write(std::ostream& stream, DxfFile_FileWriter& writer, const DxfSection_BinData& data);
    static void Dump(std::ostream& stream, const DxfSection_BinData& data, int level);
};

}  // namespace veltrane
