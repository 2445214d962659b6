// Mesh files read back by an independent reader, and shapes to make them of.
#pragma once

#include "drawing.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/kernel/mesh/mesh.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/mesh_file.hpp"

#include <assimp/scene.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <zlib.h>
#include <assimp/Importer.hpp>
#include <nlohmann/json.hpp>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace veltrane::samples {

/// A solid of six faces.
inline kernel::Shape box(const kernel::Point& corner, double size) {
    std::vector<kernel::Shape> edges;
    const kernel::Vector x(size, 0, 0), y(0, size, 0);
    const kernel::Point corners[] = {corner, corner + x, corner + x + y, corner + y};
    for (int i = 0; i < 4; ++i) edges.push_back(kernel::make_edge(corners[i], corners[(i + 1) % 4]));
    return kernel::prism(kernel::make_planar_face(kernel::make_wire(edges)).face, {0, 0, size});
}

inline std::string content_of(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

/// A file of its own that goes away with the object, and what belongs to it.
class MeshFile {
public:
    explicit MeshFile(const char* extension)
        : name_(testing::TempDir() + "veltrane-" + std::to_string(::getpid()) + "-mesh" + extension) {}
    ~MeshFile() {
        std::filesystem::remove(name_);
        std::filesystem::remove(colours());
    }
    MeshFile(const MeshFile&) = delete;
    MeshFile& operator=(const MeshFile&) = delete;

    const std::string& name() const { return name_; }
    std::string colours() const { return std::filesystem::path(name_).replace_extension(".mtl").string(); }
    bool exists() const { return std::filesystem::exists(name_); }
    std::string content() const { return content_of(name_); }

    MeshReport write(const Scene& scene, double deflection = 0.01, bool is_relative = true) const {
        MeshFileOptions options;
        options.format = *mesh_format_of(name_);
        options.deflection = deflection;
        options.is_relative = is_relative;
        return write_mesh(scene, options, name_);
    }

private:
    std::string name_;
};

/// The triangles of a file as another program finds them, instances placed, equal points joined.
class ReadMesh : public kernel::Mesh {
public:
    explicit ReadMesh(const MeshFile& file) {
        Assimp::Importer importer;
        const aiScene* scene = importer.ReadFile(file.name(), 0);
        EXPECT_NE(scene, nullptr) << importer.GetErrorString();
        if (scene) add(*scene, *scene->mRootNode, {});
    }

private:
    void add(const aiScene& scene, const aiNode& node, const aiMatrix4x4& outer) {
        const aiMatrix4x4 place = outer * node.mTransformation;
        for (unsigned i = 0; i < node.mNumMeshes; ++i) add(*scene.mMeshes[node.mMeshes[i]], place);
        for (unsigned i = 0; i < node.mNumChildren; ++i) add(scene, *node.mChildren[i], place);
    }
    void add(const aiMesh& mesh, const aiMatrix4x4& place) {
        for (unsigned f = 0; f < mesh.mNumFaces; ++f) {
            const aiFace& face = mesh.mFaces[f];
            if (face.mNumIndices != 3) continue;
            kernel::MeshTriangle triangle{};
            for (unsigned k = 0; k < 3; ++k) {
                const aiVector3D p = place * mesh.mVertices[face.mIndices[k]];
                const auto [at, is_new] = places_.emplace(std::array{p.x, p.y, p.z}, points.size());
                if (is_new) points.emplace_back(p.x, p.y, p.z);
                triangle[k] = at->second;
            }
            triangles.push_back(triangle);
        }
    }

    std::map<std::array<float, 3>, std::uint32_t> places_;
};

/// A file inside a ZIP archive whose first headers tell its sizes.
inline std::string unzipped(const std::string& archive, const std::string& name) {
    const auto number = [&](std::size_t at, std::size_t size) {
        std::uint64_t value = 0;
        std::memcpy(&value, archive.data() + at, size);
        return value;
    };
    for (std::size_t at = 0; archive.substr(at, 4) == "PK\3\4";) {
        const std::size_t start = at + 30 + number(at + 26, 2) + number(at + 28, 2);
        const auto packed = static_cast<unsigned>(number(at + 18, 4));
        std::string bytes(number(at + 22, 4), '\0');
        z_stream stream{};
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(archive.data() + start));
        stream.avail_in = packed;
        stream.next_out = reinterpret_cast<Bytef*>(bytes.data());
        stream.avail_out = static_cast<unsigned>(bytes.size());
        inflateInit2(&stream, -MAX_WBITS);
        EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
        inflateEnd(&stream);
        EXPECT_EQ(crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<unsigned>(bytes.size())),
                  number(at + 14, 4));
        if (archive.substr(at + 30, name.size()) == name) return bytes;
        at = start + packed;
    }
    return {};
}

}  // namespace veltrane::samples
