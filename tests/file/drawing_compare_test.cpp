#include "veltrane/file/drawing_compare.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/file/record_name.hpp"
#include "veltrane/file/structure.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

Ref<DxfSection_Model> drawing(std::string_view groups) {
    TextReader from(dxf(groups) + "0\nEOF\n");
    from.next();
    from.model->SetDxfFile(DxfFile_RWDxfFile::Read(from.stream, from.reader));
    return from.model;
}

std::string label(const PlacedRecord& placed) {
    if (!placed.record) return "";
    const Text handle = DxfSection_Model().StringLabel(placed.record);
    const Text name = record_name(*placed.record);
    return name.is_null() ? handle.str() : name.str();
}

/// "+#2F", "-#2F(3)" with three records inside, "~#2F: Color 1 2", "=#2F>#30" for another handle only.
std::string told(const DrawingDifferences& found) {
    std::string text;
    const auto add = [&](const std::string& part) { text += (text.empty() ? "" : "; ") + part; };
    const auto add_values = [&](const std::vector<ValueDifference>& values) {
        for (const auto& value : values) {
            add(value.name + " " + value.before.value_or("none") + ">" + value.after.value_or("none"));
        }
    };
    add_values(found.comments);
    add_values(found.variables);
    for (const RecordDifference& record : found.records) {
        const bool is_added = !record.before.record, is_removed = !record.after.record;
        std::string part = (is_added     ? "+"
                            : is_removed ? "-"
                                         : "~") +
                           label(is_added ? record.after : record.before);
        if (record.contents > 0) part += "(" + std::to_string(record.contents) + ")";
        for (const auto& field : record.fields)
            part += ": " + field.label + " " + field.before + ">" + field.after;
        add(part);
    }
    for (const auto& record : found.renumbered) add("=" + label(record.before) + ">" + label(record.after));
    return text;
}

const std::string kHeader = "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $TDUPDATE|40 1|0 ENDSEC|";

std::string section(const char* name, const std::string& records) {
    return std::string("0 SECTION|2 ") + name + "|" + records + (records.empty() ? "" : "|") + "0 ENDSEC";
}

std::string compared(const std::string& before, const std::string& after,
                     const CompareOptions& options = {}) {
    return told(compare_drawings(*drawing(before), *drawing(after), options));
}

