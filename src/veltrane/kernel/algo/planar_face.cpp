#include "veltrane/kernel/algo/planar_face.hpp"

#include "veltrane/kernel/algo/fit_plane.hpp"
#include "veltrane/kernel/algo/loop_outline.hpp"
#include "veltrane/kernel/algo/plane_moments.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/geom/bezier.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace veltrane::kernel {
namespace {

bool has_placed_edges(const Shape& wire) {
    const std::vector<Shape>& edges = group_definition(wire).children();
    return std::any_of(edges.begin(), edges.end(), [](const Shape& edge) { return edge.placement(); });
}

/// Wires in common co-ordinates, with unplaced edges, and the placement that leads to the world.
struct CommonWires {
    std::vector<Shape> wires;  ///< null for what is no wire
    Ref<const Placement> placement;
};

CommonWires in_common_place(std::span<const Shape> given) {
    CommonWires common;
    const auto is_wire = [](const Shape& shape) {
        return shape.is(ShapeKind::Wire) && !group_definition(shape).children().empty();
    };
    const auto first = std::find_if(given.begin(), given.end(), is_wire);
    if (first == given.end()) return {std::vector<Shape>(given.size()), nullptr};
    const bool shared = std::all_of(first, given.end(), [&](const Shape& wire) {
        return !is_wire(wire) ||
               (same_placement(wire.placement(), first->placement()) && !has_placed_edges(wire));
    });
    if (shared) common.placement = first->placement();
    for (const Shape& wire : given) {
        if (!is_wire(wire)) {
            common.wires.emplace_back();
        } else if (shared || (!wire.placement() && !has_placed_edges(wire))) {
            common.wires.push_back(wire.placed(nullptr));
        } else {
            common.wires.push_back(transformed(wire, AffineMap()));
        }
    }
    return common;
}

PlanarFault topological_fault(const Shape& wire) {
    if (wire.is_null()) return PlanarFault::NotAWire;
    const std::vector<Shape> edges = edges_in_order(wire);
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Shape end = last_vertex(edges[i]);
        if (end.is_null() || !is_same(end, first_vertex(edges[(i + 1) % edges.size()]))) {
            return PlanarFault::Open;
        }
    }
    return PlanarFault::None;
}

/// Points, in running order, in whose hull every edge lies: what holds for their distance to a plane holds
/// for the whole wire.
std::vector<Point> hull_points(const Shape& wire) {
    std::vector<Point> points;
    for (const Shape& edge : edges_in_order(wire)) {
        const EdgeDefinition& definition = edge_definition(edge);
        const std::size_t begin = points.size();
        if (definition.curve()->kind() == CurveKind::Line) {
            for (const double t : {definition.range().first, definition.range().last}) {
                points.push_back(definition.curve()->value(t));
            }
        } else {
            for (const BezierSegment& piece : bezier_segments(*definition.curve(), definition.range())) {
                points.insert(points.end(), piece.poles.begin(), piece.poles.end());
            }
        }
        if (edge.is_reversed())
            std::reverse(points.begin() + static_cast<std::ptrdiff_t>(begin), points.end());
    }
    return points;
}

/// Twice the area within a polygon, as a vector along the normal about which it runs counter-clockwise.
Vector doubled_area(const std::vector<Point>& points) {
    Vector sum = Vector::Zero();
    for (std::size_t i = 2; i < points.size(); ++i) {
        sum += cross(points[i - 1] - points[0], points[i] - points[0]);
    }
    return sum;
}

bool lies_in(const Frame& frame, const std::vector<Point>& points, double tolerance) {
    double largest = frame.origin.cwiseAbs().maxCoeff();
    for (const Point& point : points) largest = std::max(largest, point.cwiseAbs().maxCoeff());
    const double limit = above_rounding(tolerance, largest);
    return std::all_of(points.begin(), points.end(), [&](const Point& point) {
        return std::abs((point - frame.origin).dot(frame.z)) <= limit;
    });
}

