#include "veltrane/output/mesh_scene.hpp"

#include "veltrane/ent/inserts.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/output/limits.hpp"
#include "veltrane/output/mesh_pieces.hpp"
#include "veltrane/output/name_text.hpp"
#include "veltrane/output/number_text.hpp"
#include "veltrane/output/record_walk.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>

namespace veltrane {
namespace {

constexpr double kFarthest = 1e30;              // millimetres; squares of floats end at 3e38
constexpr double kRounding = 1.0 / (1 << 24);   // of a float, relative
constexpr double kRoundingInGroups = 1.0 / 16;  // share of the deflection, where an origin costs nothing
constexpr double kMetre = 1000;
constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();

std::size_t sum_of(std::size_t a, std::size_t b) {
    return a > kMost - b ? kMost : a + b;
}
std::size_t product_of(std::size_t a, std::size_t b) {
    return b > 0 && a > kMost / b ? kMost : a * b;
}

/// The groups of a scene with those inside others first, and at last null for the scene itself. Nesting may
/// be of any depth.
std::vector<const SceneGroup*> from_inside_out(const Scene& scene) {
    struct Step {
        const SceneGroup* group;
        const std::vector<SceneItem>* items;
        std::size_t next;
    };
    std::vector<const SceneGroup*> order;
    std::unordered_map<const SceneGroup*, bool> seen;
    std::vector<Step> path{{nullptr, &scene.items, 0}};
    while (!path.empty()) {
        Step& top = path.back();
        if (top.next == top.items->size()) {
            order.push_back(top.group);
            path.pop_back();
            continue;
        }
        const SceneGroup* inner = (*top.items)[top.next++].content;
        if (inner && seen.emplace(inner, true).second) path.push_back({inner, &inner->items, 0});
    }
    return order;
}

double farthest_of(const kernel::Box& box) {
    return box.min().cwiseAbs().cwiseMax(box.max().cwiseAbs()).maxCoeff();
}

/// An origin near the middle of a box whose co-ordinates floats would round too much: whole metres, which
/// floats hold exactly up to 16 777 km. It has to gain three bits; a large drawing is best left where it is.
kernel::Point local_origin(const kernel::Box& box, double tolerance) {
    kernel::Point origin(0, 0, 0);
    if (!box.is_finite() || farthest_of(box) * kRounding <= tolerance) return origin;
    if (farthest_of(box) < 8 * box.size().maxCoeff() / 2) return origin;
    for (int axis = 0; axis < 3; ++axis) {
        const auto metres = static_cast<float>(std::round(box.centre()[axis] / kMetre));
        origin[axis] = kMetre * metres + 0.0;
    }
    return origin;
}

const DxfEnt_Insert* insert_of(const SceneItem& item) {
    return as<const DxfEnt_Insert>(item.record.get());
}

class Builder {
public:
    Builder(const Scene& scene, const MeshFileOptions& options, const MeshRoom& room, MeshReport& report)
        : options_(options), room_(room), report_(report), order_(from_inside_out(scene)) {
        for (std::size_t i = 0; i < order_.size(); ++i) place_in_order_[order_[i]] = i;
        making_.resize(order_.size());
        for (now_ = 0; now_ < order_.size(); ++now_)
            make_group(order_[now_] ? order_[now_]->items : scene.items);
        count_copies();
    }

    MeshScene result() { return std::move(mesh_); }

private:
    /// What is known of a group of the scene while it is made and after.
    struct Making {
        bool is_empty = true;  ///< then it has no group in the mesh
        std::size_t group = 0;
        kernel::Box box;
        double deflection = std::numeric_limits<double>::infinity();  ///< the smallest in it
        std::vector<std::pair<std::size_t, std::size_t>> inside;      ///< place in order, copies
        std::size_t copies = 0;                                       ///< in all of the drawing
    };
    /// Where an item stands, and how finely it is divided.
    struct Extent {
        kernel::Box box;
        double deflection = 1;
    };
    struct Divided {
        MeshBody body;
        std::size_t entry = kMost;  ///< of MeshReport::bodies
    };
    /// A use of a body by a group.
    struct Use {
        std::size_t entry, place_in_order, curves, points;
    };

    bool is_drawing() const { return !order_[now_]; }

    Extent extent_of(const SceneItem& item) const {
        Extent extent;
        try {
            const kernel::Box box = kernel::bounding_box(item.shape.placed(nullptr));
            if (box.is_finite()) extent.box = box.transformed(item.shape.transform());
            if (!options_.is_relative) {
                extent.deflection = options_.deflection;
            } else if (box.is_finite() && box.diagonal() > 0) {
                extent.deflection = std::max(options_.deflection * box.diagonal(), kernel::kConfusion);
            }
        } catch (const kernel::KernelError&) {  // dividing it tells why
        }
        return extent;
    }

