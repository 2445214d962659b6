// A golden pair for each typed record: groups in, groups out and dump, typed from the format's description.
// A code that is wrong but legal survives any round trip; it does not survive this table.
#include "support/dxf_text.hpp"
#include "veltrane/file/common.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

/// A dump in one line: "Name=value|Name=value".
std::string short_dump(const DxfSection_Object& record, int level) {
    std::ostringstream out;
    DxfFile_RWObject::Dump(out, record, level);
    std::string text = out.str(), result;
    for (std::size_t at; (at = text.find(": \t")) != std::string::npos;) text.replace(at, 3, "=");
    for (char c : text) result += c == '\n' ? '|' : c;
    if (!result.empty()) result.pop_back();
    return result;
}

struct Golden {
    const char* in;
    int version;
    const char* out;
    const char* dump;  ///< at level 0; null where an earlier row tells it
};

void check(const Golden& golden) {
    const auto record = record_of(golden.in);
    ASSERT_TRUE(record) << golden.in;
    EXPECT_EQ(short_form(written(*record, golden.version)), golden.out) << golden.version;
    if (!golden.dump) return;
    EXPECT_EQ(short_dump(*record, 0), golden.dump);
}

#define HEAD "5 2F|330 1F|"  // handle and owner
#define ENTITY HEAD "100 AcDbEntity|8 walls|"
#define ENTRY HEAD "100 AcDbSymbolTableRecord|"
#define ENTITY_DUMP "Inherits DxfSection_Entity|"
#define ENTRY_DUMP "Inherits DxfSection_TabEntry|"