/// Takes space to the parameter plane of a plane with this frame; exactly to z = 0.
AffineMap flattening(const Frame& frame) {
    Matrix3 linear = Matrix3::Zero();
    linear.row(0) = frame.x;
    linear.row(1) = frame.y;
    return {linear, {-frame.origin.dot(frame.x), -frame.origin.dot(frame.y), 0}};
}

ParameterCurve flat_line(const Line& line, const Frame& frame) {
    const Vector local = frame.vector_to_local(line.direction());
    const double stretch = local.head<2>().norm();
    return {make_line2(frame.to_local(line.origin()).head<2>(), local.head<2>()), {stretch, 0}};
}

struct FlatLoop {
    Loop loop;
    double area = 0;
    double extent = 0;
    bool is_void(double tolerance) const { return std::abs(area) <= tolerance * extent / 4; }
    void turn() {
        loop.wire = loop.wire.reversed();
        area = -area;
    }
};

FlatLoop flat_loop(const Shape& wire, const Frame& frame) {
    const AffineMap flat = flattening(frame);
    FlatLoop result{{wire, {}}};
    Box box;
    for (const Shape& edge : group_definition(wire).children()) {
        const EdgeDefinition& definition = edge_definition(edge);
        ParameterCurve& path = result.loop.parameter_curves.emplace_back();
        if (const Line* line = as<const Line>(definition.curve().get())) {
            path = flat_line(*line, frame);
        } else {
            const MappedCurve image = definition.curve()->map_curve(flat);
            path = {make<Curve2>(image.curve), image.parameters};
        }
        for (const double share : {0.0, 0.5}) {
            const Point2 at = path.value(definition.range().at(share));
            box.add(Point(at.x(), at.y(), 0));
        }
    }
    result.area = loop_moments(result.loop, point_of(result.loop)).area;
    result.extent = box.diagonal();
    return result;
}

/// The frame seen from the other side of its plane.
Frame turned_over(const Frame& frame) {
    return Frame::from_normal(frame.origin, -frame.z);
}

Shape face_of(const Frame& frame, std::vector<Loop> loops, const Ref<const Placement>& placement) {
    return Shape(make<FaceDefinition>(make<Plane>(frame), std::move(loops))).placed(placement);
}

PlanarFace fault_of(PlanarFault fault, std::size_t wire) {
    return {Shape(), fault, wire};
}

/// Adds the holes to the outer loop and makes the face.
PlanarFace face_with_holes(const Frame& frame, const CommonWires& common, Loop outer, double tolerance) {
    std::vector<Loop> loops{std::move(outer)};
    for (std::size_t i = 1; i < common.wires.size(); ++i) {
        const Shape& wire = common.wires[i];
        if (const PlanarFault fault = topological_fault(wire); fault != PlanarFault::None) {
            return fault_of(fault, i);
        }
        if (!lies_in(frame, hull_points(wire), tolerance)) return fault_of(PlanarFault::NotPlanar, i);
        FlatLoop hole = flat_loop(wire, frame);
        if (hole.is_void(tolerance)) return fault_of(PlanarFault::NoArea, i);
        if (hole.area > 0) hole.turn();
        loops.push_back(std::move(hole.loop));
    }
    return {face_of(frame, std::move(loops), common.placement)};
}

std::vector<Shape> listed(const Shape& wire, std::span<const Shape> holes) {
    std::vector<Shape> wires{wire};
    wires.insert(wires.end(), holes.begin(), holes.end());
    return wires;
}

Frame own_frame(const Plane& plane, const Ref<const Placement>& placement) {
    return placement ? transformed(plane.frame(), placement->transform().inverse()) : plane.frame();
}

/// Closed wires on one plane, of which faces are to be made.
struct Figures {
    CommonWires common;
    PlanarFaces result;
    std::vector<std::size_t> wires;  ///< numbers of the sound ones
    std::vector<std::vector<Point>> points;
};

