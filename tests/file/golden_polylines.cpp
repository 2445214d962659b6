// POLYLINE, VERTEX, SEQEND, LWPOLYLINE and MESH.
#include "file/golden.hpp"

namespace veltrane {
namespace {

#define POINTS_AND_SEQEND                                                                                    \
    "0 VERTEX|5 31|100 AcDbEntity|8 walls|100 AcDbVertex|100 AcDb2dVertex|10 1.0|20 2.0|30 3.0|70 0|"        \
    "0 VERTEX|5 32|100 AcDbEntity|8 walls|100 AcDbVertex|100 AcDb2dVertex|10 4.0|20 5.0|30 6.0|42 0.5|70 0|" \
    "0 SEQEND|5 33|100 AcDbEntity|8 walls"

const Goldens kPolylines({
    {"0 POLYLINE|" ENTITY "100 AcDb2dPolyline|66 1|10 0.0|20 0.0|30 2.5|39 1.0|70 1|40 0.5|41 0.25|71 2|72 3|"
     "73 4|74 5|75 6|210 0.0|220 1.0|230 0.0|" POINTS_AND_SEQEND,
     1015, nullptr,
     ENTITY_DUMP "SubclassMarker=\"AcDb2dPolyline\"|Elevation=(0, 0, 2.5)|Thickness=1|PolylineFlag=1|"
                 "DefaulStartWidth=0.5|DefaulEndWidth=0.25|MeshMVertexCount=2|MeshNVertexCount=3|"
                 "SmoothMDensity=4|SmoothNDensity=5|SurfaceType=6|ExtrusionDir=(0, 1, 0)|"
                 "Objects={ [array of 2 items] }|EndMarker=[DxfEnt_SeqEnd]"},
    // Whatever stands before the SEQEND belongs to the polyline, also what has no type.
    {"0 POLYLINE|5 1|8 0|66 1|0 LINE|5 2|8 0|0 THING|7 a|0 SEQEND|8 0", 1009,
     "0 POLYLINE|5 1|100 AcDbEntity|8 0|66 1|10 0.0|20 0.0|30 0.0|"
     "0 LINE|5 2|100 AcDbEntity|8 0|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0|"
     "0 THING|7 a|0 SEQEND|5 0|100 AcDbEntity|8 0"},
    // A missing SEQEND is made up for.
    {"0 POLYLINE|5 1|0 VERTEX|5 2", 1009,
     "0 POLYLINE|5 1|100 AcDbEntity|66 1|10 0.0|20 0.0|30 0.0|"
     "0 VERTEX|5 2|100 AcDbEntity|100 AcDbVertex|10 0.0|20 0.0|30 0.0|70 0|0 SEQEND|5 0|100 AcDbEntity"},
    {"0 VERTEX|" ENTITY
     "100 AcDbVertex|100 AcDbPolyFaceMeshVertex|10 1.0|20 2.0|30 3.0|40 0.5|41 0.25|42 -1.0|"
     "70 128|50 30.0|71 1|72 -2|73 3|74 4",
     1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbVertex|VertexMarker=\"AcDbPolyFaceMeshVertex\"|LocationPoint=(1, 2, 3)|"
                 "StartingWidth=0.5|EndingWidth=0.25|Bulge=-1|Flags=128|CurveFitTangent=30|"
                 "PolyfaceMeshIndex1=1|PolyfaceMeshIndex2=-2|PolyfaceMeshIndex3=3|PolyfaceMeshIndex4=4"},
    {"0 VERTEX|" ENTITY "100 AcDbVertex|10 1|20 2|30 3", 1015,
     "0 VERTEX|" ENTITY "100 AcDbVertex|100 AcDbVertex|10 1.0|20 2.0|30 3.0|70 0"},
    {"0 SEQEND|" HEAD "100 AcDbEntity|8 walls", 1015, nullptr, "Inherits DxfSection_Entity"},
    {"0 LWPOLYLINE|" ENTITY "100 AcDbPolyline|90 5|70 1|43 0.5|38 2.0|39 3.0|10 1.0|20 2.0|40 0.25|41 0.75|"
     "42 1.0|10 3.0|20 4.0|10 5.0|20 6.0|42 -1.0|210 0.0|220 1.0|230 0.0",
     1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbPolyline|VerticesNumber=5|PolylineFlag=1|ConstantWidth=0.5|Elevation=2|"
                 "Thickness=3|Vertices={ [array of 3 items] }|ExtrusionDir=(0, 1, 0)"},
    // A vertex takes its widths and bulge in any order, up to the first group of another kind.
    {"0 LWPOLYLINE|" ENTITY "90 2|10 1|20 2|42 3|40 4|41 5|91 7|10 6|20 7", 1015,
     "0 LWPOLYLINE|" ENTITY "100 AcDbPolyline|90 2|10 1.0|20 2.0|40 4.0|41 5.0|42 3.0|10 6.0|20 7.0"},
    {"0 MESH|" HEAD "100 AcDbEntity|8 walls|92 1|310 AB|100 AcDbSubDMesh|71 2|72 1|91 3|92 3|10 0.0|20 0.0|"
     "30 0.0|10 1.0|20 0.0|30 0.0|10 0.0|20 1.0|30 0.0|93 4|90 3|90 0|90 1|90 2|94 2|90 0|90 1|90 1|90 2|95 "
     "2|"
     "140 0.5|140 1.0|90 6",
     1015, nullptr,
     ENTITY_DUMP "@SubclassMarker=AcDbSubDMesh|Version number=2|BlendCrease property=1|"
                 "Number of subdivision level=3|Vertex count of level 0=3|Vertices={ [array of 3 items] }|"
                 "Size of face list of level 0=4|Faces={ [array of 4 items] }"},
    // Elements that did not come are 0; a count that nothing comes for does not stand for memory.
    {"0 MESH|" ENTITY "100 AcDbSubDMesh|92 2|10 1|20 2|30 3|93 2000000000|90 3|94 0|95 0|90 9", 1015,
     "0 MESH|" ENTITY
     "100 AcDbSubDMesh|71 0|72 0|91 0|92 2|10 1.0|20 2.0|30 3.0|10 0.0|20 0.0|30 0.0|93 1|90 3|"
     "94 0|95 0|90 9"},
});

}  // namespace
}  // namespace veltrane
