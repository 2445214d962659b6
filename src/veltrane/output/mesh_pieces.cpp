#include "veltrane/output/mesh_pieces.hpp"

#include "veltrane/kernel/mesh/mesh_measure.hpp"

#include <functional>
#include <string_view>

namespace veltrane {
namespace {

template <class List>
std::size_t hash_of(const List& list) {
    return std::hash<std::string_view>()(
        {reinterpret_cast<const char*>(list.data()), list.size() * sizeof list[0]});
}

bool are_equal(const MeshGeometry& a, const MeshGeometry& b) {
    return a.kind == b.kind && a.is_closed == b.is_closed && a.points == b.points && a.corners == b.corners;
}

struct PointHash {
    std::size_t operator()(const MeshPoint& p) const {
        return std::hash<std::string_view>()({reinterpret_cast<const char*>(p.data()), sizeof p});
    }
};

/// Makes one corner of those that open bodies have at the same point: faces drawn one by one often fit
/// together to something closed.
void join(MeshGeometry& geometry) {
    std::unordered_map<MeshPoint, std::uint32_t, PointHash> places;
    std::vector<MeshPoint> points;
    for (std::uint32_t& corner : geometry.corners) {
        const auto [at, is_new] =
            places.emplace(geometry.points[corner], static_cast<std::uint32_t>(points.size()));
        if (is_new) points.push_back(geometry.points[corner]);
        corner = at->second;
    }
    geometry.points = std::move(points);
    kernel::Mesh mesh;
    for (const MeshPoint& p : geometry.points) mesh.points.emplace_back(p[0], p[1], p[2]);
    std::vector<std::uint32_t>& corners = geometry.corners;
    for (std::size_t i = 0; i < corners.size(); i += 3) {
        mesh.triangles.push_back({corners[i], corners[i + 1], corners[i + 2]});
    }
    geometry.is_closed = is_manifold(mesh.triangles);
    if (!geometry.is_closed || kernel::volume(mesh) >= 0) return;
    for (std::size_t i = 0; i < corners.size(); i += 3) std::swap(corners[i + 1], corners[i + 2]);
}

}  // namespace

std::size_t MeshStore::add(MeshGeometry geometry) {
    const std::size_t hash = hash_of(geometry.points) * 31 + hash_of(geometry.corners);
    const auto [first, last] = by_hash_.equal_range(hash);
    for (auto known = first; known != last; ++known) {
        if (are_equal(geometries_[known->second], geometry)) return known->second;
    }
    by_hash_.emplace(hash, geometries_.size());
    geometry.points.shrink_to_fit();
    geometry.corners.shrink_to_fit();
    geometries_.push_back(std::move(geometry));
    return geometries_.size() - 1;
}

MeshGeometry& MeshPieces::of(const Text& layer, int colour, MeshKind kind, bool is_closed) {
    const auto [at, is_new] =
        known_.emplace(std::pair(layer, Look(colour, kind, is_closed)), entries_.size());
    if (is_new) entries_.push_back({{layer, colour, 0}, {kind, is_closed, {}, {}}});
    return entries_[at->second].geometry;
}

std::vector<MeshPiece> MeshPieces::keep(MeshStore& store) {
    std::vector<MeshPiece> pieces;
    for (Entry& entry : entries_) {
        if (entry.geometry.cells() == 0) continue;
        const bool is_open = entry.geometry.kind == MeshKind::Triangles && !entry.geometry.is_closed;
        if (is_open) join(entry.geometry);
        entry.piece.geometry = store.add(std::move(entry.geometry));
        pieces.push_back(std::move(entry.piece));
    }
    entries_.clear();
    known_.clear();
    return pieces;
}

}  // namespace veltrane
