// HATCH with every kind of boundary.
#include "file/golden.hpp"

namespace veltrane {
namespace {

#define HATCH_HEAD \
    "0 HATCH|" ENTITY "100 AcDbHatch|10 0.0|20 0.0|30 5.0|210 0.0|220 0.0|230 1.0|2 ANSI31|70 0|71 1|91 1|"
#define SOLID_HEAD \
    "0 HATCH|" ENTITY "100 AcDbHatch|10 0.0|20 0.0|30 0.0|210 0.0|220 0.0|230 1.0|2 SOLID|70 1|71 0|91 1|"
#define SOLID_TAIL "75 1|76 1|98 1|10 7.0|20 8.0"
#define SPLINE \
    "72 4|94 1|73 1|74 0|95 4|96 2|40 0.0|40 0.0|40 1.0|40 1.0|10 1.0|20 2.0|10 3.0|20 4.0|42 1.0|42 2.0|"

const Goldens kHatches({
    {HATCH_HEAD "92 7|72 1|73 1|93 3|10 0.0|20 0.0|42 0.5|10 1.0|20 0.0|10 1.0|20 1.0|97 2|330 A|330 1B|"
                "75 0|76 1|52 45.0|41 2.0|77 1|78 2|53 30.0|43 1.0|44 2.0|45 3.0|46 4.0|79 2|49 0.5|49 -0.25|"
                "53 60.0|43 0.0|44 0.0|45 0.0|46 1.0|79 0|47 0.125|98 2|10 7.0|20 8.0|10 9.0|20 10.0",
     1015, nullptr,
     ENTITY_DUMP
     "@SubclassMarker=AcDbHatch|ElevationPoint=(0, 0, 5)|ExtrusionDir=(0, 0, 1)|"
     "PatternName=\"ANSI31\"|SolidFillFlag=0|AssociativityFlag=1|NbBoundaryLoops=1|"
     "BoundaryLoops={ [array of 1 items] }|Style=0|PatternStyle=1|PatternAngle=45|PatternSpacing=2|"
     "DoubleFlag=1|NbPatternLines=2|PatternLines={ [array of 2 items] }|PixelSize=0.125|"
     "NbSeedPoints=2|SeedPoints={ [array of 2 items] }"},
    // Lines, arcs of circles and ellipses.
    {SOLID_HEAD "92 1|93 3|72 1|10 0.0|20 0.0|11 1.0|21 0.0|72 2|10 1.0|20 1.0|40 1.0|50 270.0|51 0.0|73 1|"
                "72 3|10 2.0|20 1.0|11 1.0|21 0.0|40 0.5|50 0.0|51 90.0|73 0|97 0|" SOLID_TAIL,
     1015},
    // Several loops; a spline at the end of one is not mixed up with the loop's own end.
    {SOLID_HEAD "92 1|93 1|" SPLINE "97 1|330 A|92 16|72 0|73 1|93 1|10 0.0|20 0.0|97 0|" SOLID_TAIL, 1015},
    // From R2010 on the number of fit points ends a spline.
    {SOLID_HEAD "92 1|93 2|" SPLINE "97 2|11 1.0|21 2.0|11 3.0|21 4.0|12 1.0|22 0.0|13 0.0|23 1.0|" SPLINE
                "97 0|97 1|330 A|" SOLID_TAIL,
     1015},
    // A second count of the same kind of path begins nothing; an unknown group ends the loop.
    {SOLID_HEAD "92 1|93 1|72 1|10 0|20 0|11 1|21 0|421 7|75 1|76 1|98 0", 1015,
     SOLID_HEAD "92 1|93 1|72 1|10 0.0|20 0.0|11 1.0|21 0.0|97 0|75 1|76 1|98 0"},
});

}  // namespace
}  // namespace veltrane
