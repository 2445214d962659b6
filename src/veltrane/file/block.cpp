#include "veltrane/file/block.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/dump_text.hpp"

namespace veltrane {

namespace {

/// The entities of the block; its ENDBLK record ends it.
bool read_block_record(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    auto& block = static_cast<DxfSection_Block&>(record);
    if (reader.View() != "ENDBLK") {
        append(block.Objects, reader.ReadObject(stream));
        return true;
    }
    block.EndMarker = DxfFile_RWEndBlk::Read(stream, reader);
    return false;
}

void write_block_records(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    const auto& block = static_cast<const DxfSection_Block&>(record);
    if (block.Objects) {
        for (const auto& entity : *block.Objects) {
            if (entity) writer.WriteObject(stream, *entity);
        }
    }
    writer.WriteString(stream, 0, "ENDBLK");
    // A block that was cut short has no end record; the groups of an empty one keep the file well formed.
    const Ref<DxfSection_EndBlk> end = block.EndMarker ? block.EndMarker : make<DxfSection_EndBlk>();
    DxfFile_RWEndBlk::Write(stream, writer, *end);
}

void dump_block_records(std::ostream& stream, const Transient& record, int level) {
    const auto& block = static_cast<const DxfSection_Block&>(record);
    dump_elements(stream, "Objects", block.Objects, level, [&](const DxfSection_Object& entity, int depth) {
        DxfFile_RWObject::Dump(stream, entity, depth);
    });
    dump_piece(stream, "EndMarker", block.EndMarker, level,
               [&](const DxfSection_EndBlk& end, int depth) { DxfFile_RWEndBlk::Dump(stream, end, depth); });
}

}  // namespace

template <>
const RecordTable& record_table<DxfSection_EndBlk>() {
    static const RecordTable table("DxfSection_EndBlk", {rows::base(record_table<DxfSection_Entity>()),
                                                         rows::marker("AcDbBlockEnd", "@SubclassMarker2")});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_Block>() {
    using Record = DxfSection_Block;
    static const RecordTable table(
        "DxfSection_Block",
        {rows::base(record_table<DxfSection_Entity>()), rows::marker("AcDbBlockBegin", "@SubclassMarker2"),
         rows::string(2, "BlockName1", &Record::BlockName1),
         rows::integer(70, "BlockTypeFlag", &Record::BlockTypeFlag),
         rows::point(10, "BasePoint", &Record::BasePoint), rows::string(3, "BlockName2", &Record::BlockName2),
         rows::string(1, "XRefPathName", &Record::XRefPathName),
         rows::string(4, "Description", &Record::Description),
         rows::piece(0, {&read_block_record, &write_block_records, &dump_block_records})});
    return table;
}

}  // namespace veltrane
