// Making vertices, edges, wires and compounds.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"
#include "veltrane/kernel/math/interval.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <span>
#include <vector>

namespace veltrane::kernel {

Shape make_vertex(const Point& point);

/// An edge over the whole range of the curve. An unbounded end has no vertex; an edge whose ends meet within
/// kConfusion is closed and has one vertex. Throws KernelError for a null curve.
Shape make_edge(const Ref<Curve>& curve);
/// An edge over a part of the curve. On a periodic curve the range may lie anywhere and is at most a period
/// long. Throws KernelError for a range that is empty, not a number, outside the curve, or of zero length.
Shape make_edge(const Ref<Curve>& curve, const Interval& range);
/// A straight edge. Throws KernelError when the points are closer than kConfusion or not finite.
Shape make_edge(const Point& start, const Point& end);

/// A wire of edges in the given order. Where one edge ends within kConfusion of the next one's start (and the
/// last one's end of the first one's start) they come to share a vertex; edges are not turned nor reordered.
/// Edges that share one placement give a wire with that placement; otherwise placements are worked into the
/// curves. Throws KernelError for an empty list or a member that is no edge.
Shape make_wire(std::span<const Shape> edges);

/// A compound of shapes of any kind in the given order; null ones are left out. It may be empty.
Shape make_compound(std::vector<Shape> shapes);

}  // namespace veltrane::kernel
