#include "veltrane/file/block.hpp"

#include "veltrane/file/contained_records.hpp"

namespace veltrane {

namespace {

struct BlockContents {
    using Record = DxfSection_Block;
    using End = DxfSection_EndBlk;
    static constexpr const char* kEndName = "ENDBLK";
    static bool ends_without_it(std::string_view name) { return ends_a_section(name); }
};

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
         rows::string(4, "Description", &Record::Description), ContainedRecords<BlockContents>::row()});
    return table;
}

}  // namespace veltrane
