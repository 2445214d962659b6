// LAYOUT, PLOTSETTINGS and VIEWPORT: how a drawing is laid out on paper.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

/// Lengths are in millimetres, whatever the units of the paper are.
struct DxfEnt_PlotSettingsData : Typed<DxfEnt_PlotSettingsData, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_PlotSettingsData";

    Text SubclassMarker1;
    Text PageSetupName;
    Text SystemPrinterName;
    Text PaperSize;
    Text PlotViewName;
    double LeftSideSize = 0;
    double BottomSize = 0;
    double RightSideSize = 0;
    double TopSize = 0;
    double PlotPaperWidth = 0;
    double PlotPaperHeight = 0;
    double PlotXOrign = 0;
    double PlotYOrign = 0;
    double LowerLeftXWinArea = 0;
    double LowerLeftYWinArea = 0;
    double UpperLeftXWinArea = 0;
    double UpperLeftYWinArea = 0;
    double NumeratorOfScale = 0;
    double DenominatorOfScale = 0;
    std::int32_t PlotLayoutFlag = 0;
    std::int32_t PlotPaperUnits = 0;  ///< 0 inches, 1 millimetres, 2 pixels
    std::int32_t PlotRotation = 0;    ///< in quarter turns
    std::int32_t PlotType = 0;
    Text CurrentStyleSheet;
    std::int32_t StandardScaleType = 0;
    double ScaleFactor = 0;
    double XPaperImageOrign = 0;
    double YPaperImageOrign = 0;
};

struct DxfEnt_PlotSettings : Typed<DxfEnt_PlotSettings, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_PlotSettings";

    Ref<DxfEnt_PlotSettingsData> Data;
};

struct DxfEnt_Layout : Typed<DxfEnt_Layout, DxfSection_NgEntity> {
    static constexpr const char* kTypeName = "DxfEnt_Layout";

    Ref<DxfEnt_PlotSettingsData> PlotSettings;
    Text SubclassMarker2;
    Text LayoutName;
    std::int32_t Flag = 0;
    std::int32_t TabOrder = 0;
    kernel::Point2 MinimumLimits{0, 0};
    kernel::Point2 MaximumLimits{0, 0};
    kernel::Point InsertionBasePoint{0, 0, 0};
    kernel::Point MinimumExtents{0, 0, 0};
    kernel::Point MaximumExtents{0, 0, 0};
    double Elevation = 0;
    kernel::Point UCSOrigin{0, 0, 0};
    kernel::Vector XAxis{0, 0, 0};
    kernel::Vector YAxis{0, 0, 0};
    std::int32_t OrthographicType = 0;
    std::int32_t PaperID = 0;     ///< the block record of the layout
    std::int32_t ViewportID = 0;  ///< the viewport that was last active
    std::int32_t UCSTableRecID = kUndefinedInteger;
    std::int32_t BaseUCSTableRecID = kUndefinedInteger;
};

/// A window of paper space; its angles are in degrees.
struct DxfEnt_ViewPort : Typed<DxfEnt_ViewPort, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_ViewPort";

    kernel::Point CenterPoint{0, 0, 0};  ///< on the paper
    double Width = 0;
    double Height = 0;
    std::int32_t ViewportStatus = 0;
    std::int32_t ViewportID = 0;
    kernel::Point2 ViewCenterPoint{0, 0};
    kernel::Point2 SnapBasePoint{0, 0};
    kernel::Point2 SnapSpacing{0, 0};
    kernel::Point2 GridSpacing{0, 0};
    kernel::Vector ViewDirection{0, 0, 0};  ///< from the target to the camera
    kernel::Point ViewTargetPoint{0, 0, 0};
    double LensLength = 0;
    double FrontClipPlane = 0;
    double BackClipPlane = 0;
    double ViewHeight = 0;
    double SnapAngle = 0;
    double TwistAngle = 0;
    std::int32_t CircleZoomPercent = 0;
    Ref<Sequence<std::int32_t>> FrozenLayerObjectIDs;
    std::int32_t ViewportStatusFlags = 0;
    std::int32_t ClipBoundary = kUndefinedInteger;
    Text PlotStyleSheet;
    std::int32_t RenderMode = 0;
    std::int32_t UCSViewportFlag = 0;
    std::int32_t UCSOriginFlag = 0;
    kernel::Point UCSOrigin{0, 0, 0};
    kernel::Vector UCSXAxis{0, 0, 0};
    kernel::Vector UCSYAxis{0, 0, 0};
    std::int32_t TableRecordID = kUndefinedInteger;
    std::int32_t BaseUCSTableRecordID = kUndefinedInteger;
    std::int32_t OrthoType = 0;
    double Elevation = 0;
};

}  // namespace veltrane
