#include "veltrane/output/mesh_file.hpp"

#include "mesh_files.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/kernel/math/box.hpp"
#include "veltrane/kernel/mesh/mesh_measure.hpp"

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Vector;
using samples::MeshFile;
using Json = nlohmann::json;

constexpr const char* kExtensions[] = {".stl", ".obj", ".ply", ".gltf", ".glb", ".3mf"};

kernel::Box box_of(const kernel::Mesh& mesh) {
    kernel::Box box;
    for (const Point& p : mesh.points) box.add(p);
    return box;
}

std::size_t count_of(const std::string& text, const std::string& word) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; ++at) ++count;
    return count;
}

/// A drawing with inserts of a block, which holds a red box of its own colour, and a box and a line that look
/// like the insert.
struct Inserts : samples::Drawing {
    kernel::Shape block;

    Inserts() {
        add_layer("Walls", 5);
        const auto fixed = make<DxfSection_Entity>(), lent = make<DxfSection_Entity>(),
                   line = make<DxfSection_Entity>();
        fixed->Layer = "Fixed";
        fixed->Color = 1;
        lent->Layer = line->Layer = "0";
        bind(fixed, samples::box({0, 0, 0}, 10));
        bind(lent, samples::box({20, 0, 0}, 10));
        bind(line, kernel::make_edge(Point(0, 0, 0), Point(0, 30, 0)));
        block = add_block("Door & \"frame\"", {fixed, lent, line});
    }
    void insert(const kernel::Transform& motion, int handle, const char* layer = "Walls") {
        const auto record = add_entity<DxfEnt_Insert>();
        record->BlockName = "Door & \"frame\"";
        record->Layer = layer;
        record->Handle = handle;
        bind(record, kernel::moved(block, motion));
    }
    Scene scene() const { return make_scene(*model, *process); }
};

class MeshFormats : public testing::TestWithParam<const char*> {};

TEST_P(MeshFormats, KeepABoxClosed) {
    const MeshFile file(GetParam());
    Scene scene = samples::scene_of({samples::box({1, 2, 3}, 10).reversed()});
    scene.items[0].style.layer = "Walls";
    const MeshReport report = file.write(scene);
    ASSERT_TRUE(report.is_done()) << report.problem;
    ASSERT_EQ(report.bodies.size(), 1u);
    EXPECT_TRUE(report.bodies[0].is_watertight);
    EXPECT_EQ(report.bodies[0].copies, 1u);
    EXPECT_EQ(report.triangles, 12u);
    EXPECT_FALSE(report.is_lossy());
    EXPECT_TRUE(report.notes.empty()) << report.notes[0];

    const samples::ReadMesh mesh(file);
    EXPECT_EQ(mesh.triangles.size(), 12u);
    EXPECT_EQ(mesh.points.size(), 8u);
    EXPECT_TRUE(kernel::is_watertight(mesh));
    const bool is_gltf = std::string(GetParam()).starts_with(".gl");
    const double unit = is_gltf ? 0.001 : 1;
    const Point low = is_gltf ? Point(0.001, 0.003, -0.012) : Point(1, 2, 3);
    EXPECT_NEAR(kernel::volume(mesh), 1000 * unit * unit * unit, 1e-6 * unit * unit * unit * 1000);
    EXPECT_LT((box_of(mesh).min() - low).norm(), 1e-6 * unit * 10);

    const std::string first = file.content();
    file.write(scene);
    EXPECT_EQ(file.content(), first) << "equal scenes give equal bytes";
}

TEST_P(MeshFormats, PlaceInserts) {
    const MeshFile file(GetParam());
    Inserts drawing;
    drawing.insert(kernel::Transform::translation({100, 0, 0}), 0x2A);
    // So small a turn is easily taken for none.
    drawing.insert(kernel::Transform::rotation({0, 0, 0}, {0, 0, 1}, 0.004), 0x2B);
    const MeshReport report = file.write(drawing.scene());
    ASSERT_TRUE(report.is_done()) << report.problem;
    EXPECT_EQ(report.bodies.size(), 2u);
    EXPECT_EQ(report.bodies[0].copies, 2u);
    EXPECT_EQ(report.triangles, 48u);
    EXPECT_EQ(report.curves + report.curves_left_out, 2u);

    const samples::ReadMesh mesh(file);
    EXPECT_EQ(mesh.triangles.size(), 48u);
    EXPECT_TRUE(kernel::is_watertight(mesh));
    const bool is_gltf = std::string(GetParam()).starts_with(".gl");
    const Vector size = box_of(mesh).size() * (is_gltf ? 1000 : 1);
    EXPECT_NEAR(size.x(), 130 + 10 * std::sin(0.004), 1e-4);
    EXPECT_NEAR(is_gltf ? size.y() : size.z(), 10, 1e-4) << "height";
}

