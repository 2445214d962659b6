#include "veltrane/data/translate_curve.hpp"

#include "veltrane/data/free_geometry.hpp"
#include "veltrane/data/object_coordinates.hpp"
#include "veltrane/kernel/geom/bspline_convert.hpp"
#include "veltrane/kernel/geom/bspline_knots.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/tolerance.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace veltrane {
namespace {

using DxfData::radians;
using kernel::kTwoPi;

constexpr double kSmallestSpan = 1e-7;       // radians
constexpr double kSmallestElevation = 1e-7;  // drawing units
constexpr double kKnotRemoval = 1e-7;
constexpr std::int32_t kPeriodicFlag = 2;
constexpr std::int32_t kRationalFlag = 4;

/// An angle moved by whole turns into [0, 2 pi).
double into_turn(double angle) {
    const double rest = std::fmod(angle, kTwoPi);
    return rest < 0 ? rest + kTwoPi : rest;
}

/// How far an arc turns, in radians. A negative span gains whole turns; a longer one than a turn loses as
/// many as leave something of it.
double arc_span(double span) {
    if (span < 0) return into_turn(span);
    if (span <= kTwoPi + kSmallestSpan) return std::min(span, kTwoPi);
    const double rest = into_turn(span);
    return rest > kSmallestSpan ? rest : kTwoPi;
}

/// The sweep that LINE, POINT, CIRCLE and ARC carry along.
template <class Record>
bool take_sweep(const DxfSection_Object& record, double scale, double& thickness, kernel::Vector& extrusion) {
    const auto* known = as<const Record>(&record);
    if (!known) return false;
    extrusion = kernel::unit(known->ExtrusionDir);
    thickness = scale * known->Thickness;
    return true;
}

/// Makes a spline with fewer knots than an open one needs a periodic one; false when the numbers do not
/// fit one either.
bool close_up(kernel::BSplineData& data, std::size_t flat_count) {
    data.periodic = true;
    if (flat_count == data.poles.size()) {
        data.poles.pop_back();
    } else if (flat_count != data.poles.size() + 1) {
        return false;
    }
    std::vector<int>& multiplicities = data.multiplicities;
    multiplicities.front() = multiplicities.back() = std::max(multiplicities.front(), multiplicities.back());
    std::size_t sum = 0;
    for (std::size_t i = 0; i + 1 < multiplicities.size(); ++i) {
        sum += static_cast<std::size_t>(multiplicities[i]);
    }
    return sum == data.poles.size();
}

}  // namespace

Ref<DxfData_GeometrySequence> DxfData_TranslateCurve::MakeGeometry(DxfData_TransferContext& context,
                                                                   const Ref<DxfSection_Object>& record,
                                                                   double& thickness,
                                                                   kernel::Vector& extrusion) const {
    context.ClearStatus();
    const double scale = context.UnitScale();
    thickness = 0;
    extrusion = {0, 0, 1};
    take_sweep<DxfEnt_Line>(*record, scale, thickness, extrusion) ||
        take_sweep<DxfEnt_Circle>(*record, scale, thickness, extrusion) ||
        take_sweep<DxfEnt_Point>(*record, scale, thickness, extrusion);

    Ref<DxfData_GeometrySequence> geometry;
    if (context.FindGeometry(record.get(), geometry)) return geometry;
    try {
        geometry = build(*record, scale);
        if (length(geometry) == 0) {
            context.AddFail(record, "Geometry are not translated");
            context.AddStatus(DxfData_Status::Fail1);
        } else {
            const auto* entity = as<DxfSection_Entity>(record.get());
            if (entity && std::abs(entity->Elevation0) > kSmallestElevation) {
                DxfData::transform(*geometry,
                                   kernel::Transform::translation({0, 0, scale * entity->Elevation0}));
            }
            context.AddStatus(DxfData_Status::Done1);
        }
    } catch (const kernel::KernelError&) {
        context.AddFail(record, "Exception is raised in the createtion of geometry");
        context.AddStatus(DxfData_Status::Fail1);
    }
    context.SetGeometry(record, geometry);
    return geometry;
}

Ref<DxfData_GeometrySequence> DxfData_TranslateCurve::build(const DxfSection_Object& record, double scale) {
    if (const auto* circle = as<const DxfEnt_Circle>(&record)) return MakeCircle(*circle, scale);
    if (const auto* line = as<const DxfEnt_Line>(&record)) return MakeLine(*line, scale);
    if (const auto* line = as<const DxfEnt_XLine>(&record)) return MakeXLine(*line, scale);
    if (const auto* ray = as<const DxfEnt_Ray>(&record)) return MakeRay(*ray, scale);
    if (const auto* ellipse = as<const DxfEnt_Ellipse>(&record)) return MakeEllipse(*ellipse, scale);
    if (const auto* spline = as<const DxfEnt_Spline>(&record)) return MakeSpline(*spline, scale);
    const auto* point = as<const DxfEnt_Point>(&record);
    return point ? DxfData::sequence_of(make<kernel::FreePoint>(scale * point->PointLocation)) : nullptr;
}

