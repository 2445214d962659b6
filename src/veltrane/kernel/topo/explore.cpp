// Walks through shapes. Only compounds nest without limit, so they have a stack
// of their own.
#include "veltrane/kernel/topo/explore.hpp"

#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/compound_fold.hpp"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

namespace veltrane::kernel {
namespace {

constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();

std::size_t vertex_count(const EdgeDefinition& edge) {
    return (edge.start() ? 1u : 0u) + (edge.end() ? 1u : 0u);
}

Shape own_vertex(const EdgeDefinition& edge, std::size_t index) {
    const bool is_start = index == 0 && edge.start();
    return is_start ? Shape(edge.start()) : Shape(edge.end(), Orientation::Reversed);
}

/// A shape and the next child to look at.
struct Step {
    Shape shape;
    std::size_t next;
};

Shape in_parent(const Shape& parent, const Shape& own) {
    return Shape(own.definition(), composed(parent.orientation(), own.orientation()),
                 composed(parent.placement(), own.placement()));
}

/// A face has its wires below it, an edge its vertices; nothing of a greater or
/// an equal kind is found below anything but a compound.
bool may_contain(const Shape& shape, ShapeKind kind) {
    return shape.kind() > kind || shape.is(ShapeKind::Compound);
}

std::size_t saturated_sum(std::size_t a, std::size_t b) {
    return a > kMost - b ? kMost : a + b;
}

using Counts = std::array<std::size_t, kShapeKindCount>;

void add(Counts& sum, const Counts& other, const Ref<const Placement>& = nullptr) {
    for (std::size_t kind = 0; kind < kShapeKindCount; ++kind) {
        sum[kind] = saturated_sum(sum[kind], other[kind]);
    }
}

/// Counts below a shape that is no compound; nothing else nests deeper than
/// there are kinds.
Counts count_below(const Shape& shape) {
    Counts counts{};
    counts[static_cast<std::size_t>(shape.kind())] = 1;
    if (shape.is(ShapeKind::Edge)) {
        counts[static_cast<std::size_t>(ShapeKind::Vertex)] = child_count(shape);
        return counts;
    }
    for (std::size_t i = 0; i < child_count(shape); ++i) add(counts, count_below(own_child(shape, i)));
    return counts;
}

}  // namespace

std::size_t child_count(const Shape& shape) {
    switch (shape.kind()) {
        case ShapeKind::Vertex:
            return 0;
        case ShapeKind::Edge:
            return vertex_count(edge_definition(shape));
        case ShapeKind::Face:
            return face_definition(shape).loops().size();
        default:
            return group_definition(shape).children().size();
    }
}

Shape own_child(const Shape& shape, std::size_t index) {
    if (index >= child_count(shape)) throw KernelError("The shape has fewer sub-shapes");
    switch (shape.kind()) {
        case ShapeKind::Edge:
            return own_vertex(edge_definition(shape), index);
        case ShapeKind::Face:
            return face_definition(shape).loops()[index].wire;
        default:
            return group_definition(shape).children()[index];
    }
}

Shape child(const Shape& shape, std::size_t index) {
    return in_parent(shape, own_child(shape, index));
}

std::vector<Shape> own_children(const Shape& shape) {
    std::vector<Shape> result(child_count(shape));
    for (std::size_t i = 0; i < result.size(); ++i) result[i] = own_child(shape, i);
    return result;
}

std::vector<Shape> children(const Shape& shape) {
    std::vector<Shape> result(child_count(shape));
    for (std::size_t i = 0; i < result.size(); ++i) result[i] = child(shape, i);
    return result;
}

void visit(const Shape& shape, ShapeKind kind, const std::function<bool(const Shape&)>& visitor) {
    if (shape.is_null()) return;
    if (shape.is(kind)) {
        visitor(shape);
        return;
    }
    if (!may_contain(shape, kind)) return;
    std::vector<Step> stack{{shape, 0}};
    while (!stack.empty()) {
        Step& top = stack.back();
        if (top.next == child_count(top.shape)) {
            stack.pop_back();
            continue;
        }
        Shape below = child(top.shape, top.next++);
        if (below.is(kind)) {
            if (!visitor(below)) return;
        } else if (may_contain(below, kind)) {
            stack.push_back({std::move(below), 0});
        }
    }
}

std::vector<Shape> sub_shapes(const Shape& shape, ShapeKind kind) {
    std::vector<Shape> result;
    visit(shape, kind, [&](const Shape& found) {
        result.push_back(found);
        return true;
    });
    return result;
}

std::vector<Shape> distinct_sub_shapes(const Shape& shape, ShapeKind kind) {
    std::vector<Shape> result;
    std::unordered_set<Shape, SameShapeHash, SameShape> met;
    visit(shape, kind, [&](const Shape& found) {
        if (met.insert(found).second) result.push_back(found);
        return true;
    });
    return result;
}

std::array<std::size_t, kShapeKindCount> count_by_kind(const Shape& shape) {
    if (shape.is_null()) return Counts{};
    Counts one_compound{};
    one_compound[static_cast<std::size_t>(ShapeKind::Compound)] = 1;
    return fold_compounds(shape, one_compound, count_below, add);
}

Point vertex_point(const Shape& vertex) {
    const Point& point = vertex_definition(vertex).point();
    return vertex.placement() ? vertex.placement()->transform().point(point) : point;
}

EdgeGeometry edge_geometry(const Shape& edge) {
    const EdgeDefinition& definition = edge_definition(edge);
    if (!edge.placement()) return {definition.curve(), definition.range()};
    return {definition.curve()->transformed(edge.placement()->transform()), definition.range()};
}

Shape first_vertex(const Shape& edge) {
    const EdgeDefinition& definition = edge_definition(edge);
    const auto& vertex = edge.is_reversed() ? definition.end() : definition.start();
    return vertex ? Shape(vertex, Orientation::Forward, edge.placement()) : Shape();
}

Shape last_vertex(const Shape& edge) {
    return first_vertex(edge.reversed()).reversed();
}

Ref<Surface> face_surface(const Shape& face) {
    const Ref<Surface>& surface = face_definition(face).surface();
    return face.placement() ? surface->transformed(face.placement()->transform()) : surface;
}

std::vector<Shape> edges_in_order(const Shape& wire) {
    if (!wire.is(ShapeKind::Wire)) throw KernelError("The shape is not a wire");
    std::vector<Shape> edges = children(wire);
    if (wire.is_reversed()) std::reverse(edges.begin(), edges.end());
    return edges;
}

}  // namespace veltrane::kernel
