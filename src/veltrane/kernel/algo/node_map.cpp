#include "veltrane/kernel/algo/node_map.hpp"

#include "veltrane/kernel/topo/hashing.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veltrane::kernel {
namespace {

/// Cells are a few tolerances wide, so that most points have no neighbour cell
/// within reach.
constexpr double kCellInTolerances = 8;

}  // namespace

std::size_t NodeMap::CellHash::operator()(const Cell& cell) const noexcept {
    std::size_t hash = 0;
    for (const double number : cell.at) hash = mixed(hash, number);
    return hash;
}

NodeMap::NodeMap(double tolerance)
    : tolerance_(tolerance > 0 ? tolerance : 0),
      cell_(std::max(kCellInTolerances * tolerance_, std::numeric_limits<double>::min())) {}

NodeMap::Id NodeMap::node_at(const Point& point) {
    if (!point.allFinite()) return kNone;
    const Id near = nearest(point);
    if (near != kNone) return near;
    const Id fresh = static_cast<Id>(nodes_.size());
    const auto [place, is_first] = heads_.try_emplace(cell_of(point), fresh);
    nodes_.push_back({point, is_first ? kNone : place->second});
    place->second = fresh;
    return fresh;
}

/// Cells are centred on multiples of their width, for co-ordinates like to be
/// round numbers. A quotient that overflows stands for a co-ordinate so large
/// that only equal ones lie within the tolerance.
double NodeMap::cell_number(double coordinate) const {
    const double number = std::floor(coordinate / cell_ + 0.5);
    return std::isfinite(number) ? number : coordinate;
}

NodeMap::Cell NodeMap::cell_of(const Point& point) const {
    return {{cell_number(point[0]), cell_number(point[1]), cell_number(point[2])}};
}

NodeMap::Id NodeMap::nearest(const Point& point) const {
    const Cell low = cell_of(point - Vector::Constant(tolerance_));
    const Cell high = cell_of(point + Vector::Constant(tolerance_));
    Id best = kNone;
    double best_distance = tolerance_;
    for (unsigned corner = 0; corner < 8; ++corner) {
        Cell cell = low;
        bool is_new = true;
        for (unsigned axis = 0; axis < 3; ++axis) {
            if (!(corner >> axis & 1u)) continue;
            is_new = is_new && high.at[axis] != low.at[axis];
            cell.at[axis] = high.at[axis];
        }
        if (is_new) search(cell, point, best, best_distance);
    }
    return best;
}

void NodeMap::search(const Cell& cell, const Point& point, Id& best, double& best_distance) const {
    const auto head = heads_.find(cell);
    if (head == heads_.end()) return;
    for (Id id = head->second; id != kNone; id = nodes_[static_cast<std::size_t>(id)].next) {
        const double distance = (nodes_[static_cast<std::size_t>(id)].point - point).stableNorm();
        if (distance > best_distance || (distance == best_distance && best != kNone)) continue;
        best = id;
        best_distance = distance;
    }
}

}  // namespace veltrane::kernel
