#include "veltrane/output/mesh_file.hpp"

#include "veltrane/base/letter_case.hpp"
#include "veltrane/exchange/file_stream.hpp"
#include "veltrane/output/mesh_writers.hpp"
#include "veltrane/output/number_text.hpp"

#include <array>
#include <exception>
#include <filesystem>

namespace veltrane {
namespace {

struct FormatFacts {
    MeshFormat format;
    std::string_view name, extension;
    MeshRoom room;
};

constexpr std::array<FormatFacts, 6> kFormats = {
    {{MeshFormat::Stl, "STL", ".stl", {false, false, false}},
     {MeshFormat::Obj, "OBJ", ".obj", {true, true, false}},
     {MeshFormat::Ply, "PLY", ".ply", {false, false, false}},
     {MeshFormat::Gltf, "glTF", ".gltf", {true, true, true}},
     {MeshFormat::Glb, "GLB", ".glb", {true, true, true}},
     {MeshFormat::ThreeMf, "3MF", ".3mf", {false, false, true}}}};

const FormatFacts& facts_of(MeshFormat format) {
    return kFormats[static_cast<std::size_t>(format)];
}

/// A device or a pipe has no place beside it.
bool has_place_beside(const std::string& file) {
    std::error_code ignored;
    const auto status = std::filesystem::status(file, ignored);
    return !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
}

/// An OBJ file with its colours; these come first, so that no file refers to one that is not there.
std::string write_obj(const MeshScene& mesh, const std::string& file) {
    const std::string colour_file = std::filesystem::path(file).replace_extension(".mtl").string();
    OutputFile out(file);
    OutputFile colours(colour_file);
    const std::string name = std::filesystem::path(colour_file).filename().string();
    const std::string problem = export_mesh(mesh, MeshFormat::Obj, out, name, &colours);
    if (!problem.empty()) return "cannot write " + file + ": " + problem;
    if (!out.flush().good()) return out.problem();
    if (!colours.Close()) return colours.problem();
    if (out.Close()) return {};
    std::error_code ignored;
    std::filesystem::remove(colour_file, ignored);
    return out.problem();
}

std::string write_one(const MeshScene& mesh, MeshFormat format, const std::string& file) {
    OutputFile out(file);
    std::string problem;
    if (format == MeshFormat::ThreeMf) {
        write_3mf(mesh, out);
    } else if (facts_of(format).room.has_groups) {
        write_gltf(mesh, format == MeshFormat::Glb, out);
    } else {
        problem = export_mesh(mesh, format, out, "", nullptr);
    }
    if (!problem.empty()) return "cannot write " + file + ": " + problem;
    return out.Close() ? "" : out.problem();
}

/// Why there is nothing to write.
std::string emptiness(const MeshReport& report, const FormatFacts& facts) {
    if (report.triangles > 0 || report.curves > 0 || report.points > 0) return {};
    if (report.curves_left_out + report.points_left_out == 0) return "nothing that is shown has a shape";
    return "there are no faces, and " + std::string(facts.name) + " holds nothing else";
}

std::string offset_text(const kernel::Point& origin) {
    std::string text;
    for (int axis = 0; axis < 3; ++axis) text += (axis > 0 ? ", " : "(") + number_text(origin[axis]);
    return text + ")";
}

void note_choices(const MeshScene& mesh, const FormatFacts& facts, const std::string& file,
                  MeshReport& report) {
    const kernel::Point& origin = mesh.drawing().origin;
    if (!facts.room.has_groups && !origin.isZero(0)) {
        report.notes.push_back(
            "The mesh is moved, since its co-ordinates are too large for the file: its origin is " +
            offset_text(origin) + " mm in the drawing.");
    }
    if (facts.format == MeshFormat::Obj && !has_place_beside(file)) {
        report.notes.emplace_back("The colours are left out: there is no place for a file beside this one.");
    }
    bool has_open_body = false, has_open_mesh = false;
    for (const MeshedBody& body : report.bodies) has_open_body = has_open_body || !body.is_watertight;
    for (const MeshGeometry& geometry : mesh.geometries) {
        has_open_mesh = has_open_mesh || (geometry.kind == MeshKind::Triangles && !geometry.is_closed);
    }
    if (has_open_body && !has_open_mesh) {
        report.notes.emplace_back("The open bodies fit together: what they make up is closed.");
    }
    if (has_open_mesh && facts.format == MeshFormat::ThreeMf) {
        report.notes.emplace_back(
            "Open meshes are marked as surfaces, which programs for printing may leave out.");
    }
}

void write(const Scene& scene, const MeshFileOptions& options, const std::string& file, MeshReport& report) {
    const FormatFacts& facts = facts_of(options.format);
    if (!(options.deflection > 0) || !(options.angle > 0)) {
        report.problem = "cannot write " + file + ": the deflection and the angle have to be positive";
        return;
    }
    MeshScene mesh = make_mesh_scene(scene, options, facts.room, report);
    report.problem = emptiness(report, facts);
    if (!report.problem.empty()) {
        report.problem = "cannot write " + file + ": " + report.problem;
        return;
    }
    if (!facts.room.has_groups && mesh.groups.size() > 1) mesh = flattened(mesh);
    const bool has_colour_file = options.format == MeshFormat::Obj && has_place_beside(file);
    report.problem = has_colour_file ? write_obj(mesh, file) : write_one(mesh, options.format, file);
    note_choices(mesh, facts, file, report);
}

}  // namespace

std::string_view name_of(MeshFormat format) {
    return facts_of(format).name;
}

std::optional<MeshFormat> mesh_format_of(std::string_view file) {
    const std::string name = lower_case(file);
    for (const FormatFacts& facts : kFormats) {
        if (name.size() >= facts.extension.size() && name.ends_with(facts.extension)) return facts.format;
    }
    return std::nullopt;
}

MeshReport write_mesh(const Scene& scene, const MeshFileOptions& options, const std::string& file) {
    MeshReport report;
    try {
        write(scene, options, file, report);
    } catch (const std::exception& error) {
        report.problem = "cannot write " + file + ": " + error.what();
    }
    return report;
}

}  // namespace veltrane