const Golden kCurves[] = {
    {"0 LINE|" HEAD "8 walls|100 any|39 0.5|21 5|10 1|31 6|11 4|20 2|30 3|210 0|220 1|230 0", 1015,
     "0 LINE|" ENTITY "100 AcDbLine|39 0.5|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|210 0.0|220 1.0|230 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbLine|Thickness=0.5|StartPoint=(1, 2, 3)|EndPoint=(4, 5, 6)|"
                 "ExtrusionDir=(0, 1, 0)"},
    {"0 LINE", 1009, "0 LINE|5 0|100 AcDbEntity|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbLine|Thickness=0|StartPoint=(0, 0, 0)|EndPoint=(0, 0, 0)|"
                 "ExtrusionDir=(0, 0, 1)"},
    {"0 POINT|" ENTITY "100 AcDbPoint|10 1|20 2|30 3|39 4|210 0|220 0|230 -1|50 45.5", 1015,
     "0 POINT|" ENTITY "100 AcDbPoint|10 1.0|20 2.0|30 3.0|39 4.0|210 0.0|220 0.0|230 -1.0|50 45.5",
     ENTITY_DUMP "@SubclassMarker=AcDbPoint|PointLocation=(1, 2, 3)|Thickness=4|ExtrusionDir=(0, 0, -1)|"
                 "XAxisAngle=45.5"},
    {"0 POINT|" ENTITY "100 AcDbPoint|10 1|20 2|30 3|39 0|50 0", 1015,
     "0 POINT|" ENTITY "100 AcDbPoint|10 1.0|20 2.0|30 3.0", nullptr},
    {"0 CIRCLE|" ENTITY "100 AcDbCircle|39 1|10 7|40 2.5|210 0|220 0|230 1.00000000001", 1015,
     "0 CIRCLE|" ENTITY "100 AcDbCircle|39 1.0|10 7.0|20 0.0|30 0.0|40 2.5",
     ENTITY_DUMP "@SubclassMarker=AcDbCircle|Thickness=1|CenterPoint=(7, 0, 0)|Radius=2.5|"
                 "ExtrusionDir=(0, 0, 1)"},
    {"0 CIRCLE|" ENTITY "100 AcDbCircle|39 0|10 1|20 2|30 3|40 4|230 -1", 1015,
     "0 CIRCLE|" ENTITY "100 AcDbCircle|10 1.0|20 2.0|30 3.0|40 4.0", nullptr},  // a 230 alone is no point
    {"0 CIRCLE|" ENTITY "100 AcDbCircle|10 1|20 2|30 3|40 4|210 0|220 0|230 -1", 1015,
     "0 CIRCLE|" ENTITY "100 AcDbCircle|10 1.0|20 2.0|30 3.0|40 4.0|210 0.0|220 0.0|230 -1.0", nullptr},
    {"0 ARC|" ENTITY "100 AcDbCircle|10 1|20 2|40 5|100 AcDbArc|50 30|51 60.5", 1012,
     "0 ARC|" ENTITY "100 AcDbCircle|10 1.0|20 2.0|30 0.0|40 5.0|100 AcDbArc|50 30.0|51 60.5",
     "Inherits DxfEnt_Circle|@SubclassMarker1=AcDbArc|StartAngle=30|EndAngle=60.5"},
    {"0 ARC|" ENTITY "40 5", 1024,
     "0 ARC|" HEAD "100 AcDbEntity|8 walls|370 0|100 AcDbCircle|10 0.0|20 0.0|30 0.0|40 5.0|"
     "100 AcDbArc|50 0.0|51 0.0",
     nullptr},
    {"0 ELLIPSE|" ENTITY
     "100 AcDbEllipse|10 1|20 2|30 3|11 4|21 5|31 6|210 0|220 1|230 0|40 0.5|41 0.25|42 3",
     1015,
     "0 ELLIPSE|" ENTITY "100 AcDbEllipse|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|210 0.0|220 1.0|230 0.0|"
     "40 0.5|41 0.25|42 3.0",
     ENTITY_DUMP "@SubclassMarker=AcDbEllipse|CenterPoint=(1, 2, 3)|MajorAxis=(4, 5, 6)|"
                 "ExtrusionDir=(0, 1, 0)|Ratio=0.5|StartParameter=0.25|EndParameter=3"},
    {"0 RAY|" ENTITY "100 AcDbRay|10 1|20 2|30 3|11 0|21 1|31 0", 1015,
     "0 RAY|" ENTITY "100 AcDbRay|10 1.0|20 2.0|30 3.0|11 0.0|21 1.0|31 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbRay|StartPoint=(1, 2, 3)|UnitDirection=(0, 1, 0)"},
    {"0 XLINE|" ENTITY "100 any|10 1|20 2|30 3|11 0|21 1|31 0", 1015,
     "0 XLINE|" ENTITY "100 AcDbXline|10 1.0|20 2.0|30 3.0|11 0.0|21 1.0|31 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbXline|FirstPoint=(1, 2, 3)|UnitDirection=(0, 1, 0)"},
    {"0 SPLINE|" ENTITY "70 8|71 3|72 2|73 4|74 1|42 0.0000001|43 0.000001|40 0|40 1|10 1|20 2|30 3|41 0.5|"
     "10 4|20 5|30 6|41 1|11 7|21 8|31 9|12 1|22 0|32 0|13 0|23 1|33 0|210 0|220 0|230 1",
     1015,
     "0 SPLINE|" ENTITY "100 AcDbSpline|210 0.0|220 0.0|230 1.0|70 8|71 3|72 2|73 4|74 1|"
     "43 0.000001|12 1.0|22 0.0|32 0.0|13 0.0|23 1.0|33 0.0|40 0.0|40 1.0|41 0.5|41 1.0|"
     "10 1.0|20 2.0|30 3.0|10 4.0|20 5.0|30 6.0|11 7.0|21 8.0|31 9.0",
     ENTITY_DUMP "@SubclassMarker=AcDbSpline|NormalVector=(0, 0, 1)|SplineFlag=8|SplineCurveDegree=3|"
                 "KnotsNumber=2|ControlPointsNumber=4|FitPointsNumber=1|KnotTolerance=1e-07|"
                 "ControlPointTolerance=1e-06|FitTolerance=1e-07|StartTangent=(1, 0, 0)|EndTangent=(0, 1, 0)|"
                 "Knots={ [array of 2 items] }|Weights={ [array of 2 items] }|"
                 "ControlPoints={ [array of 2 items] }|FitPoints={ [array of 1 items] }"},
    {"0 SPLINE|" ENTITY "73 4", 1015, "0 SPLINE|" ENTITY "100 AcDbSpline|70 0|71 0|72 0|73 4|74 0",
     ENTITY_DUMP "@SubclassMarker=AcDbSpline|NormalVector=(-1e+100, -1e+100, -1e+100)|SplineFlag=0|"
                 "SplineCurveDegree=0|KnotsNumber=0|ControlPointsNumber=4|FitPointsNumber=0|"
                 "KnotTolerance=1e-07|ControlPointTolerance=1e-07|FitTolerance=1e-07|"
                 "StartTangent=(-1e+100, -1e+100, -1e+100)|EndTangent=(-1e+100, -1e+100, -1e+100)|"
                 "Knots=<NOT DEFINED>|Weights=<NOT DEFINED>|ControlPoints=<NOT DEFINED>|"
                 "FitPoints=<NOT DEFINED>"},
};

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

