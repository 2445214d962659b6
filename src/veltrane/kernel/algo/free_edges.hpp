// Loose edges put together to closed wires.
#pragma once

#include "veltrane/kernel/algo/wire_repair.hpp"

#include <cstddef>
#include <span>
#include <vector>

namespace veltrane::kernel {

struct FreeEdgeWires {
    std::vector<Shape> closed;  ///< no wire passes a vertex twice
    std::vector<Shape> open;    ///< what is left, in chains as long as possible
    std::size_t turned = 0;     ///< edges that are used against their given orientation
    double largest_gap = 0;     ///< the widest gap that was closed, in model units
};

/// Strings edges together where their ends lie within `tolerance`, and cuts the strings into closed wires at
/// every vertex that is met again. Dead ends do not lead a wire astray: edges that hang on a figure by one
/// end only, directly or through others, go into open wires. Where several figures share a vertex, edges that
/// come earlier in the list are followed first. Every edge stands in just one wire; a wire runs in the
/// direction of the first of its edges. Wires are ordered by their first edges. Time is linear in the number
/// of edges, apart from sorting. Throws KernelError for a member that is no edge.
FreeEdgeWires wires_of_free_edges(std::span<const Shape> edges, double tolerance = kWireRepairTolerance);

}  // namespace veltrane::kernel
