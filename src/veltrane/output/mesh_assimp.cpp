// All that the project knows of assimp: its exporters for STL, PLY and OBJ. glTF and 3MF are written without
// it, for reasons given there.
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/output/colour.hpp"
#include "veltrane/output/mesh_writers.hpp"

#include <assimp/config.h>
#include <assimp/scene.h>
#include <assimp/Exporter.hpp>

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

namespace veltrane {
namespace {

// A scene of assimp owns all that it points to and frees it with delete and delete[].

template <class Value>
Value* array_of(const std::vector<Value>& values) {
    auto* array = new Value[values.size()];
    std::copy(values.begin(), values.end(), array);
    return array;
}

aiVector3D vector_of(const MeshPoint& p) {
    return {p[0], p[1], p[2]};
}

aiColor3D colour_of_number(int number) {
    const Rgb rgb = palette_colour(number, Ground::Black);
    return {static_cast<float>(rgb.red) / 255, static_cast<float>(rgb.green) / 255,
            static_cast<float>(rgb.blue) / 255};
}

/// The normal of a triangle; some direction where it has none.
aiVector3D normal_of(const MeshPoint& a, const MeshPoint& b, const MeshPoint& c) {
    const auto point = [](const MeshPoint& p) { return kernel::Point(p[0], p[1], p[2]); };
    const kernel::Vector normal = kernel::cross(point(b) - point(a), point(c) - point(a));
    const double length = normal.norm();
    if (!(length > 0)) return {0, 0, 1};
    return {static_cast<float>(normal.x() / length), static_cast<float>(normal.y() / length),
            static_cast<float>(normal.z() / length)};
}

/// Names of groups and materials end at a blank, and assimp's at a thousand bytes.
aiString one_word(std::string_view name) {
    std::string word(name.substr(0, 200));
    while (word.size() < name.size() && !word.empty() && (name[word.size()] & 0xC0) == 0x80) word.pop_back();
    std::replace(word.begin(), word.end(), ' ', '_');
    return aiString(word);
}

class SceneMaker {
public:
    /// `with_normals` gives each triangle corners of its own with its normal: assimp makes normals where
    /// there are none, but smooth ones, and takes the mean of these for a facet's.
    SceneMaker(const MeshScene& flat, bool with_normals) : with_normals_(with_normals) {
        std::vector<aiMaterial*> materials;
        std::vector<aiMesh*> meshes;
        for (const MeshPiece& piece : flat.drawing().pieces) {
            const auto [known, is_new] = materials_.emplace(piece.colour, materials.size());
            if (is_new) materials.push_back(material_of(piece.colour));
            meshes.push_back(mesh_of(flat.geometries[piece.geometry], piece.colour));
            meshes.back()->mName = one_word(piece.layer);
            meshes.back()->mMaterialIndex = known->second;
        }
        scene_.mNumMaterials = static_cast<unsigned>(materials.size());
        scene_.mMaterials = array_of(materials);
        scene_.mNumMeshes = static_cast<unsigned>(meshes.size());
        scene_.mMeshes = array_of(meshes);
        std::vector<unsigned> all(meshes.size());
        for (unsigned i = 0; i < all.size(); ++i) all[i] = i;
        scene_.mRootNode = new aiNode("drawing");
        scene_.mRootNode->mNumMeshes = scene_.mNumMeshes;
        scene_.mRootNode->mMeshes = array_of(all);
    }

    const aiScene& scene() const { return scene_; }

private:
    static aiMaterial* material_of(int colour) {
        auto* material = new aiMaterial;
        const aiString name("colour_" + std::to_string(colour));
        const aiColor3D diffuse = colour_of_number(colour);
        material->AddProperty(&name, AI_MATKEY_NAME);
        material->AddProperty(&diffuse, 1, AI_MATKEY_COLOR_DIFFUSE);
        return material;
    }

