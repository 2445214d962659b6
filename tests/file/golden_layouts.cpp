// LAYOUT, PLOTSETTINGS and VIEWPORT; IMAGE, IMAGEDEF, IMAGEDEF_REACTOR and RASTERVARIABLES.
#include "file/golden.hpp"

namespace veltrane {
namespace {

#define PLOT                                                                                              \
    "100 AcDbPlotSettings|1 page|2 printer|4 A4|6 view|40 1.0|41 2.0|42 3.0|43 4.0|44 5.0|45 6.0|46 7.0|" \
    "47 8.0|48 9.0|49 10.0|140 11.0|141 12.0|142 13.0|143 14.0|70 15|72 16|73 17|74 18|7 style|75 19|"    \
    "147 20.0|148 21.0|149 22.0"
#define ZERO_PLOT                                                                                            \
    "40 0.0|41 0.0|42 0.0|43 0.0|44 0.0|45 0.0|46 0.0|47 0.0|48 0.0|49 0.0|140 0.0|141 0.0|142 0.0|143 0.0|" \
    "70 0|72 0|73 0|74 0|75 0|147 0.0|148 0.0|149 0.0"
#define LAYOUT_REST                                                                                       \
    "10 0.0|20 0.0|11 0.0|21 0.0|12 0.0|22 0.0|32 0.0|14 0.0|24 0.0|34 0.0|15 0.0|25 0.0|35 0.0|146 0.0|" \
    "13 0.0|23 0.0|33 0.0|16 0.0|26 0.0|36 0.0|17 0.0|27 0.0|37 0.0|76 0|330 0|331 0"

const Goldens kLayouts({
    {"0 PLOTSETTINGS|" HEAD PLOT, 1015, nullptr, OBJECT_DUMP "Data=[DxfEnt_PlotSettingsData]"},
    {"0 PLOTSETTINGS|5 1|100 any|70 1", 1015,
     "0 PLOTSETTINGS|5 1|100 any|40 0.0|41 0.0|42 0.0|43 0.0|44 0.0|45 0.0|46 0.0|47 0.0|48 0.0|49 0.0|"
     "140 0.0|141 0.0|142 0.0|143 0.0|70 1|72 0|73 0|74 0|75 0|147 0.0|148 0.0|149 0.0"},
    {"0 PLOTSETTINGS|5 1", 1015},
    {"0 LAYOUT|" HEAD PLOT
     "|100 AcDbLayout|1 Model|70 1|71 2|10 3.0|20 4.0|11 5.0|21 6.0|12 7.0|22 8.0|32 9.0|"
     "14 10.0|24 11.0|34 12.0|15 13.0|25 14.0|35 15.0|146 16.0|13 17.0|23 18.0|33 19.0|16 20.0|26 21.0|36 "
     "22.0|"
     "17 23.0|27 24.0|37 25.0|76 26|330 27|331 28|345 29|346 2A",
     1015, nullptr,
     OBJECT_DUMP
     "PlotSettings=[DxfEnt_PlotSettingsData]|SubclassMarker2=\"AcDbLayout\"|LayoutName=\"Model\"|"
     "Flag=1|TabOrder=2|MinimumLimits=(3, 4)|MaximumLimits=(5, 6)|InsertionBasePoint=(7, 8, 9)|"
     "MinimumExtents=(10, 11, 12)|MaximumExtents=(13, 14, 15)|Elevation=16|"
     "UCSOrigin=(17, 18, 19)|XAxis=(20, 21, 22)|YAxis=(23, 24, 25)|OrthographicType=26|PaperID=39|"
     "ViewportID=40|UCSTableRecID=41|BaseUCSTableRecID=42"},
    {"0 LAYOUT|5 1", 1015, "0 LAYOUT|5 1|70 0|71 0|" LAYOUT_REST},
    // A group that the plot settings do not know ends them.
    {"0 LAYOUT|5 1|100 AcDbPlotSettings|76 1|70 2|100 other|1 Model", 1015,
     "0 LAYOUT|5 1|100 AcDbPlotSettings|" ZERO_PLOT "|100 other|1 Model|70 2|71 0|"
     "10 0.0|20 0.0|11 0.0|21 0.0|12 0.0|22 0.0|32 0.0|14 0.0|24 0.0|34 0.0|15 0.0|25 0.0|35 0.0|146 0.0|"
     "13 0.0|23 0.0|33 0.0|16 0.0|26 0.0|36 0.0|17 0.0|27 0.0|37 0.0|76 1|330 0|331 0"},
    {"0 VIEWPORT|" ENTITY
     "100 AcDbViewport|10 1.0|20 2.0|30 3.0|40 4.0|41 5.0|68 6|69 7|12 8.0|22 9.0|13 10.0|"
     "23 11.0|14 12.0|24 13.0|15 14.0|25 15.0|16 16.0|26 17.0|36 18.0|17 19.0|27 20.0|37 21.0|42 22.0|43 "
     "23.0|"
     "44 24.0|45 25.0|50 26.0|51 27.0|72 28|341 A|341 B|90 29|340 C|1 sheet|281 30|71 31|74 32|110 33.0|"
     "120 34.0|130 35.0|111 36.0|121 37.0|131 38.0|112 39.0|122 40.0|132 41.0|345 D|346 E|79 42|146 43.0",
     1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbViewport|CenterPoint=(1, 2, 3)|Width=4|Height=5|ViewportStatus=6|"
                 "ViewportID=7|ViewCenterPoint=(8, 9)|SnapBasePoint=(10, 11)|SnapSpacing=(12, 13)|"
                 "GridSpacing=(14, 15)|ViewDirection=(16, 17, 18)|ViewTargetPoint=(19, 20, 21)|LensLength=22|"
                 "FrontClipPlane=23|BackClipPlane=24|ViewHeight=25|SnapAngle=26|TwistAngle=27|"
                 "CircleZoomPercent=28|FrozenLayerObjectIDs={ [array of 2 items] }|ViewportStatusFlags=29|"
                 "ClipBoundary=12|PlotStyleSheet=\"sheet\"|RenderMode=30|UCSViewportFlag=31|UCSOriginFlag=32|"
                 "UCSOrigin=(33, 34, 35)|UCSXAxis=(36, 37, 38)|UCSYAxis=(39, 40, 41)|TableRecordID=13|"
                 "BaseUCSTableRecordID=14|OrthoType=42|Elevation=43"},
    {"0 VIEWPORT|5 1", 1009,
     "0 VIEWPORT|5 1|100 AcDbEntity|100 AcDbViewport|10 0.0|20 0.0|30 0.0|40 0.0|41 0.0|68 0|69 0|12 0.0|22 "
     "0.0|"
     "13 0.0|23 0.0|14 0.0|24 0.0|15 0.0|25 0.0|16 0.0|26 0.0|36 0.0|17 0.0|27 0.0|37 0.0|42 0.0|43 0.0|44 "
     "0.0|"
     "45 0.0|50 0.0|51 0.0|72 0|90 0|281 0|71 0|74 0|110 0.0|120 0.0|130 0.0|111 0.0|121 0.0|131 0.0|112 0.0|"
     "122 0.0|132 0.0|79 0|146 0.0"},
});

const Goldens kImages({
    {"0 IMAGE|" ENTITY
     "100 AcDbRasterImage|90 1|10 2.0|20 3.0|30 4.0|11 5.0|21 6.0|31 7.0|12 8.0|22 9.0|32 10.0|"
     "13 640.0|23 480.0|340 A|70 11|280 12|281 13|282 14|283 15|360 B|71 2|91 4|14 1.0|24 2.0|14 3.0|24 4.0|"
     "14 5.0|24 6.0|14 7.0|24 8.0",
     1015,
     "0 IMAGE|" ENTITY
     "100 AcDbRasterImage|90 1|10 2.0|20 3.0|30 4.0|11 5.0|21 6.0|31 7.0|12 8.0|22 9.0|32 10.0|"
     "13 640.0|23 480.0|340 A|70 11|280 12|281 13|282 14|283 15|360 B|71 2|91 4|14 7.0|24 8.0",
     ENTITY_DUMP "@SubclassMarker=AcDbRasterImage|ClassVersion=1|InsertionPoint=(2, 3, 4)|UVector=(5, 6, 7)|"
                 "VVector=(8, 9, 10)|ImageSize=(640, 480)|ImagedefObject=10|DisplayProperties=11|"
                 "ClippingState=12|Brightness=13|Contrast=14|Fade=15|ImagedefReactor=11|ClipBoundaryType=2|"
                 "ClipBndVertNumber=4|ClipBoundaryVertex=(7, 8)"},
    {"0 IMAGEDEF|" HEAD "100 AcDbRasterImageDef|90 1|1 a.png|10 640.0|20 480.0|11 0.5|21 0.25|280 1|281 5",
     1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbRasterImageDef|ClassVersion=1|ImageFileName=\"a.png\"|"
                 "ImageSize=(640, 480)|DefaultSize=(0.5, 0.25)|IsLoadedFlag=1|ResolutionUnits=5"},
    {"0 IMAGEDEF_REACTOR|" HEAD "100 AcDbRasterImageDefReactor|90 2|330 1F", 1015,
     "0 IMAGEDEF_REACTOR|" HEAD "100 AcDbRasterImageDefReactor|90 2",
     OBJECT_DUMP "@SubclassMarker=AcDbRasterImageDefReactor|ClassVersion=2"},
    {"0 RASTERVARIABLES|" HEAD "100 AcDbRasterVariables|90 1|70 2|71 3|72 4", 1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbRasterVariables|ClassVersion=1|DisplayImageFrameFlag=2|"
                 "ImageDisplayQuality=3|AutoCADUnits=4"},
});

}  // namespace
}  // namespace veltrane
