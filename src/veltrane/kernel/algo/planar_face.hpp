// Planar faces within closed wires.
#pragma once

#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/math/tolerance.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace veltrane::kernel {

/// Why a wire bounds no planar face.
enum class PlanarFault : std::uint8_t {
    None,
    NotAWire,   ///< a null shape, another kind, or a wire without edges
    Open,       ///< neighbouring edges share no vertex, or an end is unbounded
    NotPlanar,  ///< the edges leave every plane, or the plane that is given or set by the outer wire
    NoArea,     ///< all on a line, or the area on both sides of crossings cancels out
    Repeated,   ///< the same figure as an earlier wire
};
/// In words for a user, for example "The wire is not closed".
std::string_view message(PlanarFault fault);

struct PlanarFace {
    Shape face;  ///< null when there is a fault
    PlanarFault fault = PlanarFault::None;
    std::size_t wire = 0;  ///< the wire at fault: 0 is the outer one, i + 1 the hole number i
};

/// The face within a closed wire less the holes. Its plane is found from the wire's curves, exactly: every
/// point of every edge lies within `tolerance` (drawing units, or the rounding of large co-ordinates) of it.
/// The plane's normal is that about which the outer wire runs counter-clockwise; the holes are turned to run
/// clockwise. Neither vertices nor edges are copied, unless wires stand at different placements. Where the
/// holes lie is not examined: see check(), and make_planar_faces() for wires whose nesting is unknown.
PlanarFace make_planar_face(const Shape& wire, std::span<const Shape> holes = {},
                            double tolerance = kConfusion);
/// The same on a given plane, whose normal becomes that of the face; the outer wire, too, is turned if
/// needed.
PlanarFace make_planar_face(const Plane& plane, const Shape& wire, std::span<const Shape> holes = {},
                            double tolerance = kConfusion);

struct LeftOutWire {
    std::size_t wire;
    PlanarFault fault;
};
struct PlanarFaces {
    std::vector<Shape> faces;  ///< in the order of their outer wires
    std::vector<LeftOutWire> left_out;
};

/// The faces between nested wires: a wire within an even number of others bounds a face from outside, and
/// those next within it are its holes; an island in a hole is a face of its own. Wires may touch but should
/// not cross. All faces lie in one plane, about whose normal the largest wire runs counter-clockwise. A wire
/// with a fault is left out.
PlanarFaces make_planar_faces(std::span<const Shape> wires, double tolerance = kConfusion);
/// The same on a given plane.
PlanarFaces make_planar_faces(const Plane& plane, std::span<const Shape> wires,
                              double tolerance = kConfusion);

}  // namespace veltrane::kernel
