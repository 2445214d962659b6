// A mesh without groups, for formats that have none.
#include "veltrane/output/mesh_pieces.hpp"

namespace veltrane {
namespace {

void add_copy(const MeshGeometry& from, const kernel::Transform& motion, MeshGeometry& to) {
    const auto first = static_cast<std::uint32_t>(to.points.size());
    const std::size_t first_corner = to.corners.size();
    for (const MeshPoint& p : from.points) to.points.push_back(rounded(motion.point({p[0], p[1], p[2]})));
    for (const std::uint32_t corner : from.corners) to.corners.push_back(first + corner);
    if (to.kind != MeshKind::Points) close_up(first_corner, to);
}

}  // namespace

MeshScene flattened(const MeshScene& scene) {
    struct Step {
        const MeshGroup* group;
        kernel::Transform motion;
        std::size_t next_place = 0;
    };
    MeshPieces pieces;
    std::vector<Step> path{{&scene.drawing(), {}}};
    const auto take_pieces = [&](const Step& step) {
        for (const MeshPiece& piece : step.group->pieces) {
            const MeshGeometry& geometry = scene.geometries[piece.geometry];
            add_copy(geometry, step.motion,
                     pieces.of(piece.layer, piece.colour, geometry.kind, geometry.is_closed));
        }
    };
    take_pieces(path.back());
    while (!path.empty()) {
        Step& top = path.back();
        if (top.next_place == top.group->places.size()) {
            path.pop_back();
            continue;
        }
        const MeshPlace& place = top.group->places[top.next_place++];
        Step inner{&scene.groups[place.group], top.motion * place.motion};
        take_pieces(inner);
        path.push_back(std::move(inner));
    }
    MeshScene flat;
    MeshStore store(flat.geometries);
    flat.groups.push_back({{}, scene.drawing().origin, pieces.keep(store), {}});
    return flat;
}

}  // namespace veltrane
