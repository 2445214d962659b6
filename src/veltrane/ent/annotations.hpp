// TEXT, MTEXT, DIMENSION, LEADER and TOLERANCE. Angles are in degrees, as in the file.
#pragma once

#include "veltrane/ent/text_style.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

struct DxfEnt_Text : Typed<DxfEnt_Text, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Text";

    double Thickness = 0;
    kernel::Point FirstAlignPoint{0, 0, 0};  ///< in the object coordinate system of ExtrusionDir
    double TextHeight = 0;
    Text String;
    double TextRotation = 0;
    double XScaleFactorWidth = 1;
    double ObliqueAngle = 0;
    Text Style = standard_text_style();
    kernel::Point SecondAlignPoint{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    kernel::Vector ExtrusionDir{0, 0, 1};
    std::int32_t GenerationFlags = 0;     ///< bits: 2 backward, 4 upside down
    std::int32_t HJustificationType = 0;  ///< 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit
    std::int32_t VJustificationType = 0;  ///< 0 baseline, 1 bottom, 2 middle, 3 top
};

/// Text of several lines, with formatting codes. The whole of it is the pieces of ExtText and then Text.
struct DxfEnt_MText : Typed<DxfEnt_MText, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_MText";

    kernel::Point Position{0, 0, 0};
    double Height = 0;
    double RectWidth = 0;  ///< lines are broken at this width; 0 for none
    veltrane::Text Text;
    Ref<Sequence<veltrane::Text>> ExtText;
    veltrane::Text Style = standard_text_style();
    kernel::Vector ExtrusionDir{0, 0, 1};
    kernel::Vector XAxis{1, 0, 0};
    double CharWidth = kUndefinedReal;
    double RectHeight = kUndefinedReal;
    double Angle = 0;
    double LineSpacingFactor = 1;
    std::int32_t LineSpacingStyle = kUndefinedInteger;  ///< 1 at least, 2 exactly
    std::int32_t AttachPoint = 0;                       ///< 1 top left, by rows, to 9 bottom right
    std::int32_t Direction = 0;
    Ref<DxfSection_HSequenceOfDxfGroup> EmbeddedObject;  ///< groups as read; from R2018 on
};

/// Its drawn geometry stands in the block `Name`.
struct DxfEnt_Dimension : Typed<DxfEnt_Dimension, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Dimension";

    Text Name;
    kernel::Point DimensionPoint{0, 0, 0};
    kernel::Point MiddlePoint{0, 0, 0};  ///< of the dimension's text
    std::int32_t DimensionType = 0;
    std::int32_t AttachmentPoint = 0;
    std::int32_t TextLineSpacingStyle = 0;
    double TextLineSpacingFactor = 0;
    double ActualMeasurement = 0;
    Text TextExplicitly;  ///< in place of the measurement
    double TextRotationAngle = 0;
    double HorizontalDirection = 0;
    kernel::Vector ExtrusionDir{0, 0, 1};
    Text StyleName;
    Text SubclassMarker;  ///< the last one of the record, which tells the kind of dimension
    kernel::Point InsertionPoint{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    kernel::Point DefinitionPoint1{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    kernel::Point DefinitionPoint2{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    double Angle = kUndefinedReal;
    double ObliqueAngle = kUndefinedReal;
    kernel::Point DefinitionPoint3{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    double LeaderLength = kUndefinedReal;
    kernel::Point DefinitionPoint4{kUndefinedReal, kUndefinedReal, kUndefinedReal};
};

struct DxfEnt_Leader : Typed<DxfEnt_Leader, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Leader";

    Text StyleName;
    std::int32_t ArrowheadFlag = 0;
    std::int32_t LeaderPathType = 0;      ///< 0 straight lines, 1 spline
    std::int32_t LeaderCreationFlag = 3;  ///< made with 0 text, 1 a tolerance, 2 an insert, 3 nothing
    std::int32_t HookLineDirectionFlag = 0;
    std::int32_t HookLineFlag = 0;
    std::int32_t VerticesNumber = 0;  ///< as the file states it; the list holds what came
    double TextAnnotationHeight = 0;
    double TextAnnotationWidth = 0;
    Ref<Sequence<kernel::Point>> VertexCoordinates;
    std::int32_t ColorToUse = 0;
    std::int32_t AssociatedAnnotation = 0;  ///< handle
    kernel::Vector NormalVector{0, 0, 0};
    kernel::Vector HorizontalDirection{0, 0, 0};
    kernel::Vector OffsetFromBlock{0, 0, 0};
    kernel::Vector OffsetFromAnnotation{0, 0, 0};
};

/// A frame of geometric tolerances.
struct DxfEnt_Tolerance : Typed<DxfEnt_Tolerance, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Tolerance";

    Text StyleName;
    kernel::Point InsertionPoint{0, 0, 0};
    Text StringRepresent;
    kernel::Vector ExtrusionDir{0, 0, 1};
    kernel::Vector XAxisDirection{0, 0, 0};
};

}  // namespace veltrane
