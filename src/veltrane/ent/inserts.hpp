// INSERT, ATTRIB, ATTDEF and SHAPE. Angles are in degrees, as in the file.
#pragma once

#include "veltrane/ent/text_style.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

/// A reference to a block. It holds no record: attributes stand behind it, up to a SEQEND.
struct DxfEnt_Insert : Typed<DxfEnt_Insert, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Insert";

    Text BlockName;
    kernel::Point InsertionPoint{0, 0, 0};  ///< in the object coordinate system of ExtrusionDir
    double XScaleFactor = 1;
    double YScaleFactor = 1;
    double ZScaleFactor = 1;
    double RotationAngle = 0;
    double ColumnSpacing = 0;
    double RowSpacing = 0;
    kernel::Vector ExtrusionDir{0, 0, 1};
    std::int32_t ColumnCount = 1;
    std::int32_t RowCount = 1;
    std::int32_t AttrFollowFlag = 0;  ///< 1 when attributes follow
};

/// The value of an attribute of one insert.
struct DxfEnt_Attrib : Typed<DxfEnt_Attrib, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Attrib";

    double Thickness = 0;
    kernel::Point StartPoint{0, 0, 0};
    double TextHeight = 0;
    Text DefaultValue;  ///< the attribute's text
    Text AttributeTag;
    double TextRotation = 0;
    double RelativeX = 1;  ///< factor of the width
    double ObliqueAngle = 0;
    Text TextStyleName = standard_text_style();
    kernel::Point AlignPoint{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    kernel::Vector ExtrusionDir{0, 0, 1};
    std::int32_t AttributeFlags = 0;  ///< bits: 1 invisible, 2 constant, 4 verify, 8 preset
    std::int32_t FieldLength = 0;
    std::int32_t TextGenFlags = 0;  ///< bits: 2 backward, 4 upside down
    std::int32_t HTextJustif = 0;
    std::int32_t VTextJustif = 0;
    Ref<DxfSection_HSequenceOfDxfGroup> EmbeddedObject;  ///< groups as read; from R2018 on
};

/// What an attribute of a block is to be in its inserts.
struct DxfEnt_AttDef : Typed<DxfEnt_AttDef, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_AttDef";

    double Thickness = 0;
    kernel::Point FirstAlignPoint{0, 0, 0};
    double TextHeight = 0;
    Text DefaultValue;
    double TextRotation = 0;
    double RelativeX = 1;  ///< factor of the width
    double ObliqueAngle = 0;
    Text TextStyleName = standard_text_style();
    kernel::Point SecondAlignPoint{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    kernel::Vector ExtrusionDir{0, 0, 1};
    Text PromptString;
    Text TagString;
    std::int32_t TextGenFlags = 0;  ///< bits: 2 backward, 4 upside down
    std::int32_t HTextJustif = 0;
    std::int32_t AttributeFlags = 0;  ///< bits: 1 invisible, 2 constant, 4 verify, 8 preset
    std::int32_t FieldLength = 0;
    std::int32_t VTextJustif = 0;
    Ref<DxfSection_HSequenceOfDxfGroup> EmbeddedObject;  ///< groups as read; from R2018 on
};

/// A glyph of a shape file.
struct DxfEnt_Shape : Typed<DxfEnt_Shape, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Shape";

    double Thickness = 0;
    kernel::Point InsertionPoint{0, 0, 0};
    double Size = 0;
    Text ShapeName;
    double RotationAngle = 0;
    double RelativeXScaleFactor = 0;  ///< 0 when it is not given, unlike that of attributes
    double ObliqueAngle = 0;
    kernel::Vector ExtrusionDir{0, 0, 1};
};

}  // namespace veltrane
