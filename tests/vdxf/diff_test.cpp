// What `vdxf diff` tells, and how it ends.
#include "vdxf/tool_run.hpp"

#include <gtest/gtest.h>

namespace veltrane::tool {
namespace {

const std::string kBefore =
    "0 LINE 5 2F 8 WALLS 10 0 20 0 11 3 21 4 0 POINT 5 30 8 0 10 1 20 1 0 CIRCLE 5 31 8 0 40 2";
const std::string kAfter =
    "0 LINE 5 2F 8 WALLS 10 0 20 0 11 3 21 5 0 CIRCLE 5 32 8 0 40 2 0 POINT 5 33 8 h\\U+00F6he 10 9 20 1";

struct DiffCase {
    const char* name;
    std::vector<std::string> arguments;  ///< "A" and "B" stand for the drawings
    int code;
    const char* out;  ///< all of standard output; null: no matter
    const char* err = "";
};

class Diff : public testing::TestWithParam<DiffCase> {};

TEST_P(Diff, TellsWhatChanged) {
    const TemporaryFolder folder;
    const std::string a = folder.write("a.dxf", drawing_with(kBefore));
    const std::string b = folder.write("b.dxf", drawing_with(kAfter));
    folder.write("skipped.dxf", drawing_with("0 LINE 5 2F 77 1"));
    folder.write("binary.dxf", std::string("AutoCAD Binary DXF\r\n\x1A\0\0\0SECTION\0", 32));
    std::vector<std::string> arguments = GetParam().arguments;
    arguments.insert(arguments.begin(), "diff");
    for (std::string& argument : arguments) {
        if (argument == "A") argument = a;
        if (argument == "B") argument = b;
        if (argument.starts_with("OUT")) argument.replace(0, 3, folder.path().string());
    }
    const Outcome outcome = run_tool(arguments);
    EXPECT_EQ(outcome.code, GetParam().code) << outcome.err;
    if (GetParam().out) {
        EXPECT_EQ(outcome.out, GetParam().out);
    }
    EXPECT_NE(outcome.err.find(GetParam().err), std::string::npos) << outcome.err;
}

constexpr const char* kText =
    "ENTITIES\n"
    "  ~ LINE #2F, layer WALLS, line 16\n"
    "      EndPoint: (3, 4, 0) -> (3, 5, 0)\n"
    "  ~ POINT #30, layer 0, line 30 (B: #33, line 38)\n"
    "      Layer: \"0\" -> \"h\\U+00F6he\"\n"
    "      PointLocation: (1, 1, 0) -> (9, 1, 0)\n"
    "Records: 2 changed, 1 with another handle only, 2 unchanged\n";

const DiffCase kCases[] = {
    {"Equal", {"A", "A"}, 0, "No differences in 5 records\n"},
    {"EqualQuiet", {"-q", "A", "A"}, 0, ""},
    {"Text", {"A", "B"}, 1, kText},
    {"Limited",
     {"A", "B", "--limit", "1", "--ignore-handles"},
     1,
     "ENTITIES\n"
     "  ~ LINE #2F, layer WALLS, line 16\n"
     "      EndPoint: (3, 4, 0) -> (3, 5, 0)\n"
     "  ... and 1 more\n"
     "Records: 2 changed, 3 unchanged\n"},
    {"Quiet", {"-q", "A", "B"}, 1, "Records: 2 changed, 1 with another handle only, 2 unchanged\n"},
    {"Ignored",
     {"A", "B", "--ignore", "EndPoint", "--ignore", "Layer", "--ignore", "PointLocation", "--ignore-handles"},
     0,
     "No differences in 5 records\n"},
    {"SkippedGroups", {"A", "OUT/skipped.dxf"}, 1, nullptr, "1 warning in reading. What was skipped"},
    {"NoSecondFile", {"A"}, 2, "", "B is required"},
    {"LimitNoNumber", {"A", "B", "--limit", "-1"}, 2, "", "is not an integer"},
    {"Missing", {"A", "OUT/none.dxf"}, 3, "", "none.dxf"},
    {"Binary", {"OUT/binary.dxf", "B"}, 3, "", "is a binary DXF"},
};

INSTANTIATE_TEST_SUITE_P(Vdxf, Diff, testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(DiffJson, HoldsEverything) {
    const TemporaryFolder folder;
    const std::string a = folder.write("a.dxf", drawing_with(kBefore + " 0 RAY 5 40 8 0"));
    const std::string b = folder.write("b.dxf", drawing_with("0 TEXT 5 40 8 0 1 new " + kAfter));
    const auto json = run_tool({"diff", "--json", a, b}).json();
    EXPECT_EQ(json["equal"], false);
    EXPECT_EQ(json["counts"], nlohmann::json::parse(R"({"added": 1, "removed": 1, "changed": 2,
        "renumbered": 1, "same": 2, "variables": 0, "comments": 0})"));
    ASSERT_EQ(json["records"].size(), 4u) << json;
    EXPECT_EQ(json["records"][0], nlohmann::json::parse(R"json({"change": "changed", "type": "LINE",
        "name": "", "layer": "WALLS", "before": {"handle": "2F", "line": 16, "section": "ENTITIES"},
        "after": {"handle": "2F", "line": 24, "section": "ENTITIES"}, "fields": [{"field": "EndPoint",
        "code": 11, "before": "(3, 4, 0)", "after": "(3, 5, 0)"}]})json"));
    EXPECT_EQ(json["records"][2]["change"], "removed");
    EXPECT_EQ(json["records"][2]["after"], nullptr);
    EXPECT_EQ(json["records"][3]["type"], "TEXT");
    EXPECT_EQ(json["renumbered"][0]["after"]["handle"], "32");
    EXPECT_EQ(run_tool({"diff", "--json", a, a}).json()["equal"], true);
}

}  // namespace
}  // namespace veltrane::tool
