// What the tool counts: the sums agree with the file, and what is lost is told.
#include "vdxf/tool_run.hpp"

#include <gtest/gtest.h>

#include <sstream>

namespace veltrane::tool {
namespace {

using Json = nlohmann::json;

/// A bit of everything: tables, a block, typed and untyped records, layers of all kinds, things to complain
/// of.
std::string mixed_drawing() {
    return drawing_of(
        "0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 9 $DWGCODEPAGE 3 ANSI_1252 9 $INSUNITS 70 1 "
        "9 $HANDSEED 5 FF 9 $EXTMIN 10 0 20 0 30 0 9 $EXTMAX 10 9 20 9 30 0 0 ENDSEC "
        "0 SECTION 2 TABLES 0 TABLE 2 LAYER 70 2 "
        "0 LAYER 5 10 2 WALLS 70 0 62 1 6 CONTINUOUS 0 LAYER 5 11 2 GONE 70 5 62 -3 6 CONTINUOUS 0 ENDTAB 0 "
        "ENDSEC "
        "0 SECTION 2 BLOCKS 0 BLOCK 5 20 8 0 2 *D1 70 1 10 0 20 0 30 0 0 LINE 5 21 8 WALLS 10 0 20 0 11 1 21 "
        "1 "
        "0 ENDBLK 5 22 8 0 0 ENDSEC "
        "0 SECTION 2 ENTITIES 0 LINE 5 30 8 WALLS 370 25 10 0 20 0 11 4 21 0 "
        "0 LINE 5 31 8 GONE 420 255 10 0 20 0 11 0 21 3 1001 APP 1000 note "
        "0 CIRCLE 5 32 8 h\xF6he 10 2 20 2 40 1 0 CIRCLE 5 33 8 WALLS 10 2 20 2 40 0 "
        "0 RAY 5 34 8 WALLS 10 0 20 0 30 0 11 1 21 0 31 0 0 WIPEOUT 5 35 8 WALLS 90 1 0 ENDSEC "
        "0 SECTION 2 OBJECTS 0 VISUALSTYLE 5 40 70 1 0 ENDSEC 0 EOF");
}

class Account : public testing::Test {
protected:
    Json info(const std::vector<std::string>& options = {}) const {
        std::vector<std::string> arguments{"info", "--json", input_};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return run_tool(arguments).json();
    }
    Outcome convert(const std::string& output, const std::vector<std::string>& options = {}) const {
        std::vector<std::string> arguments{"convert", "--json", input_, folder_.file(output)};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return run_tool(arguments);
    }