Figures figures_of(std::span<const Shape> wires) {
    Figures figures{in_common_place(wires), {}, {}, {}};
    for (std::size_t i = 0; i < wires.size(); ++i) {
        const PlanarFault fault = topological_fault(figures.common.wires[i]);
        if (fault != PlanarFault::None) {
            figures.result.left_out.push_back({i, fault});
            continue;
        }
        figures.wires.push_back(i);
        figures.points.push_back(hull_points(figures.common.wires[i]));
    }
    return figures;
}

/// Loops that are sound in the plane, and the numbers of their wires.
struct FlatFigures {
    std::vector<FlatLoop> loops;
    std::vector<std::size_t> wires;
};

FlatFigures flat_figures(Figures& figures, const Frame& frame, double tolerance) {
    FlatFigures flat;
    for (std::size_t i = 0; i < figures.wires.size(); ++i) {
        const std::size_t wire = figures.wires[i];
        if (!lies_in(frame, figures.points[i], tolerance)) {
            figures.result.left_out.push_back({wire, PlanarFault::NotPlanar});
            continue;
        }
        FlatLoop loop = flat_loop(figures.common.wires[wire], frame);
        if (loop.is_void(tolerance)) {
            figures.result.left_out.push_back({wire, PlanarFault::NoArea});
            continue;
        }
        flat.loops.push_back(std::move(loop));
        flat.wires.push_back(wire);
    }
    return flat;
}

/// True where a loop has an even number of loops around it. Parents are larger, so that they come first.
std::vector<bool> outer_loops(const std::vector<FlatLoop>& loops, const std::vector<std::size_t>& parents) {
    std::vector<std::size_t> order(loops.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return std::abs(loops[a].area) > std::abs(loops[b].area);
    });
    std::vector<bool> outer(loops.size(), true);
    for (const std::size_t i : order) outer[i] = parents[i] == kNoParent || !outer[parents[i]];
    return outer;
}

PlanarFaces nested_faces(Figures& figures, const Frame& frame, double tolerance) {
    FlatFigures flat = flat_figures(figures, frame, tolerance);
    std::vector<LoopOutline> outlines;
    std::vector<double> areas;
    for (const FlatLoop& loop : flat.loops) {
        outlines.emplace_back(loop.loop, outline_tolerance(tolerance, loop.extent));
        areas.push_back(std::abs(loop.area));
    }
    const std::vector<std::size_t> parents = nesting(outlines, areas);
    const std::vector<bool> outer = outer_loops(flat.loops, parents);
    std::vector<std::vector<Loop>> members(flat.loops.size());
    for (const bool wanted : {true, false}) {
        for (std::size_t i = 0; i < flat.loops.size(); ++i) {
            if (parents[i] == i) {
                if (wanted) figures.result.left_out.push_back({flat.wires[i], PlanarFault::Repeated});
                continue;
            }
            if (outer[i] != wanted) continue;
            if ((flat.loops[i].area > 0) != wanted) flat.loops[i].turn();
            members[wanted ? i : parents[i]].push_back(std::move(flat.loops[i].loop));
        }
    }
    for (std::vector<Loop>& loops : members) {
        if (loops.empty()) continue;
        figures.result.faces.push_back(face_of(frame, std::move(loops), figures.common.placement));
    }
    std::sort(figures.result.left_out.begin(), figures.result.left_out.end(),
              [](const LeftOutWire& a, const LeftOutWire& b) { return a.wire < b.wire; });
    return std::move(figures.result);
}

/// The normal about which the largest of some polygons runs counter-clockwise, roughly.
Vector largest_area(const std::vector<std::vector<Point>>& polygons) {
    Vector largest = Vector::Zero();
    for (const std::vector<Point>& polygon : polygons) {
        const Vector area = doubled_area(polygon);
        if (area.squaredNorm() > largest.squaredNorm()) largest = area;
    }
    return largest;
}

}  // namespace

