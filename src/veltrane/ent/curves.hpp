// LINE, POINT, CIRCLE, ARC, ELLIPSE, SPLINE, RAY and XLINE. Angles are in degrees, as in the file.
#pragma once

#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

namespace veltrane {

struct DxfEnt_Line : Typed<DxfEnt_Line, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Line";

    double Thickness = 0;
    kernel::Point StartPoint{0, 0, 0};
    kernel::Point EndPoint{0, 0, 0};
    kernel::Vector ExtrusionDir{0, 0, 1};
};

struct DxfEnt_Point : Typed<DxfEnt_Point, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Point";

    kernel::Point PointLocation{0, 0, 0};
    double Thickness = 0;
    kernel::Vector ExtrusionDir{0, 0, 1};
    double XAxisAngle = 0;
};

struct DxfEnt_Circle : Typed<DxfEnt_Circle, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Circle";

    double Thickness = 0;
    kernel::Point CenterPoint{0, 0, 0};  ///< in the object coordinate system of ExtrusionDir
    double Radius = 0;
    kernel::Vector ExtrusionDir{0, 0, 1};
};

struct DxfEnt_Arc : Typed<DxfEnt_Arc, DxfEnt_Circle> {
    static constexpr const char* kTypeName = "DxfEnt_Arc";

    double StartAngle = 0;
    double EndAngle = 0;
};

struct DxfEnt_Ellipse : Typed<DxfEnt_Ellipse, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Ellipse";

    kernel::Point CenterPoint{0, 0, 0};
    kernel::Vector MajorAxis{0, 0, 0};  ///< from the centre to the end of the major axis
    kernel::Vector ExtrusionDir{0, 0, 1};
    double Ratio = 0;  ///< minor to major axis
    double StartParameter = 0;
    double EndParameter = 0;
};

struct DxfEnt_Ray : Typed<DxfEnt_Ray, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Ray";

    kernel::Point StartPoint{0, 0, 0};
    kernel::Vector UnitDirection{0, 0, 0};
};

struct DxfEnt_XLine : Typed<DxfEnt_XLine, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_XLine";

    kernel::Point FirstPoint{0, 0, 0};
    kernel::Vector UnitDirection{0, 0, 0};
};

struct DxfEnt_Spline : Typed<DxfEnt_Spline, DxfSection_Entity> {
    static constexpr const char* kTypeName = "DxfEnt_Spline";
    static constexpr double kDefaultTolerance = 1e-7;

    kernel::Vector NormalVector{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    std::int32_t SplineFlag = 0;  ///< bits: 1 closed, 2 periodic, 4 rational, 8 planar, 16 linear
    std::int32_t SplineCurveDegree = 0;
    // The counts are kept as the file states them; the lists hold what came.
    std::int32_t KnotsNumber = 0;
    std::int32_t ControlPointsNumber = 0;
    std::int32_t FitPointsNumber = 0;
    double KnotTolerance = kDefaultTolerance;
    double ControlPointTolerance = kDefaultTolerance;
    double FitTolerance = kDefaultTolerance;
    kernel::Vector StartTangent{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    kernel::Vector EndTangent{kUndefinedReal, kUndefinedReal, kUndefinedReal};
    Ref<Sequence<double>> Knots;
    Ref<Sequence<double>> Weights;
    Ref<Sequence<kernel::Point>> ControlPoints;
    Ref<Sequence<kernel::Point>> FitPoints;
};

}  // namespace veltrane