const Golden kTables[] = {
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
};

const Golden kStructure[] = {
    {"0 SECTION|2 ENTITIES|999 note|0 LINE|0 POINT|0 ENDSEC", 1015,
     "0 SECTION|999 note|2 ENTITIES|"
     "0 LINE|5 0|100 AcDbEntity|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0|"
     "0 POINT|5 0|100 AcDbEntity|100 AcDbPoint|10 0.0|20 0.0|30 0.0|0 ENDSEC",
     "Comment={ [array of 1 items] }|Name=\"ENTITIES\"|Variables=<NOT DEFINED>|"
     "Objects={ [array of 2 items] }"},
    {"0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $EXTMIN|10 1.50|20 2|30 3|9 $EMPTY|0 ENDSEC", 1015,
     "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $EXTMIN|10 1.50|20 2|30 3|9 $EMPTY|0 ENDSEC", nullptr},
    {"0 CLASS|1 WIPEOUT|2 AcDbWipeout|3 app|90 127|280 1|281 2|91 7", 1015,
     "0 CLASS|1 WIPEOUT|2 AcDbWipeout|3 app|90 127|280 1|281 2",
     "DXFName=\"WIPEOUT\"|CPPName=\"AcDbWipeout\"|APPName=\"app\"|ProxyFlag=127|WasAProxy=1|IsAnEntity=2"},
    {"0 CLASS", 1015, "0 CLASS|90 0|280 0|281 0", "ProxyFlag=0|WasAProxy=0|IsAnEntity=0"},
    {"0 ACDSRECORD|90 1|2 ID|280 10|320 2F|2 Data|94 2|310 0A0B", 1024, "0 ACDSRECORD", nullptr},
    {"0 WIPEOUT|5 2F|330 1F|100 AcDbEntity|1 |310 FF|0 EOF", 1009,
     "0 WIPEOUT|5 2F|330 1F|100 AcDbEntity|1 |310 FF", "Type=\"WIPEOUT\"|Data={ [array of 5 items] }"},
    {"0 BLOCK|" ENTITY
     "100 AcDbBlockBegin|2 door|70 2|10 1|20 2|30 3|3 DOOR|1 a.dxf|4 a door|0 POINT|5 30|0 LINES|"
     "5 31|0 ENDBLK|5 32|8 ends|100 AcDbBlockEnd",
     1009,
     "0 BLOCK|" ENTITY "100 AcDbBlockBegin|2 door|70 2|10 1.0|20 2.0|30 3.0|3 DOOR|1 a.dxf|4 a door|"
     "0 POINT|5 30|100 AcDbEntity|100 AcDbPoint|10 0.0|20 0.0|30 0.0|0 LINES|5 31|"
     "0 ENDBLK|5 32|100 AcDbEntity|8 ends|100 AcDbBlockEnd",
     ENTITY_DUMP "@SubclassMarker2=AcDbBlockBegin|BlockName1=\"door\"|BlockTypeFlag=2|BasePoint=(1, 2, 3)|"
                 "BlockName2=\"DOOR\"|XRefPathName=\"a.dxf\"|Description=\"a door\"|"
                 "Objects={ [array of 2 items] }|EndMarker=[DxfSection_EndBlk]"},
    {"0 ENDBLK|5 32|8 ends|100 AcDbBlockEnd", 1015, "0 ENDBLK|5 32|100 AcDbEntity|8 ends|100 AcDbBlockEnd",
     nullptr},
};