    void make_group(const std::vector<SceneItem>& items) {
        std::vector<Extent> extents(items.size());
        for (std::size_t i = 0; i < items.size(); ++i) {
            extents[i] = items[i].content ? extent_of_content(items[i]) : extent_of(items[i]);
            making_[now_].box.add(extents[i].box);
            making_[now_].deflection = std::min(making_[now_].deflection, extents[i].deflection);
        }
        const kernel::Box& box = making_[now_].box;
        const double deflection = making_[now_].deflection;
        MeshGroup group;
        group.origin = local_origin(box, deflection * (room_.has_groups ? kRoundingInGroups : 1));
        MeshPieces pieces;
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (items[i].content) {
                add_places(items[i], group);
            } else {
                add_item(items[i], extents[i], group.origin, pieces);
            }
        }
        group.pieces = pieces.keep(store_);
        if (is_drawing()) note_rounding(group.origin);
        if (!is_drawing() && group.pieces.empty() && group.places.empty()) return;
        making_[now_].is_empty = false;
        making_[now_].group = mesh_.groups.size();
        mesh_.groups.push_back(std::move(group));
    }

    Making& made(const SceneItem& item) { return making_[place_in_order_.at(item.content)]; }

    Extent extent_of_content(const SceneItem& item) {
        const Making& inner = made(item);
        Extent extent{{}, inner.deflection};
        const std::vector<kernel::Shape> copies = copies_of(item);
        for (const kernel::Shape& copy : copies) {
            if (inner.box.is_finite()) extent.box.add(inner.box.transformed(copy.transform()));
        }
        making_[now_].inside.emplace_back(place_in_order_.at(item.content), copies.size());
        return extent;
    }

    void add_places(const SceneItem& item, MeshGroup& group) {
        const Making& inner = made(item);
        if (inner.is_empty) return;
        MeshGroup& content = mesh_.groups[inner.group];
        const auto* insert = insert_of(item);
        if (content.name.empty() && insert) content.name = name_text(insert->BlockName);
        const std::vector<kernel::Shape> copies = copies_of(item);
        places_ += copies.size();
        if (places_ > kMostMeshNodes) throw too_many_inserts();
        const auto inwards = kernel::Transform::translation(content.origin);
        const auto outwards = kernel::Transform::translation(-group.origin);
        const std::string handle = item.record ? handle_label(*item.record) : "";
        for (std::size_t i = 0; i < copies.size(); ++i) {
            std::string name = content.name;
            if (!handle.empty()) name += " " + handle;
            if (copies.size() > 1) name += " [" + std::to_string(i + 1) + "]";
            group.places.push_back(
                {std::move(name), layer_of(item), inner.group, outwards * copies[i].transform() * inwards});
        }
    }

    void add_item(const SceneItem& item, const Extent& extent, const kernel::Point& origin,
                  MeshPieces& pieces) {
        if (!extent.box.is_empty() && farthest_of(extent.box) > kFarthest) {
            report_.gaps.push_back({item.record, "The shape is too far out for a mesh", 1});
            return;
        }
        // A block is divided once, however often it stands in the drawing or in groups of other styles.
        const bool is_shared = !is_drawing() || insert_of(item);
        std::unique_ptr<Divided> own;
        std::unique_ptr<Divided>& kept =
            is_shared ? bodies_[{item.shape.definition().get(), item.shape.is_reversed()}] : own;
        if (!kept) kept = divide(item, extent);
        const MeshBody& body = kept->body;
        cells_ += body.cells();
        if (cells_ > kMostMeshCells) {
            throw too_many_cells(cells_, kMostMeshCells, "a greater deflection or angle makes them fewer");
        }

        const auto add = [&](MeshKind kind, bool is_closed) {
            return append(body, item.shape.transform(), origin,
                          pieces.of(layer_of(item), item.style.colour, kind, is_closed));
        };
        if (!body.segments.empty()) add(MeshKind::Segments, false);
        if (!body.free_points.empty() && room_.has_points) add(MeshKind::Points, false);
        if (!body.triangles.empty()) {
            report_.bodies[kept->entry].triangles = add(MeshKind::Triangles, body.is_manifold);
        }
        uses_.push_back({kept->entry, now_, body.curves, body.free_points.size()});
    }

    std::unique_ptr<Divided> divide(const SceneItem& item, const Extent& extent) {
        auto result = std::make_unique<Divided>();
        result->body =
            divided(item.shape.placed(nullptr), {extent.deflection, options_.angle}, room_.has_curves);
        for (const auto& [reason, count] : result->body.problems) {
            report_.gaps.push_back({item.record, reason, count});
        }
        if (result->body.triangles.empty()) return result;
        result->entry = report_.bodies.size();
        report_.bodies.push_back({item.record, 0, 0, result->body.is_watertight});
        return result;
    }