TEST(DrawingCompare, RecordsOfOneSection) {
    struct Row {
        const char* what;
        const char* before;
        const char* after;
        const char* told;
    };
    const Row rows[] = {
        {"equal", "0 LINE|5 A|10 1", "0 LINE|5 A|10 1", ""},
        {"order is not compared", "0 LINE|5 A|10 1|0 LINE|5 B|10 2", "0 LINE|5 B|10 2|0 LINE|5 A|10 1", ""},
        {"changed", "0 ARC|5 A|40 1|0 ARC|5 B|40 2", "0 ARC|5 A|40 1|0 ARC|5 B|40 3", "~#B: Radius 2>3"},
        {"added and removed", "0 ARC|5 A|40 1|0 RAY|5 C",
         "0 ARC|5 A|40 1|0 POINT|5 D|0 RAY|5 C|0 RAY|5 E|62 3", "+#D; +#E"},
        {"one handle, other types", "0 LINE|5 A", "0 POINT|5 A", "-#A; +#A"},
        {"another handle", "0 ARC|5 A|40 1|0 ARC|5 B|40 2", "0 ARC|5 C|40 1|0 ARC|5 A|40 2",
         "=#A>#C; =#B>#A"},
        {"another handle and a change", "0 ARC|5 A|40 1|0 ARC|5 B|40 2|0 ARC|5 C|40 3",
         "0 ARC|5 B|40 1|0 ARC|5 C|40 9|0 ARC|5 D|40 3", "~#B: Radius 2>9; =#A>#B; =#C>#D"},
        {"what refers to a record with another handle", "0 ARC|5 A|40 1|0 ARC|5 B|330 A|40 2",
         "0 ARC|5 C|40 1|0 ARC|5 B|330 C|40 2", "=#A>#C"},
        {"a reference to another record", "0 ARC|5 A|0 ARC|5 C|40 1|0 ARC|5 B|330 A|40 2",
         "0 ARC|5 A|0 ARC|5 C|40 1|0 ARC|5 B|330 C|40 2", "~#B: Owner A>C"},
        {"references in application data", "0 ARC|5 A|40 1|0 ARC|5 B|102 {X|330 A|102 }",
         "0 ARC|5 C|40 1|0 ARC|5 B|102 {X|330 C|102 }", "=#A>#C"},
        {"application data", "0 ARC|5 B|102 {X|330 A|102 }", "0 ARC|5 B|102 {X|330 D|102 }",
         "~#B: Value {330, A}>{330, D}"},
        {"unknown, group by group", "0 FOO|5 A|1 x|2 y", "0 FOO|5 A|1 x|2 z", "~: Data[3] 2, \"y\">2, \"z\""},
        {"unknown with another handle", "0 ARC|5 C|0 FOO|5 A|330 C", "0 ARC|5 D|0 FOO|5 B|330 D",
         "=#C>#D; =>"},
        {"names of tables", "0 TABLE|2 LAYER|5 2|0 LAYER|5 A|2 a|62 1|0 LAYER|5 B|2 b|0 ENDTAB",
         "0 TABLE|2 LAYER|5 2|0 LAYER|5 B|2 a|62 2|0 LAYER|5 C|2 c|0 ENDTAB", "~a: Color 1>2; -b; +c"},
        {"a new name", "0 TABLE|2 LAYER|5 2|0 LAYER|5 A|2 a|0 LAYER|5 B|2 b|0 LAYER|5 C|2 c|0 ENDTAB",
         "0 TABLE|2 LAYER|5 2|0 LAYER|5 A|2 a|0 LAYER|5 B|2 b|0 LAYER|5 C|2 d|0 ENDTAB",
         "~c: Name \"c\">\"d\""},
        {"a class", "0 CLASS|1 A|280 0|0 CLASS|1 B", "0 CLASS|1 B|0 CLASS|1 A|280 1", "~A: WasAProxy 0>1"},
        {"what is inside goes along", "0 BLOCK|5 1|2 a|0 LINE|5 2|0 ENDBLK|5 3|0 LINE|5 9",
         "0 LINE|5 9|0 BLOCK|5 4|2 b|0 ENDBLK|5 5", "-a(2); +b(1)"},
        {"moved", "0 BLOCK|5 1|2 a|0 LINE|5 2|0 ENDBLK|5 3|0 LINE|5 9",
         "0 BLOCK|5 1|2 a|0 ENDBLK|5 3|0 LINE|5 2|0 LINE|5 9", "~#2: (place) BLOCK \"a\">SECTION \"X\""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(compared(kHeader + section("X", row.before), kHeader + section("X", row.after)), row.told)
            << row.what;
    }
}

TEST(DrawingCompare, DrawingsWithoutHandles) {
    const std::string before = section("ENTITIES", "0 ARC|40 1|0 ARC|40 2|0 ARC|40 3|0 ARC|40 4|0 ARC|40 5");
    const std::string after =
        section("ENTITIES", "0 ARC|40 1|0 ARC|40 3|0 ARC|40 7|62 3|0 ARC|40 4|62 1|0 ARC|40 5");
    const auto models = std::pair(drawing(before), drawing(after));
    models.first->AssignHandles();
    models.second->AssignHandles();
    EXPECT_EQ(told(compare_drawings(*models.first, *models.second)), "-#66; ~#68: Color 256>1; +#67");
}

TEST(DrawingCompare, VariablesAndComments) {
    const std::string before = "999 a|999 b|0 SECTION|2 HEADER|9 $A|70 1|9 $B|10 1|20 2|9 $C|40 1|0 ENDSEC";
    const std::string after =
        "999 a|999 c|999 d|0 SECTION|2 HEADER|9 $D|1 x|9 $B|10 1|20 3|9 $C|70 1|0 ENDSEC";
    EXPECT_EQ(compared(before, after),
              "comment 2 b>c; comment 3 none>d; $A 1>none; $B (1, 2)>(1, 3); $C 40 1>70 1; $D none>x");
    EXPECT_EQ(compared(before, after, {{"Comment", "$A", "$C", "$D"}}), "$B (1, 2)>(1, 3)");
}

TEST(DrawingCompare, WhatIsIgnored) {
    const std::string before =
        kHeader + section("X", "0 SPLINE|5 A|40 1|8 a|0 LTYPE|5 B|2 b|49 1|0 ARC|5 C|40 1");
    const std::string after =
        kHeader + section("X", "0 SPLINE|5 A|40 2|8 b|0 LTYPE|5 B|2 b|49 2|0 ARC|5 D|40 1");
    EXPECT_EQ(compared(before, after),
              "~#A: Layer \"a\">\"b\": Knots[1] 1>2; ~b: Elements[1].Length 1>2; =#C>#D");
    EXPECT_EQ(compared(before, after, {{"Layer", "Knots", "Elements"}}), "=#C>#D");
    EXPECT_EQ(compared(before, after, {{"Layer", "Knots", "Elements.Length"}, Handles::Never}), "");
}

/// Far more records than could be compared with each other.
TEST(DrawingCompare, TakesTimeByTheRecord) {
    constexpr int kRecords = 100'000;
    std::string before, after;
    for (int i = 0; i < kRecords; ++i) {
        before += "|0 POINT|10 " + std::to_string(i);
        after += "|0 POINT|10 " + std::to_string((i * 7919LL + 13) % kRecords);
    }
    EXPECT_EQ(told(compare_drawings(*drawing(section("ENTITIES", before.substr(1))),
                                    *drawing(section("ENTITIES", after.substr(1))))),
              "");
}

}  // namespace
}  // namespace veltrane
