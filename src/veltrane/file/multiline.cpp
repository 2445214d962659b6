#include "veltrane/file/multiline.hpp"

#include "veltrane/file/common.hpp"

namespace veltrane {

using namespace rows;

namespace {

constexpr double kSameDirection = 1e-10;

/// Unlike other entities, a multiline measures by distance how far its extrusion is from the z axis.
bool leaves_z_axis(const Transient& record) {
    const kernel::Vector& direction = static_cast<const DxfEnt_MLine&>(record).ExtrusionDir;
    return (direction - kernel::Vector(0, 0, 1)).norm() > kSameDirection;
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_MLineVertexParams>() {
    using Record = DxfEnt_MLineVertexParams;
    static const RecordTable table(
        "DxfEnt_MLineVertexParams",
        {integer(74, "NbParams", &Record::NbParams), reals(41, "Params", &Record::Params),
         integer(75, "NbFills", &Record::NbFills), reals(42, "Fills", &Record::Fills)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_MLineVertex>() {
    using Record = DxfEnt_MLineVertex;
    static const RecordTable table(
        "DxfEnt_MLineVertex",
        {point(11, "Vertices", &Record::Vertices), point(12, "SegmentDir", &Record::SegmentDir),
         point(13, "MiterDir", &Record::MiterDir),
         records<&Record::Params>(74, "Params", record_table<DxfEnt_MLineVertexParams>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_MLine>() {
    using Record = DxfEnt_MLine;
    static const RecordTable table(
        "DxfEnt_MLine",
        {base(record_table<DxfSection_Entity>()), marker("AcDbMline"),
         string(2, "StyleName", &Record::StyleName), handle(340, "StyleID", &Record::StyleID),
         real(40, "Scale", &Record::Scale), integer(70, "Justification", &Record::Justification),
         integer(71, "Flags", &Record::Flags), integer(72, "NbVertices", &Record::NbVertices),
         integer(73, "NbStyles", &Record::NbStyles), point(10, "StartPoint", &Record::StartPoint),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).only_if(&leaves_z_axis),
         records<&Record::Vertices>(11, "Vertices", record_table<DxfEnt_MLineVertex>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_MLineStyleElement>() {
    using Record = DxfEnt_MLineStyleElement;
    static const RecordTable table("DxfEnt_MLineStyleElement",
                                   {real(49, "Offset", &Record::Offset).unless_undefined(),
                                    integer(62, "Color", &Record::Color).unless(0),
                                    string(6, "Linetype", &Record::Linetype).unless("BYLAYER")});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_MLineStyle>() {
    using Record = DxfEnt_MLineStyle;
    static const RecordTable table(
        "DxfEnt_MLineStyle",
        {base(record_table<DxfSection_NgEntity>()), marker("AcDbMlineStyle"),
         string(2, "MlineStyleName", &Record::MlineStyleName), integer(70, "Flags", &Record::Flags),
         string(3, "Description", &Record::Description),
         integer(62, "FillColor", &Record::FillColor).unless(256),
         real(51, "StartAngle", &Record::StartAngle).unless(90),
         real(52, "EndAngle", &Record::EndAngle).unless(90),
         integer(71, "ElementsNumber", &Record::ElementsNumber),
         records<&Record::Elements>(49, "Elements", record_table<DxfEnt_MLineStyleElement>())});
    return table;
}

}  // namespace veltrane