/// The points of a LINE are world points, whatever its extrusion.
Ref<DxfData_GeometrySequence> DxfData_TranslateCurve::MakeLine(const DxfEnt_Line& line, double scale) {
    const kernel::Point start = scale * line.StartPoint;
    const kernel::Point end = scale * line.EndPoint;
    if (kernel::distance(start, end) <= kernel::kZeroLength) return nullptr;
    return DxfData::sequence_of(kernel::make_segment(start, end));
}

Ref<DxfData_GeometrySequence> DxfData_TranslateCurve::MakeCircle(const DxfEnt_Circle& circle, double scale) {
    const double radius = scale * circle.Radius;
    if (radius < kernel::kZeroLength) return nullptr;
    kernel::Point centre = scale * circle.CenterPoint;
    const kernel::Matrix3 axes = DxfData::ECSToWCS(kernel::unit(circle.ExtrusionDir), centre);
    const Ref<kernel::Curve> whole =
        make<kernel::Circle>(kernel::Frame{centre, axes.col(0), axes.col(1), axes.col(2)}, radius);

    const auto* arc = as<const DxfEnt_Arc>(&circle);
    if (!arc) return DxfData::sequence_of(whole);
    const double start = into_turn(radians(arc->StartAngle));
    const double span = arc_span(radians(arc->EndAngle) - radians(arc->StartAngle));
    if (!(span > kSmallestSpan)) return DxfData::sequence_of(whole);
    return DxfData::sequence_of(make<kernel::TrimmedCurve>(whole, start, start + span));
}

/// Centre and axis of an ELLIPSE are world co-ordinates.
Ref<DxfData_GeometrySequence> DxfData_TranslateCurve::MakeEllipse(const DxfEnt_Ellipse& ellipse,
                                                                  double scale) {
    const kernel::Vector axis = scale * ellipse.MajorAxis;
    const double major = axis.norm();
    const double minor = major * ellipse.Ratio;
    if (minor > major || minor < 0) return nullptr;
    const auto frame =
        kernel::Frame::from_normal_and_x(scale * ellipse.CenterPoint, ellipse.ExtrusionDir, axis);
    const Ref<kernel::Curve> whole = make<kernel::Ellipse>(frame, major, minor);
    const double span = into_turn(std::abs(ellipse.EndParameter - ellipse.StartParameter));
    if (!(span > kSmallestSpan)) return DxfData::sequence_of(whole);
    return DxfData::sequence_of(
        make<kernel::TrimmedCurve>(whole, ellipse.StartParameter, ellipse.EndParameter));
}

Ref<DxfData_GeometrySequence> DxfData_TranslateCurve::MakeRay(const DxfEnt_Ray& ray, double scale) {
    const Ref<kernel::Curve> line = make<kernel::Line>(scale * ray.StartPoint, ray.UnitDirection);
    return DxfData::sequence_of(make<kernel::TrimmedCurve>(line, 0, kernel::kInfinite));
}

Ref<DxfData_GeometrySequence> DxfData_TranslateCurve::MakeXLine(const DxfEnt_XLine& line, double scale) {
    return DxfData::sequence_of(make<kernel::Line>(scale * line.FirstPoint, line.UnitDirection));
}

/// Fit points and tangents are never used: a spline known by them alone gives nothing.
Ref<DxfData_GeometrySequence> DxfData_TranslateCurve::MakeSpline(const DxfEnt_Spline& spline, double scale) {
    if (length(spline.Knots) == 0 || length(spline.ControlPoints) == 0) return nullptr;
    if (spline.SplineCurveDegree < 1 || spline.SplineCurveDegree > kernel::kMaxDegree) {
        throw kernel::KernelError("The degree of a spline is out of range");
    }
    kernel::BSplineData data;
    data.degree = spline.SplineCurveDegree;
    auto [knots, multiplicities] = kernel::distinct_knots(spline.Knots->items());
    data.knots = std::move(knots);
    data.multiplicities = std::move(multiplicities);
    for (const kernel::Point& pole : *spline.ControlPoints) data.poles.push_back(scale * pole);

    const std::size_t flat_count = spline.Knots->items().size();
    const bool too_few = flat_count < data.poles.size() + static_cast<std::size_t>(data.degree) + 1;
    if (too_few && !close_up(data, flat_count)) return nullptr;
    if (data.poles.size() < 2) return nullptr;
    if ((spline.SplineFlag & kRationalFlag) && length(spline.Weights) > 0) {
        data.weights = spline.Weights->items();
        if (data.weights.size() > data.poles.size()) data.weights.resize(data.poles.size());
    }
    if (!kernel::lower_excess_knots(data, kKnotRemoval)) return nullptr;

    auto curve = make<kernel::BSplineCurve>(std::move(data));
    if ((spline.SplineFlag & kPeriodicFlag) && !curve->is_periodic()) {
        curve = kernel::with_first_multiplicity(*kernel::make_periodic(*curve), 1, kKnotRemoval);
    }
    return DxfData::sequence_of(curve);
}

}  // namespace veltrane
