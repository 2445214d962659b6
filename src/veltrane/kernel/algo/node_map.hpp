// Points that lie together, found through a hash of grid cells.
#pragma once

#include "veltrane/kernel/math/vector.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace veltrane::kernel {

/// Gathers points into nodes: a point joins the nearest node whose first point
/// lies within the tolerance, or founds one. First points are more than the
/// tolerance apart, so that a cell holds but a few of them and a look-up takes
/// constant time. Two points of one node may be two tolerances apart.
class NodeMap {
public:
    using Id = std::int32_t;
    static constexpr Id kNone = -1;

    /// A tolerance that is not positive gathers equal points only.
    explicit NodeMap(double tolerance);

    /// The node of a point; nodes are numbered from 0 as they are founded. kNone
    /// when a co-ordinate is not finite.
    Id node_at(const Point& point);
    std::size_t size() const { return nodes_.size(); }
    /// The point that founded a node.
    const Point& point(Id node) const { return nodes_[static_cast<std::size_t>(node)].point; }

private:
    /// Numbers of a cell along the axes. They are doubles, for the co-ordinates
    /// of a file may be larger than any integer times the cell.
    struct Cell {
        std::array<double, 3> at;
        bool operator==(const Cell&) const = default;
    };
    struct CellHash {
        std::size_t operator()(const Cell& cell) const noexcept;
    };
    struct Node {
        Point point;
        Id next;  // in the same cell
    };

    double cell_number(double coordinate) const;
    Cell cell_of(const Point& point) const;
    Id nearest(const Point& point) const;
    void search(const Cell& cell, const Point& point, Id& best, double& best_distance) const;

    double tolerance_;
    double cell_;
    std::vector<Node> nodes_;
    std::unordered_map<Cell, Id, CellHash> heads_;
};

}  // namespace veltrane::kernel
