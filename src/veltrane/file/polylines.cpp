#include "veltrane/file/polylines.hpp"

#include "veltrane/file/contained_records.hpp"

namespace veltrane {

using namespace rows;

namespace {

struct PolylineContents {
    using Record = DxfEnt_Polyline;
    using End = DxfEnt_SeqEnd;
    static constexpr const char* kEndName = "SEQEND";
    static bool ends_without_it(std::string_view name) {
        return ends_a_section(name) || name == "ENDBLK" || name == "BLOCK";
    }
};

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_Polyline>() {
    using Record = DxfEnt_Polyline;
    static const RecordTable table(
        "DxfEnt_Polyline",
        {base(record_table<DxfSection_Entity>()), string(100, "SubclassMarker", &Record::SubclassMarker),
         constant(66, nullptr, 1), point(10, "Elevation", &Record::Elevation),
         real(39, "Thickness", &Record::Thickness).unless(0),
         integer(70, "PolylineFlag", &Record::PolylineFlag).unless(0),
         real(40, "DefaulStartWidth", &Record::DefaulStartWidth).unless(0),
         real(41, "DefaulEndWidth", &Record::DefaulEndWidth).unless(0),
         integer(71, "MeshMVertexCount", &Record::MeshMVertexCount).unless(0),
         integer(72, "MeshNVertexCount", &Record::MeshNVertexCount).unless(0),
         integer(73, "SmoothMDensity", &Record::SmoothMDensity).unless(0),
         integer(74, "SmoothNDensity", &Record::SmoothNDensity).unless(0),
         integer(75, "SurfaceType", &Record::SurfaceType).unless(0),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(),
         ContainedRecords<PolylineContents>::row()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Vertex>() {
    using Record = DxfEnt_Vertex;
    static const RecordTable table(
        "DxfEnt_Vertex", {base(record_table<DxfSection_Entity>()), marker("AcDbVertex"),
                          string(100, "VertexMarker", &Record::VertexMarker),
                          point(10, "LocationPoint", &Record::LocationPoint),
                          real(40, "StartingWidth", &Record::StartingWidth).unless(0),
                          real(41, "EndingWidth", &Record::EndingWidth).unless(0),
                          real(42, "Bulge", &Record::Bulge).unless(0), integer(70, "Flags", &Record::Flags),
                          real(50, "CurveFitTangent", &Record::CurveFitTangent).unless(0),
                          integer(71, "PolyfaceMeshIndex1", &Record::PolyfaceMeshIndex1).unless(0),
                          integer(72, "PolyfaceMeshIndex2", &Record::PolyfaceMeshIndex2).unless(0),
                          integer(73, "PolyfaceMeshIndex3", &Record::PolyfaceMeshIndex3).unless(0),
                          integer(74, "PolyfaceMeshIndex4", &Record::PolyfaceMeshIndex4).unless(0)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_SeqEnd>() {
    static const RecordTable table("DxfEnt_SeqEnd", {base(record_table<DxfSection_Entity>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_LWPolylineVertex>() {
    using Record = DxfEnt_LWPolylineVertex;
    static const RecordTable table(
        "DxfEnt_LWPolylineVertex",
        {point2(10, "VertexCoordinates", &Record::VertexCoordinates).unless_undefined(),
         real(40, "StartingWidth", &Record::StartingWidth).unless(0),
         real(41, "EndWidth", &Record::EndWidth).unless(0), real(42, "Bulge", &Record::Bulge).unless(0)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_LWPolyline>() {
    using Record = DxfEnt_LWPolyline;
    static const RecordTable table(
        "DxfEnt_LWPolyline",
        {base(record_table<DxfSection_Entity>()), marker("AcDbPolyline"),
         integer(90, "VerticesNumber", &Record::VerticesNumber),
         integer(70, "PolylineFlag", &Record::PolylineFlag).unless(0),
         real(43, "ConstantWidth", &Record::ConstantWidth).unless(0),
         real(38, "Elevation", &Record::Elevation).unless(0),
         real(39, "Thickness", &Record::Thickness).unless(0),
         records<&Record::Vertices>(10, "Vertices", record_table<DxfEnt_LWPolylineVertex>()),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Mesh>() {
    using Record = DxfEnt_Mesh;
    static const RecordTable table(
        "DxfEnt_Mesh",
        {base(record_table<DxfSection_Entity>()), marker("AcDbSubDMesh"),
         integer(71, "Version number", &Record::VersionNumber),
         integer(72, "BlendCrease property", &Record::BlendCrease),
         integer(91, "Number of subdivision level", &Record::SubdivisionLevel),
         counted(92, "Vertex count of level 0", &Record::VertexCount, ValueKind::Points, 10, "Vertices",
                 &Record::Vertices),
         counted(93, "Size of face list of level 0", &Record::FaceListSize, ValueKind::Integers, 90, "Faces",
                 &Record::FaceList),
         counted(94, "Edge count", &Record::EdgeCount, ValueKind::Integers, 90, "Edges", &Record::Edges, 2)
             .not_dumped(),
         counted(95, "Crease count", &Record::CreaseCount, ValueKind::Reals, 140, "Creases", &Record::Creases)
             .not_dumped(),
         integer(90, "Overridden count", &Record::OverriddenCount).not_dumped()});
    return table;
}

}  // namespace veltrane
