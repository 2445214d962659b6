// Meshes in the forms of files. Internal to the folder.
#pragma once

#include "veltrane/output/mesh_scene.hpp"

#include <ostream>
#include <string>

namespace veltrane {

/// glTF 2.0, all in one file: as JSON with the numbers in a data URI, or in its binary form (GLB).
void write_gltf(const MeshScene& scene, bool is_binary, std::ostream& out);

/// 3MF, core specification.
void write_3mf(const MeshScene& scene, std::ostream& out);

/// STL and PLY (both binary) and OBJ, of a flat mesh. An OBJ file refers to `material_file` for its colours,
/// and these are written to `materials`; without such a stream it has none. Returns why there is nothing
/// written; empty when all is well.
std::string export_mesh(const MeshScene& flat, MeshFormat format, std::ostream& out,
                        const std::string& material_file, std::ostream* materials);

}  // namespace veltrane
