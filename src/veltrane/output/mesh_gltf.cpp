// glTF is written here and not through assimp 5.2, which leaves out transforms that differ from the identity
// by less than 0.01 (half a degree of rotation), joins points that are closer than 0.00001 whatever the unit,
// and cannot keep the meshes of one node together.
#include "veltrane/output/colour.hpp"
#include "veltrane/output/mesh_writers.hpp"
#include "veltrane/output/name_text.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

namespace veltrane {
namespace {

static_assert(std::endian::native == std::endian::little, "glTF holds little-endian numbers");

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
constexpr double kMetresPerMillimetre = 0.001;

// Text

void add(std::string& text, double value) {
    char digits[32];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}
void add(std::string& text, std::size_t value) {
    text += std::to_string(value);
}
template <class Numbers>
void add_list(std::string& text, const Numbers& numbers) {
    char before = '[';
    for (const auto number : numbers) {
        text += std::exchange(before, ',');
        add(text, number);
    }
    text += ']';
}

/// Objects of a list, one after the other.
class JsonList {
public:
    explicit JsonList(std::string& text, std::string_view name) : text_(text) {
        text_ += ",\"";
        text_ += name;
        text_ += "\":[";
    }
    ~JsonList() { text_ += ']'; }
    void next() {
        if (!is_first_) text_ += ",\n";
        is_first_ = false;
    }

private:
    std::string& text_;
    bool is_first_ = true;
};

// Co-ordinates: millimetres with Z up become metres with Y up.

MeshPoint y_up(const MeshPoint& p) {
    const auto metres = [](float value) { return static_cast<float>(value * kMetresPerMillimetre); };
    return {metres(p[0]), metres(p[2]), metres(-p[1]) + 0.0f};
}
kernel::Vector y_up(const kernel::Vector& v) {
    return {v.x(), v.z(), -v.y() + 0.0};
}
kernel::Matrix3 y_up(const kernel::Matrix3& m) {
    kernel::Matrix3 turn;
    turn << 1, 0, 0, 0, 0, 1, 0, -1, 0;
    return turn * m * turn.transpose();
}

void add_motion(std::string& text, const kernel::Matrix3& linear, const kernel::Vector& translation) {
    const kernel::Vector t = y_up(translation) * kMetresPerMillimetre;
    if (linear == kernel::Matrix3::Identity()) {
        if (t.isZero(0)) return;
        text += ",\"translation\":";
        return add_list(text, std::array<double, 3>{t.x(), t.y(), t.z()});
    }
    const kernel::Matrix3 m = y_up(linear);
    text += ",\"matrix\":";
    add_list(text, std::array<double, 16>{m(0, 0), m(1, 0), m(2, 0), 0, m(0, 1), m(1, 1), m(2, 1), 0,  //
                                          m(0, 2), m(1, 2), m(2, 2), 0, t.x(), t.y(), t.z(), 1});
}

/// Colours of the palette are for screens; glTF wants intensities of light.
double light(std::uint8_t value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

// Bytes

/// Bytes on their way to a stream, as they are or in base 64.
class ByteStream {
public:
    ByteStream(std::ostream& out, bool is_binary) : out_(out), is_binary_(is_binary) {}

    template <class Value>
    void put(const Value& value) {
        bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
        if (bytes_.size() >= kEnough) flush(false);
    }
    void finish() { flush(true); }

private:
    static constexpr std::size_t kEnough = 3 << 14;

    void flush(bool is_end) {
        if (is_binary_) {
            out_ << bytes_;
            bytes_.clear();
            return;
        }
        static constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        const std::size_t length = is_end ? bytes_.size() : bytes_.size() / 3 * 3;
        std::string text;
        for (std::size_t i = 0; i < length; i += 3) {
            const auto byte = [&](std::size_t k) {
                return k < length ? static_cast<unsigned char>(bytes_[k]) : 0u;
            };
            const std::uint32_t word = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
            for (std::size_t k = 0; k < 4; ++k) {
                text += i + k <= length ? kDigits[word >> (18 - 6 * k) & 63] : '=';
            }
        }
        out_ << text;
        bytes_.erase(0, length);
    }

    std::ostream& out_;
    bool is_binary_;
    std::string bytes_;
};

// The file

class GltfWriter {
public:
    explicit GltfWriter(const MeshScene& scene) : scene_(scene) {
        for (const MeshGroup& group : scene.groups) add_layers(group);
        make_nodes();
        for (const MeshGeometry& geometry : scene.geometries) {
            point_bytes_ += geometry.points.size() * sizeof(MeshPoint);
            corner_bytes_ += geometry.corners.size() * sizeof(std::uint32_t);
        }
    }

    void write(bool is_binary, std::ostream& out) {
        std::string json = R"({"asset":{"version":"2.0","generator":"Veltrane DXF"},"scene":0,)"
                           R"("scenes":[{"nodes":[0]}])";
        add_nodes(json);
        add_meshes(json);
        add_materials(json);
        add_accessors(json);
        add_views(json);
        json += ",\"buffers\":[{\"byteLength\":";
        add(json, point_bytes_ + corner_bytes_);
        constexpr std::string_view kEnd = "}]}\n";
        if (!is_binary) {
            out << json << ",\"uri\":\"data:application/octet-stream;base64,";
            put_numbers(out, false);
            out << '"' << kEnd;
            return;
        }
        json += kEnd;
        json.resize((json.size() + 3) / 4 * 4, ' ');
        const auto length = static_cast<std::uint32_t>(json.size());
        const auto bytes = static_cast<std::uint32_t>(point_bytes_ + corner_bytes_);
        put_words(out, {kGltf, 2, 12 + 8 + length + 8 + bytes, length, kJsonChunk});
        out << json;
        put_words(out, {bytes, kBinaryChunk});
        put_numbers(out, true);
    }

private:
    static constexpr std::uint32_t kGltf = 0x46546C67, kJsonChunk = 0x4E4F534A, kBinaryChunk = 0x004E4942;

    struct Layer {
        MeshLayer content;
        std::size_t mesh = kNone;
    };
    struct Mesh {
        std::string name;
        const std::vector<const MeshPiece*>* pieces;
    };
    struct Node {
        std::string_view name;
        const MeshPlace* place = nullptr;  ///< for an insert
        const Layer* layer = nullptr;      ///< for a layer of the drawing: it holds the inserts on it
        std::size_t mesh = kNone;
        std::size_t first_child = 0, child_count = 0;
    };

    /// The layers of a group, each with the mesh of its pieces. Equal meshes are one.
    void add_layers(const MeshGroup& group) {
        std::vector<Layer>& layers = layers_.emplace_back();
        for (MeshLayer& layer : layers_of(group)) layers.push_back({std::move(layer)});
        for (Layer& layer : layers) {
            if (layer.content.pieces.empty()) continue;
            std::vector<std::pair<std::size_t, int>> look;
            for (const MeshPiece* piece : layer.content.pieces) {
                look.emplace_back(piece->geometry, piece->colour);
                colours_.emplace(piece->colour, 0);
            }
            std::string name = group.name;
            if (name.empty() || layers.size() > 1) {
                name += (name.empty() ? "" : " ") + layer.content.name.str();
            }
            const auto [known, is_new] =
                known_meshes_.emplace(std::pair(name, std::move(look)), meshes_.size());
            layer.mesh = known->second;
            if (!is_new) continue;
            meshes_.push_back({std::move(name), &layer.content.pieces});
        }
    }

    /// The tree in rows: the children of a node stand together.
    void make_nodes() {
        nodes_.push_back({"drawing"});
        add_children(0, layers_.back(), true);
        for (std::size_t i = 1; i < nodes_.size(); ++i) {
            if (nodes_[i].layer) {
                nodes_[i].first_child = nodes_.size();
                add_places(*nodes_[i].layer);
                nodes_[i].child_count = nodes_.size() - nodes_[i].first_child;
            } else if (nodes_[i].place) {
                add_content(i, layers_[nodes_[i].place->group]);
            }
        }
    }
    void add_places(const Layer& layer) {
        for (const MeshPlace* place : layer.content.places) nodes_.push_back({place->name, place});
    }
    void add_children(std::size_t node, const std::vector<Layer>& layers, bool with_places) {
        nodes_[node].first_child = nodes_.size();
        for (const Layer& layer : layers) {
            if (!with_places && layer.mesh == kNone) continue;
            nodes_.push_back(
                {layer.content.name.view(), nullptr, with_places ? &layer : nullptr, layer.mesh});
        }
        nodes_[node].child_count = nodes_.size() - nodes_[node].first_child;
    }
    /// An insert of a block that stands on one layer needs no node below it for that.
    void add_content(std::size_t node, const std::vector<Layer>& layers) {
        nodes_[node].first_child = nodes_.size();
        if (layers.size() == 1) {
            nodes_[node].mesh = layers[0].mesh;
        } else {
            add_children(node, layers, false);
        }
        for (const Layer& layer : layers) add_places(layer);
        nodes_[node].child_count = nodes_.size() - nodes_[node].first_child;
    }

    void add_nodes(std::string& json) const {
        JsonList list(json, "nodes");
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            const Node& node = nodes_[i];
            list.next();
            json += "{\"name\":\"" + json_name(node.name) + '"';
            if (i == 0) add_motion(json, kernel::Matrix3::Identity(), scene_.drawing().origin);
            if (node.place) {
                const kernel::Transform& motion = node.place->motion;
                add_motion(json, motion.linear_part(), motion.translation_part());
            }
            if (node.mesh != kNone) {
                json += ",\"mesh\":";
                add(json, node.mesh);
            }
            if (node.child_count > 0) {
                std::vector<std::size_t> children(node.child_count);
                for (std::size_t k = 0; k < children.size(); ++k) children[k] = node.first_child + k;
                json += ",\"children\":";
                add_list(json, children);
            }
            json += '}';
        }
    }

    void add_meshes(std::string& json) {
        // Accessors: the points of a geometry, then its corners.
        std::size_t accessors = 0;
        for (const MeshGeometry& geometry : scene_.geometries) {
            first_accessors_.push_back(accessors);
            accessors += geometry.corners.empty() ? 1 : 2;
        }
        std::size_t materials = 0;
        for (auto& [colour, material] : colours_) material = materials++;
        JsonList list(json, "meshes");
        for (const Mesh& mesh : meshes_) {
            list.next();
            json += "{\"name\":\"" + json_name(mesh.name) + "\",\"primitives\":[";
            for (const MeshPiece* piece : *mesh.pieces) {
                if (piece != mesh.pieces->front()) json += ',';
                add_primitive(json, *piece);
            }
            json += "]}";
        }
    }
    void add_primitive(std::string& json, const MeshPiece& piece) const {
        const MeshGeometry& geometry = scene_.geometries[piece.geometry];
        const std::size_t accessor = first_accessors_[piece.geometry];
        const std::size_t mode = geometry.kind == MeshKind::Points     ? 0
                                 : geometry.kind == MeshKind::Segments ? 1
                                                                       : 4;
        json += "{\"attributes\":{\"POSITION\":";
        add(json, accessor);
        if (!geometry.corners.empty()) {
            json += "},\"indices\":";
            add(json, accessor + 1);
        } else {
            json += '}';
        }
        json += ",\"mode\":";
        add(json, mode);
        json += ",\"material\":";
        add(json, colours_.at(piece.colour));
        json += '}';
    }

    void add_materials(std::string& json) const {
        JsonList list(json, "materials");
        for (const auto& [colour, material] : colours_) {
            const Rgb rgb = palette_colour(colour, Ground::Black);
            list.next();
            json += "{\"name\":\"colour " + std::to_string(colour) +
                    R"(","doubleSided":true,"pbrMetallicRoughness":{"metallicFactor":0,"baseColorFactor":)";
            add_list(json, std::array<double, 4>{light(rgb.red), light(rgb.green), light(rgb.blue), 1});
            json += "}}";
        }
    }

    void add_accessors(std::string& json) const {
        JsonList list(json, "accessors");
        std::size_t point_offset = 0, corner_offset = 0;
        for (const MeshGeometry& geometry : scene_.geometries) {
            list.next();
            json += R"({"bufferView":0,"componentType":5126,"type":"VEC3","byteOffset":)";
            add(json, point_offset);
            json += ",\"count\":";
            add(json, geometry.points.size());
            add_bounds(json, geometry.points);
            json += '}';
            point_offset += geometry.points.size() * sizeof(MeshPoint);
            if (geometry.corners.empty()) continue;
            list.next();
            json += R"({"bufferView":1,"componentType":5125,"type":"SCALAR","byteOffset":)";
            add(json, corner_offset);
            json += ",\"count\":";
            add(json, geometry.corners.size());
            json += '}';
            corner_offset += geometry.corners.size() * sizeof(std::uint32_t);
        }
    }
    static void add_bounds(std::string& json, const std::vector<MeshPoint>& points) {
        std::array<double, 3> least{}, greatest{};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const auto less = [&](const MeshPoint& a, const MeshPoint& b) {
                return y_up(a)[axis] < y_up(b)[axis];
            };
            const auto [low, high] = std::minmax_element(points.begin(), points.end(), less);
            least[axis] = y_up(*low)[axis];
            greatest[axis] = y_up(*high)[axis];
        }
        json += ",\"min\":";
        add_list(json, least);
        json += ",\"max\":";
        add_list(json, greatest);
    }

