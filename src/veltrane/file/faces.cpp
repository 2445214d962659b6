#include "veltrane/file/faces.hpp"

#include "veltrane/file/common.hpp"

namespace veltrane {

using namespace rows;

namespace {

/// A TRACE and a SOLID differ in their name alone.
std::vector<Row> trace_rows() {
    using Record = DxfEnt_Trace;
    return {base(record_table<DxfSection_Entity>()),
            marker("AcDbTrace"),
            point(10, "FirstCorner", &Record::FirstCorner),
            point(11, "SecondCorner", &Record::SecondCorner),
            point(12, "ThirdCorner", &Record::ThirdCorner),
            point(13, "FourthCorner", &Record::FourthCorner),
            real(39, "Thickness", &Record::Thickness).unless(0),
            point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis()};
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_Face3d>() {
    using Record = DxfEnt_Face3d;
    static const RecordTable table(
        "DxfEnt_Face3d",
        {base(record_table<DxfSection_Entity>()), marker("AcDbFace"),
         point(10, "FirstCorner", &Record::FirstCorner), point(11, "SecondCorner", &Record::SecondCorner),
         point(12, "ThirdCorner", &Record::ThirdCorner), point(13, "FourthCorner", &Record::FourthCorner),
         integer(70, "Flags", &Record::Flags).unless(0)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Trace>() {
    static const RecordTable table("DxfEnt_Trace", trace_rows());
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Solid>() {
    static const RecordTable table("DxfEnt_Solid", trace_rows());
    return table;
}

}  // namespace veltrane