    std::string name_text(std::string_view name) const {
        return utf8_name(options_.name_text ? options_.name_text(name) : std::string(name));
    }

    const Text& layer_of(const SceneItem& item) {
        const auto [at, is_new] = layers_.try_emplace(item.style.layer.str());
        if (is_new) at->second = Text(at->first.empty() ? "0" : name_text(at->first));
        return at->second;
    }

    static MeshTooLarge too_many_inserts() {
        return MeshTooLarge("its inserts make more than " + std::to_string(kMostMeshNodes) + " nodes");
    }
    static MeshTooLarge too_many_cells(std::size_t count, std::size_t most, const char* advice) {
        return MeshTooLarge("it needs at least " + std::to_string(count) +
                            " triangles, segments and points, and no more than " + std::to_string(most) +
                            " can be written; " + advice);
    }

    void note_rounding(const kernel::Point& origin) {
        const kernel::Box& box = making_[now_].box;
        if (!box.is_finite()) return;
        const double rounding =
            std::max((box.min() - origin).cwiseAbs().maxCoeff(), (box.max() - origin).cwiseAbs().maxCoeff()) *
            kRounding;
        if (rounding <= making_[now_].deflection) return;
        report_.notes.push_back("Co-ordinates are rounded by up to " + number_text(rounding, 2) +
                                " mm, more than the deflection of the smallest shape.");
    }

    /// Brings the copies of groups into the report, and refuses what would be too much of them.
    void count_copies() {
        making_.back().copies = 1;
        std::size_t nodes = 0;
        for (std::size_t i = making_.size(); i-- > 0;) {
            const Making& outer = making_[i];
            for (const auto& [inner, count] : outer.inside) {
                making_[inner].copies = sum_of(making_[inner].copies, product_of(outer.copies, count));
            }
            if (outer.is_empty) continue;
            const std::size_t parts = 1 + layers_of(mesh_.groups[outer.group]).size();
            nodes = sum_of(nodes, product_of(outer.copies, parts));
        }
        if (nodes > 2 * kMostMeshNodes) throw too_many_inserts();
        for (const Use& use : uses_) add_to_sums(use);
        if (!room_.has_groups) require_flat_room();
    }

    void add_to_sums(const Use& use) {
        const std::size_t copies = making_[use.place_in_order].copies;
        std::size_t& curves = room_.has_curves ? report_.curves : report_.curves_left_out;
        std::size_t& points = room_.has_points ? report_.points : report_.points_left_out;
        curves = sum_of(curves, product_of(use.curves, copies));
        points = sum_of(points, product_of(use.points, copies));
        if (use.entry == kMost) return;
        MeshedBody& body = report_.bodies[use.entry];
        body.copies = sum_of(body.copies, copies);
        report_.triangles = sum_of(report_.triangles, product_of(body.triangles, copies));
    }

    void require_flat_room() const {
        std::size_t cells = 0;
        for (const Making& made : making_) {
            if (made.is_empty) continue;
            for (const MeshPiece& piece : mesh_.groups[made.group].pieces) {
                cells = sum_of(cells, product_of(mesh_.geometries[piece.geometry].cells(), made.copies));
            }
        }
        if (cells > kMostFlatMeshCells) {
            throw too_many_cells(cells, kMostFlatMeshCells, "glTF and 3MF hold the copies of a block once");
        }
    }

    const MeshFileOptions& options_;
    const MeshRoom& room_;
    MeshReport& report_;
    std::vector<const SceneGroup*> order_;
    std::unordered_map<const SceneGroup*, std::size_t> place_in_order_;
    std::vector<Making> making_;
    std::size_t now_ = 0;
    MeshScene mesh_;
    MeshStore store_{mesh_.geometries};
    std::size_t cells_ = 0;
    std::size_t places_ = 0;
    std::vector<Use> uses_;
    std::unordered_map<std::string, Text> layers_;  // as they are named in the file
    /// By definition and whether it is reversed.
    std::map<std::pair<const kernel::Definition*, bool>, std::unique_ptr<Divided>> bodies_;
};

}  // namespace

MeshScene make_mesh_scene(const Scene& scene, const MeshFileOptions& options, const MeshRoom& room,
                          MeshReport& report) {
    return Builder(scene, options, room, report).result();
}

std::vector<MeshLayer> layers_of(const MeshGroup& group) {
    std::vector<MeshLayer> layers;
    std::unordered_map<std::string_view, std::size_t> known;
    const auto layer = [&](const Text& name) -> MeshLayer& {
        const auto [at, is_new] = known.emplace(name.view(), layers.size());
        if (is_new) layers.push_back({name, {}, {}});
        return layers[at->second];
    };
    for (const MeshPiece& piece : group.pieces) layer(piece.layer).pieces.push_back(&piece);
    for (const MeshPlace& place : group.places) layer(place.layer).places.push_back(&place);
    return layers;
}

}  // namespace veltrane