INSTANTIATE_TEST_SUITE_P(All, MeshFormats, testing::ValuesIn(kExtensions),
                         [](const auto& info) { return info.param[1] == '3' ? "tmf" : info.param + 1; });

TEST(Gltf, HasLayersAndSharesBlocks) {
    const MeshFile file(".gltf");
    Inserts drawing;
    drawing.insert(kernel::Transform::translation({100, 0, 0}), 0x2A);
    drawing.insert(kernel::Transform::translation({0, 50, 7}), 0x2B);
    drawing.insert(kernel::Transform::identity(), 0x2C, "Doors");
    ASSERT_TRUE(file.write(drawing.scene()).is_done());
    const Json json = Json::parse(file.content());
    const auto node = [&](const Json& parent, int child) {
        return json["nodes"][parent["children"][child].get<int>()];
    };

    const Json layer = node(json["nodes"][0], 0);
    EXPECT_EQ(layer["name"], "Walls");
    ASSERT_EQ(layer["children"].size(), 2u);
    const Json first = node(layer, 0), second = node(layer, 1);
    EXPECT_EQ(first["name"], "Door & \"frame\" #2A");
    EXPECT_EQ(second["translation"], Json({0, 0.007, -0.05}));
    EXPECT_EQ(node(first, 0)["name"], "Fixed");
    EXPECT_EQ(node(first, 1)["name"], "Walls");
    for (int i : {0, 1}) EXPECT_EQ(node(first, i)["mesh"], node(second, i)["mesh"]);

    const Json other = node(node(json["nodes"][0], 1), 0);
    EXPECT_EQ(node(first, 0)["mesh"], node(other, 0)["mesh"]) << "it looks the same through any insert";
    EXPECT_NE(node(first, 1)["mesh"], node(other, 1)["mesh"]);
    EXPECT_EQ(json["meshes"].size(), 3u);
    EXPECT_EQ(json["accessors"].size(), 6u) << "points and corners of two boxes and a line";

    const Json& primitives = json["meshes"][node(first, 1)["mesh"].get<int>()]["primitives"];
    ASSERT_EQ(primitives.size(), 2u);
    EXPECT_EQ(primitives[0]["mode"], 4);
    EXPECT_EQ(primitives[1]["mode"], 1);
    const Json& material = json["materials"][primitives[1]["material"].get<int>()];
    EXPECT_EQ(material["name"], "colour 5");
    EXPECT_EQ(material["pbrMetallicRoughness"]["baseColorFactor"], Json({0, 0, 1, 1}));
}

TEST(Gltf, HasAnOriginWhereCoordinatesAreFar) {
    const double far = 4.5e9;
    const MeshFile file(".gltf");
    const kernel::Shape shape =
        kernel::make_compound({samples::box({far + 0.25, -far, 0}, 10), kernel::make_vertex({far, -far, 0})});
    ASSERT_TRUE(file.write(samples::scene_of({shape})).is_done());
    const Json json = Json::parse(file.content());
    EXPECT_EQ(json["nodes"][0]["translation"], Json({4'500'000, 0, 4'500'000}));
    const Json& primitives = json["meshes"][0]["primitives"];
    EXPECT_EQ(primitives[0]["mode"], 0);
    const Json& points = json["accessors"][primitives[1]["attributes"]["POSITION"].get<int>()];
    EXPECT_FLOAT_EQ(points["min"][0].get<float>(), 0.00025f);
    EXPECT_FLOAT_EQ(points["max"][1].get<float>(), 0.01f);
}

