// The pieces of a mesh while they grow. Internal to the folder.
#pragma once

#include "veltrane/output/mesh_body.hpp"

#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace veltrane {

/// Keeps equal geometry once: blocks look alike through inserts of different styles.
class MeshStore {
public:
    /// `geometries` is added to and outlives this object.
    explicit MeshStore(std::vector<MeshGeometry>& geometries) : geometries_(geometries) {}

    /// Its index.
    std::size_t add(MeshGeometry geometry);

private:
    std::vector<MeshGeometry>& geometries_;
    std::unordered_multimap<std::size_t, std::size_t> by_hash_;
};

/// Sorts what belongs to a group by layer, colour and kind, and closed bodies from others.
class MeshPieces {
public:
    /// Where to add what looks like that.
    MeshGeometry& of(const Text& layer, int colour, MeshKind kind, bool is_closed);
    /// Hands over those that hold something, in the order in which they first came.
    std::vector<MeshPiece> keep(MeshStore& store);

private:
    struct Entry {
        MeshPiece piece;
        MeshGeometry geometry;
    };
    struct Before {
        template <class Key>
        bool operator()(const Key& a, const Key& b) const {
            const auto& [a_layer, a_look] = a;
            const auto& [b_layer, b_look] = b;
            return std::pair(a_layer.view(), a_look) < std::pair(b_layer.view(), b_look);
        }
    };
    using Look = std::tuple<int, MeshKind, bool>;

    std::vector<Entry> entries_;
    std::map<std::pair<Text, Look>, std::size_t, Before> known_;
};

}  // namespace veltrane
