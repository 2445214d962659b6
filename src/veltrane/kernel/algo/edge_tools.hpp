// Small steps on edges that the builders share.
#pragma once

#include "veltrane/kernel/topo/definition.hpp"

#include <span>
#include <vector>

namespace veltrane::kernel {

/// The edge with its placement worked into curve and vertices; itself when it
/// has none.
Shape without_placement(const Shape& edge);

/// First and last vertex of an edge in the sense of its orientation, in the
/// edge's own co-ordinates; null at an unbounded end.
const Ref<const VertexDefinition>& first_end(const Shape& edge);
const Ref<const VertexDefinition>& last_end(const Shape& edge);

/// The edge between other vertices, given in the sense of its orientation;
/// itself when they are its own.
Shape with_ends(const Shape& edge, const Ref<const VertexDefinition>& first,
                const Ref<const VertexDefinition>& last);

/// Edges brought to common co-ordinates, which `placement` leads to the world.
struct CommonEdges {
    std::vector<Shape> edges;  ///< unplaced
    Ref<const Placement> placement;
};
/// Edges that share one placement only lose it; otherwise it is worked into
/// each. Throws KernelError for a member that is no edge.
CommonEdges in_common_place(std::span<const Shape> edges);

}  // namespace veltrane::kernel