TEST(Gltf, HasAnOriginForEachBlock) {
    // Drawings of maps have blocks with co-ordinates of the map, inserted where they are.
    const Vector far(4.5e9, -4.5e9, 0);
    samples::Drawing drawing;
    const auto part = make<DxfSection_Entity>();
    drawing.bind(part, samples::box(far + Vector(0, 0, 2), 10));
    const kernel::Shape block = drawing.add_block("Plot", {part});
    const auto insert = drawing.add_entity<DxfEnt_Insert>();
    insert->BlockName = "Plot";
    const MeshFile file(".gltf");
    struct Row {
        Vector motion;
        Json root, place;
    };
    const Row rows[] = {{-far + Vector(25, 50, 0), {0, 0, 0}, {0.025, 0, -0.05}},
                        {{25, 50, 0}, {4'500'000, 0, 4'500'000}, {0.025, 0, -0.05}}};
    for (const Row& row : rows) {
        drawing.bind(insert, kernel::moved(block, kernel::Transform::translation(row.motion)));
        ASSERT_TRUE(file.write(make_scene(*drawing.model, *drawing.process)).is_done());
        const Json json = Json::parse(file.content());
        EXPECT_EQ(json["nodes"][0].value("translation", Json({0, 0, 0})), row.root);
        EXPECT_EQ(json["nodes"][2]["translation"], row.place);
        EXPECT_FLOAT_EQ(json["accessors"][0]["min"][1].get<float>(), 0.002f);
    }
}

TEST(Stl, HasTheNormalsOfFacets) {
    const MeshFile file(".stl");
    file.write(samples::scene_of({samples::box({0, 0, 0}, 10)}));
    const std::string bytes = file.content();
    ASSERT_EQ(bytes.size(), 84u + 12 * 50);
    for (std::size_t at = 84; at < bytes.size(); at += 50) {
        Eigen::Vector3f normal;
        std::memcpy(normal.data(), bytes.data() + at, sizeof normal);
        EXPECT_EQ(normal.cwiseAbs().maxCoeff(), 1) << at;
    }
}

TEST(Stl, IsMovedWhereCoordinatesAreFar) {
    const MeshFile file(".stl");
    const MeshReport report = file.write(samples::scene_of({samples::box({4.5e9 + 0.25, 0, 0}, 10)}));
    ASSERT_EQ(report.notes.size(), 1u);
    EXPECT_NE(report.notes[0].find("(4500000000, 0, 0) mm"), std::string::npos) << report.notes[0];
    const samples::ReadMesh mesh(file);
    EXPECT_LT((box_of(mesh).max() - Point(10.25, 10, 10)).norm(), 1e-6);
}

TEST(Stl, StaysClosedWhereRoundingJoinsPoints) {
    // Points of a step of 0.1 mm fall together at a kilometre.
    const MeshFile file(".stl");
    const kernel::Shape part = kernel::prism(
        kernel::make_planar_face(kernel::make_wire(std::vector{
                                     kernel::make_edge(Point(1e6, 0, 0), Point(1e6 + 50, 0, 0)),
                                     kernel::make_edge(Point(1e6 + 50, 0, 0), Point(1e6 + 50, 40, 0)),
                                     kernel::make_edge(Point(1e6 + 50, 40, 0), Point(1e6 + 49.99, 40, 0)),
                                     kernel::make_edge(Point(1e6 + 49.99, 40, 0), Point(1e6, 0, 0))}))
            .face,
        {0, 0, 30});
    const MeshReport report = file.write(samples::scene_of({part}), 1, false);
    ASSERT_TRUE(report.is_done()) << report.problem;
    EXPECT_TRUE(report.notes.empty()) << "the deflection is greater than what is rounded";
    const samples::ReadMesh mesh(file);
    EXPECT_EQ(mesh.triangles.size(), 8u) << "of a prism on a triangle";
    EXPECT_EQ(report.triangles, mesh.triangles.size());
    EXPECT_TRUE(kernel::is_watertight(mesh));
}

