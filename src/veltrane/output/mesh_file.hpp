// Scenes as files of triangles: STL, OBJ, PLY, glTF and 3MF.
#pragma once

#include "veltrane/output/scene.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane {

enum class MeshFormat : std::uint8_t { Stl, Obj, Ply, Gltf, Glb, ThreeMf };

/// The format that a file's name asks for by its extension, in either case: .stl, .obj, .ply, .gltf, .glb,
/// .3mf.
std::optional<MeshFormat> mesh_format_of(std::string_view file);
/// "STL", "OBJ", ...
std::string_view name_of(MeshFormat format);

struct MeshFileOptions {
    MeshFormat format = MeshFormat::Stl;
    /// Greatest distance of triangles and segments from the shape: millimetres, or a share of the diagonal of
    /// the box around the shape of each record. Positive.
    double deflection = 0.001;
    bool is_relative = true;
    /// Greatest turn over one division, radians. Positive; more than 1 counts as 1.
    double angle = 0.35;
    /// Turns names of the drawing into UTF-8. Without it, bytes that are none are taken for Latin-1.
    std::function<std::string(std::string_view)> name_text = {};
};

/// What became of the faces of one record.
struct MeshedBody {
    Ref<DxfSection_Entity> record;  ///< null for a shape that came from elsewhere
    std::size_t triangles = 0;      ///< of one copy
    std::size_t copies = 0;         ///< in the file: those of a part of a block are as many as it is inserted
    bool is_watertight = false;     ///< encloses space without gaps
};

/// What of a record could not be divided.
struct MeshGap {
    Ref<DxfSection_Entity> record;
    std::string reason;
    std::size_t count = 0;  ///< faces and edges, in one copy
};

struct MeshReport {
    std::string problem;             ///< why there is no file; empty when there is one
    std::vector<std::string> notes;  ///< what a user should know about the file: sentences
    std::vector<MeshedBody> bodies;  ///< those with triangles
    std::vector<MeshGap> gaps;
    /// In all copies. Sums stop at the largest std::size_t.
    std::size_t triangles = 0;
    std::size_t curves = 0;
    std::size_t points = 0;
    std::size_t curves_left_out = 0;  ///< because the format has none
    std::size_t points_left_out = 0;

    bool is_done() const { return problem.empty(); }
    bool is_lossy() const { return !gaps.empty() || curves_left_out > 0 || points_left_out > 0; }
};

/// Divides a scene into triangles, segments and points and writes them into a file that appears whole or not
/// at all. Throws nothing: what goes wrong is told in the report. Equal scenes give equal bytes.
///
/// - Faces become triangles, edges of no face segments, vertices of no edge points. STL, PLY and 3MF hold
///   triangles only.
/// - glTF and 3MF have a node or object for each layer and for each insert; what a block holds is stored
///   once. The other formats have it as often as it is inserted.
/// - Layers are named in OBJ, glTF and 3MF; colours, those of a black ground, are kept in all but STL. An
///   OBJ file has them in a file beside it that ends in .mtl; there is none for what is no regular file.
/// - Co-ordinates are millimetres; in glTF metres with the Y axis up. They are floats: where rounding them
///   would exceed the deflection, glTF and 3MF have a local origin, and the other formats are moved by whole
///   metres, with a note.
/// - The mesh of a closed body is closed in the file: its triangles share their points, and look outwards.
///
/// Time and memory are linear in the meshes of shapes and blocks, and in the copies of inserts. A mesh beyond
/// ten million triangles, segments and points is refused, or four million where copies are not shared, and so
/// is one of more than a million inserts.
MeshReport write_mesh(const Scene& scene, const MeshFileOptions& options, const std::string& file);

}  // namespace veltrane