/// The fields that records share, on entities and on table entries.
const Golden kCommon[] = {
    {"0 RAY|5 1|8 0|62 7|6 BYLAYER", 1015,
     "0 RAY|5 1|100 AcDbEntity|8 0|62 7|100 AcDbRay|10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0", nullptr},
    {"0 RAY|5 1|62 256|67 1|6 DASHED|38 2.5|48 0.5|60 1|370 25|92 2|310 AB|310 CD", 1009,
     "0 RAY|5 1|100 AcDbEntity|67 1|6 DASHED|38 2.5|48 0.5|60 1|92 2|310 AB|310 CD|100 AcDbRay|"
     "10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0",
     nullptr},
    {"0 RAY|5 1|38 2.5|370 25", 1018,
     "0 RAY|5 1|100 AcDbEntity|370 25|100 AcDbRay|10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0", nullptr},
    {"0 RAY|5 |330 ", 1015, "0 RAY|5 |100 AcDbEntity|100 AcDbRay|10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0",
     nullptr},
    {"0 RAY|5 1|102 {ACAD_REACTORS|330 1f|102 }|102 {X|1 a|40 0.10|102 }|330 2|1000 loose|1001 ACAD|1070 5",
     1015,
     "0 RAY|5 1|102 {ACAD_REACTORS|330 1f|102 }|102 {X|1 a|40 0.10|102 }|330 2|100 AcDbEntity|100 AcDbRay|"
     "10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0",
     nullptr},
    {"0 APPID|102 {X|1 a|102 }|5 1|330 2|2 N", 1015,
     "0 APPID|5 1|102 {X|1 a|102 }|330 2|100 AcDbSymbolTableRecord|100 AcDbRegAppTableRecord|2 N|70 0",
     nullptr},
};

template <std::size_t Count>
void check_all(const Golden (&table)[Count]) {
    for (const Golden& golden : table) check(golden);
}

TEST(RecordGolden, Curves) {
    check_all(kCurves);
}
TEST(RecordGolden, Tables) {
    check_all(kTables);
}
TEST(RecordGolden, Structure) {
    check_all(kStructure);
}
TEST(RecordGolden, CommonFields) {
    check_all(kCommon);
}

TEST(RecordGolden, DimensionStyle) {
    struct Variable {
        const char* name;
        int code;
        int since = 0;
    };
    const Variable variables[] = {{"DimPost", 3},
                                  {"DimAPost", 4},
                                  {"DimBLK", 5},
                                  {"DimBLK1", 6},
                                  {"DimBLK2", 7},
                                  {"DimScale", 40},
                                  {"DimASZ", 41},
                                  {"DimEXO", 42},
                                  {"DimDLI", 43},
                                  {"DimEXE", 44},
                                  {"DimRND", 45},
                                  {"DimDLE", 46},
                                  {"DimTP", 47},
                                  {"DimTM", 48},
                                  {"DimTXT", 140},
                                  {"DimCEN", 141},
                                  {"DimTSZ", 142},
                                  {"DimALTF", 143},
                                  {"DimLFAC", 144},
                                  {"DimTVP", 145},
                                  {"DimTFAC", 146},
                                  {"DimGAP", 147},
                                  {"DimALTRND", 148, 1015},
                                  {"DimTOL", 71},
                                  {"DimLIM", 72},
                                  {"DimTIH", 73},
                                  {"DimTOH", 74},
                                  {"DimSE1", 75},
                                  {"DimSE2", 76},
                                  {"DimTAD", 77},
                                  {"DimZIN", 78},
                                  {"DimAZIN", 79, 1015},
                                  {"DimALT", 170},
                                  {"DimALTD", 171},
                                  {"DimTOFL", 172},
                                  {"DimSAH", 173},
                                  {"DimTIX", 174},
                                  {"DimSOXD", 175},
                                  {"DimCLRD", 176},
                                  {"DimCLRE", 177},
                                  {"DimCLRT", 178},
                                  {"DimADEC", 179, 1015},
                                  {"DimUNIT", 270},
                                  {"DimDEC", 271},
                                  {"DimTDEC", 272},
                                  {"DimALTU", 273},
                                  {"DimALTTD", 274},
                                  {"DimAUNIT", 275},
                                  {"DimFRAC", 276, 1015},
                                  {"DimLUNIT", 277, 1015},
                                  {"DimDSEP", 278, 1015},
                                  {"DimTMOVE", 279, 1015},
                                  {"DimJUST", 280},
                                  {"DimSD1", 281},
                                  {"DimSD2", 282},
                                  {"DimTOLJ", 283},
                                  {"DimTZIN", 284},
                                  {"DimALTZ", 285},
                                  {"DimALTTZ", 286},
                                  {"DimFIT", 287},
                                  {"DimUPT", 288},
                                  {"DimATFIT", 289, 1016},
                                  {"DimLWD", 371, 1015},
                                  {"DimLWE", 372, 1015},
                                  {"DimTXSTY", 340},
                                  {"DimLDRBLK", 341, 1015},
                                  {"DimHBLK", 342, 1015},
                                  {"DimHBLK1", 343, 1015},
                                  {"DimHBLK2", 344, 1015}};
    const auto is_real = [](int code) { return (code >= 40 && code <= 48) || (code >= 140 && code <= 148); };
    const auto is_text = [](int code) { return code == 3 || code == 4 || code == 6 || code == 7; };
    const std::string head =
        "0 DIMSTYLE|105 2F|330 1F|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|"
        "2 iso|70 1";
    std::string in = head, dump =
                               "Inherits DxfSection_TabEntry|@SubclassMarker2=AcDbDimStyleTableRecord|"
                               "Name=\"iso\"|Flag=1";
    for (const Variable& variable : variables) {
        in += "|" + std::to_string(variable.code) + " 7";
        dump += std::string("|") + variable.name + (is_text(variable.code) ? "=\"7\"" : "=7");
    }
    const auto record = record_of(in);
    EXPECT_EQ(short_dump(*record, 0), dump);
    for (int version : {1009, 1014, 1015, 1016, 1024}) {
        std::string out = head;
        for (const Variable& variable : variables) {
            if (version < variable.since) continue;
            out += "|" + std::to_string(variable.code) + (is_real(variable.code) ? " 7.0" : " 7");
        }
        EXPECT_EQ(short_form(written(*record, version)), out) << version;
    }
}

