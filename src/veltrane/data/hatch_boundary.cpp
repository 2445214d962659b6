#include "veltrane/data/hatch_boundary.hpp"

#include "veltrane/data/free_geometry.hpp"
#include "veltrane/kernel/geom/bspline_curve.hpp"
#include "veltrane/kernel/geom/bspline_knots.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <cmath>
#include <utility>

namespace veltrane::DxfData {
namespace {

using kernel::Point;
using CurveRef = Ref<kernel::Curve>;

constexpr double kWholeTurn = 1e-9;  // radians

Point in_plane(const kernel::Point2& point, double scale) {
    if (kernel::is_infinite(point.x()) || kernel::is_infinite(point.y())) {
        throw kernel::KernelError("A point of the boundary is missing");
    }
    return scale * Point(point.x(), point.y(), 0);
}

/// The parameter of an ellipse where the angle from its major axis is this one, with the angle's whole turns.
double parameter_at(double angle, double ratio) {
    if (ratio == 1) return angle;
    const double x = std::cos(angle), y = std::sin(angle);
    return angle + std::atan2(y, ratio * x) - std::atan2(y, x);
}

/// The part of a whole turn between two angles in degrees. Clockwise ones are measured clockwise.
CurveRef arc_of(const CurveRef& whole, const DxfEnt_HatchElementaryEdge& edge, double ratio,
                bool is_clockwise) {
    double first = parameter_at(radians(edge.StartAngle), ratio);
    double last = parameter_at(radians(edge.EndAngle), ratio);
    if (is_clockwise) first = -std::exchange(last, -first);
    if (std::abs(std::abs(last - first) - kernel::kTwoPi) <= kWholeTurn) return whole;
    return make<kernel::TrimmedCurve>(whole, first, last);
}

CurveRef line_of(const DxfEnt_HatchElementaryEdge& edge, double scale) {
    const Point from = in_plane(edge.FirstPoint, scale), to = in_plane(edge.SecondPoint, scale);
    return kernel::distance(from, to) > kernel::kConfusion ? kernel::make_segment(from, to) : nullptr;
}

CurveRef circle_of(const DxfEnt_HatchElementaryEdge& edge, double scale) {
    return make<kernel::Circle>(kernel::Frame{in_plane(edge.FirstPoint, scale)}, scale * edge.Radius);
}

CurveRef ellipse_of(const DxfEnt_HatchElementaryEdge& edge, double scale) {
    const kernel::Vector axis = in_plane(edge.SecondPoint, scale);
    const auto frame = kernel::Frame::from_normal_and_x(in_plane(edge.FirstPoint, scale), {0, 0, 1}, axis);
    return make<kernel::Ellipse>(frame, axis.norm(), axis.norm() * edge.Radius);
}

CurveRef spline_of(const DxfEnt_HatchSplineEdge& edge, double scale) {
    if (length(edge.Knots) == 0 || length(edge.Poles) == 0) {
        throw kernel::KernelError("A spline of the boundary has no knots or poles");
    }
    kernel::BSplineData data;
    data.degree = edge.Degree;
    auto [knots, multiplicities] = kernel::distinct_knots(edge.Knots->items());
    data.knots = std::move(knots);
    data.multiplicities = std::move(multiplicities);
    for (const kernel::Point2& pole : *edge.Poles) data.poles.push_back(in_plane(pole, scale));
    if (edge.IsRational && edge.Weights) data.weights = edge.Weights->items();
    return make<kernel::BSplineCurve>(std::move(data));
}

/// Null for a line without length and for a kind of edge that is not taken. Throws KernelError.
CurveRef curve_of(const DxfEnt_HatchBoundaryEdge& edge, HatchPaths paths, double scale) {
    const DxfEnt_HatchElementaryEdge* plain = edge.ElementaryEdge.get();
    const bool takes_all = paths == HatchPaths::All;
    const bool is_clockwise = takes_all && plain && plain->IsCounterClockwise == 0;
    // Drawings state true angles of ellipses; without the parameter they are taken for parameters.
    const double ratio = takes_all && plain && edge.EdgeType == 3 ? plain->Radius : 1;
    if (edge.EdgeType == 1 && plain) return line_of(*plain, scale);
    if (edge.EdgeType == 2 && plain) return arc_of(circle_of(*plain, scale), *plain, ratio, is_clockwise);
    if (edge.EdgeType == 3 && plain) return arc_of(ellipse_of(*plain, scale), *plain, ratio, is_clockwise);
    if (takes_all && edge.SplineEdge) return spline_of(*edge.SplineEdge, scale);
    throw kernel::KernelError("An edge of the boundary is of a kind that is not taken");
}

void append_edges(HatchCurves& result, const DxfEnt_HatchBoundaryEdges& edges, HatchPaths paths,
                  double scale) {
    if (!edges.BoundaryEdges) return;
    for (const Ref<DxfEnt_HatchBoundaryEdge>& edge : *edges.BoundaryEdges) {
        try {
            if (auto curve = curve_of(*edge, paths, scale)) result.curves->Append(std::move(curve));
        } catch (const kernel::KernelError&) {
            ++result.left_out;
        }
    }
}

/// Polylines of a boundary are closed, whatever they say.
void append_polyline(HatchCurves& result, const DxfEnt_HatchPolylineBoundary& polyline, double scale) {
    if (!polyline.Vertices) return;
    const auto& vertices = polyline.Vertices->items();
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const DxfEnt_LWPolylineVertex& next = *vertices[(i + 1) % vertices.size()];
        const Point from = in_plane(vertices[i]->VertexCoordinates, scale);
        if (auto piece = bulged_segment(from, in_plane(next.VertexCoordinates, scale), vertices[i]->Bulge)) {
            result.curves->Append(std::move(piece));
        }
    }
}

}  // namespace

HatchCurves hatch_curves(const DxfEnt_HatchBoundary& loop, HatchPaths paths, double scale) {
    HatchCurves result{make<DxfData_GeometrySequence>()};
    if (loop.Edges) append_edges(result, *loop.Edges, paths, scale);
    if (!loop.Polyline) return result;
    try {
        if (paths == HatchPaths::All) append_polyline(result, *loop.Polyline, scale);
        if (paths != HatchPaths::All) ++result.left_out;
    } catch (const kernel::KernelError&) {
        ++result.left_out;
    }
    return result;
}

}  // namespace veltrane::DxfData