    aiMesh* mesh_of(const MeshGeometry& geometry, int colour) const {
        auto* mesh = new aiMesh;
        const auto size = static_cast<unsigned>(geometry.kind);
        const bool is_split = with_normals_ && geometry.kind == MeshKind::Triangles;
        mesh->mPrimitiveTypes = size == 1   ? aiPrimitiveType_POINT
                                : size == 2 ? aiPrimitiveType_LINE
                                            : aiPrimitiveType_TRIANGLE;
        mesh->mNumFaces = static_cast<unsigned>(geometry.cells());
        mesh->mFaces = new aiFace[mesh->mNumFaces];
        for (unsigned cell = 0; cell < mesh->mNumFaces; ++cell) {
            mesh->mFaces[cell].mNumIndices = size;
            mesh->mFaces[cell].mIndices = new unsigned[size];
            for (unsigned i = 0; i < size; ++i) {
                const unsigned corner = cell * size + i;
                mesh->mFaces[cell].mIndices[i] =
                    is_split || geometry.corners.empty() ? corner : geometry.corners[corner];
            }
        }
        if (is_split) {
            add_split_points(geometry, *mesh);
        } else {
            add_points(geometry, colour, *mesh);
        }
        return mesh;
    }

    static void add_split_points(const MeshGeometry& geometry, aiMesh& mesh) {
        mesh.mNumVertices = static_cast<unsigned>(geometry.corners.size());
        mesh.mVertices = new aiVector3D[mesh.mNumVertices];
        mesh.mNormals = new aiVector3D[mesh.mNumVertices];
        for (std::size_t i = 0; i < geometry.corners.size(); i += 3) {
            const auto corner = [&](std::size_t k) { return geometry.points[geometry.corners[i + k]]; };
            const aiVector3D normal = normal_of(corner(0), corner(1), corner(2));
            for (std::size_t k = 0; k < 3; ++k) {
                mesh.mVertices[i + k] = vector_of(corner(k));
                mesh.mNormals[i + k] = normal;
            }
        }
    }

    void add_points(const MeshGeometry& geometry, int colour, aiMesh& mesh) const {
        mesh.mNumVertices = static_cast<unsigned>(geometry.points.size());
        mesh.mVertices = new aiVector3D[mesh.mNumVertices];
        std::transform(geometry.points.begin(), geometry.points.end(), mesh.mVertices, vector_of);
        if (with_normals_) return;
        const aiColor3D rgb = colour_of_number(colour);
        mesh.mColors[0] = new aiColor4D[mesh.mNumVertices];
        std::fill_n(mesh.mColors[0], mesh.mNumVertices, aiColor4D(rgb.r, rgb.g, rgb.b, 1));
    }

    bool with_normals_;
    aiScene scene_;
    std::map<int, unsigned> materials_;  // by colour
};

const char* exporter_of(MeshFormat format, bool with_materials) {
    if (format == MeshFormat::Stl) return "stlb";
    if (format == MeshFormat::Ply) return "ply";
    return with_materials ? "obj" : "objnomtl";
}

void put(const aiExportDataBlob& blob, std::ostream& out) {
    out.write(static_cast<const char*>(blob.data), static_cast<std::streamsize>(blob.size));
}

}  // namespace

std::string export_mesh(const MeshScene& flat, MeshFormat format, std::ostream& out,
                        const std::string& material_file, std::ostream* materials) {
    const SceneMaker maker(flat, format != MeshFormat::Ply);
    Assimp::ExportProperties properties;
    // assimp puts .mtl in place of the last ending.
    properties.SetPropertyString(AI_CONFIG_EXPORT_BLOB_NAME, material_file);
    Assimp::Exporter exporter;
    const aiExportDataBlob* blob =
        exporter.ExportToBlob(&maker.scene(), exporter_of(format, materials != nullptr), 0, &properties);
    if (!blob) {
        const std::string reason = exporter.GetErrorString();
        return reason.empty() ? "the mesh cannot be exported" : reason;
    }
    put(*blob, out);
    if (materials && blob->next) put(*blob->next, *materials);
    return {};
}

}  // namespace veltrane
