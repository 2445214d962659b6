#include "veltrane/file/inserts.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/embedded_object.hpp"

namespace veltrane {

using namespace rows;

namespace {

constexpr const char* kSecondMarker = "@SubclassMarker1";

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_Insert>() {
    using Record = DxfEnt_Insert;
    static const RecordTable table(
        "DxfEnt_Insert",
        {base(record_table<DxfSection_Entity>()), marker("AcDbBlockReference"),
         integer(66, "AttrFollowFlag", &Record::AttrFollowFlag).unless(0),
         string(2, "BlockName", &Record::BlockName), point(10, "InsertionPoint", &Record::InsertionPoint),
         real(41, "XScaleFactor", &Record::XScaleFactor).unless(1),
         real(42, "YScaleFactor", &Record::YScaleFactor).unless(1),
         real(43, "ZScaleFactor", &Record::ZScaleFactor).unless(1),
         real(50, "RotationAngle", &Record::RotationAngle).unless(0),
         integer(70, "ColumnCount", &Record::ColumnCount).unless(1),
         integer(71, "RowCount", &Record::RowCount).unless(1),
         real(44, "ColumnSpacing", &Record::ColumnSpacing).unless(0),
         real(45, "RowSpacing", &Record::RowSpacing).unless(0),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Attrib>() {
    using Record = DxfEnt_Attrib;
    static const RecordTable table(
        "DxfEnt_Attrib",
        {base(record_table<DxfSection_Entity>()),
         marker("AcDbText"),
         real(39, "Thickness", &Record::Thickness).unless(0),
         point(10, "StartPoint", &Record::StartPoint),
         real(40, "TextHeight", &Record::TextHeight),
         string(1, "DefaultValue", &Record::DefaultValue),
         marker("AcDbAttribute", kSecondMarker),
         string(2, "AttributeTag", &Record::AttributeTag),
         integer(70, "AttributeFlags", &Record::AttributeFlags),
         integer(73, "FieldLength", &Record::FieldLength).unless(0),
         real(50, "TextRotation", &Record::TextRotation).unless(0),
         real(41, "RelativeX", &Record::RelativeX).unless(1),
         real(51, "ObliqueAngle", &Record::ObliqueAngle).unless(0),
         string(7, "TextStyleName", &Record::TextStyleName).unless(kStandardTextStyle),
         integer(71, "TextGenFlags", &Record::TextGenFlags).unless(0),
         integer(72, "HTextJustif", &Record::HTextJustif).unless(0),
         integer(74, "VTextJustif", &Record::VTextJustif).unless(0),
         point(11, "AlignPoint", &Record::AlignPoint).unless_undefined(),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(),
         EmbeddedObject<Record>::row(),
         groups("EmbeddedObject", &Record::EmbeddedObject).not_read().never_written().not_dumped()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_AttDef>() {
    using Record = DxfEnt_AttDef;
    static const RecordTable table(
        "DxfEnt_AttDef",
        {base(record_table<DxfSection_Entity>()),
         marker("AcDbText"),
         real(39, "Thickness", &Record::Thickness).unless(0),
         point(10, "FirstAlignPoint", &Record::FirstAlignPoint),
         real(40, "TextHeight", &Record::TextHeight),
         string(1, "DefaultValue", &Record::DefaultValue),
         marker("AcDbAttributeDefinition", kSecondMarker),
         real(50, "TextRotation", &Record::TextRotation).unless(0),
         real(41, "RelativeX", &Record::RelativeX).unless(1),
         real(51, "ObliqueAngle", &Record::ObliqueAngle).unless(0),
         string(7, "TextStyleName", &Record::TextStyleName).unless(kStandardTextStyle),
         integer(71, "TextGenFlags", &Record::TextGenFlags).unless(0),
         integer(72, "HTextJustif", &Record::HTextJustif).unless(0),
         point(11, "SecondAlignPoint", &Record::SecondAlignPoint).unless_undefined(),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(),
         string(3, "PromptString", &Record::PromptString),
         string(2, "TagString", &Record::TagString),
         integer(70, "AttributeFlags", &Record::AttributeFlags),
         integer(73, "FieldLength", &Record::FieldLength).unless(0),
         integer(74, "VTextJustif", &Record::VTextJustif).unless(0),
         EmbeddedObject<Record>::row(),
         groups("EmbeddedObject", &Record::EmbeddedObject).not_read().never_written().not_dumped()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Shape>() {
    using Record = DxfEnt_Shape;
    static const RecordTable table(
        "DxfEnt_Shape", {base(record_table<DxfSection_Entity>()), marker("AcDbShape"),
                         real(39, "Thickness", &Record::Thickness).unless(0),
                         point(10, "InsertionPoint", &Record::InsertionPoint),
                         real(40, "Size", &Record::Size), string(2, "ShapeName", &Record::ShapeName),
                         real(50, "RotationAngle", &Record::RotationAngle).unless(0),
                         real(41, "RelativeXScaleFactor", &Record::RelativeXScaleFactor).unless(0),
                         real(51, "ObliqueAngle", &Record::ObliqueAngle).unless(0),
                         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis()});
    return table;
}

}  // namespace veltrane
