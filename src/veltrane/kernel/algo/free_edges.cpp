// A walk along unused edges that keeps the way it came. Where it meets its own way it cuts off a closed wire;
// where it can go no farther it steps back and gives up the last edge. A node that was given up has no unused
// edges, so that what is given up holds no closed wire.
#include "veltrane/kernel/algo/free_edges.hpp"

#include "veltrane/kernel/algo/edge_tools.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace veltrane::kernel {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// Edges in the given order and orientation whose ends share vertices.
struct JoinedEdges {
    std::vector<Shape> edges;
    Ref<const Placement> placement;
    double largest_gap;
};

JoinedEdges joined(std::span<const Shape> given, double tolerance) {
    const WireRepair repair = repair_wire(given, tolerance);
    const std::vector<Shape>& in_chains = group_definition(repair.wire).children();
    JoinedEdges result{std::vector<Shape>(given.size()), repair.wire.placement(), repair.largest_gap};
    std::size_t position = 0;
    for (const Chain& chain : chain_edges(given, tolerance)) {
        for (const ChainLink& link : chain) {
            const Shape& edge = in_chains[position++];
            result.edges[link.edge] = link.against ? edge.reversed() : edge;
        }
    }
    return result;
}

/// Nodes at the ends of edges and edges at the nodes.
class Graph {
public:
    explicit Graph(const std::vector<Shape>& edges) {
        std::unordered_map<const VertexDefinition*, std::size_t> numbers;
        const auto node_of = [&](const Ref<const VertexDefinition>& vertex) {
            if (!vertex)
                return at_node_.emplace_back(), at_node_.size() - 1;  // an unbounded end stands alone
            const auto [place, is_new] = numbers.try_emplace(vertex.get(), at_node_.size());
            if (is_new) at_node_.emplace_back();
            return place->second;
        };
        for (std::size_t edge = 0; edge < edges.size(); ++edge) {
            const std::size_t first = node_of(first_end(edges[edge])), last = node_of(last_end(edges[edge]));
            ends_.push_back({first, last});
            at_node_[first].push_back(edge);
            if (last != first) at_node_[last].push_back(edge);
        }
        used_.resize(edges.size());
        next_.resize(at_node_.size());
    }

    std::size_t first(std::size_t edge) const { return ends_[edge].first; }
    std::size_t last(std::size_t edge) const { return ends_[edge].second; }
    std::size_t node_count() const { return at_node_.size(); }
    bool is_used(std::size_t edge) const { return used_[edge]; }
    void use(std::size_t edge) { used_[edge] = true; }

    /// The first unused edge at a node, or kNone.
    std::size_t unused_at(std::size_t node) {
        const std::vector<std::size_t>& edges = at_node_[node];
        std::size_t& next = next_[node];
        while (next < edges.size() && used_[edges[next]]) ++next;
        return next < edges.size() ? edges[next] : kNone;
    }

private:
    std::vector<std::pair<std::size_t, std::size_t>> ends_;
    std::vector<std::vector<std::size_t>> at_node_;
    std::vector<bool> used_;
    std::vector<std::size_t> next_;
};

class Walk {
public:
    explicit Walk(Graph& graph) : graph_(graph), place_(graph.node_count(), kNone) {}

    void from(std::size_t edge) {
        std::size_t node = graph_.first(edge);
        place_[node] = 0;
        while (true) {
            const std::size_t next = graph_.unused_at(node);
            if (next != kNone) {
                node = go(next, node);
            } else if (!way_.empty()) {
                node = back(node);
            } else {
                break;
            }
        }
        place_[node] = kNone;
    }

    std::vector<Chain> closed;
    std::vector<std::size_t> given_up;

private:
    std::size_t other_end(const ChainLink& link) const {
        return link.against ? graph_.first(link.edge) : graph_.last(link.edge);
    }
    std::size_t near_end(const ChainLink& link) const {
        return link.against ? graph_.last(link.edge) : graph_.first(link.edge);
    }

