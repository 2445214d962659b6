// 3MF is written here and not through assimp 5.2, which writes six digits, copies every instance and cannot
// hand its file over.
#include "veltrane/output/colour.hpp"
#include "veltrane/output/mesh_writers.hpp"
#include "veltrane/output/mesh_zip.hpp"
#include "veltrane/output/name_text.hpp"

#include <charconv>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace veltrane {
namespace {

constexpr std::string_view kContentTypes =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"><Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/><Default Extension="model" ContentType="application/vnd.ms-package.3dmanufacturing-3dmodel+xml"/></Types>
)";
constexpr std::string_view kRelationships =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Target="/3D/3dmodel.model" Id="rel0" Type="http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"/></Relationships>
)";
constexpr std::string_view kModelStart =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<model unit="millimeter" xml:lang="en" xmlns="http://schemas.microsoft.com/3dmanufacturing/core/2015/02">
<metadata name="Application">Veltrane DXF</metadata>
<resources>
)";

template <class Number>
void add(std::string& text, Number number) {
    char digits[32];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

/// A matrix for points as rows.
std::string transform_text(const kernel::Matrix3& linear, const kernel::Vector& translation) {
    std::string text = " transform=\"";
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            add(text, linear(row, column) + 0.0);
            text += ' ';
        }
    }
    for (int axis = 0; axis < 3; ++axis) {
        add(text, translation[axis] + 0.0);
        text += axis < 2 ? ' ' : '"';
    }
    return text;
}

class ThreeMfWriter {
public:
    ThreeMfWriter(const MeshScene& scene, ZipWriter& zip) : scene_(scene), zip_(zip) {}

    void write() {
        zip_.begin_file("[Content_Types].xml");
        zip_.write(kContentTypes);
        zip_.begin_file("_rels/.rels");
        zip_.write(kRelationships);
        zip_.begin_file("3D/3dmodel.model");
        text_ += kModelStart;
        add_materials();
        for (std::size_t i = 0; i + 1 < scene_.groups.size(); ++i) add_group(scene_.groups[i]);
        const std::vector<Use> items = layer_objects();
        text_ += "</resources>\n<build>\n";
        for (const Use& item : items) {
            text_ += "<item objectid=\"" + std::to_string(item.object) + '"';
            if (!scene_.drawing().origin.isZero(0)) {
                text_ += transform_text(kernel::Matrix3::Identity(), scene_.drawing().origin);
            }
            text_ += "/>\n";
            make_room();
        }
        text_ += "</build>\n</model>\n";
        zip_.write(text_);
        zip_.finish();
    }

private:
    struct Use {
        std::size_t object;
        const MeshPlace* place = nullptr;
    };

    void make_room() {
        if (text_.size() < 1 << 16) return;
        zip_.write(text_);
        text_.clear();
    }

    void add_materials() {
        for (const MeshGroup& group : scene_.groups) {
            for (const MeshPiece& piece : group.pieces) colours_.emplace(piece.colour, 0);
        }
        text_ += "<basematerials id=\"1\">\n";
        std::size_t index = 0;
        for (auto& [colour, material] : colours_) {
            material = index++;
            text_ += "<base name=\"colour " + std::to_string(colour) + "\" displaycolor=\"" +
                     hex_text(palette_colour(colour, Ground::Black)) + "\"/>\n";
        }
        text_ += "</basematerials>\n";
    }

    /// What a block holds as one object.
    void add_group(const MeshGroup& group) {
        std::vector<Use> uses;
        for (const MeshLayer& layer : layers_of(group)) add_uses(layer, group.name, uses);
        objects_.push_back(object_of(uses, group.name));
    }

    /// What of the drawing stands on each layer as one object.
    std::vector<Use> layer_objects() {
        std::vector<Use> items;
        for (const MeshLayer& layer : layers_of(scene_.drawing())) {
            std::vector<Use> uses;
            add_uses(layer, layer.name, uses);
            items.push_back({object_of(uses, layer.name)});
        }
        return items;
    }

    /// Closed and open bodies are different objects: those of type "model" have to be closed.
    void add_uses(const MeshLayer& layer, std::string_view name, std::vector<Use>& uses) {
        for (const bool is_closed : {true, false}) {
            std::vector<const MeshPiece*> pieces;
            for (const MeshPiece* piece : layer.pieces) {
                if (scene_.geometries[piece->geometry].is_closed == is_closed) pieces.push_back(piece);
            }
            if (!pieces.empty()) uses.push_back({add_mesh(pieces, is_closed, name)});
        }
        for (const MeshPlace* place : layer.places) uses.push_back({objects_[place->group], place});
    }

