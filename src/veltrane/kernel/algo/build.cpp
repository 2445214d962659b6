#include "veltrane/kernel/algo/build.hpp"

#include "veltrane/kernel/algo/edge_tools.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/definition.hpp"

#include <algorithm>
#include <utility>

namespace veltrane::kernel {
namespace {

using VertexRef = Ref<const VertexDefinition>;

/// The range with ends that overstep the curve by rounding brought back to it.
Interval checked_range(const Curve& curve, const Interval& range) {
    if (!is_usable(range.first) || !is_usable(range.last) || !(range.first < range.last)) {
        throw KernelError("The range of an edge is empty");
    }
    if (curve.is_periodic()) {
        if (range.length() <= curve.period() + kParametric) return range;
        throw KernelError("The range of an edge is longer than a period");
    }
    const Interval whole = curve.range();
    if (whole.contains(range.first, kParametric) && whole.contains(range.last, kParametric)) {
        return {whole.clamp(range.first), whole.clamp(range.last)};
    }
    throw KernelError("The range of an edge lies outside its curve");
}

VertexRef vertex_at(const Curve& curve, double t) {
    return is_infinite(t) ? VertexRef() : VertexRef(make<VertexDefinition>(curve.value(t)));
}

bool coincide(const VertexDefinition& a, const VertexDefinition& b) {
    return distance(a.point(), b.point()) <= kConfusion;
}

/// Ends of the edges of a wire in the making, in the sense of their
/// orientation.
struct WireEnds {
    std::vector<VertexRef> first;
    std::vector<VertexRef> last;

    explicit WireEnds(const std::vector<Shape>& edges) {
        for (const Shape& edge : edges) {
            first.push_back(first_end(edge));
            last.push_back(last_end(edge));
        }
    }

    /// Lets edge `after` start in the vertex where `before` ends, if they meet. A
    /// closed edge starts and ends in one vertex and takes the new one for both.
    void join(std::size_t before, std::size_t after) {
        const VertexRef shared = last[before];
        const VertexRef own = first[after];
        if (!shared || !own || shared == own || !coincide(*shared, *own)) return;
        if (last[after] == own) last[after] = shared;
        first[after] = shared;
    }
};

}  // namespace

Shape make_vertex(const Point& point) {
    if (!is_usable(point)) throw KernelError("The point of a vertex is out of range");
    return Shape(make<VertexDefinition>(point));
}

Shape make_edge(const Ref<Curve>& curve) {
    if (!curve) throw KernelError("An edge needs a curve");
    return make_edge(curve, curve->range());
}

Shape make_edge(const Ref<Curve>& curve, const Interval& range) {
    if (!curve) throw KernelError("An edge needs a curve");
    const Interval used = checked_range(*curve, range);
    const VertexRef start = vertex_at(*curve, used.first);
    VertexRef end = vertex_at(*curve, used.last);
    if (start && end && coincide(*start, *end)) {
        if (length(*curve, used) <= kConfusion) throw KernelError("The edge has no length");
        end = start;
    }
    return Shape(make<EdgeDefinition>(curve, used, start, end));
}

Shape make_edge(const Point& start, const Point& end) {
    if (!is_usable(start) || !is_usable(end)) throw KernelError("The end of an edge is out of range");
    const Vector along = end - start;
    const double length = along.stableNorm();
    if (length <= kConfusion) throw KernelError("The edge has no length");
    return Shape(make<EdgeDefinition>(make<Line>(start, along), Interval{0, length},
                                      make<VertexDefinition>(start), make<VertexDefinition>(end)));
}

Shape make_wire(std::span<const Shape> edges) {
    if (edges.empty()) throw KernelError("A wire needs an edge");
    CommonEdges common = in_common_place(edges);
    WireEnds ends(common.edges);
    const std::size_t count = edges.size();
    for (std::size_t i = 1; i < count; ++i) ends.join(i - 1, i);
    // The last joint closes the wire. The last edge gives way, for the first
    // one's vertex may be shared already; a closed last edge stays as the chain
    // has left it.
    VertexRef& end = ends.last[count - 1];
    const bool last_is_closed = end == ends.first[count - 1];
    if (count > 1 && !last_is_closed && end && ends.first[0] && coincide(*end, *ends.first[0])) {
        end = ends.first[0];
    }
    for (std::size_t i = 0; i < count; ++i) {
        common.edges[i] = with_ends(common.edges[i], ends.first[i], ends.last[i]);
    }
    return make_group(ShapeKind::Wire, std::move(common.edges)).placed(common.placement);
}

Shape make_compound(std::vector<Shape> shapes) {
    std::erase_if(shapes, [](const Shape& shape) { return shape.is_null(); });
    return make_group(ShapeKind::Compound, std::move(shapes));
}

}  // namespace veltrane::kernel
