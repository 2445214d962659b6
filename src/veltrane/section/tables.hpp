// Symbol tables and their entries.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

inline const kernel::Point kUndefinedPoint{kUndefinedReal, kUndefinedReal, kUndefinedReal};

/// One table, from TABLE to ENDTAB.
struct DxfSection_Table : Typed<DxfSection_Table, DxfSection_HandledObject> {
    static constexpr const char* kTypeName = "DxfSection_Table";

    Text Name;  ///< the table's kind: LAYER, LTYPE, ...
    Text SubclassMarker;
    std::int32_t MaxEntries = 0;
    Text DimStyleMarker;
    std::int32_t XZProperty = 0;
    Ref<DxfSection_HSequenceOfObject> Objects;

    Ref<DxfSection_HSequenceOfObject> GetSubObjects() const override { return Objects; }
};

/// Base of every table entry.
struct DxfSection_TabEntry : Typed<DxfSection_TabEntry, DxfSection_HandledObject> {
    static constexpr const char* kTypeName = "DxfSection_TabEntry";
};

struct DxfSection_AppId : Typed<DxfSection_AppId, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_AppId";

    Text Name;
    std::int32_t Flag = 0;
};

struct DxfSection_BlockRecord : Typed<DxfSection_BlockRecord, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_BlockRecord";

    Text Name;
    std::int32_t Layout = 0;
    Ref<DxfSection_BinData> Bitmap;
};

struct DxfSection_Layer : Typed<DxfSection_Layer, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_Layer";

    Text Name;
    std::int32_t Flag = 0;   ///< bit 1 frozen, bit 4 locked
    std::int32_t Color = 7;  ///< negative when the layer is off
    Text LineType;
    std::int32_t PlottingFlag = 0;
    std::int32_t LineWeight = kUndefinedInteger;
    std::int32_t Hard = 0;  ///< handle of the plot style
};

/// One dash of a line type.
struct DxfSection_LineTypeElement : Typed<DxfSection_LineTypeElement, Transient> {
    static constexpr const char* kTypeName = "DxfSection_LineTypeElement";

    double Length = 1e100;
    std::int32_t ElementType = 0;
    std::int32_t ShapeNumber = 0;
    std::int32_t StylePointer = 0;
    double Scale = 0;
    double Rotation = 0;
    double XOffset = 0;
    double YOffset = 0;
    Text TextString;
};

struct DxfSection_LType : Typed<DxfSection_LType, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_LType";

    Text Name;
    std::int32_t Flag = 0;
    Text DescriptiveText;
    std::int32_t LineTypesNumber = 0;
    double PatternLength = 0;
    Ref<Sequence<Ref<DxfSection_LineTypeElement>>> Elements;
};

struct DxfSection_Style : Typed<DxfSection_Style, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_Style";

    Text Name;
    std::int32_t Flag = 0;
    double TextHeight = 0;
    double WidthFactor = 1.0;
    double ObliqueAngle = 0;
    std::int32_t GenerationFlags = 0;
    double LastHeight = 0;
    Text PrimFontFileName;
    Text BigFontFileName;
};

struct DxfSection_UCS : Typed<DxfSection_UCS, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_UCS";

    Text Name;
    std::int32_t Flag = 0;
    kernel::Point Origin{0, 0, 0};
    kernel::Point XAxis{0, 0, 0};
    kernel::Point YAxis{0, 0, 0};
    double Elevation = 0;
    std::int32_t BaseUCSID = kUndefinedInteger;
    std::int32_t OrthographicType = 0;
    kernel::Point OriginForOT = kUndefinedPoint;
};

struct DxfSection_View : Typed<DxfSection_View, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_View";

    Text Name;
    std::int32_t Flag = 0;
    double Height = 0;
    kernel::Point2 CenterPoint{0, 0};
    double Width = 0;
    kernel::Point DirFromTarget{0, 0, 0};
    kernel::Point TargetPoint{0, 0, 0};
    double LensLength = 0;
    double FrontClipPlane = 0;
    double BackClipPlane = 0;
    double Twist = 0;
    std::int32_t ViewMode = 0;
    std::int32_t RenderMode = 0;
    std::int32_t IsUCSAssociated = 0;
    kernel::Point UCSOrigin = kUndefinedPoint;
    kernel::Point UCSXAxis = kUndefinedPoint;
    kernel::Point UCSYAxis = kUndefinedPoint;
    std::int32_t UCSOrthoType = kUndefinedInteger;
    double UCSElevation = kUndefinedReal;
    std::int32_t NameID = kUndefinedInteger;
    std::int32_t UCSID = kUndefinedInteger;
};