    /// The object of all of them; itself where there is but one that needs no place.
    std::size_t object_of(const std::vector<Use>& uses, std::string_view name) {
        if (uses.size() == 1 && !uses[0].place) return uses[0].object;
        bool is_solid = false;
        for (const Use& use : uses) is_solid = is_solid || is_solid_[use.object];
        const std::size_t id = begin_object(is_solid, name);
        text_ += "><components>\n";
        for (const Use& use : uses) {
            text_ += "<component objectid=\"" + std::to_string(use.object) + '"';
            if (use.place && !use.place->motion.is_identity()) {
                const kernel::Transform& motion = use.place->motion;
                text_ += transform_text(motion.linear_part(), motion.translation_part());
            }
            text_ += "/>\n";
            make_room();
        }
        text_ += "</components></object>\n";
        return id;
    }

    std::size_t add_mesh(const std::vector<const MeshPiece*>& pieces, bool is_closed, std::string_view name) {
        std::vector<std::pair<std::size_t, int>> look;
        for (const MeshPiece* piece : pieces) look.emplace_back(piece->geometry, piece->colour);
        const auto [known, is_new] = meshes_.emplace(std::move(look), is_solid_.size());
        if (!is_new) return known->second;
        const std::size_t id = begin_object(is_closed, name);
        text_ +=
            " pid=\"1\" pindex=\"" + std::to_string(colours_.at(pieces[0]->colour)) + "\"><mesh><vertices>\n";
        for (const MeshPiece* piece : pieces) add_points(scene_.geometries[piece->geometry]);
        text_ += "</vertices><triangles>\n";
        std::size_t first = 0;
        for (const MeshPiece* piece : pieces) {
            const MeshGeometry& geometry = scene_.geometries[piece->geometry];
            add_triangles(geometry, first,
                          piece->colour == pieces[0]->colour ? kSame : colours_.at(piece->colour));
            first += geometry.points.size();
        }
        text_ += "</triangles></mesh></object>\n";
        return id;
    }

    std::size_t begin_object(bool is_solid, std::string_view name) {
        const std::size_t id = is_solid_.size();
        is_solid_.push_back(is_solid);
        text_ += "<object id=\"" + std::to_string(id) + "\" type=\"" + (is_solid ? "model" : "surface") +
                 "\" name=\"" + xml_name(name) + '"';
        return id;
    }
    static constexpr std::size_t kSame = static_cast<std::size_t>(-1);

    void add_points(const MeshGeometry& geometry) {
        for (const MeshPoint& point : geometry.points) {
            text_ += "<vertex x=\"";
            add(text_, point[0]);
            text_ += "\" y=\"";
            add(text_, point[1]);
            text_ += "\" z=\"";
            add(text_, point[2]);
            text_ += "\"/>\n";
            make_room();
        }
    }

    void add_triangles(const MeshGeometry& geometry, std::size_t first, std::size_t material) {
        for (std::size_t i = 0; i < geometry.corners.size(); i += 3) {
            text_ += "<triangle v1=\"";
            add(text_, first + geometry.corners[i]);
            text_ += "\" v2=\"";
            add(text_, first + geometry.corners[i + 1]);
            text_ += "\" v3=\"";
            add(text_, first + geometry.corners[i + 2]);
            if (material != kSame) {
                text_ += "\" pid=\"1\" p1=\"";
                add(text_, material);
            }
            text_ += "\"/>\n";
            make_room();
        }
    }

    const MeshScene& scene_;
    ZipWriter& zip_;
    std::string text_;
    std::vector<bool> is_solid_{false, false};  // by id: none, the colours, the objects
    std::map<int, std::size_t> colours_;        // to materials
    std::vector<std::size_t> objects_;          // of groups
    std::map<std::vector<std::pair<std::size_t, int>>, std::size_t> meshes_;
};

}  // namespace

void write_3mf(const MeshScene& scene, std::ostream& out) {
    ZipWriter zip(out);
    ThreeMfWriter(scene, zip).write();
}

}  // namespace veltrane
