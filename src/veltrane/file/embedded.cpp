#include "veltrane/file/embedded.hpp"

#include "veltrane/file/common.hpp"

#include <iterator>

namespace veltrane {

using namespace rows;

namespace {

constexpr int kProxyEntity = 498;

/// Those rows, the handles that a proxy refers to, what ends them, the format of its data, and `last`.
template <class Record>
std::vector<Row> with_references(std::vector<Row> rows, const Row& last) {
    const Row more[] = {handle(330, "ObjectID1", &Record::ObjectID1).unless_undefined().last_of_many(),
                        handle(340, "ObjectID2", &Record::ObjectID2).unless_undefined().last_of_many(),
                        handle(350, "ObjectID3", &Record::ObjectID3).unless_undefined().last_of_many(),
                        handle(360, "ObjectID4", &Record::ObjectID4).unless_undefined().last_of_many(),
                        constant(94, nullptr, 0),
                        integer(95, "DrawingFormat", &Record::DrawingFormat),
                        last};
    rows.insert(rows.end(), std::begin(more), std::end(more));
    return rows;
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_AcadProxyEntity>() {
    using Record = DxfEnt_AcadProxyEntity;
    static const RecordTable table(
        "DxfEnt_AcadProxyEntity",
        with_references<Record>(
            {base(record_table<DxfSection_Entity>()), marker("AcDbProxyEntity"),
             constant(90, nullptr, kProxyEntity), integer(91, "AppEntID", &Record::AppEntID),
             counted(92, "GraphDataLen", &Record::GraphDataLen, ValueKind::BinData, 310, "GraphData",
                     &Record::GraphData)
                 .unless_undefined()
                 .dumped_closed(),
             counted(93, "EntDataLen", &Record::EntDataLen, ValueKind::BinData, 310, "EntData",
                     &Record::EntData)
                 .unless_undefined()
                 .dumped_closed()},
            integer(70, "DataFormat", &Record::DataFormat)));
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_AcadProxyObject>() {
    using Record = DxfEnt_AcadProxyObject;
    static const RecordTable table(
        "DxfEnt_AcadProxyObject",
        with_references<Record>(
            {base(record_table<DxfSection_NgEntity>()), marker("AcDbProxyObject"),
             integer(90, "ProxyObjectID", &Record::ProxyObjectID).unless(Record::kProxyObject),
             integer(91, "AppObjectClassID", &Record::AppObjectClassID),
             integer(93, "ObjectDataSize", &Record::ObjectDataSize),
             bin_data(310, "ObjectData", &Record::ObjectData).dumped_closed()},
            integer(70, "OriginalData", &Record::OriginalData)));
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_OLEFrame>() {
    using Record = DxfEnt_OLEFrame;
    static const RecordTable table("DxfEnt_OLEFrame",
                                   {base(record_table<DxfSection_Entity>()), marker("AcDbOleFrame"),
                                    integer(70, "VersionNumber", &Record::VersionNumber),
                                    counted(90, "DataLength", &Record::DataLength, ValueKind::BinData, 310,
                                            "BinaryData", &Record::BinaryData)
                                        .dumped_closed(),
                                    constant(1, nullptr, "OLE")});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_OLE2Frame>() {
    using Record = DxfEnt_OLE2Frame;
    static const RecordTable table(
        "DxfEnt_OLE2Frame",
        {base(record_table<DxfSection_Entity>()), marker("AcDbOle2Frame"),
         integer(70, "VersionNumber", &Record::VersionNumber), string(3, "SourceName", &Record::SourceName),
         point(10, "UpperLeftCorner", &Record::UpperLeftCorner),
         point(11, "LowerRightCorner", &Record::LowerRightCorner),
         integer(71, "OLEObjectType", &Record::OLEObjectType),
         integer(72, "TileModeDescriptor", &Record::TileModeDescriptor),
         counted(90, "DataLength", &Record::DataLength, ValueKind::BinData, 310, "BinaryData",
                 &Record::BinaryData)
             .dumped_closed(),
         constant(1, nullptr, "OLE")});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_VbaProject>() {
    using Record = DxfEnt_VbaProject;
    static const RecordTable table(
        "DxfEnt_VbaProject",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbVbaProject"),
         handles(331, "EntSoftPointerIDs", &Record::EntSoftPointerIDs),
         counted(90, "BytesNumber", &Record::BytesNumber, ValueKind::BinData, 310, "Data", &Record::Data)
             .dumped_closed()});
    return table;
}

}  // namespace veltrane
