// ACAD_PROXY_ENTITY, ACAD_PROXY_OBJECT, OLEFRAME, OLE2FRAME and VBA_PROJECT; SPATIAL_FILTER, SPATIAL_INDEX,
// LAYER_FILTER and LAYER_INDEX.
#include "file/golden.hpp"

namespace veltrane {
namespace {

const Goldens kEmbedded({
    {"0 ACAD_PROXY_ENTITY|" ENTITY
     "92 1|310 00|100 AcDbProxyEntity|90 498|91 500|92 2|310 AB|310 CD|93 8|310 EF|"
     "330 A|340 B|350 C|360 D|94 0|95 21|70 1",
     1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbProxyEntity|AppEntID=500|GraphDataLen=2|GraphData=[DxfSection_BinData]|"
                 "EntDataLen=8|EntData=[DxfSection_BinData]|ObjectID1=10|ObjectID2=11|ObjectID3=12|"
                 "ObjectID4=13|DrawingFormat=21|DataFormat=1"},
    {"0 ACAD_PROXY_ENTITY|5 1|100 AcDbEntity|100 AcDbProxyEntity|94 7", 1015,
     "0 ACAD_PROXY_ENTITY|5 1|100 AcDbEntity|100 AcDbProxyEntity|90 498|91 0|94 0|95 0|70 0",
     ENTITY_DUMP "@SubclassMarker=AcDbProxyEntity|AppEntID=0|GraphDataLen=-1|GraphData=<NULL>|"
                 "EntDataLen=-1|EntData=<NULL>|ObjectID1=-1|ObjectID2=-1|ObjectID3=-1|ObjectID4=-1|"
                 "DrawingFormat=0|DataFormat=0"},
    {"0 ACAD_PROXY_OBJECT|" HEAD
     "100 AcDbProxyObject|90 499|91 500|95 21|70 1|93 16|310 ABCD|330 A|340 B|350 C|"
     "360 D|94 0",
     1015,
     "0 ACAD_PROXY_OBJECT|" HEAD
     "100 AcDbProxyObject|91 500|93 16|310 ABCD|330 A|340 B|350 C|360 D|94 0|95 21|"
     "70 1",
     OBJECT_DUMP "@SubclassMarker=AcDbProxyObject|ProxyObjectID=499|AppObjectClassID=500|ObjectDataSize=16|"
                 "ObjectData=[DxfSection_BinData]|ObjectID1=10|ObjectID2=11|ObjectID3=12|ObjectID4=13|"
                 "DrawingFormat=21|OriginalData=1"},
    {"0 ACAD_PROXY_OBJECT|5 1|90 498|310 AB", 1015,
     "0 ACAD_PROXY_OBJECT|5 1|100 AcDbProxyObject|90 498|91 0|93 0|310 AB|94 0|95 0|70 0"},
    {"0 OLEFRAME|" ENTITY "92 1|310 00|100 AcDbOleFrame|70 1|90 2|310 AB|310 CD|1 OLE", 1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbOleFrame|VersionNumber=1|DataLength=2|BinaryData=[DxfSection_BinData]"},
    {"0 OLE2FRAME|" ENTITY
     "100 AcDbOle2Frame|70 2|3 Sheet|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|71 2|72 1|"
     "90 2|310 AB|310 CD|1 OLE",
     1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbOle2Frame|VersionNumber=2|SourceName=\"Sheet\"|"
                 "UpperLeftCorner=(1, 2, 3)|LowerRightCorner=(4, 5, 6)|OLEObjectType=2|TileModeDescriptor=1|"
                 "DataLength=2|BinaryData=[DxfSection_BinData]"},
    {"0 VBA_PROJECT|" HEAD "100 AcDbVbaProject|331 A|331 B|90 2|310 ABCD", 1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbVbaProject|EntSoftPointerIDs={ [array of 2 items] }|BytesNumber=2|"
                 "Data=[DxfSection_BinData]"},
});

const Goldens kFilters({
    {"0 SPATIAL_FILTER|" HEAD "100 AcDbFilter|100 AcDbSpatialFilter|70 2|10 1.0|20 2.0|10 3.0|20 4.0|210 0.0|"
     "220 0.0|230 1.0|11 5.0|21 6.0|31 7.0|71 1|72 2|40 8.0|73 3|41 9.0|40 10.0",
     1015,
     "0 SPATIAL_FILTER|" HEAD
     "100 AcDbFilter|100 AcDbSpatialFilter|70 2|10 3.0|20 4.0|210 0.0|220 0.0|230 1.0|"
     "11 5.0|21 6.0|31 7.0|71 1|72 2|73 3|41 9.0|40 8.0|40 10.0",
     OBJECT_DUMP "@SubclassMarker=AcDbFilter|@SubclassMarker2=AcDbSpatialFilter|ClipBndPntNum=2|"
                 "ClipBndDefPnt=(3, 4)|Normal=(0, 0, 1)|Origin=(5, 6, 7)|DisplayEnabledFlag=1|"
                 "FrontClipPlnFlag=2|BackClipPlnFlag=3|BackClipPlnDist=9|TransMatrix={ [array of 2 items] }"},
    {"0 SPATIAL_INDEX|" HEAD "100 AcDbIndex|40 2451544.5|100 AcDbSpatialIndex", 1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbIndex|TimeStamp=2.45154e+06|@SubclassMarker2=AcDbSpatialIndex"},
    {"0 LAYER_FILTER|" HEAD "100 AcDbFilter|100 AcDbLayerFilter|8 walls|8 doors", 1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbFilter|@SubclassMarker2=AcDbLayerFilter|"
                 "LayerName={ [array of 2 items] }"},
    {"0 LAYER_INDEX|" HEAD "100 AcDbIndex|40 0.5|100 AcDbLayerIndex|8 walls|360 A|90 1|8 doors|360 B|90 2",
     1015, "0 LAYER_INDEX|" HEAD "100 AcDbIndex|40 0.5|100 AcDbLayerIndex|8 walls|8 doors|360 A|360 B|90 2",
     OBJECT_DUMP "@SubclassMarker=AcDbIndex|TimeStamp=0.5|@SubclassMarker2=AcDbLayerIndex|"
                 "LayerName={ [array of 2 items] }|IDBufferRef={ [array of 2 items] }|IDBuffErentriesNum=2"},
    {"0 LAYER_INDEX|5 1", 1015, "0 LAYER_INDEX|5 1|100 AcDbIndex|40 0.0|100 AcDbLayerIndex"},
});

}  // namespace
}  // namespace veltrane