struct DxfSection_VPort : Typed<DxfSection_VPort, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_VPort";

    Text Name;
    std::int32_t Flag = 0;
    kernel::Point2 LowerLeftCorner{0, 0};
    kernel::Point2 UpperRightCorner{0, 0};
    kernel::Point2 ViewCenterPoint{0, 0};
    kernel::Point2 SnapBasePoint{0, 0};
    kernel::Point2 SnapSpacing{0, 0};
    kernel::Point2 GridSpacing{0, 0};
    kernel::Point ViewDirection{0, 0, 0};
    kernel::Point ViewTargetPoint{0, 0, 0};
    double ViewHeight = 0;
    double AspectRatio = 0;
    double LensLength = 0;
    double FrontClipPlane = 0;
    double BackClipPlane = 0;
    double SnapRotAngle = 0;
    double TwistAngle = 0;
    std::int32_t ViewMode = 0;
    std::int32_t CircleZoomPercent = 0;
    std::int32_t FastZoomSetting = 0;
    std::int32_t UCSIconSetting = 0;
    std::int32_t SnapOnOff = 0;
    std::int32_t GridOnOff = 0;
    std::int32_t SnapStyle = 0;
    std::int32_t SnapIsoPair = 0;
    std::int32_t RenderMode = 0;
    std::int32_t UCSVPValue = 0;
    kernel::Point UCSOrigin = kUndefinedPoint;
    kernel::Point UCSXAxis = kUndefinedPoint;
    kernel::Point UCSYAxis = kUndefinedPoint;
    std::int32_t UCSOrthoType = kUndefinedInteger;
    double UCSElevation = kUndefinedReal;
    std::int32_t NameID = kUndefinedInteger;
    std::int32_t UCSID = kUndefinedInteger;
};

/// One field per dimension variable, named as the variable.
struct DxfSection_DimStyle : Typed<DxfSection_DimStyle, DxfSection_TabEntry> {
    static constexpr const char* kTypeName = "DxfSection_DimStyle";

    Text Name;
    std::int32_t Flag = 0;
    Text DimPost, DimAPost;
    std::int32_t DimBLK = 0;  ///< a handle
    Text DimBLK1, DimBLK2;
    double DimScale = 0, DimASZ = 0, DimEXO = 0, DimDLI = 0, DimEXE = 0, DimRND = 0, DimDLE = 0, DimTP = 0,
           DimTM = 0, DimTXT = 0, DimCEN = 0, DimTSZ = 0, DimALTF = 0, DimLFAC = 0, DimTVP = 0, DimTFAC = 0,
           DimGAP = 0, DimALTRND = 0;
    std::int32_t DimTOL = 0, DimLIM = 0, DimTIH = 0, DimTOH = 0, DimSE1 = 0, DimSE2 = 0, DimTAD = 0,
                 DimZIN = 0, DimAZIN = 0, DimALT = 0, DimALTD = 0, DimTOFL = 0, DimSAH = 0, DimTIX = 0,
                 DimSOXD = 0, DimCLRD = 0, DimCLRE = 0, DimCLRT = 0, DimADEC = 0, DimUNIT = 0, DimDEC = 0,
                 DimTDEC = 0, DimALTU = 0, DimALTTD = 0, DimAUNIT = 0, DimFRAC = 0, DimLUNIT = 0, DimDSEP = 0,
                 DimTMOVE = 0, DimJUST = 0, DimSD1 = 0, DimSD2 = 0, DimTOLJ = 0, DimTZIN = 0, DimALTZ = 0,
                 DimALTTZ = 0, DimFIT = 0, DimUPT = 0, DimATFIT = 0, DimLWD = 0, DimLWE = 0;
    // Handles.
    std::int32_t DimTXSTY = 0, DimLDRBLK = 0, DimHBLK = 0, DimHBLK1 = 0, DimHBLK2 = 0;
};

}  // namespace veltrane
