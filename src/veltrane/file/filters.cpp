#include "veltrane/file/filters.hpp"

#include "veltrane/file/common.hpp"

namespace veltrane {

using namespace rows;

namespace {

constexpr const char* kOwnMarker = "@SubclassMarker2";

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_SpatialFilter>() {
    using Record = DxfEnt_SpatialFilter;
    static const RecordTable table(
        "DxfEnt_SpatialFilter",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbFilter"),
         marker("AcDbSpatialFilter", kOwnMarker), integer(70, "ClipBndPntNum", &Record::ClipBndPntNum),
         point2(10, "ClipBndDefPnt", &Record::ClipBndDefPnt).last_of_many(),
         point(210, "Normal", &Record::Normal), point(11, "Origin", &Record::Origin),
         integer(71, "DisplayEnabledFlag", &Record::DisplayEnabledFlag),
         integer(72, "FrontClipPlnFlag", &Record::FrontClipPlnFlag),
         integer(73, "BackClipPlnFlag", &Record::BackClipPlnFlag),
         real(41, "BackClipPlnDist", &Record::BackClipPlnDist),
         reals(40, "TransMatrix", &Record::TransMatrix)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_SpatialIndex>() {
    using Record = DxfEnt_SpatialIndex;
    static const RecordTable table(
        "DxfEnt_SpatialIndex",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbIndex"),
         real(40, "TimeStamp", &Record::TimeStamp).last_of_many(), marker("AcDbSpatialIndex", kOwnMarker)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_LayerFilter>() {
    using Record = DxfEnt_LayerFilter;
    static const RecordTable table(
        "DxfEnt_LayerFilter",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbFilter"),
         marker("AcDbLayerFilter", kOwnMarker), strings(8, "LayerName", &Record::LayerName)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_LayerIndex>() {
    using Record = DxfEnt_LayerIndex;
    static const RecordTable table(
        "DxfEnt_LayerIndex",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbIndex"),
         real(40, "TimeStamp", &Record::TimeStamp), marker("AcDbLayerIndex", kOwnMarker),
         strings(8, "LayerName", &Record::LayerName), handles(360, "IDBufferRef", &Record::IDBufferRef),
         integer(90, "IDBuffErentriesNum", &Record::IDBuffErentriesNum).unless_undefined().last_of_many()});
    return table;
}

}  // namespace veltrane
