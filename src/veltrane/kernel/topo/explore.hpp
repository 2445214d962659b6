// Looking into shapes: children, sub-shapes of a kind, and the geometry of a sub-shape in world place.
#pragma once

#include "veltrane/kernel/topo/definition.hpp"

#include <array>
#include <functional>
#include <vector>

namespace veltrane::kernel {

/// Direct sub-shapes: vertices of an edge (start, then end), wires of a face, members of a list.
std::size_t child_count(const Shape& shape);
/// The index-th (from 0) direct sub-shape as the definition holds it. An edge's start vertex is forward, its
/// end vertex reversed. An index out of range throws KernelError.
Shape own_child(const Shape& shape, std::size_t index);
/// The same with the parent's placement and orientation brought in.
Shape child(const Shape& shape, std::size_t index);
/// All of them, in the order of the definition also when the parent is reversed.
std::vector<Shape> own_children(const Shape& shape);
std::vector<Shape> children(const Shape& shape);

/// Visits the sub-shapes of `kind`, the shape itself included, in depth-first order, with accumulated
/// placement and orientation. What is used several times is visited several times; sub-shapes of a found
/// shape are not searched (a compound inside a found compound is not visited). Nesting of any depth is safe;
/// the time is that of all uses. The visitor returns false to stop.
void visit(const Shape& shape, ShapeKind kind, const std::function<bool(const Shape&)>& visitor);

/// The visited sub-shapes as a list: every use, or each but once up to is_same().
std::vector<Shape> sub_shapes(const Shape& shape, ShapeKind kind);
std::vector<Shape> distinct_sub_shapes(const Shape& shape, ShapeKind kind);

/// Number of uses of every kind, the shape itself included, by static_cast<std::size_t>(kind). Linear in the
/// number of definitions, whatever the sharing; sums stop at the largest std::size_t.
std::array<std::size_t, kShapeKindCount> count_by_kind(const Shape& shape);

/// The point of a vertex in world place.
Point vertex_point(const Shape& vertex);

/// A piece of curve in world place. The orientation of the edge plays no part: the piece runs with the curve.
struct EdgeGeometry {
    Ref<Curve> curve;
    Interval range;
};
EdgeGeometry edge_geometry(const Shape& edge);

/// First and last vertex of an edge in the sense of its orientation, placed; null at an unbounded end.
Shape first_vertex(const Shape& edge);
Shape last_vertex(const Shape& edge);

/// The surface of a face in world place. The face's normal is the surface's, or against it when the face is
/// reversed.
Ref<Surface> face_surface(const Shape& face);

/// The edges of a wire, placed, in the order in which the oriented wire runs through them.
std::vector<Shape> edges_in_order(const Shape& wire);

}  // namespace veltrane::kernel
