#include "veltrane/kernel/algo/shell.hpp"

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/node_map.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>

namespace veltrane::kernel {
namespace {

using VertexRef = Ref<const VertexDefinition>;

VertexRef definition_of_vertex(const Shape& vertex) {
    return as<const VertexDefinition>(vertex.definition());
}

Shape new_edge(const Shape& from, const Shape& to) {
    const VertexRef start = definition_of_vertex(from), end = definition_of_vertex(to);
    const Vector along = end->point() - start->point();
    return Shape(
        make<EdgeDefinition>(make<Line>(start->point(), along), Interval{0, along.stableNorm()}, start, end));
}

/// The faces at an edge.
struct EdgeUses {
    struct Use {
        std::size_t face;
        bool against;  ///< the face as given runs along the edge backwards
    };
    std::vector<Use> uses;

    /// Both faces of an edge between two of them (or a seam), in any orientation.
    bool joins_two() const { return uses.size() == 2; }
    /// The faces pass the edge in opposite directions, when `turned` tells which of them are turned.
    bool agree(const std::vector<bool>& turned) const {
        return (uses[0].against != turned[uses[0].face]) != (uses[1].against != turned[uses[1].face]);
    }
};

/// Faces and the edges between them.
class FaceNet {
public:
    explicit FaceNet(std::span<const Shape> faces)
        : faces_(faces), edges_of_(faces.size()), component_(faces.size(), kNone), turned_(faces.size()) {
        std::unordered_map<Shape, std::size_t, SameShapeHash, SameShape> numbers;
        for (std::size_t face = 0; face < faces.size(); ++face) {
            face_definition(faces[face]);  // refuses what is no face
            visit(faces[face], ShapeKind::Edge, [&](const Shape& edge) {
                const auto [place, is_new] = numbers.try_emplace(edge, edges_.size());
                if (is_new) edges_.emplace_back();
                edges_[place->second].uses.push_back({face, edge.is_reversed()});
                edges_of_[face].push_back(place->second);
                return true;
            });
        }
        for (std::size_t face = 0; face < faces.size(); ++face) {
            if (component_[face] == kNone) spread(face, components_++);
        }
    }

    std::vector<ShellReport> reports() const {
        std::vector<std::vector<std::size_t>> members(components_);
        for (std::size_t face = 0; face < faces_.size(); ++face) members[component_[face]].push_back(face);
        std::vector<ShellReport> result;
        for (const std::vector<std::size_t>& component : members) result.push_back(report(component));
        return result;
    }

    ShellReport whole() const {
        std::vector<std::size_t> all(faces_.size());
        for (std::size_t face = 0; face < all.size(); ++face) all[face] = face;
        return report(all);
    }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// Gathers what hangs together with a face and turns it to agree, as seen over edges between two faces;
    /// over edges with more of them nothing can be told.
    void spread(std::size_t first, std::size_t component) {
        std::vector<std::size_t> pending{first}, apart;
        component_[first] = component;
        while (!pending.empty() || !apart.empty()) {
            std::vector<std::size_t>& source = pending.empty() ? apart : pending;
            const std::size_t face = source.back();
            source.pop_back();
            if (&source == &apart && component_[face] != kNone) continue;
            component_[face] = component;
            for (const std::size_t number : edges_of_[face]) {
                const EdgeUses& edge = edges_[number];
                for (const EdgeUses::Use& use : edge.uses) {
                    if (component_[use.face] != kNone) continue;
                    if (!edge.joins_two()) {
                        apart.push_back(use.face);
                        continue;
                    }
                    turned_[use.face] = !edge.agree(turned_);
                    component_[use.face] = component;
                    pending.push_back(use.face);
                }
            }
        }
    }

    ShellReport report(const std::vector<std::size_t>& members) const {
        ShellReport result;
        result.is_closed = result.is_oriented = true;
        std::vector<Shape> shapes;
        shapes.reserve(members.size());
        for (const std::size_t face : members) {
            shapes.push_back(turned_[face] ? faces_[face].reversed() : faces_[face]);
            result.turned += turned_[face];
            for (const std::size_t number : edges_of_[face]) {
                const EdgeUses& edge = edges_[number];
                result.is_closed = result.is_closed && edge.joins_two();
                const bool fits = edge.joins_two() ? edge.agree(turned_) : edge.uses.size() == 1;
                result.is_oriented = result.is_oriented && fits;
            }
        }
        result.shell = make_group(ShapeKind::Shell, std::move(shapes));
        return result;
    }

