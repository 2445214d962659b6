// Sections, blocks, classes and what every record has.
#include "file/golden.hpp"

namespace veltrane {
namespace {

const Goldens kStructure({
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
    {"0 ACDSRECORD|90 1|2 ID|280 10|320 2F|2 Data|94 2|310 0A0B", 1024, "0 ACDSRECORD",
     "Inherits DxfSection_Object|Names={ [array of 2 items] }|Data=[2 bytes]|EntityHandle=47"},
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
     ENTITY_DUMP "@SubclassMarker2=AcDbBlockEnd"},
});

/// The fields that records share, on entities and on table entries.
const Goldens kCommon({
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
});

}  // namespace
}  // namespace veltrane
