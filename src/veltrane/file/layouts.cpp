#include "veltrane/file/layouts.hpp"

#include "veltrane/file/common.hpp"

namespace veltrane {

using namespace rows;

namespace {

/// Later versions put groups of their own before the last of the plot settings.
bool read_plot_setting(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    const auto& settings = static_cast<DxfEnt_Layout&>(record).PlotSettings;
    if (settings) return DxfFile_RWPlotSettingsData::ReadField(stream, reader, *settings);
    reader.SendUnrecognized();
    return true;
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_PlotSettingsData>() {
    using Record = DxfEnt_PlotSettingsData;
    static const RecordTable table("DxfEnt_PlotSettingsData",
                                   {string(100, "SubclassMarker1", &Record::SubclassMarker1),
                                    string(1, "PageSetupName", &Record::PageSetupName),
                                    string(2, "SystemPrinterName", &Record::SystemPrinterName),
                                    string(4, "PaperSize", &Record::PaperSize),
                                    string(6, "PlotViewName", &Record::PlotViewName),
                                    real(40, "LeftSideSize", &Record::LeftSideSize),
                                    real(41, "BottomSize", &Record::BottomSize),
                                    real(42, "RightSideSize", &Record::RightSideSize),
                                    real(43, "TopSize", &Record::TopSize),
                                    real(44, "PlotPaperWidth", &Record::PlotPaperWidth),
                                    real(45, "PlotPaperHeight", &Record::PlotPaperHeight),
                                    real(46, "PlotXOrign", &Record::PlotXOrign),
                                    real(47, "PlotYOrign", &Record::PlotYOrign),
                                    real(48, "LowerLeftXWinArea", &Record::LowerLeftXWinArea),
                                    real(49, "LowerLeftYWinArea", &Record::LowerLeftYWinArea),
                                    real(140, "UpperLeftXWinArea", &Record::UpperLeftXWinArea),
                                    real(141, "UpperLeftYWinArea", &Record::UpperLeftYWinArea),
                                    real(142, "NumeratorOfScale", &Record::NumeratorOfScale),
                                    real(143, "DenominatorOfScale", &Record::DenominatorOfScale),
                                    integer(70, "PlotLayoutFlag", &Record::PlotLayoutFlag),
                                    integer(72, "PlotPaperUnits", &Record::PlotPaperUnits),
                                    integer(73, "PlotRotation", &Record::PlotRotation),
                                    integer(74, "PlotType", &Record::PlotType),
                                    string(7, "CurrentStyleSheet", &Record::CurrentStyleSheet),
                                    integer(75, "StandardScaleType", &Record::StandardScaleType),
                                    real(147, "ScaleFactor", &Record::ScaleFactor),
                                    real(148, "XPaperImageOrign", &Record::XPaperImageOrign),
                                    real(149, "YPaperImageOrign", &Record::YPaperImageOrign)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_PlotSettings>() {
    using Record = DxfEnt_PlotSettings;
    static const RecordTable table(
        "DxfEnt_PlotSettings", {base(record_table<DxfSection_NgEntity>()),
                                record<&Record::Data>(100, "Data", record_table<DxfEnt_PlotSettingsData>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Layout>() {
    using Record = DxfEnt_Layout;
    static const RecordTable table(
        "DxfEnt_Layout",
        {base(record_table<DxfSection_NgEntity>()), piece(147, {&read_plot_setting, nullptr, nullptr}),
         piece(148, {&read_plot_setting, nullptr, nullptr}),
         piece(149, {&read_plot_setting, nullptr, nullptr}),
         record<&Record::PlotSettings>(100, "PlotSettings", record_table<DxfEnt_PlotSettingsData>())
             .opened_by("AcDbPlotSettings"),
         string(100, "SubclassMarker2", &Record::SubclassMarker2),
         string(1, "LayoutName", &Record::LayoutName), integer(70, "Flag", &Record::Flag),
         integer(71, "TabOrder", &Record::TabOrder), point2(10, "MinimumLimits", &Record::MinimumLimits),
         point2(11, "MaximumLimits", &Record::MaximumLimits),
         point(12, "InsertionBasePoint", &Record::InsertionBasePoint),
         point(14, "MinimumExtents", &Record::MinimumExtents),
         point(15, "MaximumExtents", &Record::MaximumExtents), real(146, "Elevation", &Record::Elevation),
         point(13, "UCSOrigin", &Record::UCSOrigin), point(16, "XAxis", &Record::XAxis),
         point(17, "YAxis", &Record::YAxis),
         // Newer plot settings hold a 76 of their own, which ends them and comes here first.
         integer(76, "OrthographicType", &Record::OrthographicType).last_of_many(),
         handle(330, "PaperID", &Record::PaperID), handle(331, "ViewportID", &Record::ViewportID),
         handle(345, "UCSTableRecID", &Record::UCSTableRecID).unless_undefined(),
         handle(346, "BaseUCSTableRecID", &Record::BaseUCSTableRecID).unless_undefined()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_ViewPort>() {
    using Record = DxfEnt_ViewPort;
    static const RecordTable table(
        "DxfEnt_ViewPort",
        {base(record_table<DxfSection_Entity>()),
         marker("AcDbViewport"),
         point(10, "CenterPoint", &Record::CenterPoint),
         real(40, "Width", &Record::Width),
         real(41, "Height", &Record::Height),
         integer(68, "ViewportStatus", &Record::ViewportStatus),
         integer(69, "ViewportID", &Record::ViewportID),
         point2(12, "ViewCenterPoint", &Record::ViewCenterPoint),
         point2(13, "SnapBasePoint", &Record::SnapBasePoint),
         point2(14, "SnapSpacing", &Record::SnapSpacing),
         point2(15, "GridSpacing", &Record::GridSpacing),
         point(16, "ViewDirection", &Record::ViewDirection),
         point(17, "ViewTargetPoint", &Record::ViewTargetPoint),
         real(42, "LensLength", &Record::LensLength),
         real(43, "FrontClipPlane", &Record::FrontClipPlane),
         real(44, "BackClipPlane", &Record::BackClipPlane),
         real(45, "ViewHeight", &Record::ViewHeight),
         real(50, "SnapAngle", &Record::SnapAngle),
         real(51, "TwistAngle", &Record::TwistAngle),
         integer(72, "CircleZoomPercent", &Record::CircleZoomPercent),
         handles(341, "FrozenLayerObjectIDs", &Record::FrozenLayerObjectIDs),
         integer(90, "ViewportStatusFlags", &Record::ViewportStatusFlags),
         handle(340, "ClipBoundary", &Record::ClipBoundary).unless_undefined(),
         string(1, "PlotStyleSheet", &Record::PlotStyleSheet),
         integer(281, "RenderMode", &Record::RenderMode),
         integer(71, "UCSViewportFlag", &Record::UCSViewportFlag),
         integer(74, "UCSOriginFlag", &Record::UCSOriginFlag),
         point(110, "UCSOrigin", &Record::UCSOrigin),
         point(111, "UCSXAxis", &Record::UCSXAxis),
         point(112, "UCSYAxis", &Record::UCSYAxis),
         handle(345, "TableRecordID", &Record::TableRecordID).unless_undefined(),
         handle(346, "BaseUCSTableRecordID", &Record::BaseUCSTableRecordID).unless_undefined(),
         integer(79, "OrthoType", &Record::OrthoType),
         real(146, "Elevation", &Record::Elevation)});
    return table;
}

}  // namespace veltrane