std::string_view message(PlanarFault fault) {
    switch (fault) {
        case PlanarFault::None:
            return "";
        case PlanarFault::NotAWire:
            return "The shape is not a wire with edges";
        case PlanarFault::Open:
            return "The wire is not closed";
        case PlanarFault::NotPlanar:
            return "The wire does not lie in the plane";
        case PlanarFault::NoArea:
            return "The wire encloses no area";
        case PlanarFault::Repeated:
            return "The wire repeats another one";
    }
    return "";
}

PlanarFace make_planar_face(const Shape& wire, std::span<const Shape> holes, double tolerance) {
    const CommonWires common = in_common_place(listed(wire, holes));
    const PlanarFault fault = topological_fault(common.wires[0]);
    if (fault != PlanarFault::None) return fault_of(fault, 0);
    const std::vector<Point> points = hull_points(common.wires[0]);
    const FittedPlane plane = fit_plane(points, tolerance);
    if (plane.fit == PlaneFit::Straight) return fault_of(PlanarFault::NoArea, 0);
    if (plane.fit == PlaneFit::NotPlanar) return fault_of(PlanarFault::NotPlanar, 0);

    const bool guess_is_against = doubled_area(points).dot(plane.frame.z) < 0;
    Frame frame =
        Frame::from_normal(plane.frame.origin, guess_is_against ? Vector(-plane.frame.z) : plane.frame.z);
    FlatLoop outer = flat_loop(common.wires[0], frame);
    if (outer.is_void(tolerance)) return fault_of(PlanarFault::NoArea, 0);
    if (outer.area < 0) {
        frame = turned_over(frame);
        outer = flat_loop(common.wires[0], frame);
    }
    return face_with_holes(frame, common, std::move(outer.loop), tolerance);
}

PlanarFace make_planar_face(const Plane& plane, const Shape& wire, std::span<const Shape> holes,
                            double tolerance) {
    const CommonWires common = in_common_place(listed(wire, holes));
    const PlanarFault fault = topological_fault(common.wires[0]);
    if (fault != PlanarFault::None) return fault_of(fault, 0);
    const Frame frame = own_frame(plane, common.placement);
    if (!lies_in(frame, hull_points(common.wires[0]), tolerance)) return fault_of(PlanarFault::NotPlanar, 0);
    FlatLoop outer = flat_loop(common.wires[0], frame);
    if (outer.is_void(tolerance)) return fault_of(PlanarFault::NoArea, 0);
    if (outer.area < 0) outer.turn();
    return face_with_holes(frame, common, std::move(outer.loop), tolerance);
}

PlanarFaces make_planar_faces(std::span<const Shape> wires, double tolerance) {
    Figures figures = figures_of(wires);
    std::vector<Point> all;
    for (const std::vector<Point>& points : figures.points) {
        all.insert(all.end(), points.begin(), points.end());
    }
    const FittedPlane plane = fit_plane(all, tolerance);
    if (plane.fit != PlaneFit::Found) {
        const PlanarFault fault =
            plane.fit == PlaneFit::Straight ? PlanarFault::NoArea : PlanarFault::NotPlanar;
        for (const std::size_t wire : figures.wires) figures.result.left_out.push_back({wire, fault});
        return std::move(figures.result);
    }
    const bool against = largest_area(figures.points).dot(plane.frame.z) < 0;
    const Frame frame =
        Frame::from_normal(plane.frame.origin, against ? Vector(-plane.frame.z) : plane.frame.z);
    return nested_faces(figures, frame, tolerance);
}

PlanarFaces make_planar_faces(const Plane& plane, std::span<const Shape> wires, double tolerance) {
    Figures figures = figures_of(wires);
    return nested_faces(figures, own_frame(plane, figures.common.placement), tolerance);
}

}  // namespace veltrane::kernel
