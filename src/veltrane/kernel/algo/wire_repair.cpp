// Chains of edges. Ends that lie together are gathered into nodes; a walk over
// the nodes then strings the edges together. Both steps touch each end a fixed
// number of times.
#include "veltrane/kernel/algo/wire_repair.hpp"

#include "veltrane/kernel/algo/edge_tools.hpp"
#include "veltrane/kernel/algo/node_map.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <utility>

namespace veltrane::kernel {
namespace {

using NodeId = NodeMap::Id;
constexpr NodeId kNoNode = NodeMap::kNone;

/// Nodes at both ends of every edge, in the sense of the edge's orientation.
struct EdgeEnds {
    NodeId first;
    NodeId last;
};

Point end_point(const Shape& edge, const Ref<const VertexDefinition>& end) {
    return vertex_point(Shape(end, Orientation::Forward, edge.placement()));
}

struct Network {
    std::vector<EdgeEnds> ends;
    std::size_t node_count = 0;
};

Network connect(std::span<const Shape> edges, double tolerance) {
    NodeMap nodes(tolerance);
    const auto node_of = [&](const Shape& edge, const Ref<const VertexDefinition>& end) {
        return end ? nodes.node_at(end_point(edge, end)) : kNoNode;
    };
    Network network;
    network.ends.reserve(edges.size());
    for (const Shape& edge : edges) {
        const NodeId first = node_of(edge, first_end(edge));
        network.ends.push_back({first, node_of(edge, last_end(edge))});
    }
    network.node_count = nodes.size();
    return network;
}

/// Takes edges out of nodes, the lowest index first.
class Walk {
public:
    explicit Walk(const Network& network)
        : ends_(network.ends), used_(ends_.size()), begin_(network.node_count + 1) {
        for_each_end([&](NodeId node, std::size_t) { ++begin_[node + 1]; });
        for (std::size_t node = 0; node < network.node_count; ++node) begin_[node + 1] += begin_[node];
        cursor_ = begin_;
        at_.resize(begin_.back());
        for_each_end([&](NodeId node, std::size_t edge) { at_[cursor_[node]++] = edge; });
        cursor_.assign(begin_.begin(), begin_.end() - 1);
    }

    std::vector<Chain> chains() {
        std::vector<Chain> result;
        for (std::size_t edge = 0; edge < ends_.size(); ++edge) {
            if (!used_[edge]) result.push_back(chain_from(edge));
        }
        return result;
    }

private:
    template <class Visitor>
    void for_each_end(Visitor visitor) const {
        for (std::size_t edge = 0; edge < ends_.size(); ++edge) {
            if (ends_[edge].first != kNoNode) visitor(ends_[edge].first, edge);
            if (ends_[edge].last != kNoNode) visitor(ends_[edge].last, edge);
        }
    }

    Chain chain_from(std::size_t edge) {
        used_[edge] = true;
        Chain before;
        Chain chain{{edge, false}};
        for (NodeId node = ends_[edge].last; take(node, edge);) {
            const bool against = ends_[edge].first != node;
            chain.push_back({edge, against});
            node = against ? ends_[edge].first : ends_[edge].last;
        }
        for (NodeId node = ends_[chain.front().edge].first; take(node, edge);) {
            const bool against = ends_[edge].last != node;
            before.push_back({edge, against});
            node = against ? ends_[edge].last : ends_[edge].first;
        }
        if (before.empty()) return chain;
        std::reverse(before.begin(), before.end());
        before.insert(before.end(), chain.begin(), chain.end());
        return before;
    }

    /// The next unused edge at a node, which becomes used; false when there is
    /// none.
    bool take(NodeId node, std::size_t& edge) {
        if (node == kNoNode) return false;
        std::size_t& cursor = cursor_[node];
        while (cursor < begin_[node + 1] && used_[at_[cursor]]) ++cursor;
        if (cursor == begin_[node + 1]) return false;
        edge = at_[cursor++];
        used_[edge] = true;
        return true;
    }

    const std::vector<EdgeEnds>& ends_;
    std::vector<bool> used_;
    std::vector<std::size_t> begin_;   // of a node's edges in at_
    std::vector<std::size_t> cursor_;  // the next of them to look at
    std::vector<std::size_t> at_;
};

/// The vertex that all ends in a node come to share.
class NodeVertices {
public:
    NodeVertices(const std::vector<Shape>& edges, const Network& network)
        : sums_(network.node_count), vertices_(network.node_count) {
        for_each_end(edges, network, [&](Sum& sum, const Ref<const VertexDefinition>& end) {
            if (!sum.first) sum.first = end;
            sum.agree = sum.agree && end->point() == sum.first->point();
            sum.offset += end->point() - sum.first->point();
            ++sum.count;
        });
        for (Sum& sum : sums_) sum.offset /= std::max(1, sum.count);
        for_each_end(edges, network, [](Sum& sum, const Ref<const VertexDefinition>& end) {
            const double distance = (end->point() - sum.centre()).stableNorm();
            sum.tolerance = std::max(sum.tolerance, end->tolerance() + distance);
        });
        for (std::size_t node = 0; node < sums_.size(); ++node) vertices_[node] = sums_[node].vertex();
    }

