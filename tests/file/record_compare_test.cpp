#include "veltrane/file/record_compare.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/file/record_table.hpp"
#include "veltrane/file/tables.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

std::string differences(const DxfSection_Object& before, const DxfSection_Object& after,
                        ContainedRecords contained = ContainedRecords::Count) {
    std::string text;
    for (const FieldDifference& found : compare_records(before, after, contained)) {
        text += (text.empty() ? "" : "; ") + found.label + " (" + std::to_string(found.code) +
                "): " + found.before + " -> " + found.after;
    }
    return text;
}

TEST(RecordCompare, FieldsThatDiffer) {
    struct Row {
        const char* before;
        const char* after;
        const char* differences;
    };
    const Row rows[] = {
        {"0 LINE|8 a|10 1", "0 LINE|10 1|8 a", ""},
        {"0 LINE|10 0|39 -0.0", "0 LINE", ""},
        {"0 LINE|10 0.1|20 2", "0 LINE|10 0.2", "StartPoint (10): (0.1, 2, 0) -> (0.2, 0, 0)"},
        {"0 LINE|8 a|62 1", "0 LINE|62 2", "Layer (8): \"a\" -> <NOT SET>; Color (62): 1 -> 2"},
        {"0 LINE|8 ", "0 LINE", "Layer (8): \"\" -> <NOT SET>"},
        {"0 LINE|330 2F", "0 LINE", "Owner (330): 2F -> <NOT SET>"},
        {"0 ARC|40 1|50 2", "0 ARC|40 3|50 4", "Radius (40): 1 -> 3; StartAngle (50): 2 -> 4"},
        {"0 SPLINE|40 1|40 2", "0 SPLINE|40 1|40 3", "Knots[2] (40): 2 -> 3"},
        {"0 SPLINE|40 1|40 2", "0 SPLINE|40 1", "Knots (40): 2 items -> 1 items"},
        {"0 SPLINE|10 1", "0 SPLINE", "ControlPoints (10): 1 items -> <NOT SET>"},
        {"0 LTYPE|49 1|49 2|74 1", "0 LTYPE|49 1|49 2|74 2", "Elements[2].ElementType (74): 1 -> 2"},
        {"0 LTYPE|49 1", "0 LTYPE|49 1|49 2", "Elements (49): 1 items -> 2 items"},
        {"0 LINE|92 1|310 AA", "0 LINE|92 1|310 AB", "ImageData[1] (310): \"AA\" -> \"AB\""},
        {"0 LINE|102 {A|1 x|102 }", "0 LINE|102 {A|1 y|102 }", "Value (102):   {1, x} ->   {1, y}"},
        {"0 LINE|102 {A|1 x|102 }", "0 LINE", "AppData (102): AppData: \t{ -> AppData: \t<NOT DEFINED>"},
        {"0 LINE|1001 A|1070 1", "0 LINE|1001 A|1070 2", "Value (1001):   {1070, 1} ->   {1070, 2}"},
        {"0 FOO|1 x|2 y", "0 FOO|1 x|3 y", "Data[2] (-1): 2, \"y\" -> 3, \"y\""},
        {"0 FOO|1 x", "0 BAR|1 x", "Type (-1): \"FOO\" -> \"BAR\""},
        {"0 LINE|8 a", "0 POINT", "class (0): DxfEnt_Line -> DxfEnt_Point"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(differences(*record_of(row.before), *record_of(row.after)), row.differences) << row.before;
    }
}

TEST(RecordCompare, ContainedRecords) {
    const auto before = record_of("0 SECTION|2 X|0 LINE|62 1|0 TABLE|2 T|0 LAYER|2 a|0 ENDTAB|0 ENDSEC");
    const auto after = record_of("0 SECTION|2 X|0 LINE|62 2|0 TABLE|2 T|0 LAYER|2 b|0 ENDTAB|0 ENDSEC");
    const auto shorter = record_of("0 SECTION|2 X|0 LINE|62 2|0 ENDSEC");
    EXPECT_EQ(differences(*before, *after), "");
    EXPECT_EQ(differences(*before, *after, ContainedRecords::Compare),
              "Objects[1].Color (62): 1 -> 2; Objects[2].Objects[1].Name (2): \"a\" -> \"b\"");
    EXPECT_EQ(differences(*before, *shorter, ContainedRecords::Compare),
              "Objects (0): Objects: \t{ [array of 2 items] } -> Objects: \t{ [array of 1 items] }");
}

TEST(RecordCompare, SubRecordsByTheirTable) {
    DxfSection_LineTypeElement a, b;
    b.TextString = "GAS";
    const auto found = compare_fields(record_table<DxfSection_LineTypeElement>(), a, b);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].label, "TextString");
}

}  // namespace
}  // namespace veltrane
