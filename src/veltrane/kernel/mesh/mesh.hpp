// Triangles in place of faces, polylines in place of edges.
#pragma once

#include "veltrane/kernel/topo/shape.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace veltrane::kernel {

/// How finely a shape is divided. Limits win over deflections.
struct MeshOptions {
    /// Greatest distance of a polyline from its edge and of the inside of a triangle from its surface
    /// (drawing units, positive).
    double deflection = 0.1;
    /// Greatest turn of a curve, or of a surface along a parameter line, over one division (radians,
    /// positive). More than 1 counts as 1, so that a full turn keeps its shape.
    double angle = 0.5;
    /// Most divisions of an edge, and of a surface in one direction.
    int max_divisions = 10000;
    /// Most points inside one face.
    int max_face_points = 250000;
    /// Most points in all, 2e9 at the most; a shape that needs more is refused.
    std::size_t max_points = 50'000'000;
};

using MeshTriangle = std::array<std::uint32_t, 3>;  ///< places in Mesh::points

/// The triangles of one use of a face.
struct MeshFace {
    Shape face;  ///< in world place
    std::size_t first_triangle = 0;
    std::size_t triangle_count = 0;
    std::string message;  ///< why there are no triangles; empty when all is well
};

/// One edge, however many faces use it.
struct MeshEdge {
    Shape edge;  ///< in world place
    std::vector<std::uint32_t>
        points;           ///< along the edge's curve; the first comes again at the end of a closed one
    std::string message;  ///< why there are no points
};

/// Points that are shared where edges and vertices are, triangles that run counter-clockwise seen against the
/// normal of their face.
struct Mesh {
    std::vector<Point> points;
    std::vector<MeshTriangle> triangles;
    std::vector<MeshFace> faces;  ///< in the order of the shape
    std::vector<MeshEdge> edges;  ///< each distinct edge once, also those of no face
};

/// The mesh of all faces and edges of a shape. Each edge is divided once and its points are shared by its
/// faces, so that the mesh of a closed shell is closed. Planar faces have no points but those of their edges;
/// curved ones get points inside where the deflection asks for them. Loops may touch and hold points on a
/// line, at the price of triangles without area. Loops that cross are divided there.
///
/// A face or edge that cannot be divided (unbounded; loops that do not close or cross very often) has a
/// message instead. The time is that of all uses of faces, times a logarithm of their points.
/// Throws KernelError when an option is not positive and when the mesh would exceed max_points.
Mesh mesh(const Shape& shape, const MeshOptions& options = {});

}  // namespace veltrane::kernel
