#include "veltrane/kernel/mesh/mesh.hpp"

#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/mesh/face_mesh.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace veltrane::kernel {

namespace {

constexpr double kGreatestAngle = 1;
/// Less than 32 bits can tell apart, with room for the face at which the limit is noticed.
constexpr std::size_t kMostPlaces = 2'000'000'000;

MeshOptions checked(MeshOptions options) {
    const auto is_positive = [](double value) { return value > 0 && is_usable(value); };
    if (!is_positive(options.deflection) || !is_positive(options.angle) || options.max_divisions < 1 ||
        options.max_face_points < 1) {
        throw KernelError("An option for a mesh is not positive");
    }
    options.angle = std::min(options.angle, kGreatestAngle);
    options.max_points = std::min(options.max_points, kMostPlaces);
    return options;
}

/// Points that turned out to be one: the place of the first stands for all.
class SamePoints {
public:
    void join(std::uint32_t a, std::uint32_t b) {
        parents_.resize(std::max<std::size_t>(parents_.size(), std::max(a, b) + std::size_t{1}), kOwn);
        a = root(a);
        b = root(b);
        if (a != b) parents_[std::max(a, b)] = std::min(a, b);
    }
    bool is_empty() const { return parents_.empty(); }
    std::uint32_t root(std::uint32_t a) {
        while (a < parents_.size() && parents_[a] != kOwn) {
            const std::uint32_t up = parents_[a];
            if (parents_[up] != kOwn) parents_[a] = parents_[up];
            a = up;
        }
        return a;
    }

private:
    static constexpr std::uint32_t kOwn = 0xffffffff;
    std::vector<std::uint32_t> parents_;
};

class Mesher {
public:
    explicit Mesher(const MeshOptions& options) : options_(checked(options)) {}

    Mesh mesh_of(const Shape& shape) {
        visit(shape, ShapeKind::Face, [&](const Shape& face) {
            add_face(face);
            return true;
        });
        visit(shape, ShapeKind::Edge, [&](const Shape& edge) {
            divided(edge);
            return true;
        });
        join_same_points();
        return std::move(mesh_);
    }

private:
    void require_room() const {
        if (mesh_.points.size() > options_.max_points) throw KernelError("The mesh has too many points");
    }

    std::uint32_t place_of(const Shape& vertex) {
        const auto [at, is_new] = vertices_.emplace(vertex, static_cast<std::uint32_t>(mesh_.points.size()));
        if (is_new) mesh_.points.push_back(vertex_point(vertex));
        return at->second;
    }

    struct DividedEdge {
        std::size_t place;               // in Mesh::edges
        std::vector<double> parameters;  // none when the edge could not be divided
    };

    const DividedEdge& divided(const Shape& edge) {
        const auto [at, is_new] = edges_.emplace(edge, DividedEdge{mesh_.edges.size(), {}});
        if (!is_new) return at->second;
        mesh_.edges.push_back({edge.oriented(Orientation::Forward), {}, {}});
        try {
            at->second.parameters = divide(mesh_.edges.back());
        } catch (const KernelError& error) {
            mesh_.edges.back().message = error.what();
        }
        require_room();
        return at->second;
    }

    std::vector<double> divide(MeshEdge& edge) {
        const EdgeGeometry geometry = edge_geometry(edge.edge);
        const Deflection deflection{options_.deflection, options_.angle, options_.max_divisions + 1};
        const Shape first = first_vertex(edge.edge), last = last_vertex(edge.edge);
        if (first.is_null() || last.is_null()) throw KernelError("The edge is unbounded");
        std::vector<double> parameters = polyline_parameters(*geometry.curve, geometry.range, deflection);
        edge.points.push_back(place_of(first));
        for (std::size_t i = 1; i + 1 < parameters.size(); ++i) {
            edge.points.push_back(static_cast<std::uint32_t>(mesh_.points.size()));
            mesh_.points.push_back(geometry.curve->value(parameters[i]));
        }
        edge.points.push_back(place_of(last));
        return parameters;
    }

    void add_face(const Shape& face) {
        MeshFace entry{face, mesh_.triangles.size(), 0, {}};
        try {
            const Ref<Surface> surface = face_surface(face);
            FaceMesh result = mesh_face(*surface, outlines(face, *surface), options_, mesh_.points);
            for (const auto& [a, b] : result.same_points) same_.join(a, b);
            for (MeshTriangle& triangle : result.triangles) {
                if (face.is_reversed()) std::swap(triangle[1], triangle[2]);
            }
            mesh_.triangles.insert(mesh_.triangles.end(), result.triangles.begin(), result.triangles.end());
        } catch (const KernelError& error) {
            entry.message = error.what();
        }
        require_room();
        entry.triangle_count = mesh_.triangles.size() - entry.first_triangle;
        mesh_.faces.push_back(std::move(entry));
    }

    std::vector<Outline> outlines(const Shape& face, const Surface& surface) {
        std::vector<Outline> result;
        for (const Loop& loop : face_definition(face).loops()) {
            const Shape wire = loop.wire.placed(composed(face.placement(), loop.wire.placement()));
            const std::vector<Shape> edges = children(wire);
            Outline outline;
            for (std::size_t n = 0; n < edges.size(); ++n) {
                const std::size_t i = wire.is_reversed() ? edges.size() - 1 - n : n;
                add_use(edges[i], loop.parameter_curves[i], surface, outline);
            }
            result.push_back(std::move(outline));
        }
        return result;
    }

    /// The corners along one use of an edge, its end included.
    void add_use(const Shape& edge, const ParameterCurve& path, const Surface& surface, Outline& outline) {
        const DividedEdge& division = divided(edge);
        const MeshEdge& points = mesh_.edges[division.place];
        if (division.parameters.empty()) throw KernelError(points.message);
        std::vector<Corner> corners;
        for (std::size_t k = 0; k < points.points.size(); ++k) {
            const std::uint32_t place = points.points[k];
            // In a plane neighbours see the very points that they share.
            const Point2 at = surface.kind() == SurfaceKind::Plane ? surface.project(mesh_.points[place])
                                                                   : path.value(division.parameters[k]);
            corners.push_back({at, place});
        }
        if (edge.is_reversed()) std::reverse(corners.begin(), corners.end());
        outline.uses.push_back(std::move(corners));
    }

    /// Puts one place for all points that are the same, and leaves out the triangles that this closes.
    void join_same_points() {
        if (same_.is_empty()) return;
        for (MeshEdge& edge : mesh_.edges) {
            for (std::uint32_t& place : edge.points) place = same_.root(place);
        }
        std::size_t kept = 0;
        for (MeshFace& face : mesh_.faces) {
            const std::size_t first = kept;
            for (std::size_t i = 0; i < face.triangle_count; ++i) {
                MeshTriangle triangle = mesh_.triangles[face.first_triangle + i];
                for (std::uint32_t& place : triangle) place = same_.root(place);
                const auto [a, b, c] = triangle;
                if (a != b && b != c && c != a) mesh_.triangles[kept++] = triangle;
            }
            face.first_triangle = first;
            face.triangle_count = kept - first;
        }
        mesh_.triangles.resize(kept);
    }

    MeshOptions options_;
    Mesh mesh_;
    SamePoints same_;
    std::unordered_map<Shape, std::uint32_t, SameShapeHash, SameShape> vertices_;
    std::unordered_map<Shape, DividedEdge, SameShapeHash, SameShape> edges_;
};

}  // namespace

Mesh mesh(const Shape& shape, const MeshOptions& options) {
    return Mesher(options).mesh_of(shape);
}

}  // namespace veltrane::kernel