TEST(ThreeMf, HasUnitsObjectsAndComponents) {
    const MeshFile file(".3mf");
    Inserts drawing;
    drawing.insert(kernel::Transform::translation({100, 0.5, 0}), 0x2A);
    drawing.insert(kernel::Transform::translation({0, 50, 7}), 0x2B);
    const auto open = drawing.add_entity();
    open->Layer = "Open";
    drawing.bind(
        open,
        kernel::make_planar_face(kernel::make_wire(std::vector{samples::whole_circle({0, 0, 0}, 5)})).face);
    ASSERT_TRUE(file.write(drawing.scene()).is_done());
    const std::string model = samples::unzipped(file.content(), "3D/3dmodel.model");
    EXPECT_NE(model.find("<model unit=\"millimeter\""), std::string::npos);
    EXPECT_EQ(count_of(model, "<mesh>"), 3u);
    EXPECT_EQ(count_of(model, "name=\"Door &amp; &quot;frame&quot;\""), 3u);
    EXPECT_EQ(count_of(model, "transform=\"1 0 0 0 1 0 0 0 1 100 0.5 0\""), 1u);
    EXPECT_EQ(count_of(model, "type=\"surface\" name=\"Open\""), 1u);
    EXPECT_EQ(count_of(model, "<item "), 2u);
    EXPECT_NE(model.find("displaycolor=\"#0000ff\""), std::string::npos);
}

