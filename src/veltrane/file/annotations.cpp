#include "veltrane/file/annotations.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/embedded_object.hpp"

namespace veltrane {

using namespace rows;

namespace {

// A dimension keeps the last of its markers. A rotated one is an aligned one with a part of its own, which
// holds no groups.

constexpr const char* kRotated = "AcDbRotatedDimension";

bool is_rotated(const Transient& dimension) {
    return static_cast<const DxfEnt_Dimension&>(dimension).SubclassMarker == kRotated;
}
bool is_not_rotated(const Transient& dimension) {
    return !is_rotated(dimension);
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_Text>() {
    using Record = DxfEnt_Text;
    static const RecordTable table(
        "DxfEnt_Text", {base(record_table<DxfSection_Entity>()), marker("AcDbText"),
                        real(39, "Thickness", &Record::Thickness).unless(0),
                        point(10, "FirstAlignPoint", &Record::FirstAlignPoint),
                        real(40, "TextHeight", &Record::TextHeight), string(1, "String", &Record::String),
                        real(50, "TextRotation", &Record::TextRotation).unless_undefined(),
                        real(41, "XScaleFactorWidth", &Record::XScaleFactorWidth).unless(1),
                        real(51, "ObliqueAngle", &Record::ObliqueAngle).unless(0),
                        string(7, "Style", &Record::Style).unless(kStandardTextStyle),
                        integer(71, "GenerationFlags", &Record::GenerationFlags).unless(0),
                        integer(72, "HJustificationType", &Record::HJustificationType).unless(0),
                        point(11, "SecondAlignPoint", &Record::SecondAlignPoint).unless_undefined(),
                        point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(),
                        marker("AcDbText", "@SubclassMarker2"),
                        integer(73, "VJustificationType", &Record::VJustificationType).unless(0)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_MText>() {
    using Record = DxfEnt_MText;
    static const RecordTable table(
        "DxfEnt_MText",
        {base(record_table<DxfSection_Entity>()), marker("AcDbMText"),
         point(10, "Position", &Record::Position), real(40, "Height", &Record::Height),
         real(41, "RectWidth", &Record::RectWidth), integer(71, "AttachPoint", &Record::AttachPoint),
         integer(72, "Direction", &Record::Direction), string(1, "Text", &Record::Text),
         strings(3, "ExtText", &Record::ExtText),
         string(7, "Style", &Record::Style).unless(kStandardTextStyle),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(),
         point(11, "XAxis", &Record::XAxis), real(42, "CharWidth", &Record::CharWidth).unless_undefined(),
         real(43, "RectHeight", &Record::RectHeight).unless_undefined(),
         real(50, "Angle", &Record::Angle).absent_as(kUndefinedReal).empty_if_undefined(),
         integer(73, "LineSpacingStyle", &Record::LineSpacingStyle).unless_undefined(),
         real(44, "LineSpacingFactor", &Record::LineSpacingFactor).unless_undefined(),
         EmbeddedObject<Record>::row(),
         groups("EmbeddedObject", &Record::EmbeddedObject).not_read().never_written().not_dumped()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Dimension>() {
    using Record = DxfEnt_Dimension;
    static const RecordTable table(
        "DxfEnt_Dimension", {base(record_table<DxfSection_Entity>()),
                             marker("AcDbDimension"),
                             string(2, "Name", &Record::Name),
                             point(10, "DimensionPoint", &Record::DimensionPoint),
                             point(11, "MiddlePoint", &Record::MiddlePoint),
                             integer(70, "DimensionType", &Record::DimensionType),
                             integer(71, "AttachmentPoint", &Record::AttachmentPoint),
                             integer(72, "TextLineSpacingStyle", &Record::TextLineSpacingStyle).unless(0),
                             real(41, "TextLineSpacingFactor", &Record::TextLineSpacingFactor).unless(0),
                             real(42, "ActualMeasurement", &Record::ActualMeasurement).unless(0),
                             string(1, "TextExplicitly", &Record::TextExplicitly),
                             real(53, "TextRotationAngle", &Record::TextRotationAngle).unless(0),
                             real(51, "HorizontalDirection", &Record::HorizontalDirection),
                             point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(),
                             string(3, "StyleName", &Record::StyleName),
                             string(100, "SubclassMarker", &Record::SubclassMarker).only_if(&is_not_rotated),
                             marker("AcDbAlignedDimension").only_if(&is_rotated).not_dumped(),
                             point(12, "InsertionPoint", &Record::InsertionPoint).unless_undefined(),
                             point(13, "DefinitionPoint1", &Record::DefinitionPoint1).unless_undefined(),
                             point(14, "DefinitionPoint2", &Record::DefinitionPoint2).unless_undefined(),
                             real(50, "Angle", &Record::Angle).unless_undefined(),
                             real(52, "ObliqueAngle", &Record::ObliqueAngle).unless_undefined(),
                             point(15, "DefinitionPoint3", &Record::DefinitionPoint3).unless_undefined(),
                             real(40, "LeaderLength", &Record::LeaderLength).unless_undefined(),
                             point(16, "DefinitionPoint4", &Record::DefinitionPoint4).unless_undefined(),
                             marker(kRotated).only_if(&is_rotated).not_dumped()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Leader>() {
    using Record = DxfEnt_Leader;
    static const RecordTable table(
        "DxfEnt_Leader",
        {base(record_table<DxfSection_Entity>()), marker("AcDbLeader"),
         string(3, "StyleName", &Record::StyleName), integer(71, "ArrowheadFlag", &Record::ArrowheadFlag),
         integer(72, "LeaderPathType", &Record::LeaderPathType),
         integer(73, "LeaderCreationFlag", &Record::LeaderCreationFlag).unless(3),
         integer(74, "HookLineDirectionFlag", &Record::HookLineDirectionFlag),
         integer(75, "HookLineFlag", &Record::HookLineFlag),
         real(40, "TextAnnotationHeight", &Record::TextAnnotationHeight),
         real(41, "TextAnnotationWidth", &Record::TextAnnotationWidth),
         integer(76, "VerticesNumber", &Record::VerticesNumber),
         points(10, "VertexCoordinates", &Record::VertexCoordinates),
         integer(77, "ColorToUse", &Record::ColorToUse),
         handle(340, "AssociatedAnnotation", &Record::AssociatedAnnotation),
         point(210, "NormalVector", &Record::NormalVector),
         point(211, "HorizontalDirection", &Record::HorizontalDirection),
         point(212, "OffsetFromBlock", &Record::OffsetFromBlock),
         point(213, "OffsetFromAnnotation", &Record::OffsetFromAnnotation)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Tolerance>() {
    using Record = DxfEnt_Tolerance;
    static const RecordTable table(
        "DxfEnt_Tolerance",
        {base(record_table<DxfSection_Entity>()), marker("AcDbFcf"),
         string(3, "StyleName", &Record::StyleName), point(10, "InsertionPoint", &Record::InsertionPoint),
         string(1, "StringRepresent", &Record::StringRepresent),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(),
         point(11, "XAxisDirection", &Record::XAxisDirection)});
    return table;
}

}  // namespace veltrane
