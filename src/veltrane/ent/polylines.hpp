// POLYLINE with its VERTEX records and SEQEND, LWPOLYLINE and MESH.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

struct DxfEnt_Vertex : Typed<DxfEnt_Vertex, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Vertex";

    Text VertexMarker;  ///< the last subclass marker, which tells the kind of vertex
    kernel::Point LocationPoint{0, 0, 0};
    double StartingWidth = 0;
    double EndingWidth = 0;
    double Bulge = 0;  ///< tangent of a quarter of the arc's angle, to the left of the chord below 0
    double CurveFitTangent = 0;
    std::int32_t Flags = 0;
    // Numbers of the corners of a face, 1-based; below 0 where the edge that begins there is hidden.
    std::int32_t PolyfaceMeshIndex1 = 0;
    std::int32_t PolyfaceMeshIndex2 = 0;
    std::int32_t PolyfaceMeshIndex3 = 0;
    std::int32_t PolyfaceMeshIndex4 = 0;
};

/// The SEQEND record. It has no fields of its own.
struct DxfEnt_SeqEnd : Typed<DxfEnt_SeqEnd, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_SeqEnd";
};

struct DxfEnt_Polyline : Typed<DxfEnt_Polyline, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Polyline";

    Text SubclassMarker;               ///< the last marker, which tells the kind of polyline
    kernel::Point Elevation{0, 0, 0};  ///< only z counts
    double Thickness = 0;
    /// Bits: 1 closed, 2 and 4 fitted, 8 in space, 16 polygon mesh, 32 mesh closed in N, 64 polyface mesh.
    std::int32_t PolylineFlag = 0;
    std::int32_t MeshMVertexCount = 0;
    std::int32_t MeshNVertexCount = 0;
    std::int32_t SmoothMDensity = 0;
    std::int32_t SmoothNDensity = 0;
    std::int32_t SurfaceType = 0;
    double DefaulStartWidth = 0;
    double DefaulEndWidth = 0;
    kernel::Vector ExtrusionDir{0, 0, 1};
    Ref<DxfSection_HSequenceOfObject> Objects;  ///< the records up to the SEQEND: vertices as a rule
    Ref<DxfEnt_SeqEnd> EndMarker = make<DxfEnt_SeqEnd>();  ///< never null

    /// The vertices and, after them, the end marker.
    Ref<DxfSection_HSequenceOfObject> GetSubObjects() const override {
        auto records = Objects ? make<DxfSection_HSequenceOfObject>(Objects->items())
                               : make<DxfSection_HSequenceOfObject>();
        records->Append(EndMarker);
        return records;
    }
};

/// A vertex of an LWPOLYLINE or of a hatch's polyline path.
struct DxfEnt_LWPolylineVertex : Typed<DxfEnt_LWPolylineVertex, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_LWPolylineVertex";

    kernel::Point2 VertexCoordinates{kUndefinedReal, kUndefinedReal};
    double StartingWidth = 0;
    double EndWidth = 0;
    double Bulge = 0;
};

struct DxfEnt_LWPolyline : Typed<DxfEnt_LWPolyline, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_LWPolyline";

    std::int32_t VerticesNumber = 0;  ///< as the file states it
    std::int32_t PolylineFlag = 0;    ///< bits: 1 closed, 128 line types run through the vertices
    double ConstantWidth = 0;
    double Elevation = 0;
    double Thickness = 0;
    Ref<Sequence<Ref<DxfEnt_LWPolylineVertex>>> Vertices;
    kernel::Vector ExtrusionDir{0, 0, 1};
};

/// A subdivision mesh. A list exists when its count is above 0, and then has that length.
struct DxfEnt_Mesh : Typed<DxfEnt_Mesh, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Mesh";

    std::int32_t VersionNumber = 0;
    std::int32_t BlendCrease = 0;
    std::int32_t SubdivisionLevel = 0;
    std::int32_t VertexCount = 0;
    std::int32_t FaceListSize = 0;  ///< integers in the face list
    std::int32_t EdgeCount = 0;
    std::int32_t CreaseCount = 0;
    std::int32_t OverriddenCount = 0;
    Ref<Sequence<kernel::Point>> Vertices;
    Ref<Sequence<std::int32_t>> FaceList;  ///< for each face its corner count and the 0-based corners
    Ref<Sequence<std::int32_t>> Edges;     ///< pairs of vertices
    Ref<Sequence<double>> Creases;
};

}  // namespace veltrane