TEST(Obj, HasGroupsLinesAndColoursBeside) {
    const MeshFile file(".obj");
    Inserts drawing;
    drawing.insert(kernel::Transform::identity(), 0x2A);
    ASSERT_TRUE(file.write(drawing.scene()).is_done());
    const std::string text = file.content();
    for (const char* line : {"\ng Walls\n", "\ng Fixed\n", "\nusemtl colour_5\n", "\nl  ", "\nv 10 10 0\n"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line;
    }
    const std::string colours = std::filesystem::path(file.colours()).filename().string();
    EXPECT_NE(text.find("mtllib " + colours + "\n"), std::string::npos);
    EXPECT_NE(samples::content_of(file.colours()).find("newmtl colour_5\nKd 0 0 1\n"), std::string::npos);
}

TEST(Ply, HasColours) {
    const MeshFile file(".ply");
    Scene scene = samples::scene_of({samples::box({0, 0, 0}, 10)});
    scene.items[0].style.colour = 1;
    file.write(scene);
    EXPECT_NE(file.content().find("\n10 10 0 255 0 0 255\n"), std::string::npos) << file.content();
}

TEST(Mesh, OfFacesThatMeetIsJoined) {
    // Faces drawn one by one are open, what they make up is not.
    std::vector<kernel::Shape> faces =
        kernel::sub_shapes(samples::box({0, 0, 0}, 10).reversed(), kernel::ShapeKind::Face);
    const MeshFile file(".3mf");
    const MeshReport report = file.write(samples::scene_of(faces));
    EXPECT_EQ(report.bodies.size(), 6u);
    EXPECT_FALSE(report.bodies[0].is_watertight);
    ASSERT_EQ(report.notes.size(), 1u);
    EXPECT_NE(report.notes[0].find("fit together"), std::string::npos);
    EXPECT_GT(kernel::volume(samples::ReadMesh(file)), 999) << "though the faces look inwards";
    const std::string model = samples::unzipped(file.content(), "3D/3dmodel.model");
    EXPECT_EQ(count_of(model, "<vertex "), 8u);
    EXPECT_EQ(count_of(model, "type=\"model\""), 1u);
}

TEST(Mesh, OfAFaceThereAndBackIsOpen) {
    const kernel::Shape face =
        kernel::make_planar_face(kernel::make_wire(std::vector{samples::whole_circle({0, 0, 0}, 5)})).face;
    const MeshReport report =
        MeshFile(".stl").write(samples::scene_of({kernel::make_compound({face, face.reversed()})}));
    ASSERT_EQ(report.bodies.size(), 1u);
    EXPECT_FALSE(report.bodies[0].is_watertight) << "there is nothing inside";
}

TEST(Mesh, FollowsTheDeflection) {
    const kernel::Shape tube = kernel::prism(samples::whole_circle({0, 0, 0}, 100), {0, 0, 50});
    struct Row {
        double deflection;
        bool is_relative;
        double greatest;
    };
    for (const Row& row : {Row{1, false, 1}, Row{0.1, false, 0.1}, Row{0.001, true, 0.29}}) {
        const MeshFile file(".ply");
        const MeshReport report = file.write(samples::scene_of({tube}), row.deflection, row.is_relative);
        EXPECT_FALSE(report.bodies.at(0).is_watertight);
        const samples::ReadMesh mesh(file);
        double deviation = 0;
        for (const auto& [a, b, c] : mesh.triangles) {
            const Point middle = (mesh.points[a] + mesh.points[b]) / 2;
            deviation = std::max(deviation, 100 - std::hypot(middle.x(), middle.y()));
        }
        EXPECT_GT(deviation, row.greatest / 5) << row.deflection;
        EXPECT_LT(deviation, row.greatest * 1.001) << row.deflection;
    }
}

TEST(Mesh, TellsWhatItLeavesOut) {
    const Scene scene =
        samples::scene_of({samples::box({0, 0, 0}, 1), samples::whole_circle({0, 0, 0}, 1),
                           kernel::make_vertex({0, 0, 0}), samples::ray({0, 0, 0}, {1, 0, 0})});
    const MeshReport faces = MeshFile(".stl").write(scene);
    EXPECT_EQ(faces.curves_left_out, 2u);
    EXPECT_EQ(faces.points_left_out, 1u);
    EXPECT_TRUE(faces.is_lossy());
    const MeshReport all = MeshFile(".glb").write(scene);
    EXPECT_EQ(all.curves, 1u);
    EXPECT_EQ(all.points, 1u);
    ASSERT_EQ(all.gaps.size(), 1u);
    EXPECT_NE(all.gaps[0].reason.find("unbounded"), std::string::npos) << all.gaps[0].reason;
}

/// Arrays in arrays, so many copies for each level.
Scene nested_arrays(int levels, int count) {
    samples::Drawing drawing;
    const auto part = make<DxfSection_Entity>();
    drawing.bind(part, samples::box({0, 0, 0}, 1));
    kernel::Shape block = drawing.add_block("0", {part});
    for (int level = 1; level <= levels; ++level) {
        Ref<DxfEnt_Insert> array =
            level < levels ? make<DxfEnt_Insert>() : drawing.add_entity<DxfEnt_Insert>();
        array->BlockName = std::to_string(level - 1);
        array->ColumnCount = count;
        std::vector<kernel::Shape> copies;
        for (int i = 0; i < count; ++i) {
            copies.push_back(kernel::moved(block, kernel::Transform::translation({2.0 * i, 3.0 * level, 0})));
        }
        drawing.bind(array, kernel::make_compound(copies));
        if (level < levels) block = drawing.add_block(std::to_string(level).c_str(), {array});
    }
    return make_scene(*drawing.model, *drawing.process);
}

TEST(Mesh, RefusesWhatCannotBeWritten) {
    struct Row {
        const char* extension;
        Scene scene;
        const char* problem;
    };
    const Scene line = samples::scene_of({kernel::make_edge(Point(0, 0, 0), Point(1, 0, 0))});
    const Row rows[] = {{".stl", line, "STL holds nothing else"},
                        {".3mf", line, "3MF holds nothing else"},
                        {".glb", {}, "nothing that is shown has a shape"},
                        {".ply", nested_arrays(3, 80), "glTF and 3MF hold the copies of a block once"},
                        {".glb", nested_arrays(4, 80), "its inserts make more than 1000000 nodes"}};
    for (const Row& row : rows) {
        const MeshFile file(row.extension);
        const MeshReport report = file.write(row.scene);
        EXPECT_NE(report.problem.find(row.problem), std::string::npos) << report.problem;
        EXPECT_FALSE(file.exists());
    }
    const MeshReport nowhere = write_mesh(line, {MeshFormat::Obj}, "/nowhere/a.obj");
    EXPECT_NE(nowhere.problem.find("cannot write"), std::string::npos);
}

TEST(Mesh, PlacesNestedInserts) {
    for (const char* extension : {".ply", ".3mf"}) {
        const MeshFile file(extension);
        EXPECT_EQ(file.write(nested_arrays(2, 5)).triangles, 300u);
        EXPECT_EQ(box_of(samples::ReadMesh(file)).min(), Point(0, 9, 0));
        EXPECT_EQ(box_of(samples::ReadMesh(file)).max(), Point(17, 10, 1));
    }
}

}  // namespace
}  // namespace veltrane
