// 3DFACE, TRACE, SOLID and the entities that carry ACIS data.
#include "file/golden.hpp"

namespace veltrane {
namespace {

#define CORNERS "10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|12 7.0|22 8.0|32 9.0|13 10.0|23 11.0|33 12.0|"
#define CORNERS_DUMP \
    "FirstCorner=(1, 2, 3)|SecondCorner=(4, 5, 6)|ThirdCorner=(7, 8, 9)|FourthCorner=(10, 11, 12)|"
#define TRACE_GROUPS "100 AcDbTrace|" CORNERS "39 2.0|210 0.0|220 1.0|230 0.0"
#define TRACE_DUMP ENTITY_DUMP "@SubclassMarker=AcDbTrace|" CORNERS_DUMP "Thickness=2|ExtrusionDir=(0, 1, 0)"

// "1" is 'n' in the file and 'A' is '^', after which a blank is written that readers take with it.
#define BODY_GROUPS "100 AcDbModelerGeometry|70 1|1 noo|1 ^ \x20mnm"
#define BODY_DUMP ENTITY_DUMP "@SubclassMarker=AcDbModelerGeometry|VersionNumber=1|Data=\"100|A 212|\""

const Goldens kFaces({
    {"0 3DFACE|" ENTITY "100 AcDbFace|" CORNERS "70 5", 1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbFace|" CORNERS_DUMP "Flags=5"},
    {"0 TRACE|" ENTITY TRACE_GROUPS, 1015, nullptr, TRACE_DUMP},
    {"0 SOLID|" ENTITY TRACE_GROUPS, 1015, nullptr, TRACE_DUMP},
    {"0 SOLID|" ENTITY "10 1", 1015,
     "0 SOLID|" ENTITY "100 AcDbTrace|10 1.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0|12 0.0|22 0.0|32 0.0|13 0.0|"
     "23 0.0|33 0.0"},
});

const Goldens kBodies({
    {"0 BODY|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 REGION|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 3DSOLID|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 3DSOLID|" ENTITY "100 AcDbModelerGeometry|70 1", 1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbModelerGeometry|VersionNumber=1"},
    {"0 3DSOLID|" ENTITY BODY_GROUPS "|100 AcDb3dSolid|350 1F", 1021,
     "0 3DSOLID|" HEAD "100 AcDbEntity|8 walls|370 0|" BODY_GROUPS "|100 AcDb3dSolid|350 1F"},
    // An empty group closes a line that ends in '#', and is nothing elsewhere.
    {"0 BODY|" ENTITY "100 AcDbModelerGeometry|70 1|1 |3 n|3 ||", 1015,
     "0 BODY|" ENTITY "100 AcDbModelerGeometry|70 1|1 n"},
    {"0 SURFACE|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 EXTRUDEDSURFACE|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 LOFTEDSURFACE|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 NURBSURFACE|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 PLANESURFACE|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 REVOLVEDSURFACE|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
    {"0 SWEPTSURFACE|" ENTITY BODY_GROUPS, 1015, nullptr, BODY_DUMP},
});

}  // namespace
}  // namespace veltrane
