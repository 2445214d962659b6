// Files that are no drawings, or broken ones: a clear answer in bounded time.
#include "vdxf/tool_run.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

namespace veltrane::tool {
namespace {

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

const std::string& plain_drawing() {
    static const std::string drawing =
        drawing_with("0 LINE 8 0 10 0 20 0 11 3 21 4 0 CIRCLE 8 0 10 1 20 1 40 2");
    return drawing;
}

std::string truncated() {
    return plain_drawing().substr(0, plain_drawing().size() * 2 / 3);
}

std::string with_line_ends(std::string_view line_end) {
    std::string result;
    for (const char c : plain_drawing()) {
        if (c == '\n') {
            result += line_end;
        } else {
            result += c;
        }
    }
    return result;
}

struct BadInput {
    const char* name;
    std::function<std::string()> content;
    int code;
    const char* said;  ///< on standard error when the code is not 0, otherwise in the account of reading
    int shapes;        ///< measured; -1: no matter
    const char* line_ends = "LF";
};

class BadInputs : public testing::TestWithParam<BadInput> {};

TEST_P(BadInputs, GetAClearAnswer) {
    const TemporaryFolder folder;
    const std::string input = folder.write("in.dxf", GetParam().content());
    const auto start = std::chrono::steady_clock::now();
    const Outcome outcome = run_tool({"info", "--json", input});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
    ASSERT_EQ(outcome.code, GetParam().code) << outcome.err;
    if (outcome.code != 0) {
        EXPECT_NE(outcome.err.find(GetParam().said), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.out, "");
        return;
    }
    const auto json = outcome.json();
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(json["reading"]["kinds"].dump().find(GetParam().said), std::string::npos) << json["reading"];
    EXPECT_EQ(json["line_ends"], GetParam().line_ends);
    if (GetParam().shapes >= 0) {
        EXPECT_EQ(json["extents"]["measured"]["shapes"], GetParam().shapes);
    }

    for (const char* target : {"out.dxf", "out.svg", "out.txt"}) {
        EXPECT_EQ(run_tool({"convert", "-q", input, folder.file(target)}).code, 0) << target;
    }
    EXPECT_EQ(run_tool({"dump", "--level", "4", input}, "/dev/null").code, 0);
}

const BadInput kCases[] = {
    {"Empty", [] { return std::string(); }, 3, "is empty", -1},
    {"Binary", [] { return std::string("AutoCAD Binary DXF\r\n\x1A\0\0\0SECTION\0", 32); }, 3,
     "is a binary DXF", -1},
    {"Prose", [] { return std::string("Dear reader,\nthis is no drawing.\n"); }, 3, "is no DXF file", -1},
    {"Bytes",
     [] {
         return repeated(std::string_view("\x7F"
                                          "ELF\0\xFF\n\r",
                                          8),
                         1000);
     },
     3, "is no DXF file", -1},
    {"NumbersOnly", [] { return repeated("1\n2\n", 1000); }, 3, "is no DXF file", -1},
    {"Truncated", [] { return truncated(); }, 0, "Error during read of file", 1},
    {"CodeNoNumber", [] { return drawing_with("0 LINE 8 0 zehn 0 20 0 11 3 21 4"); }, 0,
     "Group code is not an integer value", -1},
    {"MegabyteLine",
     [] { return drawing_with("0 POINT 8 0 10 1 20 1 0 TEXT 1 " + std::string(1 << 20, 'x')); }, 0,
     "longer than 2039 characters", 1},
    {"MegabyteCode", [] { return drawing_with("0 POINT 8 0 10 1 20 1 " + std::string(1 << 20, '1')); }, 0,
     "longer than 2039 characters", 1},
    {"HugeReal", [] { return drawing_with("0 LINE 8 0 10 1e400 20 0 11 3 21 4"); }, 0, "not a real value", 1},
    {"HugeCounts", [] { return drawing_with("0 SPLINE 8 0 70 8 71 3 72 2000000000 73 2000000000 40 0"); }, 0,
     "", 0},
    {"Nested", [] { return repeated("0\nSECTION\n2\nENTITIES\n", 200'000); }, 0, "nested too deep", -1},
    {"Unclosed",
     [] { return repeated("0\nTABLE\n2\nLAYER\n", 200'000).insert(0, "0\nSECTION\n2\nTABLES\n"); }, 0,
     "nested too deep", -1},
    {"CrOnly", [] { return with_line_ends("\r"); }, 0, "", 2, "CR"},
    {"CrLf", [] { return with_line_ends("\r\n"); }, 0, "", 2, "CRLF"},
    {"ByteOrderMark", [] { return "\xEF\xBB\xBF" + plain_drawing(); }, 0, "", 2},
    {"OnlyEnd", [] { return std::string("0\nEOF\n"); }, 0, "", 0},
    {"BytesThatAreNoText", [] { return drawing_with("0 POINT 8 \xFF\xFE\x1B[2J 10 1 20 1", "AC1032"); }, 0,
     "", 1},
};

INSTANTIATE_TEST_SUITE_P(Vdxf, BadInputs, testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace veltrane::tool