    TemporaryFolder folder_;
    std::string input_ = folder_.write("in.dxf", mixed_drawing());
};

/// The entry of a list of objects in which `key` has this value.
Json entry(const Json& list, const char* key, const std::string& value) {
    for (const Json& candidate : list) {
        if (candidate[key] == value) return candidate;
    }
    return {};
}

std::size_t sum(const Json& list, const char* key) {
    std::size_t total = 0;
    for (const Json& candidate : list) total += candidate[key].get<std::size_t>();
    return total;
}

TEST_F(Account, OfAFileAgreesWithIt) {
    const Json json = info();
    EXPECT_EQ(json["release"], "R2000");
    EXPECT_EQ(json["units"]["name"], "inches");
    EXPECT_EQ(json["code_page"], "ANSI_1252");
    EXPECT_EQ(json["records"], 18);  // groups 0, without ENDSEC, ENDTAB and EOF
    EXPECT_EQ(sum(json["types"], "records"), 18u);
    EXPECT_EQ(json["carried_through"], 2);
    EXPECT_EQ(entry(json["types"], "type", "LINE"), Json::parse(R"({"type": "LINE", "carried_through": false,
        "records": 3, "in_entities": 2, "in_blocks": 1})"));
    EXPECT_EQ(entry(json["sections"], "name", "ENTITIES")["records"], 6);
    EXPECT_EQ(entry(json["sections"], "name", "HEADER")["variables"], 6);
}

TEST_F(Account, OfLayersAndBlocks) {
    const Json json = info();
    EXPECT_EQ(entry(json["layers"], "name", "GONE"),
              Json::parse(R"({"name": "GONE", "defined": true, "colour": 3,
        "off": true, "frozen": true, "locked": true, "records": 1})"));
    EXPECT_EQ(entry(json["layers"], "name", "h\u00F6he")["defined"], false) << json["layers"];
    EXPECT_EQ(entry(json["layers"], "name", "WALLS")["records"], 5);
    EXPECT_EQ(entry(json["blocks"], "name", "*D1"),
              Json::parse(R"({"name": "*D1", "records": 1, "anonymous": true,
        "external": ""})"));
}

TEST_F(Account, OfExtentsIsInDrawingUnits) {
    const Json extents = info()["extents"];
    EXPECT_EQ(extents["header"]["max"], Json({9, 9, 0}));
    EXPECT_EQ(extents["measured"]["unbounded"], 1);
    for (int axis = 0; axis < 2; ++axis) {
        EXPECT_NEAR(extents["measured"]["min"][axis], 0, 1e-9);
        EXPECT_NEAR(extents["measured"]["max"][axis], axis == 0 ? 4 : 3, 1e-9);
    }
    EXPECT_FALSE(info({"--no-measure"})["extents"].contains("measured"));
}

TEST_F(Account, OfMessagesNamesTheirFirstLine) {
    const Json reading = info()["reading"];
    EXPECT_EQ(reading["fails"].get<std::size_t>() + reading["warnings"].get<std::size_t>(),
              sum(reading["kinds"], "count"));
    const Json kind = entry(reading["kinds"], "type", "LINE");
    EXPECT_NE(kind["text"].get<std::string>().find("code 420"), std::string::npos);
    std::istringstream lines(mixed_drawing());
    std::string line;
    int number = 1;
    while (std::getline(lines, line) && line != "420") ++number;
    EXPECT_EQ(kind["first_line"], number + 1);  // the value stands after its code
}

TEST_F(Account, OfAPictureAddsUp) {
    const Outcome outcome = convert("out.svg", {"--strict"});
    EXPECT_EQ(outcome.code, 4);
    const Json json = outcome.json();
    EXPECT_EQ(json["lossless"], false);
    for (const Json& type : json["types"]) {
        EXPECT_EQ(type["read"].get<int>(),
                  type["shape"].get<int>() + type["nothing"].get<int>() + type["no_translator"].get<int>())
            << type;
    }
    const std::size_t sections = 5;
    EXPECT_EQ(sum(json["types"], "read") + sum(json["elsewhere"], "read") + sections, 18u);
    EXPECT_EQ(entry(json["types"], "type", "CIRCLE")["nothing"], 1);
    EXPECT_EQ(json["lost"][0]["handle"], "33");
    EXPECT_EQ(sum(json["types"], "shape"), json["drawn"].get<std::size_t>() + 1)
        << "one is on a frozen layer";
    EXPECT_TRUE(std::filesystem::exists(folder_.file("out.svg"))) << "what can be written is written";
}

TEST_F(Account, OfADxfFileTellsWhatIsNotInIt) {
    const Outcome outcome = convert("out.dxf", {"--strict"});
    EXPECT_EQ(outcome.code, 4);
    const Json json = outcome.json();
    EXPECT_EQ(json["version_written"], "AC1015");
    EXPECT_EQ(sum(json["types"], "read"), 18u);
    const std::string lost = json["lost"].dump();
    EXPECT_EQ(sum(json["lost"], "count"), 2u) << lost;
    for (const char* what : {"code 420", "LINE: group 370"}) {
        EXPECT_NE(lost.find(what), std::string::npos) << what << " in " << lost;
    }
}

TEST_F(Account, OfALosslessRewriteIsEmpty) {
    input_ = folder_.write("plain.dxf", drawing_with("0 LINE 5 2F 8 0 10 0 20 0 11 3 21 4", "AC1032"));
    const Outcome outcome = convert("out.dxf", {"--strict"});
    EXPECT_EQ(outcome.code, 0) << outcome.out;
    EXPECT_EQ(outcome.json()["lost"].size(), 0u);
}

TEST_F(Account, ADrawingKeepsItsVersionUnlessToldOtherwise) {
    struct Row {
        std::vector<std::string> options;
        const char* version;
    };
    const Row rows[] = {{{}, "AC1015"},
                        {{"--dxf-version", "R12"}, "AC1009"},
                        {{"--set", "write.dxf.version=R2010"}, "AC1024"}};
    for (const Row& row : rows) {
        EXPECT_EQ(convert("out.dxf", row.options).json()["version_written"], row.version);
        const Outcome written = run_tool({"info", "--json", folder_.file("out.dxf")});
        EXPECT_EQ(written.json()["version"], row.version);
    }
}

TEST_F(Account, EveryRecordIsDumpedOnce) {
    for (const char* level : {"0", "2", "4"}) {
        const Json json = run_tool({"dump", "--json", "--level", level, input_}).json();
        EXPECT_EQ(json["records"].size(), 18u) << level;
    }
    const Json wipeout =
        run_tool({"dump", "--json", "--level", "4", "--record", "35", input_}).json()["records"][0];
    EXPECT_EQ(wipeout["type"], "WIPEOUT");
    EXPECT_NE(wipeout["fields"].dump().find("{90, 1}"), std::string::npos) << wipeout;
}

TEST(Parameters, AreListedWithTheirLegalValues) {
    const Json list = run_tool({"params", "--json", "--set", "write.dxf.version=R12"}).json();
    const Json version = entry(list, "name", "write.dxf.version");
    EXPECT_EQ(version["value"], "R12");
    EXPECT_EQ(version["default"], "R14");
    EXPECT_EQ(version["values"].size(), 8u);
    EXPECT_EQ(entry(list, "name", "read.dxf.insunits.scale")["default"], "On");
}

}  // namespace
}  // namespace veltrane::tool