    std::span<const Shape> faces_;
    std::vector<EdgeUses> edges_;
    std::vector<std::vector<std::size_t>> edges_of_;  // of a face, an edge for every use
    std::vector<std::size_t> component_;
    std::vector<bool> turned_;
    std::size_t components_ = 0;
};

}  // namespace

PolygonNet::PolygonNet(std::span<const Point> points, double tolerance) {
    NodeMap nodes(tolerance);
    node_of_.reserve(points.size());
    for (const Point& point : points) {
        const NodeMap::Id id = is_usable(point) ? nodes.node_at(point) : NodeMap::kNone;
        node_of_.push_back(id == NodeMap::kNone ? points.size() : static_cast<std::size_t>(id));
    }
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        const Point& point = nodes.point(static_cast<NodeMap::Id>(node));
        vertices_.emplace_back(make<VertexDefinition>(point, std::max(kConfusion, tolerance)));
    }
    vertices_.resize(points.size() + 1);  // null for what is no node
}

std::size_t PolygonNet::node(std::size_t point) const {
    if (point >= node_of_.size()) throw KernelError("A polygon refers to a point that does not exist");
    return node_of_[point];
}

const Shape& PolygonNet::vertex(std::size_t point) const {
    return vertices_[node(point)];
}

Shape PolygonNet::edge(std::size_t from, std::size_t to) {
    const std::size_t a = node(from), b = node(to);
    if (a == b || vertices_[a].is_null() || vertices_[b].is_null()) return {};
    const auto [place, is_new] = edges_.try_emplace(std::uint64_t{std::min(a, b)} << 32 | std::max(a, b));
    if (is_new) place->second = new_edge(vertices_[std::min(a, b)], vertices_[std::max(a, b)]);
    return a < b ? place->second : place->second.reversed();
}

Shape PolygonNet::wire(std::span<const std::size_t> corners) {
    std::vector<Shape> edges;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        Shape next = edge(corners[i], corners[(i + 1) % corners.size()]);
        if (!next.is_null()) edges.push_back(std::move(next));
    }
    return edges.size() < 2 ? Shape() : make_group(ShapeKind::Wire, std::move(edges));
}

std::vector<ShellReport> make_shells(std::span<const Shape> faces) {
    return FaceNet(faces).reports();
}

ShellReport make_shell(std::span<const Shape> faces) {
    if (faces.empty()) throw KernelError("A shell needs a face");
    return FaceNet(faces).whole();
}

Shape make_solid(const Shape& shell) {
    if (!shell.is(ShapeKind::Shell)) throw KernelError("A solid is made of a shell");
    const ShellReport report = make_shell(own_children(shell));
    if (!report.is_closed) throw KernelError("The shell is not closed");
    if (!report.is_oriented) throw KernelError("The shell has no inside");
    const double enclosed = volume(report.shell);
    if (enclosed == 0 || !is_usable(enclosed)) throw KernelError("The shell encloses no volume");
    const Shape kept = report.turned == 0 ? Shape(shell.definition()) : report.shell;
    return make_group(ShapeKind::Solid, {enclosed < 0 ? kept.reversed() : kept}).placed(shell.placement());
}

PolygonShell make_polygon_shell(std::span<const Point> points,
                                std::span<const std::vector<std::size_t>> polygons, double tolerance) {
    PolygonNet net(points, tolerance);
    PolygonShell result;
    std::vector<Shape> faces;
    for (std::size_t i = 0; i < polygons.size(); ++i) {
        const PlanarFace made = make_planar_face(net.wire(polygons[i]), {}, tolerance);
        if (made.fault == PlanarFault::None) {
            faces.push_back(made.face);
        } else {
            result.left_out.push_back({i, made.fault});
        }
    }
    if (!faces.empty()) result.report = make_shell(faces);
    return result;
}

}  // namespace veltrane::kernel
