// Putting loose edges into chains and joining their ends.
#pragma once

#include "veltrane/kernel/math/tolerance.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <cstddef>
#include <span>
#include <vector>

namespace veltrane::kernel {

/// Ends of edges closer than this are joined unless the caller says otherwise.
inline constexpr double kWireRepairTolerance = kConfusion;

/// One place of an edge in a chain: its index in the given list, and whether the chain runs against the
/// edge's own orientation.
struct ChainLink {
    std::size_t edge;
    bool against;
};
using Chain = std::vector<ChainLink>;

/// Orders edges so that each ends where the next one starts, within `tolerance`. Every edge stands in just
/// one chain. A chain runs in the direction of its member with the lowest index and is extended from there,
/// first forwards, then backwards; where several edges meet the lowest index goes on. Chains are ordered by
/// their lowest index. An edge with an unbounded end is not continued there. Time is linear in the number of
/// edges. Throws KernelError for a member that is no edge.
std::vector<Chain> chain_edges(std::span<const Shape> edges, double tolerance = kWireRepairTolerance);

struct WireRepair {
    Shape wire;  ///< all edges, one chain after the other, ends joined in shared vertices
    std::vector<std::size_t> chain_starts;  ///< position in the wire of the first edge of every chain
    std::size_t turned = 0;                 ///< edges that the wire uses against their given orientation
    std::size_t closed_gaps = 0;            ///< joints whose ends were not at one point
    double largest_gap = 0;                 ///< the widest of them, in model units

    bool is_one_chain() const { return chain_starts.size() == 1; }
};

/// Makes one wire of edges given in any order and direction. A closed gap leaves the curves as they are: the
/// shared vertex lies half-way with a tolerance that covers both ends. Throws KernelError for an empty list
/// or a member that is no edge.
WireRepair repair_wire(std::span<const Shape> edges, double tolerance = kWireRepairTolerance);
/// The same for the edges of a wire.
WireRepair repair_wire(const Shape& wire, double tolerance = kWireRepairTolerance);

/// As repair_wire(), with a wire for every chain.
std::vector<Shape> connected_wires(std::span<const Shape> edges, double tolerance = kWireRepairTolerance);

/// True when the wire's first edge starts in the vertex where its last edge ends.
bool is_closed_wire(const Shape& wire);

}  // namespace veltrane::kernel