TEST(RecordGolden, DumpsAtHigherLevels) {
    const auto line = record_of(
        "0 RAY|5 2F|102 {X|1 a|102 }|1000 loose|1001 ACAD|1000 s|1002 {|1070 5|1002 }|92 1|"
        "310 AB|1 unknown");
    EXPECT_EQ(short_dump(*line, 2),
              "Inherits DxfSection_Entity|{|"
              "Inherits DxfSection_HandledObject|{|Handle=47|AppData={ [array of 1 items] }|Owner=-1|"
              "XDataName=\"loose\"|XAppName=\"ACAD\"|XData=[DxfSection_XData]|}|"
              "@SubclassMarker=AcDbEntity|InModelSpace=0|Linetype=\"BYLAYER\"|Color=256|Elevation0=0|"
              "Lineweight=0|LinetypeScale=1|Visibility=0|ImageLength=1|"
              "ImageData={DxfSection_BinData|Value={ [array of 1 items] }|  }|}|"
              "@SubclassMarker=AcDbRay|StartPoint=(0, 0, 0)|UnitDirection=(0, 0, 0)");
    const std::string full = short_dump(*line, 9);
    for (const char* part : {"AppData={|  {DxfSection_AppData|Name=\"{X\"|Value={|  {1, a}|}|  }|}|",
                             "XAppName=\"ACAD\"|XData={DxfSection_XData|Value={|  {1000, s}|}|XData={|"
                             "  {DxfSection_XData|Value={|  {1070, 5}|}|XData=<NOT DEFINED>|  }|}|  }|",
                             "ImageData={DxfSection_BinData|Value={|  \"AB\"|}|  }|"}) {
        EXPECT_NE(full.find(part), std::string::npos) << part << "\n" << full;
    }
    EXPECT_NE(short_dump(*record_of("0 LTYPE|49 1|74 2"), 1)
                  .find("Elements={|  {DxfSection_LineTypeElement|Length=1|ElementType=2|"),
              std::string::npos);
    EXPECT_EQ(short_dump(*record_of("0 SECTION|2 X|0 CLASS|1 D|0 ENDSEC"), 1),
              "Comment=<NOT DEFINED>|Name=\"X\"|Variables=<NOT DEFINED>|Objects={|  {DxfSection_Class|"
              "DXFName=\"D\"|ProxyFlag=0|WasAProxy=0|IsAnEntity=0|  }|}");
}

}  // namespace
}  // namespace veltrane