    void add_views(std::string& json) const {
        JsonList list(json, "bufferViews");
        list.next();
        json += R"({"buffer":0,"byteOffset":0,"byteStride":12,"target":34962,"byteLength":)";
        add(json, point_bytes_);
        json += '}';
        if (corner_bytes_ == 0) return;
        list.next();
        json += R"({"buffer":0,"target":34963,"byteOffset":)";
        add(json, point_bytes_);
        json += ",\"byteLength\":";
        add(json, corner_bytes_);
        json += '}';
    }

    static void put_words(std::ostream& out, std::initializer_list<std::uint32_t> words) {
        for (const std::uint32_t word : words) out.write(reinterpret_cast<const char*>(&word), sizeof word);
    }
    void put_numbers(std::ostream& out, bool is_binary) const {
        ByteStream bytes(out, is_binary);
        for (const MeshGeometry& geometry : scene_.geometries) {
            for (const MeshPoint& point : geometry.points) bytes.put(y_up(point));
        }
        for (const MeshGeometry& geometry : scene_.geometries) {
            for (const std::uint32_t corner : geometry.corners) bytes.put(corner);
        }
        bytes.finish();
    }

    const MeshScene& scene_;
    std::vector<std::vector<Layer>> layers_;  // of every group
    std::vector<Mesh> meshes_;
    std::map<std::pair<std::string, std::vector<std::pair<std::size_t, int>>>, std::size_t> known_meshes_;
    std::map<int, std::size_t> colours_;  // to materials
    std::vector<Node> nodes_;
    std::vector<std::size_t> first_accessors_;
    std::size_t point_bytes_ = 0;
    std::size_t corner_bytes_ = 0;
};

}  // namespace

void write_gltf(const MeshScene& scene, bool is_binary, std::ostream& out) {
    GltfWriter(scene).write(is_binary, out);
}

}  // namespace veltrane
