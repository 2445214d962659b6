#include "veltrane/file/tables.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/dump_text.hpp"

namespace veltrane {

using namespace rows;

namespace {

constexpr int kR2000 = 1015;
constexpr int kPlotted = 1;
constexpr int kLineTypeAlignment = 65;  // the only alignment that the format knows
constexpr const char* kEntryMarker = "@SubclassMarker2";

// The table record: its markers depend on its name, and its name comes before its handle.

DxfSection_Table& table_of(Transient& record) {
    return static_cast<DxfSection_Table&>(record);
}
const DxfSection_Table& table_of(const Transient& record) {
    return static_cast<const DxfSection_Table&>(record);
}

bool read_markers(std::istream& /*stream*/, DxfFile_FileReader& reader, Transient& record) {
    auto& table = table_of(record);
    (table.SubclassMarker.is_null() ? table.SubclassMarker : table.DimStyleMarker) = reader.Value();
    return true;
}

void write_dim_style_part(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    const auto& table = table_of(record);
    if (writer.Version() < kR2000) return;
    if (table.DimStyleMarker.is_null() && !(table.Name == "DIMSTYLE")) return;
    writer.WriteString(stream, 100,
                       table.DimStyleMarker.is_null() ? "AcDbDimStyleTable" : table.DimStyleMarker);
    writer.WriteInteger(stream, 71, table.XZProperty);
}

/// The entries of the table; ENDTAB ends it and is consumed.
bool read_entry(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    if (reader.View() == "ENDTAB") return false;
    append(table_of(record).Objects, reader.ReadObject(stream));
    return true;
}

void write_entries(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    if (const auto& entries = table_of(record).Objects) {
        for (const auto& entry : *entries) {
            if (entry) writer.WriteObject(stream, *entry);
        }
    }
    writer.WriteString(stream, 0, "ENDTAB");
}

void dump_entries(std::ostream& stream, const Transient& record, int level) {
    dump_elements(
        stream, "Objects", table_of(record).Objects, level,
        [&](const DxfSection_Object& entry, int depth) { DxfFile_RWObject::Dump(stream, entry, depth); });
}

/// What every entry writes before its own marker.
const RecordTable& entry_head() {
    return record_table<DxfSection_TabEntry>();
}

/// What a view or a viewport knows of its user coordinate system.
template <class Record>
std::vector<Row> ucs_rows() {
    return {point(110, "UCSOrigin", &Record::UCSOrigin).unless_undefined(),
            point(111, "UCSXAxis", &Record::UCSXAxis).unless_undefined(),
            point(112, "UCSYAxis", &Record::UCSYAxis).unless_undefined(),
            integer(79, "UCSOrthoType", &Record::UCSOrthoType).empty_if_undefined(),
            real(146, "UCSElevation", &Record::UCSElevation).empty_if_undefined(),
            handle(345, "NameID", &Record::NameID).empty_if_undefined(),
            handle(346, "UCSID", &Record::UCSID).empty_if_undefined()};
}

std::vector<Row> joined(std::vector<Row> rows, const std::vector<Row>& more) {
    rows.insert(rows.end(), more.begin(), more.end());
    return rows;
}

}  // namespace

template <>
const RecordTable& record_table<DxfSection_Table>() {
    using Record = DxfSection_Table;
    static const RecordTable table(
        "DxfSection_Table", {string(2, "Name", &Record::Name), base(record_table<DxfSection_HandledObject>()),
                             piece(100, {&read_markers, nullptr, nullptr}),
                             string(100, "SubclassMarker", &Record::SubclassMarker),
                             integer(70, "MaxEntries", &Record::MaxEntries),
                             string(100, "DimStyleMarker", &Record::DimStyleMarker).never_written(),
                             integer(71, "XZProperty", &Record::XZProperty).never_written(),
                             piece(-1, {nullptr, &write_dim_style_part, nullptr}),
                             piece(0, {&read_entry, &write_entries, &dump_entries})});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_TabEntry>() {
    static const RecordTable table("DxfSection_TabEntry", {base(record_table<DxfSection_HandledObject>()),
                                                           marker("AcDbSymbolTableRecord")});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_AppId>() {
    using Record = DxfSection_AppId;
    static const RecordTable table("DxfSection_AppId",
                                   {base(entry_head()), marker("AcDbRegAppTableRecord", kEntryMarker),
                                    string(2, "Name", &Record::Name), integer(70, "Flag", &Record::Flag)});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_BlockRecord>() {
    using Record = DxfSection_BlockRecord;
    static const RecordTable table(
        "DxfSection_BlockRecord",
        {base(entry_head()), marker("AcDbBlockTableRecord", kEntryMarker), string(2, "Name", &Record::Name),
         handle(340, "Layout", &Record::Layout).since(kR2000),
         bin_data(310, "Bitmap", &Record::Bitmap).since(kR2000)});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_Layer>() {
    using Record = DxfSection_Layer;
    static const RecordTable table(
        "DxfSection_Layer",
        {base(entry_head()), marker("AcDbLayerTableRecord", kEntryMarker), string(2, "Name", &Record::Name),
         integer(70, "Flag", &Record::Flag), integer(62, "Color", &Record::Color), constant(61, nullptr, 0),
         string(6, "@XZField", &Record::LineType),
         integer(290, "PlottingFlag", &Record::PlottingFlag).absent_as(kPlotted).since(kR2000),
         integer(370, "LineWeight", &Record::LineWeight).empty_if_undefined().since(kR2000),
         handle(390, "Hard", &Record::Hard).since(kR2000)});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_LineTypeElement>() {
    using Record = DxfSection_LineTypeElement;
    static const RecordTable table(
        "DxfSection_LineTypeElement",
        {real(49, "Length", &Record::Length), integer(74, "ElementType", &Record::ElementType),
         integer(75, "ShapeNumber", &Record::ShapeNumber).unless(0),
         handle(340, "StylePointer", &Record::StylePointer).unless(0),
         real(46, "Scale", &Record::Scale).unless(0), real(50, "Rotation", &Record::Rotation).unless(0),
         real(44, "XOffset", &Record::XOffset).unless(0), real(45, "YOffset", &Record::YOffset).unless(0),
         string(9, "TextString", &Record::TextString)});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_LType>() {
    using Record = DxfSection_LType;
    static const RecordTable table(
        "DxfSection_LType",
        {base(entry_head()), marker("AcDbLinetypeTableRecord", kEntryMarker),
         string(2, "Name", &Record::Name), integer(70, "Flag", &Record::Flag),
         string(3, "DescriptiveText", &Record::DescriptiveText),
         constant(72, "@AlignmentCode", kLineTypeAlignment),
         integer(73, "LineTypesNumber", &Record::LineTypesNumber),
         real(40, "PatternLength", &Record::PatternLength),
         records<&Record::Elements>(49, "Elements", record_table<DxfSection_LineTypeElement>())});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_Style>() {
    using Record = DxfSection_Style;
    static const RecordTable table(
        "DxfSection_Style",
        {base(entry_head()), marker("AcDbTextStyleTableRecord", kEntryMarker),
         string(2, "Name", &Record::Name), integer(70, "Flag", &Record::Flag),
         real(40, "TextHeight", &Record::TextHeight), real(41, "WidthFactor", &Record::WidthFactor),
         real(50, "ObliqueAngle", &Record::ObliqueAngle),
         integer(71, "GenerationFlags", &Record::GenerationFlags),
         real(42, "LastHeight", &Record::LastHeight),
         string(3, "PrimFontFileName", &Record::PrimFontFileName),
         string(4, "BigFontFileName", &Record::BigFontFileName)});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_UCS>() {
    using Record = DxfSection_UCS;
    static const RecordTable table(
        "DxfSection_UCS",
        {base(entry_head()), marker("AcDbUCSTableRecord", kEntryMarker), string(2, "Name", &Record::Name),
         integer(70, "Flag", &Record::Flag), point(10, "Origin", &Record::Origin),
         point(11, "XAxis", &Record::XAxis), point(12, "YAxis", &Record::YAxis), constant(79, nullptr, 0),
         real(146, "Elevation", &Record::Elevation),
         handle(346, "BaseUCSID", &Record::BaseUCSID).empty_if_undefined(),
         integer(71, "OrthographicType", &Record::OrthographicType),
         point(13, "OriginForOT", &Record::OriginForOT).unless_undefined()});
    return table;
}

template <>
const RecordTable& record_table<DxfSection_View>() {
    using Record = DxfSection_View;
    static const RecordTable table(
        "DxfSection_View",
        joined({base(entry_head()), marker("AcDbViewTableRecord", kEntryMarker),
                string(2, "Name", &Record::Name), integer(70, "Flag", &Record::Flag),
                real(40, "Height", &Record::Height), point2(10, "CenterPoint", &Record::CenterPoint),
                real(41, "Width", &Record::Width), point(11, "DirFromTarget", &Record::DirFromTarget),
                point(12, "TargetPoint", &Record::TargetPoint), real(42, "LensLength", &Record::LensLength),
                real(43, "FrontClipPlane", &Record::FrontClipPlane),
                real(44, "BackClipPlane", &Record::BackClipPlane), real(50, "Twist", &Record::Twist),
                integer(71, "ViewMode", &Record::ViewMode), integer(281, "RenderMode", &Record::RenderMode),
                integer(72, "IsUCSAssociated", &Record::IsUCSAssociated)},
               ucs_rows<Record>()));
    return table;
}

template <>
const RecordTable& record_table<DxfSection_VPort>() {
    using Record = DxfSection_VPort;
    static const RecordTable table("DxfSection_VPort",
                                   joined({base(entry_head()),
                                           marker("AcDbViewportTableRecord", kEntryMarker),
                                           string(2, "Name", &Record::Name),
                                           integer(70, "Flag", &Record::Flag),
                                           point2(10, "LowerLeftCorner", &Record::LowerLeftCorner),
                                           point2(11, "UpperRightCorner", &Record::UpperRightCorner),
                                           point2(12, "ViewCenterPoint", &Record::ViewCenterPoint),
                                           point2(13, "SnapBasePoint", &Record::SnapBasePoint),
                                           point2(14, "SnapSpacing", &Record::SnapSpacing),
                                           point2(15, "GridSpacing", &Record::GridSpacing),
                                           point(16, "ViewDirection", &Record::ViewDirection),
                                           point(17, "ViewTargetPoint", &Record::ViewTargetPoint),
                                           real(40, "ViewHeight", &Record::ViewHeight),
                                           real(41, "AspectRatio", &Record::AspectRatio),
                                           real(42, "LensLength", &Record::LensLength),
                                           real(43, "FrontClipPlane", &Record::FrontClipPlane),
                                           real(44, "BackClipPlane", &Record::BackClipPlane),
                                           real(50, "SnapRotAngle", &Record::SnapRotAngle),
                                           real(51, "TwistAngle", &Record::TwistAngle),
                                           integer(71, "ViewMode", &Record::ViewMode),
                                           integer(72, "CircleZoomPercent", &Record::CircleZoomPercent),
                                           integer(73, "FastZoomSetting", &Record::FastZoomSetting),
                                           integer(74, "UCSIconSetting", &Record::UCSIconSetting),
                                           integer(75, "SnapOnOff", &Record::SnapOnOff),
                                           integer(76, "GridOnOff", &Record::GridOnOff),
                                           integer(77, "SnapStyle", &Record::SnapStyle),
                                           integer(78, "SnapIsoPair", &Record::SnapIsoPair),
                                           integer(281, "RenderMode", &Record::RenderMode),
                                           integer(65, "UCSVPValue", &Record::UCSVPValue)},
                                          ucs_rows<Record>()));
    return table;
}

}  // namespace veltrane
