// HATCH with its boundary loops, edges and pattern lines. Angles are in degrees, as in the file.
#pragma once

#include "veltrane/ent/polylines.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

// The counts are kept as the file states them; the lists hold what came.

/// A line, an arc of a circle or an arc of an ellipse.
struct DxfEnt_HatchElementaryEdge : Typed<DxfEnt_HatchElementaryEdge, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_HatchElementaryEdge";

    kernel::Point2 FirstPoint{kUndefinedReal, kUndefinedReal};   ///< start, or centre
    kernel::Point2 SecondPoint{kUndefinedReal, kUndefinedReal};  ///< end, or major axis from the centre
    double Radius = kUndefinedReal;                              ///< or ratio of minor to major axis
    double StartAngle = kUndefinedReal;
    double EndAngle = kUndefinedReal;
    std::int32_t IsCounterClockwise = kUndefinedInteger;
};

struct DxfEnt_HatchSplineEdge : Typed<DxfEnt_HatchSplineEdge, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_HatchSplineEdge";

    std::int32_t Degree = kUndefinedInteger;
    std::int32_t IsRational = 0;
    std::int32_t IsPeriodic = 0;
    std::int32_t NbKnots = 0;
    std::int32_t NbPoles = 0;
    std::int32_t NbFitPoints = kUndefinedInteger;  ///< stated by drawings from R2010 on
    Ref<Sequence<double>> Knots;
    Ref<Sequence<kernel::Point2>> Poles;
    Ref<Sequence<double>> Weights;
    Ref<Sequence<kernel::Point2>> FitPoints;
    kernel::Vector2 StartTangent{kUndefinedReal, kUndefinedReal};
    kernel::Vector2 EndTangent{kUndefinedReal, kUndefinedReal};
};

struct DxfEnt_HatchBoundaryEdge : Typed<DxfEnt_HatchBoundaryEdge, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_HatchBoundaryEdge";

    std::int32_t EdgeType = kUndefinedInteger;  ///< 1 line, 2 circular arc, 3 elliptic arc, 4 spline
    Ref<DxfEnt_HatchElementaryEdge> ElementaryEdge;
    Ref<DxfEnt_HatchSplineEdge> SplineEdge;
};

struct DxfEnt_HatchBoundaryEdges : Typed<DxfEnt_HatchBoundaryEdges, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_HatchBoundaryEdges";

    std::int32_t NbEdges = kUndefinedInteger;
    Ref<Sequence<Ref<DxfEnt_HatchBoundaryEdge>>> BoundaryEdges;
};

struct DxfEnt_HatchPolylineBoundary : Typed<DxfEnt_HatchPolylineBoundary, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_HatchPolylineBoundary";

    std::int32_t HasBulge = kUndefinedInteger;
    std::int32_t IsClosed = 0;
    std::int32_t NbVertices = 0;
    Ref<Sequence<Ref<DxfEnt_LWPolylineVertex>>> Vertices;
};

/// One loop: a polyline path or a list of edges.
struct DxfEnt_HatchBoundary : Typed<DxfEnt_HatchBoundary, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_HatchBoundary";

    std::int32_t Type =
        kUndefinedInteger;  ///< bits: 1 external, 2 polyline, 4 derived, 8 text box, 16 outermost
    Ref<DxfEnt_HatchPolylineBoundary> Polyline;
    Ref<DxfEnt_HatchBoundaryEdges> Edges;
    std::int32_t NbSourceObjects = 0;
    Ref<Sequence<std::int32_t>> SourceObjects;  ///< handles of the entities that it was made of
};

/// One family of parallel lines of the pattern.
struct DxfEnt_HatchPatternData : Typed<DxfEnt_HatchPatternData, Transient> {
    static constexpr const char* kTypeName = "DxfEnt_HatchPatternData";

    double LineAngle = kUndefinedReal;
    double BasePointX = 0;
    double BasePointY = 0;
    double OffsetX = 0;
    double OffsetY = 0;
    std::int32_t NbDashes = 0;
    Ref<Sequence<double>> DashLengths;  ///< below 0 for a gap
};

struct DxfEnt_Hatch : Typed<DxfEnt_Hatch, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Hatch";

    kernel::Point ElevationPoint{0, 0, 0};  ///< only z counts
    kernel::Vector ExtrusionDir{0, 0, 1};
    Text PatternName;
    std::int32_t SolidFillFlag = 0;
    std::int32_t AssociativityFlag = 0;
    std::int32_t NbBoundaryLoops = 0;
    std::int32_t Style = 0;  ///< 0 every second area, 1 the outermost, 2 everything
    Ref<Sequence<Ref<DxfEnt_HatchBoundary>>> BoundaryLoops;
    std::int32_t PatternStyle = 0;
    std::int32_t DoubleFlag = 0;
    double PatternAngle = 0;
    double PatternSpacing = 0;
    double PixelSize = 0;
    std::int32_t NbPatternLines = 0;
    std::int32_t NbSeedPoints = 0;
    Ref<Sequence<Ref<DxfEnt_HatchPatternData>>> PatternLines;
    Ref<Sequence<kernel::Point2>> SeedPoints;
};

}  // namespace veltrane
