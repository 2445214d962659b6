#include "veltrane/file/curves.hpp"

#include "veltrane/file/common.hpp"

namespace veltrane {

using namespace rows;

template <>
const RecordTable& record_table<DxfEnt_Line>() {
    using Record = DxfEnt_Line;
    static const RecordTable table(
        "DxfEnt_Line",
        {base(record_table<DxfSection_Entity>()), marker("AcDbLine"),
         real(39, "Thickness", &Record::Thickness).unless(0.0),
         coordinates(10, "StartPoint", &Record::StartPoint), coordinates(11, "EndPoint", &Record::EndPoint),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Point>() {
    using Record = DxfEnt_Point;
    static const RecordTable table("DxfEnt_Point",
                                   {base(record_table<DxfSection_Entity>()), marker("AcDbPoint"),
                                    point(10, "PointLocation", &Record::PointLocation),
                                    real(39, "Thickness", &Record::Thickness).unless(0.0),
                                    point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(),
                                    real(50, "XAxisAngle", &Record::XAxisAngle).unless(0.0)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Circle>() {
    using Record = DxfEnt_Circle;
    static const RecordTable table(
        "DxfEnt_Circle", {base(record_table<DxfSection_Entity>()), marker("AcDbCircle"),
                          real(39, "Thickness", &Record::Thickness).unless(0.0),
                          point(10, "CenterPoint", &Record::CenterPoint), real(40, "Radius", &Record::Radius),
                          point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis()});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Arc>() {
    using Record = DxfEnt_Arc;
    static const RecordTable table(
        "DxfEnt_Arc", {base(record_table<DxfEnt_Circle>()), marker("AcDbArc", "@SubclassMarker1"),
                       real(50, "StartAngle", &Record::StartAngle), real(51, "EndAngle", &Record::EndAngle)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Ellipse>() {
    using Record = DxfEnt_Ellipse;
    static const RecordTable table(
        "DxfEnt_Ellipse",
        {base(record_table<DxfSection_Entity>()), marker("AcDbEllipse"),
         point(10, "CenterPoint", &Record::CenterPoint), point(11, "MajorAxis", &Record::MajorAxis),
         point(210, "ExtrusionDir", &Record::ExtrusionDir).unless_z_axis(), real(40, "Ratio", &Record::Ratio),
         real(41, "StartParameter", &Record::StartParameter),
         real(42, "EndParameter", &Record::EndParameter)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Ray>() {
    using Record = DxfEnt_Ray;
    static const RecordTable table("DxfEnt_Ray", {base(record_table<DxfSection_Entity>()), marker("AcDbRay"),
                                                  point(10, "StartPoint", &Record::StartPoint),
                                                  point(11, "UnitDirection", &Record::UnitDirection)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_XLine>() {
    using Record = DxfEnt_XLine;
    static const RecordTable table(
        "DxfEnt_XLine",
        {base(record_table<DxfSection_Entity>()), marker("AcDbXline"),
         point(10, "FirstPoint", &Record::FirstPoint), point(11, "UnitDirection", &Record::UnitDirection)});
    return table;
}

template <>
const RecordTable& record_table<DxfEnt_Spline>() {
    using Record = DxfEnt_Spline;
    constexpr double kTolerance = Record::kDefaultTolerance;
    static const RecordTable table(
        "DxfEnt_Spline",
        {base(record_table<DxfSection_Entity>()), marker("AcDbSpline"),
         point(210, "NormalVector", &Record::NormalVector).unless_undefined(),
         integer(70, "SplineFlag", &Record::SplineFlag),
         integer(71, "SplineCurveDegree", &Record::SplineCurveDegree),
         integer(72, "KnotsNumber", &Record::KnotsNumber),
         integer(73, "ControlPointsNumber", &Record::ControlPointsNumber),
         integer(74, "FitPointsNumber", &Record::FitPointsNumber),
         real(42, "KnotTolerance", &Record::KnotTolerance).unless(kTolerance),
         real(43, "ControlPointTolerance", &Record::ControlPointTolerance).unless(kTolerance),
         real(44, "FitTolerance", &Record::FitTolerance).unless(kTolerance),
         point(12, "StartTangent", &Record::StartTangent).unless_undefined(),
         point(13, "EndTangent", &Record::EndTangent).unless_undefined(), reals(40, "Knots", &Record::Knots),
         reals(41, "Weights", &Record::Weights), points(10, "ControlPoints", &Record::ControlPoints),
         points(11, "FitPoints", &Record::FitPoints)});
    return table;
}

}  // namespace veltrane
