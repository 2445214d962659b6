// Drawings to meshes: what the tool tells of their bodies.
#include "vdxf/tool_run.hpp"

#include <gtest/gtest.h>

namespace veltrane::tool {
namespace {

using Json = nlohmann::json;

/// A closed box, an open tube and a line.
constexpr const char* kBodies =
    "0 SOLID 5 2F 8 WALLS 39 10 10 0 20 0 30 0 11 10 21 0 31 0 12 0 22 10 32 0 13 10 23 10 33 0 "
    "0 CIRCLE 5 30 8 PIPES 39 10 10 30 20 0 40 5 0 LINE 5 31 8 0 10 0 20 0 11 3 21 4";

TEST(MeshAccount, TellsWhichBodiesAreClosed) {
    const TemporaryFolder folder;
    const std::string input = folder.write("in.dxf", drawing_with(kBodies));
    const Json all = run_tool({"convert", "--json", input, folder.file("a.glb")}).json();
    EXPECT_EQ(all["lossless"], true);
    EXPECT_EQ(all["mesh"]["closed_bodies"], 1);
    EXPECT_EQ(all["mesh"]["open_bodies"], 1);
    EXPECT_EQ(all["mesh"]["curves"], 1);
    const Json& box = all["bodies"][0];
    EXPECT_EQ(box, Json::parse(R"({"type": "SOLID", "handle": "2F", "line": )" + box["line"].dump() +
                               R"(, "layer": "WALLS", "triangles": 12, "watertight": true, "copies": 1})"));
    EXPECT_EQ(all["bodies"][1]["watertight"], false);

    const Outcome strict = run_tool({"convert", "--strict", input, folder.file("a.stl")});
    EXPECT_EQ(strict.code, 4) << "the line is lost";
    for (const char* text : {"Bodies with faces: 1 closed (watertight), 1 open", "open: CIRCLE #30",
                             "STL holds faces only: 1 curve"}) {
        EXPECT_NE(strict.err.find(text), std::string::npos) << strict.err;
    }
}

TEST(MeshAccount, FollowsTheOptions) {
    const TemporaryFolder folder;
    const std::string input = folder.write("in.dxf", drawing_with(kBodies));
    const auto triangles = [&](const std::string& deflection, const std::string& angle) {
        return run_tool({"convert", "--json", input, folder.file("a.stl"), "--deflection", deflection,
                         "--angle", angle})
            .json()["mesh"]["triangles"]
            .get<int>();
    };
    const int coarse = triangles("50%", "57");
    EXPECT_GT(triangles("0.001", "57"), 2 * coarse);
    EXPECT_GT(triangles("50%", "5"), 2 * coarse);
}

}  // namespace
}  // namespace veltrane::tool
