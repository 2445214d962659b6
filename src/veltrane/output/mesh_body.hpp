// One shape divided. Internal to the folder.
#pragma once

#include "veltrane/kernel/mesh/mesh.hpp"
#include "veltrane/output/mesh_scene.hpp"

#include <map>

namespace veltrane {

struct MeshBody {
    std::vector<kernel::Point> points;
    std::vector<kernel::MeshTriangle> triangles;
    std::vector<std::array<std::uint32_t, 2>> segments;  ///< of edges of no face
    std::size_t curves = 0;                              ///< that the segments make up
    std::vector<kernel::Point> free_points;              ///< vertices of no edge
    bool is_watertight = false;                          ///< the triangles enclose space without gaps
    bool is_manifold = false;                            ///< moreover, they touch one another nowhere else
    std::map<std::string, std::size_t> problems;         ///< why something was not divided, and how often

    std::size_t cells() const { return triangles.size() + segments.size() + free_points.size(); }
};

struct MeshFineness {
    double deflection = 0;  ///< millimetres
    double angle = 0;       ///< radians
};

/// Divides a shape. Watertight triangles are turned to look outwards. Without curves these are counted only.
/// Throws nothing that the kernel throws.
MeshBody divided(const kernel::Shape& shape, const MeshFineness& fineness, bool with_curves);

/// Adds the cells of the geometry's kind, moved to co-ordinates that count from `origin` and closed up, and
/// tells how many.
std::size_t append(const MeshBody& body, const kernel::Transform& motion, const kernel::Point& origin,
                   MeshGeometry& geometry);

/// True when each side of a triangle is that of exactly one other, which runs along it the other way.
bool is_manifold(const std::vector<kernel::MeshTriangle>& triangles);

/// A point as floats; zeros are positive, so that equal points have equal bytes.
MeshPoint rounded(const kernel::Point& p);

/// Lets one corner stand for those that rounding has brought together, in the cells from `first_corner` on.
/// Cells that this closes up are left out. What was watertight remains so.
void close_up(std::size_t first_corner, MeshGeometry& geometry);

}  // namespace veltrane
