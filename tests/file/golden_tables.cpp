// Tables and their entries.
#include "file/golden.hpp"

namespace veltrane {
namespace {

#define VIEW_HEAD                                                                                 \
    ENTRY                                                                                         \
    "100 AcDbViewTableRecord|2 top|70 1|40 1.0|10 2.0|20 3.0|41 4.0|11 5.0|21 6.0|31 7.0|12 8.0|" \
    "22 9.0|32 10.0|42 11.0|43 12.0|44 13.0|50 14.0|71 15|281 16|72 17|"
#define VPORT_HEAD                                                                                   \
    ENTRY                                                                                            \
    "100 AcDbViewportTableRecord|2 *Active|70 1|10 1.0|20 2.0|11 3.0|21 4.0|12 5.0|22 6.0|13 7.0|"   \
    "23 8.0|14 9.0|24 10.0|15 11.0|25 12.0|16 13.0|26 14.0|36 15.0|17 16.0|27 17.0|37 18.0|40 19.0|" \
    "41 20.0|42 21.0|43 22.0|44 23.0|50 24.0|51 25.0|71 26|72 27|73 28|74 29|75 30|76 31|"           \
    "77 32|78 33|281 34|65 35|"
#define UCS_FIELDS "110 1.0|120 2.0|130 3.0|111 4.0|121 5.0|131 6.0|112 7.0|122 8.0|132 9.0|79 40|146 41.0|"

const Goldens kTables({
    {"0 TABLE|2 LAYER|" HEAD "100 AcDbSymbolTable|70 5|0 LAYER|2 a|0 LAYER|2 b|0 ENDTAB", 1009,
     "0 TABLE|2 LAYER|" HEAD "100 AcDbSymbolTable|70 5|"
     "0 LAYER|5 0|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 a|70 0|62 7|61 0|"
     "0 LAYER|5 0|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 b|70 0|62 7|61 0|0 ENDTAB",
     "Inherits DxfSection_HandledObject|Name=\"LAYER\"|SubclassMarker=\"AcDbSymbolTable\"|MaxEntries=5|"
     "XZProperty=0|Objects={ [array of 2 items] }"},
    {"0 TABLE|2 DIMSTYLE|" HEAD "100 AcDbSymbolTable|70 0|100 AcDbDimStyleTable|71 3|0 ENDTAB", 1015,
     "0 TABLE|2 DIMSTYLE|" HEAD "100 AcDbSymbolTable|70 0|100 AcDbDimStyleTable|71 3|0 ENDTAB",
     "Inherits DxfSection_HandledObject|Name=\"DIMSTYLE\"|SubclassMarker=\"AcDbSymbolTable\"|MaxEntries=0|"
     "DimStyleMarker=\"AcDbDimStyleTable\"|XZProperty=3|Objects=<NOT DEFINED>"},
    {"0 TABLE|2 DIMSTYLE|" HEAD "100 AcDbSymbolTable|70 0|100 AcDbDimStyleTable|71 3|0 ENDTAB", 1014,
     "0 TABLE|2 DIMSTYLE|" HEAD "100 AcDbSymbolTable|70 0|0 ENDTAB", nullptr},
    {"0 APPID|" ENTRY "100 AcDbRegAppTableRecord|2 ACAD|70 64", 1009,
     "0 APPID|" ENTRY "100 AcDbRegAppTableRecord|2 ACAD|70 64",
     ENTRY_DUMP "@SubclassMarker2=AcDbRegAppTableRecord|Name=\"ACAD\"|Flag=64"},
    {"0 BLOCK_RECORD|" ENTRY "2 *Model_Space|340 22|310 00FF|310 01", 1015,
     "0 BLOCK_RECORD|" ENTRY "100 AcDbBlockTableRecord|2 *Model_Space|340 22|310 00FF|310 01",
     ENTRY_DUMP "@SubclassMarker2=AcDbBlockTableRecord|Name=\"*Model_Space\"|Layout=34|"
                "Bitmap=[DxfSection_BinData]"},
    {"0 BLOCK_RECORD|" ENTRY "2 *Model_Space|340 22|310 00FF", 1014,
     "0 BLOCK_RECORD|" ENTRY "100 AcDbBlockTableRecord|2 *Model_Space", nullptr},
    {"0 LAYER|" ENTRY "2 walls|70 4|62 -3|61 9|6 DASHED|290 1|370 50|390 F", 1015,
     "0 LAYER|" ENTRY "100 AcDbLayerTableRecord|2 walls|70 4|62 -3|61 0|6 DASHED|290 1|370 50|390 F",
     ENTRY_DUMP "@SubclassMarker2=AcDbLayerTableRecord|Name=\"walls\"|Flag=4|Color=-3|@XZField=\"DASHED\"|"
                "PlottingFlag=1|LineWeight=50|Hard=15"},
    {"0 LAYER|2 0|70 0|62 7|6 CONTINUOUS", 1009,
     "0 LAYER|5 0|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70 0|62 7|61 0|6 "
     "CONTINUOUS",
     nullptr},
    {"0 LAYER|2 0", 1015,
     "0 LAYER|5 0|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70 0|62 7|61 0|290 "
     "0|370 |"
     "390 0",
     ENTRY_DUMP "@SubclassMarker2=AcDbLayerTableRecord|Name=\"0\"|Flag=0|Color=7|PlottingFlag=0|"
                "LineWeight=-1|Hard=0"},
    {"0 LTYPE|" ENTRY "2 GAS|70 0|3 -- GAS --|72 66|73 2|40 2.5|49 0.5|74 2|75 130|340 11|46 0.25|50 90|"
     "44 -0.125|45 -0.5|9 GAS|49 -1.5|74 4|75 1|340 12|46 1|50 2|44 3|45 4",
     1015,
     "0 LTYPE|" ENTRY "100 AcDbLinetypeTableRecord|2 GAS|70 0|3 -- GAS --|72 65|73 2|40 2.5|49 0.5|"
     "74 2|75 130|340 11|46 0.25|50 90.0|44 -0.125|45 -0.5|9 GAS|49 -1.5|74 4|75 1|340 12|46 1.0|"
     "50 2.0|44 3.0|45 4.0",
     ENTRY_DUMP "@SubclassMarker2=AcDbLinetypeTableRecord|Name=\"GAS\"|Flag=0|DescriptiveText=\"-- GAS --\"|"
                "@AlignmentCode=65|LineTypesNumber=2|PatternLength=2.5|Elements={ [array of 2 items] }"},
    {"0 STYLE|" ENTRY "2 standard|70 1|40 2.5|41 0.75|50 15|71 2|42 3.5|3 txt|4 big", 1009,
     "0 STYLE|" ENTRY "100 AcDbTextStyleTableRecord|2 standard|70 1|40 2.5|41 0.75|50 15.0|71 2|42 3.5|"
     "3 txt|4 big",
     ENTRY_DUMP "@SubclassMarker2=AcDbTextStyleTableRecord|Name=\"standard\"|Flag=1|TextHeight=2.5|"
                "WidthFactor=0.75|ObliqueAngle=15|GenerationFlags=2|LastHeight=3.5|PrimFontFileName=\"txt\"|"
                "BigFontFileName=\"big\""},
    {"0 UCS|" ENTRY "2 front|70 1|10 1|20 2|30 3|11 4|21 5|31 6|12 7|22 8|32 9|79 5|146 10|346 A|71 2|13 1|"
     "23 2|33 3",
     1009,
     "0 UCS|" ENTRY "100 AcDbUCSTableRecord|2 front|70 1|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|12 7.0|"
     "22 8.0|32 9.0|79 0|146 10.0|346 A|71 2|13 1.0|23 2.0|33 3.0",
     ENTRY_DUMP "@SubclassMarker2=AcDbUCSTableRecord|Name=\"front\"|Flag=1|Origin=(1, 2, 3)|XAxis=(4, 5, 6)|"
                "YAxis=(7, 8, 9)|Elevation=10|BaseUCSID=10|OrthographicType=2|OriginForOT=(1, 2, 3)"},
    {"0 UCS|2 empty", 1015,
     "0 UCS|5 0|100 AcDbSymbolTableRecord|100 AcDbUCSTableRecord|2 empty|70 0|10 0.0|20 0.0|30 0.0|11 0.0|"
     "21 0.0|31 0.0|12 0.0|22 0.0|32 0.0|79 0|146 0.0|346 |71 0",
     nullptr},
    {"0 VIEW|" VIEW_HEAD UCS_FIELDS "345 2A|346 2B", 1009, "0 VIEW|" VIEW_HEAD UCS_FIELDS "345 2A|346 2B",
     ENTRY_DUMP
     "@SubclassMarker2=AcDbViewTableRecord|Name=\"top\"|Flag=1|Height=1|CenterPoint=(2, 3)|Width=4|"
     "DirFromTarget=(5, 6, 7)|TargetPoint=(8, 9, 10)|LensLength=11|FrontClipPlane=12|"
     "BackClipPlane=13|Twist=14|ViewMode=15|RenderMode=16|IsUCSAssociated=17|UCSOrigin=(1, 2, 3)|"
     "UCSXAxis=(4, 5, 6)|UCSYAxis=(7, 8, 9)|UCSOrthoType=40|UCSElevation=41|NameID=42|UCSID=43"},
    {"0 VIEW|" VIEW_HEAD "2 top", 1015, "0 VIEW|" VIEW_HEAD "79 |146 |345 |346 ", nullptr},
    {"0 VPORT|" VPORT_HEAD UCS_FIELDS "345 2A|346 2B", 1009, "0 VPORT|" VPORT_HEAD UCS_FIELDS "345 2A|346 2B",
     ENTRY_DUMP "@SubclassMarker2=AcDbViewportTableRecord|Name=\"*Active\"|Flag=1|LowerLeftCorner=(1, 2)|"
                "UpperRightCorner=(3, 4)|ViewCenterPoint=(5, 6)|SnapBasePoint=(7, 8)|SnapSpacing=(9, 10)|"
                "GridSpacing=(11, 12)|ViewDirection=(13, 14, 15)|ViewTargetPoint=(16, 17, 18)|ViewHeight=19|"
                "AspectRatio=20|LensLength=21|FrontClipPlane=22|BackClipPlane=23|SnapRotAngle=24|"
                "TwistAngle=25|ViewMode=26|CircleZoomPercent=27|FastZoomSetting=28|UCSIconSetting=29|"
                "SnapOnOff=30|GridOnOff=31|SnapStyle=32|SnapIsoPair=33|RenderMode=34|UCSVPValue=35|"
                "UCSOrigin=(1, 2, 3)|UCSXAxis=(4, 5, 6)|UCSYAxis=(7, 8, 9)|UCSOrthoType=40|UCSElevation=41|"
                "NameID=42|UCSID=43"},
    {"0 VPORT|" VPORT_HEAD "2 *Active", 1015, "0 VPORT|" VPORT_HEAD "79 |146 |345 |346 ", nullptr},
});

}  // namespace
}  // namespace veltrane