    std::size_t go(std::size_t edge, std::size_t node) {
        graph_.use(edge);
        way_.push_back({edge, graph_.first(edge) != node});
        const std::size_t there = other_end(way_.back());
        if (place_[there] == kNone) {
            place_[there] = way_.size();
        } else {
            cut_off(place_[there]);
        }
        return there;
    }

    std::size_t back(std::size_t node) {
        const ChainLink last = way_.back();
        way_.pop_back();
        given_up.push_back(last.edge);
        place_[node] = kNone;
        return near_end(last);
    }

    /// The part of the way from a place on becomes a closed wire.
    void cut_off(std::size_t place) {
        const auto begin = way_.begin() + static_cast<std::ptrdiff_t>(place);
        for (auto link = std::next(begin); link != way_.end(); ++link) place_[near_end(*link)] = kNone;
        closed.emplace_back(begin, way_.end());
        way_.erase(begin, way_.end());
    }

    Graph& graph_;
    std::vector<std::size_t> place_;  // of a node on the way: the number of edges before it
    Chain way_;
};

/// Begins with the lowest edge and runs in its direction.
void begin_with_first(Chain& chain) {
    const auto by_edge = [](const ChainLink& a, const ChainLink& b) { return a.edge < b.edge; };
    if (std::min_element(chain.begin(), chain.end(), by_edge)->against) {
        std::reverse(chain.begin(), chain.end());
        for (ChainLink& link : chain) link.against = !link.against;
    }
    std::rotate(chain.begin(), std::min_element(chain.begin(), chain.end(), by_edge), chain.end());
}

Shape wire_of(const Chain& chain, const JoinedEdges& joined, FreeEdgeWires& result) {
    std::vector<Shape> edges;
    edges.reserve(chain.size());
    for (const ChainLink& link : chain) {
        const Shape& edge = joined.edges[link.edge];
        edges.push_back(link.against ? edge.reversed() : edge);
        result.turned += link.against;
    }
    return make_group(ShapeKind::Wire, std::move(edges)).placed(joined.placement);
}

/// An edge so short that its ends fell together encloses nothing.
bool is_crumb(const Shape& edge, double tolerance) {
    const EdgeDefinition& definition = edge_definition(edge);
    return definition.is_closed() && length(*definition.curve(), definition.range()) <= 4 * tolerance;
}

std::vector<Chain> open_chains(const JoinedEdges& joined, std::vector<std::size_t> indices) {
    std::sort(indices.begin(), indices.end());
    std::vector<Shape> edges;
    for (const std::size_t index : indices) edges.push_back(joined.edges[index]);
    std::vector<Chain> chains = chain_edges(edges, 0);  // the ends are equal already
    for (Chain& chain : chains) {
        for (ChainLink& link : chain) link.edge = indices[link.edge];
    }
    return chains;
}

}  // namespace

FreeEdgeWires wires_of_free_edges(std::span<const Shape> edges, double tolerance) {
    FreeEdgeWires result;
    if (edges.empty()) return result;
    const JoinedEdges all = joined(edges, tolerance);
    result.largest_gap = all.largest_gap;
    Graph graph(all.edges);
    Walk walk(graph);
    for (std::size_t edge = 0; edge < edges.size(); ++edge) {
        if (!is_crumb(all.edges[edge], tolerance)) continue;
        graph.use(edge);
        walk.given_up.push_back(edge);
    }
    for (std::size_t edge = 0; edge < edges.size(); ++edge) {
        if (!graph.is_used(edge)) walk.from(edge);
    }
    for (Chain& chain : walk.closed) begin_with_first(chain);
    std::sort(walk.closed.begin(), walk.closed.end(),
              [](const Chain& a, const Chain& b) { return a.front().edge < b.front().edge; });
    for (const Chain& chain : walk.closed) result.closed.push_back(wire_of(chain, all, result));
    for (const Chain& chain : open_chains(all, walk.given_up)) {
        result.open.push_back(wire_of(chain, all, result));
    }
    return result;
}

}  // namespace veltrane::kernel
