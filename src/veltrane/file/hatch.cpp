#include "veltrane/file/hatch.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/polylines.hpp"

namespace veltrane {

using namespace rows;

namespace {

// The hatch

/// The first point is the elevation; those after the count of seed points are the seed points.
bool read_point(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    auto& hatch = static_cast<DxfEnt_Hatch&>(record);
    if (hatch.NbSeedPoints < 1) {
        hatch.ElevationPoint = reader.ReadXYZ(stream);
    } else {
        append(hatch.SeedPoints, reader.ReadXY(stream));
    }
    return true;
}

/// A solid fill states nothing of a pattern.
bool has_pattern(const Transient& record) {
    const auto& hatch = static_cast<const DxfEnt_Hatch&>(record);
    return hatch.SolidFillFlag == 0 || hatch.PatternAngle != 0 || hatch.PatternSpacing != 0 ||
           hatch.DoubleFlag != 0 || hatch.NbPatternLines != 0 || hatch.PatternLines;
}

// A loop

DxfEnt_HatchSplineEdge* last_spline(const DxfEnt_HatchBoundary& loop) {
    if (!loop.Edges || length(loop.Edges->BoundaryEdges) == 0) return nullptr;
    const auto& edges = *loop.Edges->BoundaryEdges;
    return edges.Value(edges.Length())->SplineEdge.get();
}

/// After the edges, a group that begins a polyline path begins another edge: the groups that a spline may
/// have at its end look like the end of the loop.
bool read_path(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    auto& loop = static_cast<DxfEnt_HatchBoundary&>(record);
    if (loop.Edges) return DxfFile_RWHatchBoundaryEdges::ReadField(stream, reader, *loop.Edges);
    loop.Polyline = DxfFile_RWHatchPolylineBoundary::Read(stream, reader);
    return true;
}

/// The number of source objects ends a loop. The same code states the number of fit points of a spline edge,
/// after which come these points, another edge or the end of the loop.
bool read_count(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    auto& loop = static_cast<DxfEnt_HatchBoundary&>(record);
    const std::int32_t count = reader.ReadInteger(stream);
    reader.Next(stream);
    DxfEnt_HatchSplineEdge* spline = last_spline(loop);
    const std::int32_t next = reader.HasGroup() ? reader.Code() : 0;
    const bool goes_on = (next >= 11 && next <= 13) || next == 72 || next == 97;
    (spline && goes_on ? spline->NbFitPoints : loop.NbSourceObjects) = count;
    reader.PushBack();
    return true;
}

/// Fit points and tangents, after their number.
bool read_fit_data(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    DxfEnt_HatchSplineEdge* spline = last_spline(static_cast<DxfEnt_HatchBoundary&>(record));
    if (spline) return DxfFile_RWHatchSplineEdge::ReadField(stream, reader, *spline);
    reader.SendUnrecognized();
    return true;
}

}  // namespace

template <>
const RecordTable& record_table<DxfEnt_HatchElementaryEdge>() {
    using Record = DxfEnt_HatchElementaryEdge;
    static const RecordTable table(
        "DxfEnt_HatchElementaryEdge",
        {point2(10, "FirstPoint", &Record::FirstPoint),
         point2(11, "SecondPoint", &Record::SecondPoint).unless_undefined(),
         real(40, "Radius", &Record::Radius).unless_undefined(),
         real(50, "StartAngle", &Record::StartAngle).unless_undefined(),
         real(51, "EndAngle", &Record::EndAngle).unless_undefined(),
         integer(73, "IsCounterClockwise", &Record::IsCounterClockwise).unless_undefined()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_HatchSplineEdge>() {
    using Record = DxfEnt_HatchSplineEdge;
    static const RecordTable table(
        "DxfEnt_HatchSplineEdge",
        {integer(94, "Degree", &Record::Degree), integer(73, "IsRational", &Record::IsRational),
         integer(74, "IsPeriodic", &Record::IsPeriodic), integer(95, "NbKnots", &Record::NbKnots),
         integer(96, "NbPoles", &Record::NbPoles), reals(40, "Knots", &Record::Knots),
         points2(10, "Poles", &Record::Poles), reals(42, "Weights", &Record::Weights),
         integer(97, "NbFitPoints", &Record::NbFitPoints).unless_undefined().not_read(),
         points2(11, "FitPoints", &Record::FitPoints),
         point2(12, "StartTangent", &Record::StartTangent).unless_undefined(),
         point2(13, "EndTangent", &Record::EndTangent).unless_undefined()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_HatchBoundaryEdge>() {
    using Record = DxfEnt_HatchBoundaryEdge;
    static const RecordTable table(
        "DxfEnt_HatchBoundaryEdge",
        {integer(72, "EdgeType", &Record::EdgeType).unless_undefined(),
         record<&Record::ElementaryEdge>(10, "ElementaryEdge", record_table<DxfEnt_HatchElementaryEdge>()),
         record<&Record::SplineEdge>(94, "SplineEdge", record_table<DxfEnt_HatchSplineEdge>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_HatchBoundaryEdges>() {
    using Record = DxfEnt_HatchBoundaryEdges;
    static const RecordTable table(
        "DxfEnt_HatchBoundaryEdges",
        {integer(93, "NbEdges", &Record::NbEdges).unless_undefined(),
         records<&Record::BoundaryEdges>(72, "BoundaryEdges", record_table<DxfEnt_HatchBoundaryEdge>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_HatchPolylineBoundary>() {
    using Record = DxfEnt_HatchPolylineBoundary;
    static const RecordTable table(
        "DxfEnt_HatchPolylineBoundary",
        {integer(72, "HasBulge", &Record::HasBulge), integer(73, "IsClosed", &Record::IsClosed),
         integer(93, "NbVertices", &Record::NbVertices),
         records<&Record::Vertices>(10, "Vertices", record_table<DxfEnt_LWPolylineVertex>())});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_HatchBoundary>() {
    using Record = DxfEnt_HatchBoundary;
    static const RecordTable table(
        "DxfEnt_HatchBoundary",
        {integer(92, "Type", &Record::Type), piece(72, {&read_path, nullptr, nullptr}),
         record<&Record::Polyline>(72, "Polyline", record_table<DxfEnt_HatchPolylineBoundary>()).not_read(),
         record<&Record::Edges>(93, "Edges", record_table<DxfEnt_HatchBoundaryEdges>()),
         piece(97, {&read_count, nullptr, nullptr}), piece(11, {&read_fit_data, nullptr, nullptr}),
         piece(12, {&read_fit_data, nullptr, nullptr}), piece(13, {&read_fit_data, nullptr, nullptr}),
         integer(97, "NbSourceObjects", &Record::NbSourceObjects).not_read(),
         handles(330, "SourceObjects", &Record::SourceObjects)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_HatchPatternData>() {
    using Record = DxfEnt_HatchPatternData;
    static const RecordTable table(
        "DxfEnt_HatchPatternData",
        {real(53, "LineAngle", &Record::LineAngle), real(43, "BasePointX", &Record::BasePointX),
         real(44, "BasePointY", &Record::BasePointY), real(45, "OffsetX", &Record::OffsetX),
         real(46, "OffsetY", &Record::OffsetY), integer(79, "NbDashes", &Record::NbDashes),
         reals(49, "DashLengths", &Record::DashLengths)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Hatch>() {
    using Record = DxfEnt_Hatch;
    static const RecordTable table(
        "DxfEnt_Hatch",
        {base(record_table<DxfSection_Entity>()),
         marker("AcDbHatch"),
         piece(10, {&read_point, nullptr, nullptr}),
         point(10, "ElevationPoint", &Record::ElevationPoint).not_read(),
         point(210, "ExtrusionDir", &Record::ExtrusionDir),
         string(2, "PatternName", &Record::PatternName),
         integer(70, "SolidFillFlag", &Record::SolidFillFlag),
         integer(71, "AssociativityFlag", &Record::AssociativityFlag),
         integer(91, "NbBoundaryLoops", &Record::NbBoundaryLoops),
         records<&Record::BoundaryLoops>(92, "BoundaryLoops", record_table<DxfEnt_HatchBoundary>()),
         integer(75, "Style", &Record::Style),
         integer(76, "PatternStyle", &Record::PatternStyle),
         real(52, "PatternAngle", &Record::PatternAngle).only_if(&has_pattern),
         real(41, "PatternSpacing", &Record::PatternSpacing).only_if(&has_pattern),
         integer(77, "DoubleFlag", &Record::DoubleFlag).only_if(&has_pattern),
         integer(78, "NbPatternLines", &Record::NbPatternLines).only_if(&has_pattern),
         records<&Record::PatternLines>(53, "PatternLines", record_table<DxfEnt_HatchPatternData>()),
         real(47, "PixelSize", &Record::PixelSize).unless(0),
         integer(98, "NbSeedPoints", &Record::NbSeedPoints),
         points2(10, "SeedPoints", &Record::SeedPoints).not_read(),
         constant(73, nullptr, 0).never_written()});
    return table;
}

}  // namespace veltrane
