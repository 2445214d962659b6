// Arguments, right and wrong: exit codes and what is said.
#include "vdxf/tool_run.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

namespace veltrane::tool {
namespace {

struct UsageCase {
    const char* name;
    std::vector<std::string>
        arguments;  ///< "IN" stands for a drawing, "OUT" for a folder that may be written
    int code;
    const char* on_out;  ///< a piece of standard output; empty: nothing there
    const char* on_err;
};

class Usage : public testing::TestWithParam<UsageCase> {};

TEST_P(Usage, EndsAndSpeaksAsPromised) {
    const TemporaryFolder folder;
    const std::string input = folder.write(
        "in.dxf", drawing_with("0 LINE 5 2F 8 WALLS 10 0 20 0 11 3 21 4 0 POINT 5 30 8 0 10 1 20 1"));
    std::vector<std::string> arguments = GetParam().arguments;
    for (std::string& argument : arguments) {
        if (argument == "IN") argument = input;
        if (argument.starts_with("OUT")) argument.replace(0, 3, folder.path().string());
    }

    const Outcome outcome = run_tool(arguments);
    EXPECT_EQ(outcome.code, GetParam().code) << outcome.err;
    EXPECT_NE(outcome.out.find(GetParam().on_out), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.err.find(GetParam().on_err), std::string::npos) << outcome.err;
    if (GetParam().on_out[0] == '\0') {
        EXPECT_EQ(outcome.out, "");
    }
    if (GetParam().on_err[0] == '\0') {
        EXPECT_EQ(outcome.err, "");
    }
    if (outcome.code != 0) {
        EXPECT_EQ(folder.count_files(), 1u) << "a run that fails leaves nothing behind";
    }
}

const UsageCase kCases[] = {
    {"Help", {"--help"}, 0, "Examples:", ""},
    {"HelpOfCommand", {"convert", "--help"}, 0, "--view", ""},
    {"HelpOfDiff", {"diff", "--help"}, 0, "Exit codes: 0 the drawings are equal, 1 they differ", ""},
    {"HelpAsWord", {"help", "dump"}, 0, "Levels:", ""},
    {"Measure",
     {"measure", "IN", "--gap", "0.5"},
     0,
     "(all)                          2        .        1              5",
     ""},
    {"MeasureGap", {"measure", "IN", "--gap", "-1"}, 2, "", "is not a number from 0 to"},
    {"Version", {"--version"}, 0, "vdxf " VDXF_VERSION, ""},

    {"NoCommand", {}, 2, "", "The commands are info, measure, dump, convert, diff and params"},
    {"UnknownCommand", {"convrt", "IN", "x"}, 2, "", "Did you mean convert?"},
    {"OptionBeforeCommand", {"--json", "info", "IN"}, 2, "", "Options stand after the command"},
    {"ExchangedLetters", {"convert", "IN", "OUT/x.gtlf"}, 2, "", "Did you mean gltf?"},
    {"UnknownOption", {"info", "IN", "--jsno"}, 2, "", "Did you mean --json?"},
    {"UnknownOptionAlone", {"info", "--jsno"}, 2, "", "Did you mean --json?"},
    {"MissingFile", {"info"}, 2, "", "FILE is required"},
    {"MissingOutput", {"convert", "IN"}, 2, "", "OUT is required"},
    {"OneTooMany", {"info", "IN", "more"}, 2, "", "\"more\" is one argument too many"},
    {"QuietAndVerbose", {"info", "-q", "-v", "IN"}, 2, "", "excludes"},

    {"LevelTooHigh", {"dump", "IN", "--level", "5"}, 2, "", "\"5\" is not an integer from 0 to 4"},
    {"LevelNoNumber", {"dump", "IN", "--level", "all"}, 2, "", "\"all\" is not an integer from 0 to 4"},
    {"HandleNoHex", {"dump", "IN", "--record", "xyz"}, 2, "", "hexadecimal"},
    {"HandleTooLarge", {"dump", "IN", "--record", "123456789ABC"}, 2, "", "hexadecimal"},
    {"HandleOfNothing", {"dump", "IN", "--record", "2F0"}, 1, "", "No record has the handle 2F0"},
    {"HandleFound", {"dump", "IN", "--record", "2f", "--level", "1"}, 0, "LINE #2F line ", ""},
    {"DumpNames", {"dump", "IN", "--level", "1"}, 0, "layer \"WALLS\"", ""},
    {"DumpFields", {"dump", "IN"}, 0, "EndPoint: \t(3, 4, 0)", ""},

    {"UnknownExtension",
     {"convert", "IN", "OUT/a.swg"},
     2,
     "",
     "one of dxf, svg, pdf, png, stl, obj, ply, gltf"},
    {"NoExtension", {"convert", "IN", "OUT/a"}, 2, "", "no extension"},
    {"UnknownFormat", {"convert", "IN", "OUT/a", "--to", "gif"}, 2, "", "\"gif\" is not one of dxf"},
    {"UnknownView", {"convert", "IN", "OUT/a.svg", "--view", "fromt"}, 2, "", "Did you mean front?"},
    {"NoDirection", {"convert", "IN", "OUT/a.svg", "--view", "0,0,0"}, 2, "", "direction"},
    {"UnknownGround", {"convert", "IN", "OUT/a.svg", "--ground", "blue"}, 2, "", "white and black"},
    {"SizeTooLarge", {"convert", "IN", "OUT/a.png", "--size", "1000000"}, 2, "", "16384"},
    {"ViewOfDxf", {"convert", "IN", "OUT/a.dxf", "--view", "iso"}, 2, "", "--view is for pictures"},
    {"VersionOfPicture", {"convert", "IN", "OUT/a.svg", "--dxf-version", "R12"}, 2, "", "is for DXF files"},
    {"AngleOfPicture", {"convert", "IN", "OUT/a.svg", "--angle", "5"}, 2, "", "--angle is for meshes"},
    {"NoDeflection", {"convert", "IN", "OUT/a.stl", "--deflection", "0"}, 2, "", "length in millimetres"},
    {"DeflectionTooLarge", {"convert", "IN", "OUT/a.stl", "--deflection", "101%"}, 2, "", "up to 100%"},
    {"AngleTooLarge", {"convert", "IN", "OUT/a.stl", "--angle", "90"}, 2, "", "degrees from 0.1 to 57"},
    {"UnknownVersion", {"convert", "IN", "OUT/a.dxf", "--dxf-version", "R15"}, 2, "", "R2000"},

    {"UnknownParameter",
     {"params", "--set", "write.dxf.verson=R12"},
     2,
     "",
     "Did you mean write.dxf.version?"},
    {"UnknownValue", {"params", "--set", "write.dxf.version=R99"}, 2, "", "R12 (12), R13 (13)"},
    {"RealNoNumber", {"params", "--set", "write.dxf.deflection.factor=big"}, 2, "", "a real number"},
    {"NoValue", {"params", "--set", "write.dxf.version"}, 2, "", "NAME=VALUE"},
    {"Setting", {"params", "--set", "write.dxf.version=R12"}, 0, "write.dxf.version = R12", ""},
    {"SettingOfOther", {"info", "IN", "--set", "read.dxf.insunits.scale=Off"}, 0, "AC1015 (R2000)", ""},

    {"MissingInput", {"info", "OUT/none.dxf"}, 3, "", "No such file"},
    {"FolderAsInput", {"info", "OUT"}, 3, "", "Is a directory"},
    {"DeviceAsInput", {"info", "/dev/zero"}, 3, "", "no regular file"},
    {"MissingFolder", {"convert", "IN", "OUT/no/a.dxf"}, 1, "", "cannot write"},
    {"ReadOnlyPlace", {"convert", "IN", "/proc/a.dxf"}, 1, "", "cannot write"},
    {"FolderAsOutput", {"convert", "IN", "OUT", "--to", "dxf"}, 1, "", "cannot write"},
    {"FullDxf", {"convert", "IN", "/dev/full", "--to", "dxf"}, 1, "", "No space left"},
    {"FullSvg", {"convert", "IN", "/dev/full", "--to", "svg"}, 1, "", "No space left"},
    {"FullPng", {"convert", "IN", "/dev/full", "--to", "png"}, 1, "", "No space left"},
    {"FullGlb", {"convert", "IN", "/dev/full", "--to", "glb"}, 1, "", "No space left"},
    {"FacesWanted", {"convert", "IN", "OUT/a.stl"}, 1, "", "there are no faces, and STL holds nothing else"},
    {"FullText", {"convert", "IN", "/dev/full", "--to", "txt"}, 1, "", "No space left"},
    {"QuietConversion", {"convert", "-q", "IN", "OUT/a.txt"}, 0, "", ""},
    {"Narration", {"convert", "IN", "OUT/a.PNG", "--view", "1,-1,0.5"}, 0, "", "LINE"},
};

INSTANTIATE_TEST_SUITE_P(Vdxf, Usage, testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(StandardOutput, AFullOneIsAFailure) {
    const TemporaryFolder folder;
    const std::string input = folder.write("in.dxf", drawing_with("0 POINT 8 0 10 1 20 1"));
    for (const char* command : {"info", "dump"}) {
        const Outcome outcome = run_tool({command, input}, "/dev/full");
        EXPECT_EQ(outcome.code, 1) << command;
        EXPECT_NE(outcome.err.find("No space left"), std::string::npos) << outcome.err;
    }
}

TEST(StandardOutput, AReaderThatGoesAwayEndsTheDumpQuietly) {
    const TemporaryFolder folder;
    std::string points;
    for (int i = 0; i < 20000; ++i) points += "0 POINT 8 0 10 1 20 1 ";
    const std::string input = folder.write("in.dxf", drawing_with(points));
    const std::string line = VDXF_EXECUTABLE " dump '" + input + "' 2> '" + folder.file("err") +
                             "' | head -n 1 > '" + folder.file("out") + "'";
    ASSERT_EQ(std::system(line.c_str()), 0);
    EXPECT_EQ(read_file(folder.file("err")), "");
    EXPECT_EQ(read_file(folder.file("out")), "SECTION line 2 name \"HEADER\"\n");
}

TEST(Output, AReadOnlyTargetStaysAsItIs) {
    const TemporaryFolder folder;
    const std::string input = folder.write("in.dxf", drawing_with("0 POINT 8 0 10 1 20 1"));
    const std::string target = folder.write("kept.dxf", "kept");
    std::filesystem::permissions(target, std::filesystem::perms::owner_read);
    const Outcome outcome = run_tool({"convert", input, target});
    if (outcome.code == 0) GTEST_SKIP() << "this user may write everything";
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(read_file(target), "kept");
    EXPECT_EQ(folder.count_files(), 2u);
}

}  // namespace
}  // namespace veltrane::tool
