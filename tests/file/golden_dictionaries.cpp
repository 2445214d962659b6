// DICTIONARY, ACDBDICTIONARYWDFLT, DICTIONARYVAR, ACDBPLACEHOLDER and XRECORD; GROUP, SORTENTSTABLE,
// IDBUFFER, DIMASSOC and OBJECT_PTR.
#include "file/golden.hpp"

namespace veltrane {
namespace {

const Goldens kDictionaries({
    {"0 DICTIONARY|" HEAD "100 AcDbDictionary|280 1|281 2|3 A|350 A1|3 B|360 B1|3 C|370 C1", 1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbDictionary|HardOwnerFlag=1|CloningFlag=2|"
                 "DictionaryEntries={ [array of 3 items] }"},
    {"0 DICTIONARY|" HEAD "100 any|3 A|350 A1|281 1|280 1", 1014,
     "0 DICTIONARY|" HEAD "100 AcDbDictionary|3 A|350 A1"},
    {"0 DICTIONARY|" HEAD, 1018, "0 DICTIONARY|" HEAD "100 AcDbDictionary|280 0|281 0"},
    {"0 ACDBDICTIONARYWDFLT|" HEAD
     "100 AcDbDictionary|281 1|3 Normal|350 F|100 AcDbDictionaryWithDefault|340 1F",
     1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbDictionary|CloningFlag=1|EntryName=\"Normal\"|EntryObjectID=15|"
                 "@SubclassMarker2=AcDbDictionaryWithDefault|DefaultObjectID=31"},
    {"0 ACDBDICTIONARYWDFLT|5 1|3 A|350 2|3 B|350 3", 1009,
     "0 ACDBDICTIONARYWDFLT|5 1|100 AcDbDictionary|281 0|3 B|350 3|100 AcDbDictionaryWithDefault"},
    {"0 DICTIONARYVAR|" HEAD "100 DictionaryVariables|280 1|1 a value", 1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=DictionaryVariables|SchemaNumber=1|Value=\"a value\""},
    {"0 ACDBPLACEHOLDER|" HEAD "100 AcDbPlaceHolder|280 7", 1014, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbPlaceHolder|XZData=7"},
    {"0 ACDBPLACEHOLDER|5 1", 1014, "0 ACDBPLACEHOLDER|5 1|100 AcDbPlaceHolder"},
    {"0 ACDBPLACEHOLDER|5 1|280 7", 1015, "0 ACDBPLACEHOLDER|5 1"},
    {"0 ACDBPLACEHOLDER|5 1|280 7", 1012, "0 ACDBPLACEHOLDER|5 1"},
    {"0 XRECORD|" HEAD "100 AcDbXrecord|280 1|1 a|10 1.50|20 2|30 3|40 0.10|1071 5", 1015, nullptr,
     OBJECT_DUMP "Data=[DxfEnt_XRecordData]"},
    {"0 XRECORD|5 1|100 any|280 1|280 2|5 3|102 {X|100 AcDbX|330 4|280 5", 1015,
     "0 XRECORD|5 1|100 AcDbXrecord|280 1|280 2|5 3|102 {X|330 4|280 5"},
    {"0 XRECORD|5 1|100 AcDbXrecord|70 1|280 2", 1015, "0 XRECORD|5 1|100 AcDbXrecord|280 0|70 1|280 2"},
    {"0 XRECORD|5 1|100 AcDbXrecord", 1015, "0 XRECORD|5 1|100 AcDbXrecord|280 0"},
    {"0 XRECORD|5 1", 1015, nullptr, OBJECT_DUMP "Data=<NOT DEFINED>"},
});

const Goldens kLinks({
    {"0 GROUP|" HEAD "100 AcDbGroup|300 doors|70 1|71 2|340 A|340 B", 1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbGroup|Description=\"doors\"|UnnamedFlag=1|SelectabilityFlag=2|"
                 "EntityHandle={ [array of 2 items] }"},
    {"0 SORTENTSTABLE|" HEAD "100 AcDbSortentsTable|331 A|5 B|331 C|5 D", 1015,
     "0 SORTENTSTABLE|" HEAD "100 AcDbSortentsTable|331 A|331 C|5 B|5 D",
     OBJECT_DUMP "@SubclassMarker=AcDbSortentsTable|EntSoftPointerIDs={ [array of 2 items] }|"
                 "EntSortPointerHandle={ [array of 2 items] }"},
    {"0 SORTENTSTABLE|5 1|5 2|331 A", 1015, "0 SORTENTSTABLE|5 1|100 AcDbSortentsTable|331 A|5 2"},
    {"0 SORTENTSTABLE|100 any|331 A|5 1|5 2", 1015, "0 SORTENTSTABLE|5 1|100 AcDbSortentsTable|331 A|5 2"},
    {"0 IDBUFFER|" HEAD "102 {X|330 4|102 }", 1015, "0 IDBUFFER|5 2F|102 {X|330 4|102 }|330 1F",
     "Inherits DxfSection_NgEntity"},
    {"0 DIMASSOC|" HEAD
     "100 AcDbDimAssoc|90 3|70 1|71 2|1 AcDbOsnapPointRef|72 4|331 A|73 5|91 6|301 x|40 0.5|"
     "10 1.0|20 2.0|30 3.0|332 B|74 7|92 8|302 y|75 1",
     1015, nullptr,
     OBJECT_DUMP "@SubclassMarker=AcDbDimAssoc|AssociativityFlag=3|TransSpaceFlag=1|RotatedDimensiontype=2|"
                 "ObjectOsnapType=4|MainObjectID=10|SubentType=5|GsMarker=6|Xref=\"x\"|OsnapParam=0.5|"
                 "OsnapPoint=(1, 2, 3)|IntersectionObject=11|IntersctionType=7|IntersectionGsMarker=8|"
                 "IntersectionXref=\"y\"|HasLastPointRefFlag=1"},
    {"0 OBJECT_PTR|" HEAD "1001 ASE|1000 a|1070 5|1002 {|1040 0.10|1002 }|1001 B|1002 {|1005 F|1002 }", 1015,
     "0 OBJECT_PTR|" HEAD "1001 ASE|1002 {|1000 a|1070 5|1002 {|1040 0.10|1002 }|1002 }|"
     "1001 B|1002 {|1005 F|1002 }",
     "Inherits DxfSection_NgEntity"},
});

}  // namespace
}  // namespace veltrane
