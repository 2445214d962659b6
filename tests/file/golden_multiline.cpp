// MLINE and MLINESTYLE.
#include "file/golden.hpp"

namespace veltrane {
namespace {

#define MLINE_START "100 AcDbMline|340 0|40 0.0|70 0|71 0|72 0|73 0|10 0.0|20 0.0|30 0.0"

const Goldens kMultilines({
    {"0 MLINE|" ENTITY
     "100 AcDbMline|2 wall|340 18|40 20|70 1|71 3|72 2|73 2|10 1|20 2|30 3|210 0|220 1|230 0|"
     "11 4|21 5|31 6|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 0.5|41 7|75 1|42 8|74 2|41 -0.5|41 9|75 0|"
     "11 10|21 11|31 12|12 0|22 1|32 0|13 1|23 0|33 0|74 0|75 0",
     1015,
     "0 MLINE|" ENTITY "100 AcDbMline|2 wall|340 18|40 20.0|70 1|71 3|72 2|73 2|10 1.0|20 2.0|30 3.0|210 0.0|"
     "220 1.0|230 0.0|11 4.0|21 5.0|31 6.0|12 1.0|22 0.0|32 0.0|13 0.0|23 1.0|33 0.0|74 2|41 0.5|41 7.0|75 1|"
     "42 8.0|74 2|41 -0.5|41 9.0|75 0|11 10.0|21 11.0|31 12.0|12 0.0|22 1.0|32 0.0|13 1.0|23 0.0|33 0.0|"
     "74 0|75 0",
     ENTITY_DUMP "@SubclassMarker=AcDbMline|StyleName=\"wall\"|StyleID=24|Scale=20|Justification=1|Flags=3|"
                 "NbVertices=2|NbStyles=2|StartPoint=(1, 2, 3)|ExtrusionDir=(0, 1, 0)|"
                 "Vertices={ [array of 2 items] }"},
    {"0 MLINE|" ENTITY "210 0|220 0|230 1.00000000001", 1015, "0 MLINE|" ENTITY MLINE_START},
    {"0 MLINE|" ENTITY "210 0.00000000008|220 0.00000000008|230 1", 1015,  // measured by distance
     "0 MLINE|" ENTITY MLINE_START "|210 0.00000000008|220 0.00000000008|230 1.0"},
    {"0 MLINE|" ENTITY "11 1|62 5|12 2", 1015,  // a group that is not the vertex's ends it
     "0 MLINE|" HEAD "100 AcDbEntity|8 walls|62 5|" MLINE_START
     "|11 1.0|21 0.0|31 0.0|12 0.0|22 0.0|32 0.0|13 0.0|23 0.0|33 0.0"},

    {"0 MLINESTYLE|" HEAD "100 AcDbMlineStyle|2 wall|70 1|3 two lines|62 3|51 45|52 135|71 3|49 0.5|62 4|"
     "6 dashed|49 -0.5|62 0|6 BYLAYER|49 0",
     1015,
     "0 MLINESTYLE|" HEAD "100 AcDbMlineStyle|2 wall|70 1|3 two lines|62 3|51 45.0|52 135.0|71 3|49 0.5|62 4|"
     "6 dashed|49 -0.5|49 0.0",
     OBJECT_DUMP "@SubclassMarker=AcDbMlineStyle|MlineStyleName=\"wall\"|Flags=1|Description=\"two lines\"|"
                 "FillColor=3|StartAngle=45|EndAngle=135|ElementsNumber=3|Elements={ [array of 3 items] }"},
    {"0 MLINESTYLE|" HEAD "2 wall|62 256|51 90|52 90", 1015,
     "0 MLINESTYLE|" HEAD "100 AcDbMlineStyle|2 wall|70 0|71 0"},
});

}  // namespace
}  // namespace veltrane
