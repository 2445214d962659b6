// TEXT, MTEXT, DIMENSION, LEADER and TOLERANCE.
#include "file/golden.hpp"

namespace veltrane {
namespace {

#define ORIGIN "10 0.0|20 0.0|30 0.0|"
#define DIMENSION_HEAD "0 DIMENSION|" ENTITY "100 AcDbDimension|"
#define DIMENSION_POINTS ORIGIN "11 0.0|21 0.0|31 0.0|70 0|71 0|"

const Goldens kAnnotations({
    {"0 TEXT|" ENTITY
     "100 AcDbText|39 1|10 2|20 3|30 4|40 5|1 hello|50 6|41 7|51 8|7 iso|71 2|72 1|11 9|21 10|"
     "31 11|210 0|220 1|230 0|100 AcDbText|73 3",
     1015,
     "0 TEXT|" ENTITY
     "100 AcDbText|39 1.0|10 2.0|20 3.0|30 4.0|40 5.0|1 hello|50 6.0|41 7.0|51 8.0|7 iso|71 2|"
     "72 1|11 9.0|21 10.0|31 11.0|210 0.0|220 1.0|230 0.0|100 AcDbText|73 3",
     ENTITY_DUMP "@SubclassMarker=AcDbText|Thickness=1|FirstAlignPoint=(2, 3, 4)|TextHeight=5|"
                 "String=\"hello\"|TextRotation=6|XScaleFactorWidth=7|ObliqueAngle=8|Style=\"iso\"|"
                 "GenerationFlags=2|HJustificationType=1|SecondAlignPoint=(9, 10, 11)|"
                 "ExtrusionDir=(0, 1, 0)|@SubclassMarker2=AcDbText|VJustificationType=3"},
    {"0 TEXT|" ENTITY "1 hello|50 0|7 STANDARD", 1015,
     "0 TEXT|" ENTITY "100 AcDbText|" ORIGIN "40 0.0|1 hello|50 0.0|100 AcDbText"},

    {"0 MTEXT|" ENTITY "100 AcDbMText|10 1|20 2|30 3|40 4|41 5|71 6|72 7|3 abc|3 def|1 ghi|7 iso|210 0|220 1|"
     "230 0|11 0|21 0|31 1|42 8|43 9|50 10|73 2|44 11",
     1015,
     "0 MTEXT|" ENTITY "100 AcDbMText|10 1.0|20 2.0|30 3.0|40 4.0|41 5.0|71 6|72 7|1 ghi|3 abc|3 def|7 iso|"
     "210 0.0|220 1.0|230 0.0|11 0.0|21 0.0|31 1.0|42 8.0|43 9.0|50 10.0|73 2|44 11.0",
     ENTITY_DUMP "@SubclassMarker=AcDbMText|Position=(1, 2, 3)|Height=4|RectWidth=5|AttachPoint=6|"
                 "Direction=7|Text=\"ghi\"|ExtText={ [array of 2 items] }|Style=\"iso\"|"
                 "ExtrusionDir=(0, 1, 0)|XAxis=(0, 0, 1)|CharWidth=8|RectHeight=9|Angle=10|"
                 "LineSpacingStyle=2|LineSpacingFactor=11"},
    {"0 MTEXT|" ENTITY "1 a", 1015,
     "0 MTEXT|" ENTITY "100 AcDbMText|" ORIGIN
     "40 0.0|41 0.0|71 0|72 0|1 a|11 1.0|21 0.0|31 0.0|50 0.0|44 1.0"},

    {DIMENSION_HEAD
     "2 *D1|10 1|20 2|30 3|11 4|21 5|31 6|70 32|71 5|72 1|41 7|42 8|1 <> m|53 9|51 10|210 0|"
     "220 1|230 0|3 ISO-25|100 AcDbAlignedDimension|12 11|22 12|32 13|13 14|23 15|33 16|14 17|"
     "24 18|34 19|50 90|52 20|100 AcDbRotatedDimension|15 21|25 22|35 23|40 24|16 25|26 26|36 27",
     1015,
     DIMENSION_HEAD
     "2 *D1|10 1.0|20 2.0|30 3.0|11 4.0|21 5.0|31 6.0|70 32|71 5|72 1|41 7.0|42 8.0|1 <> m|"
     "53 9.0|51 10.0|210 0.0|220 1.0|230 0.0|3 ISO-25|100 AcDbAlignedDimension|12 11.0|22 12.0|"
     "32 13.0|13 14.0|23 15.0|33 16.0|14 17.0|24 18.0|34 19.0|50 90.0|52 20.0|15 21.0|25 22.0|"
     "35 23.0|40 24.0|16 25.0|26 26.0|36 27.0|100 AcDbRotatedDimension",
     ENTITY_DUMP "@SubclassMarker=AcDbDimension|Name=\"*D1\"|DimensionPoint=(1, 2, 3)|MiddlePoint=(4, 5, 6)|"
                 "DimensionType=32|AttachmentPoint=5|TextLineSpacingStyle=1|TextLineSpacingFactor=7|"
                 "ActualMeasurement=8|TextExplicitly=\"<> m\"|TextRotationAngle=9|HorizontalDirection=10|"
                 "ExtrusionDir=(0, 1, 0)|StyleName=\"ISO-25\"|SubclassMarker=\"AcDbRotatedDimension\"|"
                 "InsertionPoint=(11, 12, 13)|DefinitionPoint1=(14, 15, 16)|DefinitionPoint2=(17, 18, 19)|"
                 "Angle=90|ObliqueAngle=20|DefinitionPoint3=(21, 22, 23)|LeaderLength=24|"
                 "DefinitionPoint4=(25, 26, 27)"},
    {DIMENSION_HEAD "100 AcDbAlignedDimension", 1015,
     DIMENSION_HEAD DIMENSION_POINTS "51 0.0|100 AcDbAlignedDimension"},
    {"0 DIMENSION|" HEAD "8 walls", 1015, DIMENSION_HEAD DIMENSION_POINTS "51 0.0"},

    {"0 LEADER|" ENTITY
     "100 AcDbLeader|3 iso|71 1|72 1|73 2|74 1|75 1|40 2|41 3|76 3|10 1|20 2|30 3|10 4|20 5|"
     "30 6|77 7|340 2A|210 0|220 1|230 0|211 8|221 9|231 10|212 11|222 12|232 13|213 14|223 15|233 16",
     1015,
     "0 LEADER|" ENTITY
     "100 AcDbLeader|3 iso|71 1|72 1|73 2|74 1|75 1|40 2.0|41 3.0|76 3|10 1.0|20 2.0|30 3.0|"
     "10 4.0|20 5.0|30 6.0|77 7|340 2A|210 0.0|220 1.0|230 0.0|211 8.0|221 9.0|231 10.0|212 11.0|222 12.0|"
     "232 13.0|213 14.0|223 15.0|233 16.0",
     ENTITY_DUMP
     "@SubclassMarker=AcDbLeader|StyleName=\"iso\"|ArrowheadFlag=1|LeaderPathType=1|"
     "LeaderCreationFlag=2|HookLineDirectionFlag=1|HookLineFlag=1|TextAnnotationHeight=2|"
     "TextAnnotationWidth=3|VerticesNumber=3|VertexCoordinates={ [array of 2 items] }|ColorToUse=7|"
     "AssociatedAnnotation=42|NormalVector=(0, 1, 0)|HorizontalDirection=(8, 9, 10)|"
     "OffsetFromBlock=(11, 12, 13)|OffsetFromAnnotation=(14, 15, 16)"},
    {"0 LEADER|" ENTITY "73 3", 1015,
     "0 LEADER|" ENTITY "100 AcDbLeader|71 0|72 0|74 0|75 0|40 0.0|41 0.0|76 0|77 0|340 0|210 0.0|220 0.0|"
     "230 0.0|211 0.0|221 0.0|231 0.0|212 0.0|222 0.0|232 0.0|213 0.0|223 0.0|233 0.0"},

    {"0 TOLERANCE|" ENTITY "100 AcDbFcf|3 iso|10 1|20 2|30 3|1 {\\Fgdt;j}|210 0|220 1|230 0|11 0|21 0|31 1",
     1015,
     "0 TOLERANCE|" ENTITY "100 AcDbFcf|3 iso|10 1.0|20 2.0|30 3.0|1 {\\Fgdt;j}|210 0.0|220 1.0|230 0.0|"
     "11 0.0|21 0.0|31 1.0",
     ENTITY_DUMP "@SubclassMarker=AcDbFcf|StyleName=\"iso\"|InsertionPoint=(1, 2, 3)|"
                 "StringRepresent=\"{\\Fgdt;j}\"|ExtrusionDir=(0, 1, 0)|XAxisDirection=(0, 0, 1)"},
    {"0 TOLERANCE|" ENTITY "3 iso", 1015,
     "0 TOLERANCE|" ENTITY "100 AcDbFcf|3 iso|" ORIGIN "11 0.0|21 0.0|31 0.0"},
});

}  // namespace
}  // namespace veltrane
