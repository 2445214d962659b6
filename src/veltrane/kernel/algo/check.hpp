// Looking for flaws in shapes.
#pragma once

#include "veltrane/kernel/math/tolerance.hpp"
#include "veltrane/kernel/topo/shape.hpp"

#include <cstdint>
#include <string_view>
#include <vector>

namespace veltrane::kernel {

enum class Flaw : std::uint8_t {
    DegenerateEdge,    ///< an edge no longer than the tolerance
    VertexOffEdge,     ///< an end of the edge's curve lies outside the tolerance of its vertex
    BrokenWire,        ///< neighbouring edges of a wire share no vertex
    OpenLoop,          ///< a boundary of a face is not closed
    EdgeOffSurface,    ///< an edge of a face strays from its curve on the surface
    CrossingBoundary,  ///< the boundary of a face crosses itself
    MisplacedLoop,     ///< a planar face has no outer loop, or several, or loops that run the wrong way round
    UnorientedShell,   ///< neighbouring faces disagree which side is out, or more than two meet in an edge
    OpenShell,         ///< the shell of a solid has an edge with a face on one side only
    InsideOut,         ///< the faces of a solid look inwards
    NotExamined,       ///< a boundary too intricate to be searched for crossings, or geometry past use
};
/// In words for a user, for example "The boundary of a face crosses itself".
std::string_view message(Flaw flaw);

struct Finding {
    Flaw flaw;
    Shape shape;      ///< the vertex, edge, wire, face, shell or solid, where its first use stands
    double size = 0;  ///< how far it is off, where that can be told (drawing units)
};

/// The flaws of a shape and of everything in it. A definition is examined once, however often it is used. A
/// wire or shell on its own may be open. What is off by less than `tolerance` (drawing units, widened to the
/// rounding of large co-ordinates), or by less than the tolerance of a vertex, is no flaw. Edges are compared
/// with surfaces at samples. Time is bounded: about linear in the number of sub-shapes, and limited by a
/// budget in the search for crossings.
std::vector<Finding> check(const Shape& shape, double tolerance = kConfusion);

}  // namespace veltrane::kernel
