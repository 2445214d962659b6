// LINE, POINT, CIRCLE, ARC, ELLIPSE, RAY, XLINE and SPLINE.
#include "file/golden.hpp"

namespace veltrane {
namespace {

const Goldens kCurves({
    {"0 LINE|" HEAD "8 walls|100 any|39 0.5|21 5|10 1|31 6|11 4|20 2|30 3|210 0|220 1|230 0", 1015,
     "0 LINE|" ENTITY "100 AcDbLine|39 0.5|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|210 0.0|220 1.0|230 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbLine|Thickness=0.5|StartPoint=(1, 2, 3)|EndPoint=(4, 5, 6)|"
                 "ExtrusionDir=(0, 1, 0)"},
    {"0 LINE", 1009, "0 LINE|5 0|100 AcDbEntity|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbLine|Thickness=0|StartPoint=(0, 0, 0)|EndPoint=(0, 0, 0)|"
                 "ExtrusionDir=(0, 0, 1)"},
    {"0 POINT|" ENTITY "100 AcDbPoint|10 1|20 2|30 3|39 4|210 0|220 0|230 -1|50 45.5", 1015,
     "0 POINT|" ENTITY "100 AcDbPoint|10 1.0|20 2.0|30 3.0|39 4.0|210 0.0|220 0.0|230 -1.0|50 45.5",
     ENTITY_DUMP "@SubclassMarker=AcDbPoint|PointLocation=(1, 2, 3)|Thickness=4|ExtrusionDir=(0, 0, -1)|"
                 "XAxisAngle=45.5"},
    {"0 POINT|" ENTITY "100 AcDbPoint|10 1|20 2|30 3|39 0|50 0", 1015,
     "0 POINT|" ENTITY "100 AcDbPoint|10 1.0|20 2.0|30 3.0", nullptr},
    {"0 CIRCLE|" ENTITY "100 AcDbCircle|39 1|10 7|40 2.5|210 0|220 0|230 1.00000000001", 1015,
     "0 CIRCLE|" ENTITY "100 AcDbCircle|39 1.0|10 7.0|20 0.0|30 0.0|40 2.5",
     ENTITY_DUMP "@SubclassMarker=AcDbCircle|Thickness=1|CenterPoint=(7, 0, 0)|Radius=2.5|"
                 "ExtrusionDir=(0, 0, 1)"},
    {"0 CIRCLE|" ENTITY "100 AcDbCircle|39 0|10 1|20 2|30 3|40 4|230 -1", 1015,
     "0 CIRCLE|" ENTITY "100 AcDbCircle|10 1.0|20 2.0|30 3.0|40 4.0", nullptr},  // a 230 alone is no point
    {"0 CIRCLE|" ENTITY "100 AcDbCircle|10 1|20 2|30 3|40 4|210 0|220 0|230 -1", 1015,
     "0 CIRCLE|" ENTITY "100 AcDbCircle|10 1.0|20 2.0|30 3.0|40 4.0|210 0.0|220 0.0|230 -1.0", nullptr},
    {"0 ARC|" ENTITY "100 AcDbCircle|10 1|20 2|40 5|100 AcDbArc|50 30|51 60.5", 1012,
     "0 ARC|" ENTITY "100 AcDbCircle|10 1.0|20 2.0|30 0.0|40 5.0|100 AcDbArc|50 30.0|51 60.5",
     "Inherits DxfEnt_Circle|@SubclassMarker1=AcDbArc|StartAngle=30|EndAngle=60.5"},
    {"0 ARC|" ENTITY "40 5", 1024,
     "0 ARC|" HEAD "100 AcDbEntity|8 walls|370 0|100 AcDbCircle|10 0.0|20 0.0|30 0.0|40 5.0|"
     "100 AcDbArc|50 0.0|51 0.0",
     nullptr},
    {"0 ELLIPSE|" ENTITY
     "100 AcDbEllipse|10 1|20 2|30 3|11 4|21 5|31 6|210 0|220 1|230 0|40 0.5|41 0.25|42 3",
     1015,
     "0 ELLIPSE|" ENTITY "100 AcDbEllipse|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|210 0.0|220 1.0|230 0.0|"
     "40 0.5|41 0.25|42 3.0",
     ENTITY_DUMP "@SubclassMarker=AcDbEllipse|CenterPoint=(1, 2, 3)|MajorAxis=(4, 5, 6)|"
                 "ExtrusionDir=(0, 1, 0)|Ratio=0.5|StartParameter=0.25|EndParameter=3"},
    {"0 RAY|" ENTITY "100 AcDbRay|10 1|20 2|30 3|11 0|21 1|31 0", 1015,
     "0 RAY|" ENTITY "100 AcDbRay|10 1.0|20 2.0|30 3.0|11 0.0|21 1.0|31 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbRay|StartPoint=(1, 2, 3)|UnitDirection=(0, 1, 0)"},
    {"0 XLINE|" ENTITY "100 any|10 1|20 2|30 3|11 0|21 1|31 0", 1015,
     "0 XLINE|" ENTITY "100 AcDbXline|10 1.0|20 2.0|30 3.0|11 0.0|21 1.0|31 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbXline|FirstPoint=(1, 2, 3)|UnitDirection=(0, 1, 0)"},
    {"0 SPLINE|" ENTITY "70 8|71 3|72 2|73 4|74 1|42 0.0000001|43 0.000001|40 0|40 1|10 1|20 2|30 3|41 0.5|"
     "10 4|20 5|30 6|41 1|11 7|21 8|31 9|12 1|22 0|32 0|13 0|23 1|33 0|210 0|220 0|230 1",
     1015,
     "0 SPLINE|" ENTITY "100 AcDbSpline|210 0.0|220 0.0|230 1.0|70 8|71 3|72 2|73 4|74 1|"
     "43 0.000001|12 1.0|22 0.0|32 0.0|13 0.0|23 1.0|33 0.0|40 0.0|40 1.0|41 0.5|41 1.0|"
     "10 1.0|20 2.0|30 3.0|10 4.0|20 5.0|30 6.0|11 7.0|21 8.0|31 9.0",
     ENTITY_DUMP "@SubclassMarker=AcDbSpline|NormalVector=(0, 0, 1)|SplineFlag=8|SplineCurveDegree=3|"
                 "KnotsNumber=2|ControlPointsNumber=4|FitPointsNumber=1|KnotTolerance=1e-07|"
                 "ControlPointTolerance=1e-06|FitTolerance=1e-07|StartTangent=(1, 0, 0)|EndTangent=(0, 1, 0)|"
                 "Knots={ [array of 2 items] }|Weights={ [array of 2 items] }|"
                 "ControlPoints={ [array of 2 items] }|FitPoints={ [array of 1 items] }"},
    {"0 SPLINE|" ENTITY "73 4", 1015, "0 SPLINE|" ENTITY "100 AcDbSpline|70 0|71 0|72 0|73 4|74 0",
     ENTITY_DUMP "@SubclassMarker=AcDbSpline|NormalVector=(-1e+100, -1e+100, -1e+100)|SplineFlag=0|"
                 "SplineCurveDegree=0|KnotsNumber=0|ControlPointsNumber=4|FitPointsNumber=0|"
                 "KnotTolerance=1e-07|ControlPointTolerance=1e-07|FitTolerance=1e-07|"
                 "StartTangent=(-1e+100, -1e+100, -1e+100)|EndTangent=(-1e+100, -1e+100, -1e+100)|"
                 "Knots=<NOT DEFINED>|Weights=<NOT DEFINED>|ControlPoints=<NOT DEFINED>|"
                 "FitPoints=<NOT DEFINED>"},
});

}  // namespace
}  // namespace veltrane
