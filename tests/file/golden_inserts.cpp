// INSERT, ATTRIB, ATTDEF and SHAPE.
#include "file/golden.hpp"

namespace veltrane {
namespace {

const Goldens kInserts({
    {"0 INSERT|" ENTITY
     "100 AcDbBlockReference|2 door|10 1|20 2|30 3|41 2|42 3|43 4|50 90|70 5|71 6|44 7|45 8|"
     "210 0|220 1|230 0|66 1",
     1015,
     "0 INSERT|" ENTITY
     "100 AcDbBlockReference|66 1|2 door|10 1.0|20 2.0|30 3.0|41 2.0|42 3.0|43 4.0|50 90.0|"
     "70 5|71 6|44 7.0|45 8.0|210 0.0|220 1.0|230 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbBlockReference|AttrFollowFlag=1|BlockName=\"door\"|"
                 "InsertionPoint=(1, 2, 3)|XScaleFactor=2|YScaleFactor=3|ZScaleFactor=4|RotationAngle=90|"
                 "ColumnCount=5|RowCount=6|ColumnSpacing=7|RowSpacing=8|ExtrusionDir=(0, 1, 0)"},
    {"0 INSERT|" ENTITY "2 door|41 1|42 1|43 1|70 1|71 1|44 0|45 0|66 0", 1015,
     "0 INSERT|" ENTITY "100 AcDbBlockReference|2 door|10 0.0|20 0.0|30 0.0"},
    {"0 INSERT|" ENTITY "2 door|70 3|71 1", 1015,
     "0 INSERT|" ENTITY "100 AcDbBlockReference|2 door|10 0.0|20 0.0|30 0.0|70 3"},

    {"0 ATTRIB|" ENTITY
     "100 AcDbText|39 1|10 2|20 3|30 4|40 5|1 oak|100 AcDbAttribute|2 WOOD|70 8|73 9|50 10|"
     "41 11|51 12|7 iso|71 2|72 1|74 3|11 13|21 14|31 15|210 0|220 1|230 0",
     1015,
     "0 ATTRIB|" ENTITY "100 AcDbText|39 1.0|10 2.0|20 3.0|30 4.0|40 5.0|1 oak|100 AcDbAttribute|2 WOOD|70 8|"
     "73 9|50 10.0|41 11.0|51 12.0|7 iso|71 2|72 1|74 3|11 13.0|21 14.0|31 15.0|210 0.0|220 1.0|230 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbText|Thickness=1|StartPoint=(2, 3, 4)|TextHeight=5|"
                 "DefaultValue=\"oak\"|@SubclassMarker1=AcDbAttribute|AttributeTag=\"WOOD\"|AttributeFlags=8|"
                 "FieldLength=9|TextRotation=10|RelativeX=11|ObliqueAngle=12|TextStyleName=\"iso\"|"
                 "TextGenFlags=2|HTextJustif=1|VTextJustif=3|AlignPoint=(13, 14, 15)|ExtrusionDir=(0, 1, 0)"},
    {"0 ATTRIB|" ENTITY "7 STANDARD|50 0", 1015,
     "0 ATTRIB|" ENTITY "100 AcDbText|10 0.0|20 0.0|30 0.0|40 0.0|100 AcDbAttribute|70 0"},
    {"0 ATTRIB|" ENTITY "7 Standard", 1015,
     "0 ATTRIB|" ENTITY "100 AcDbText|10 0.0|20 0.0|30 0.0|40 0.0|100 AcDbAttribute|70 0|7 Standard"},

    {"0 ATTDEF|" ENTITY "100 AcDbText|39 1|10 2|20 3|30 4|40 5|1 oak|50 10|41 11|51 12|7 iso|71 2|72 1|11 13|"
     "21 14|31 15|210 0|220 1|230 0|100 AcDbAttributeDefinition|3 Which wood?|2 WOOD|70 8|73 9|74 3",
     1015,
     "0 ATTDEF|" ENTITY "100 AcDbText|39 1.0|10 2.0|20 3.0|30 4.0|40 5.0|1 oak|100 AcDbAttributeDefinition|"
     "50 10.0|41 11.0|51 12.0|7 iso|71 2|72 1|11 13.0|21 14.0|31 15.0|210 0.0|220 1.0|230 0.0|"
     "3 Which wood?|2 WOOD|70 8|73 9|74 3",
     ENTITY_DUMP "@SubclassMarker=AcDbText|Thickness=1|FirstAlignPoint=(2, 3, 4)|TextHeight=5|"
                 "DefaultValue=\"oak\"|@SubclassMarker1=AcDbAttributeDefinition|TextRotation=10|RelativeX=11|"
                 "ObliqueAngle=12|TextStyleName=\"iso\"|TextGenFlags=2|HTextJustif=1|"
                 "SecondAlignPoint=(13, 14, 15)|ExtrusionDir=(0, 1, 0)|PromptString=\"Which wood?\"|"
                 "TagString=\"WOOD\"|AttributeFlags=8|FieldLength=9|VTextJustif=3"},

    {"0 SHAPE|" ENTITY "100 AcDbShape|39 1|10 2|20 3|30 4|40 5|2 BOX|50 6|41 1|51 7|210 0|220 1|230 0", 1015,
     "0 SHAPE|" ENTITY "100 AcDbShape|39 1.0|10 2.0|20 3.0|30 4.0|40 5.0|2 BOX|50 6.0|41 1.0|51 7.0|"
     "210 0.0|220 1.0|230 0.0",
     ENTITY_DUMP "@SubclassMarker=AcDbShape|Thickness=1|InsertionPoint=(2, 3, 4)|Size=5|ShapeName=\"BOX\"|"
                 "RotationAngle=6|RelativeXScaleFactor=1|ObliqueAngle=7|ExtrusionDir=(0, 1, 0)"},
    {"0 SHAPE|" ENTITY "2 BOX", 1015, "0 SHAPE|" ENTITY "100 AcDbShape|10 0.0|20 0.0|30 0.0|40 0.0|2 BOX"},
});

}  // namespace
}  // namespace veltrane
