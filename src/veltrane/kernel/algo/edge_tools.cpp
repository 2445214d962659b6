#include "veltrane/kernel/algo/edge_tools.hpp"

#include "veltrane/kernel/math/error.hpp"

#include <algorithm>

namespace veltrane::kernel {
namespace {

Ref<const VertexDefinition> moved_vertex(const Ref<const VertexDefinition>& vertex,
                                         const Transform& transform) {
    if (!vertex) return nullptr;
    return make<VertexDefinition>(transform.point(vertex->point()), vertex->tolerance());
}

}  // namespace

Shape without_placement(const Shape& edge) {
    if (!edge.placement()) return edge;
    const EdgeDefinition& own = edge_definition(edge);
    const Transform& transform = edge.placement()->transform();
    const auto start = moved_vertex(own.start(), transform);
    const auto end = own.is_closed() ? start : moved_vertex(own.end(), transform);
    return Shape(make<EdgeDefinition>(own.curve()->transformed(transform), own.range(), start, end),
                 edge.orientation());
}

const Ref<const VertexDefinition>& first_end(const Shape& edge) {
    const EdgeDefinition& own = edge_definition(edge);
    return edge.is_reversed() ? own.end() : own.start();
}

const Ref<const VertexDefinition>& last_end(const Shape& edge) {
    const EdgeDefinition& own = edge_definition(edge);
    return edge.is_reversed() ? own.start() : own.end();
}

Shape with_ends(const Shape& edge, const Ref<const VertexDefinition>& first,
                const Ref<const VertexDefinition>& last) {
    const auto& start = edge.is_reversed() ? last : first;
    const auto& end = edge.is_reversed() ? first : last;
    const EdgeDefinition& own = edge_definition(edge);
    if (own.start() == start && own.end() == end) return edge;
    return Shape(make<EdgeDefinition>(own.curve(), own.range(), start, end), edge.orientation(),
                 edge.placement());
}

CommonEdges in_common_place(std::span<const Shape> edges) {
    CommonEdges result;
    result.edges.reserve(edges.size());
    for (const Shape& edge : edges) {
        edge_definition(edge);  // refuses what is no edge
        result.edges.push_back(edge);
    }
    if (edges.empty()) return result;

    const Ref<const Placement>& first = edges.front().placement();
    const bool shared = std::all_of(edges.begin(), edges.end(), [&](const Shape& edge) {
        return same_placement(edge.placement(), first);
    });
    if (shared) result.placement = first;
    for (Shape& edge : result.edges) edge = shared ? edge.placed(nullptr) : without_placement(edge);
    return result;
}

}  // namespace veltrane::kernel
