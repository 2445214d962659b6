#include "veltrane/output/mesh_body.hpp"

#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/mesh/mesh_measure.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/limits.hpp"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

namespace veltrane {
namespace {

using kernel::Shape;
using kernel::ShapeKind;
using EdgeSet = std::unordered_set<Shape, kernel::SameShapeHash, kernel::SameShape>;

constexpr double kNothingInside = 1e-12;  // volume, where the area is 1

/// Compounds may share their members over and over.
bool has_too_many_parts(const Shape& shape) {
    std::size_t left = kMostParts;
    for (const std::size_t count : kernel::count_by_kind(shape)) {
        if (count > left) return true;
        left -= count;
    }
    return false;
}

bool has_faces(const Shape& shape) {
    return kernel::count_by_kind(shape)[static_cast<std::size_t>(ShapeKind::Face)] > 0;
}

std::vector<kernel::Point> free_points_of(const Shape& shape) {
    std::vector<kernel::Point> points;
    std::vector<Shape> waiting{shape};
    while (!waiting.empty()) {
        const Shape next = std::move(waiting.back());
        waiting.pop_back();
        if (next.is(ShapeKind::Vertex)) points.push_back(kernel::vertex_point(next));
        if (!next.is(ShapeKind::Compound)) continue;
        for (std::size_t i = kernel::child_count(next); i-- > 0;) waiting.push_back(kernel::child(next, i));
    }
    return points;
}

/// The edges of faces, where there may be others beside them.
EdgeSet edges_of_faces(const Shape& shape, const kernel::Mesh& mesh) {
    EdgeSet edges;
    if (!shape.is(ShapeKind::Compound)) return edges;
    for (const kernel::MeshFace& face : mesh.faces) {
        kernel::visit(face.face, ShapeKind::Edge, [&](const Shape& edge) {
            edges.insert(edge);
            return true;
        });
    }
    return edges;
}

void take_faces(kernel::Mesh& mesh, MeshBody& body) {
    for (const kernel::MeshFace& face : mesh.faces) {
        if (!face.message.empty()) ++body.problems[face.message];
    }
    // Faces that lie on one another there and back have no gaps, but nothing inside.
    const double volume = kernel::volume(mesh);
    body.is_watertight =
        kernel::is_watertight(mesh) && std::abs(volume) > kNothingInside * std::pow(kernel::area(mesh), 1.5);
    body.is_manifold = body.is_watertight && is_manifold(mesh.triangles);
    if (body.is_watertight && volume < 0) {
        for (kernel::MeshTriangle& triangle : mesh.triangles) std::swap(triangle[1], triangle[2]);
    }
    body.triangles = std::move(mesh.triangles);
}

void take_free_edges(const Shape& shape, const kernel::Mesh& mesh, bool with_curves, MeshBody& body) {
    if (!mesh.faces.empty() && !shape.is(ShapeKind::Compound)) return;
    const EdgeSet used = edges_of_faces(shape, mesh);
    for (const kernel::MeshEdge& edge : mesh.edges) {
        if (used.contains(edge.edge)) continue;
        if (with_curves && !edge.message.empty()) {
            ++body.problems[edge.message];
            continue;
        }
        ++body.curves;
        if (!with_curves) continue;
        for (std::size_t i = 1; i < edge.points.size(); ++i) {
            body.segments.push_back({edge.points[i - 1], edge.points[i]});
        }
    }
}

/// Adds cells with those of the points that they use.
template <class Cells>
void append_cells(const std::vector<kernel::Point>& points, const Cells& cells,
                  const kernel::Transform& motion, const kernel::Point& origin, MeshGeometry& geometry) {
    constexpr std::uint32_t kUnused = 0xffffffff;
    std::vector<std::uint32_t> places(points.size(), kUnused);
    const std::size_t first_corner = geometry.corners.size();
    for (const auto& cell : cells) {
        for (const std::uint32_t corner : cell) {
            if (places[corner] == kUnused) {
                places[corner] = static_cast<std::uint32_t>(geometry.points.size());
                geometry.points.push_back(rounded(motion.point(points[corner]) - origin));
            }
            geometry.corners.push_back(places[corner]);
        }
    }
    close_up(first_corner, geometry);
}

}  // namespace

MeshBody divided(const Shape& shape, const MeshFineness& fineness, bool with_curves) {
    MeshBody body;
    try {
        if (has_too_many_parts(shape)) throw kernel::KernelError("The shape has too many parts");
        body.free_points = free_points_of(shape);
        if (!with_curves && !has_faces(shape)) {
            body.curves = kernel::distinct_sub_shapes(shape, ShapeKind::Edge).size();
            return body;
        }
        kernel::MeshOptions options;
        options.deflection = fineness.deflection;
        options.angle = fineness.angle;
        options.max_points = kMostMeshCells;
        kernel::Mesh mesh = kernel::mesh(shape, options);
        take_free_edges(shape, mesh, with_curves, body);
        take_faces(mesh, body);
        body.points = std::move(mesh.points);
    } catch (const kernel::KernelError& error) {
        ++body.problems[error.what()];
    }
    return body;
}

std::size_t append(const MeshBody& body, const kernel::Transform& motion, const kernel::Point& origin,
                   MeshGeometry& geometry) {
    const std::size_t before = geometry.cells();
    if (geometry.kind == MeshKind::Triangles) {
        append_cells(body.points, body.triangles, motion, origin, geometry);
    } else if (geometry.kind == MeshKind::Segments) {
        append_cells(body.points, body.segments, motion, origin, geometry);
    } else {
        for (const kernel::Point& point : body.free_points) {
            geometry.points.push_back(rounded(motion.point(point) - origin));
        }
    }
    return geometry.cells() - before;
}

bool is_manifold(const std::vector<kernel::MeshTriangle>& triangles) {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> sides, back;
    for (const auto& [a, b, c] : triangles) {
        sides.insert(sides.end(), {{a, b}, {b, c}, {c, a}});
        back.insert(back.end(), {{b, a}, {c, b}, {a, c}});
    }
    std::sort(sides.begin(), sides.end());
    std::sort(back.begin(), back.end());
    return !sides.empty() && sides == back && std::adjacent_find(sides.begin(), sides.end()) == sides.end();
}

MeshPoint rounded(const kernel::Point& p) {
    return {static_cast<float>(p.x()) + 0.0f, static_cast<float>(p.y()) + 0.0f,
            static_cast<float>(p.z()) + 0.0f};
}

void close_up(std::size_t first_corner, MeshGeometry& geometry) {
    const auto size = static_cast<std::size_t>(geometry.kind);
    std::vector<std::uint32_t>& corners = geometry.corners;
    std::map<MeshPoint, std::uint32_t> same;
    for (std::size_t cell = first_corner; cell < corners.size(); cell += size) {
        for (std::size_t i = 0; i < size; ++i) {
            const std::uint32_t a = corners[cell + i], b = corners[cell + (i + 1) % size];
            if (geometry.points[a] == geometry.points[b]) same.emplace(geometry.points[a], std::min(a, b));
        }
    }
    if (same.empty()) return;
    std::size_t kept = first_corner;
    for (std::size_t cell = first_corner; cell < corners.size(); cell += size) {
        bool is_cell = true;
        for (std::size_t i = 0; i < size; ++i) {
            const auto found = same.find(geometry.points[corners[cell + i]]);
            corners[kept + i] = found == same.end() ? corners[cell + i] : found->second;
            for (std::size_t k = 0; k < i; ++k) is_cell = is_cell && corners[kept + k] != corners[kept + i];
        }
        if (is_cell) kept += size;
    }
    corners.resize(kept);
}

}  // namespace veltrane
