// Shells of faces that share edges, and solids within closed shells.
#pragma once

#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace veltrane::kernel {

/// Vertices and straight edges over a list of points, each made once: neighbouring polygons come to share
/// them. Points within `tolerance` of one another are one vertex. Indices count from 0; an index out of range
/// throws KernelError.
class PolygonNet {
public:
    explicit PolygonNet(std::span<const Point> points, double tolerance = kConfusion);

    /// Null for a point with co-ordinates that geometry cannot be made of.
    const Shape& vertex(std::size_t point) const;
    /// From one point to another; null when both are one vertex, or one has none.
    Shape edge(std::size_t from, std::size_t to);
    /// The closed wire through the points, in order. Repeated neighbours count once; null when less than two
    /// corners are left. Two corners give an edge there and back.
    Shape wire(std::span<const std::size_t> corners);

private:
    std::size_t node(std::size_t point) const;

    std::vector<std::size_t> node_of_;                // of every point
    std::vector<Shape> vertices_;                     // of every node
    std::unordered_map<std::uint64_t, Shape> edges_;  // from the lower node to the higher one
};

/// What became of faces that were put together.
struct ShellReport {
    Shape shell;             ///< its faces run consistently as far as that is possible
    bool is_closed = false;  ///< every edge has two faces (or twice the same), so that an inside exists
    /// The faces on both sides of every edge agree which side is out; false for a one-sided shell and where
    /// more than two faces meet in an edge.
    bool is_oriented = false;
    std::size_t turned = 0;  ///< faces that are used against their given orientation
};

/// A shell of the faces for every set of them that hangs together by shared edges, in the order of their
/// first faces, which keep their orientation; edges are shared when they are the same, not when they merely
/// coincide. Time is linear in the number of edges. Throws KernelError for a member that is no face.
std::vector<ShellReport> make_shells(std::span<const Shape> faces);
/// All of them as one shell, also where they do not hang together. Throws KernelError for an empty list.
ShellReport make_shell(std::span<const Shape> faces);

/// The solid within a closed shell, whose faces are turned to look outwards. Throws KernelError for a shape
/// that is no shell, a shell that is open or one-sided, and one that encloses no volume.
Shape make_solid(const Shape& shell);

struct LeftOutPolygon {
    std::size_t polygon;
    PlanarFault fault;
};
struct PolygonShell {
    ShellReport report;  ///< with a null shell when no polygon gave a face
    std::vector<LeftOutPolygon> left_out;
};
/// The shell of planar polygons over a list of points. See PolygonNet for the points and make_planar_face()
/// for the tolerance.
PolygonShell make_polygon_shell(std::span<const Point> points,
                                std::span<const std::vector<std::size_t>> polygons,
                                double tolerance = kConfusion);

}  // namespace veltrane::kernel
