// MULTILEADER with its blocks.
#include "file/golden.hpp"

namespace veltrane {
namespace {

#define CONTEXT                                                                                             \
    "40 1.0|10 2.0|20 3.0|30 4.0|41 5.0|140 6.0|145 7.0|290 1|304 Text|11 0.0|21 1.0|31 0.0|340 2A|12 8.0|" \
    "22 9.0|32 10.0|13 1.0|23 0.0|33 0.0|42 11.0|43 12.0|44 13.0|45 14.0|170 15|90 16|171 17|172 18|91 19|" \
    "141 20.0|92 21|291 0|292 1|173 22|293 0|142 23.0|143 24.0|294 1|295 0|296 1|110 25.0|120 26.0|130 "    \
    "27.0|"                                                                                                 \
    "111 0.0|121 1.0|131 0.0|112 0.0|122 0.0|132 1.0|297 1|"
#define LEADER "290 1|291 0|10 28.0|20 29.0|30 30.0|11 31.0|21 32.0|31 33.0|90 34|40 35.0|"
#define PROPERTIES                                                                                    \
    "340 2B|90 36|170 37|91 38|341 2C|171 39|290 1|291 0|41 40.0|42 41.0|172 42|343 2D|173 43|95 44|" \
    "174 45|175 46|92 47|292 1|93 48|10 49.0|20 50.0|30 51.0|43 52.0|176 53|293 0|294 1|178 54|179 55"
#define UNSET                                                                                            \
    "340 0|90 0|170 0|91 7|341 0|171 0|290 0|291 0|41 0.0|42 0.0|172 0|343 0|173 0|95 0|174 0|175 0|92 " \
    "0|292 "                                                                                             \
    "0|93 0|10 1.0|20 1.0|30 1.0|43 0.0|176 0|293 0|294 0|178 0|179 0"
#define MULTILEADER "0 MULTILEADER|" ENTITY "100 AcDbMLeader|300 CONTEXT_DATA{|"

const Goldens kMultileaders({
    {MULTILEADER CONTEXT
     "302 LEADER{|" LEADER "304 LEADER_LINE{|10 1|20 1|30 1|10 2|20 2|30 2|10 3|20 3|30 3|90 7|91 4|305 }|"
     "304 LEADER_LINE{|10 4|20 4|30 4|10 5|20 5|30 5|10 6|20 6|30 6|91 5|305 }|303 }|301 }|" PROPERTIES,
     1015,
     MULTILEADER CONTEXT "302 LEADER{|" LEADER "304 LEADER_LINE{|10 3.0|20 3.0|30 3.0|91 4|305 }|"
                         "304 LEADER_LINE{|10 6.0|20 6.0|30 6.0|91 5|305 }|303 }|301 }|" PROPERTIES,
     ENTITY_DUMP
     "@SubclassMarker=AcDbMLeader|Context Data=[DxfEnt_MLeaderContext]|LeaderStyleId=43|"
     "PropertyOverrideFlag=36|LeaderLineType=37|LeaderLineColor=38|LeaderLineTypeId=44|LeaderLineWeight=39|"
     "EnableLanding=Yes|EnableDogleg=No|DoglegLength=40|ArrowheadSize=41|ContentType=42|TextStyleId=45|"
     "TextLeftAttachmentPoint=43|TextRightAttachmentPoint=44|TextAngleType=45|TextAlignmentType=46|"
     "TextColor=47|EnableFrameText=Yes|BlockContentColor=48|BlockContentScale=(49, 50, 51)|"
     "BlockContentRotation=52|BlockContentConnectionType=53|EnableAnnotationScale=No|"
     "TextDirectionNegative=Yes|Text Align in IPE=54|TextAttachmentPoint=55"},
    // A second leader takes the place of the first; a closing group with another value closes nothing.
    {MULTILEADER CONTEXT "302 LEADER{|90 1|303 }|302 LEADER{|90 2|303 x|" LEADER
                         "303 }|301 x|301 }|" PROPERTIES,
     1015, MULTILEADER CONTEXT "302 LEADER{|" LEADER "303 }|301 }|" PROPERTIES},
    {"0 MULTILEADER|" ENTITY "300 other", 1015, MULTILEADER "301 }|" UNSET},  // brackets stay balanced
    {"0 MULTILEADER|" ENTITY "300 CONTEXT_DATA{|302 LEADER{|304 LEADER_LINE{|91 8", 1015,  // never closed
     MULTILEADER
     "40 0.0|10 0.0|20 0.0|30 0.0|41 0.0|140 0.0|145 0.0|290 0|11 0.0|21 0.0|31 1.0|340 0|12 0.0|"
     "22 0.0|32 0.0|13 0.0|23 0.0|33 1.0|42 0.0|43 0.0|44 0.0|45 0.0|170 0|90 0|171 0|172 0|91 0|"
     "141 0.0|92 0|291 0|292 0|173 0|293 0|142 0.0|143 0.0|294 0|295 0|296 0|110 0.0|120 0.0|130 0.0|"
     "111 1.0|121 0.0|131 0.0|112 0.0|122 1.0|132 0.0|297 0|302 LEADER{|290 0|291 0|10 0.0|20 0.0|"
     "30 0.0|11 0.0|21 0.0|31 0.0|90 0|40 0.0|304 LEADER_LINE{|10 0.0|20 0.0|30 0.0|91 8|305 }|"
     "303 }|301 }|" UNSET},
});

}  // namespace
}  // namespace veltrane