    Ref<const VertexDefinition> at(NodeId node, const Ref<const VertexDefinition>& own) const {
        return node == kNoNode ? own : vertices_[node];
    }

private:
    struct Sum {
        Ref<const VertexDefinition> first;
        Vector offset = Vector::Zero();  // from `first`; small, so that the sum is
                                         // exact enough far out
        int count = 0;
        bool agree = true;
        double tolerance = 0;
        Point centre() const { return first->point() + offset; }
        Ref<const VertexDefinition> vertex() const {
            return agree ? first : Ref<const VertexDefinition>(make<VertexDefinition>(centre(), tolerance));
        }
    };

    template <class Visitor>
    void for_each_end(const std::vector<Shape>& edges, const Network& network, Visitor visitor) {
        for (std::size_t i = 0; i < edges.size(); ++i) {
            const EdgeEnds& ends = network.ends[i];
            if (ends.first != kNoNode) visitor(sums_[ends.first], first_end(edges[i]));
            if (ends.last != kNoNode) visitor(sums_[ends.last], last_end(edges[i]));
        }
    }

    std::vector<Sum> sums_;
    std::vector<Ref<const VertexDefinition>> vertices_;
};

/// Edges in chain order with shared vertices, and what had to be done for it.
struct Repaired {
    std::vector<std::vector<Shape>> chains;
    Ref<const Placement> placement;
    WireRepair report;
};

void note_joint(const Shape& before, const Shape& after, WireRepair& report) {
    const double gap = (last_end(before)->point() - first_end(after)->point()).stableNorm();
    if (!(gap > 0)) return;
    ++report.closed_gaps;
    report.largest_gap = std::max(report.largest_gap, gap);
}

/// Joints of one chain, that between its last and first edge included.
void note_joints(const std::vector<Shape>& given, const Network& network, const Chain& chain,
                 WireRepair& report) {
    const auto use = [&](const ChainLink& link) {
        return link.against ? given[link.edge].reversed() : given[link.edge];
    };
    const auto node_of = [&](const ChainLink& link, bool at_last) {
        const EdgeEnds& ends = network.ends[link.edge];
        return at_last != link.against ? ends.last : ends.first;
    };
    for (std::size_t i = 1; i < chain.size(); ++i) note_joint(use(chain[i - 1]), use(chain[i]), report);
    const NodeId end = node_of(chain.back(), true);
    if (end != kNoNode && end == node_of(chain.front(), false)) {
        note_joint(use(chain.back()), use(chain.front()), report);
    }
}

Repaired repaired(std::span<const Shape> edges, double tolerance) {
    if (edges.empty()) throw KernelError("A wire needs an edge");
    const CommonEdges common = in_common_place(edges);
    const Network network = connect(common.edges, tolerance);
    const NodeVertices vertices(common.edges, network);

    Repaired result;
    result.placement = common.placement;
    std::size_t position = 0;
    for (const Chain& chain : Walk(network).chains()) {
        note_joints(common.edges, network, chain, result.report);
        result.report.chain_starts.push_back(position);
        position += chain.size();
        std::vector<Shape>& out = result.chains.emplace_back();
        out.reserve(chain.size());
        for (const ChainLink& link : chain) {
            const Shape& given = common.edges[link.edge];
            const EdgeEnds& ends = network.ends[link.edge];
            const Shape joined = with_ends(given, vertices.at(ends.first, first_end(given)),
                                           vertices.at(ends.last, last_end(given)));
            out.push_back(link.against ? joined.reversed() : joined);
            result.report.turned += link.against;
        }
    }
    return result;
}

}  // namespace

std::vector<Chain> chain_edges(std::span<const Shape> edges, double tolerance) {
    const Network network = connect(edges, tolerance);
    return Walk(network).chains();
}

WireRepair repair_wire(std::span<const Shape> edges, double tolerance) {
    Repaired result = repaired(edges, tolerance);
    std::vector<Shape> all;
    all.reserve(edges.size());
    for (const std::vector<Shape>& chain : result.chains) all.insert(all.end(), chain.begin(), chain.end());
    result.report.wire = make_group(ShapeKind::Wire, std::move(all)).placed(result.placement);
    return std::move(result.report);
}

WireRepair repair_wire(const Shape& wire, double tolerance) {
    return repair_wire(edges_in_order(wire), tolerance);
}

std::vector<Shape> connected_wires(std::span<const Shape> edges, double tolerance) {
    Repaired result = repaired(edges, tolerance);
    std::vector<Shape> wires;
    wires.reserve(result.chains.size());
    for (std::vector<Shape>& chain : result.chains) {
        wires.push_back(make_group(ShapeKind::Wire, std::move(chain)).placed(result.placement));
    }
    return wires;
}

bool is_closed_wire(const Shape& wire) {
    const std::vector<Shape> edges = edges_in_order(wire);
    if (edges.empty()) return false;
    const Shape start = first_vertex(edges.front());
    return !start.is_null() && is_same(start, last_vertex(edges.back()));
}

}  // namespace veltrane::kernel
