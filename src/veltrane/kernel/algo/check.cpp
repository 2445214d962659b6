#include "veltrane/kernel/algo/check.hpp"

#include "veltrane/kernel/algo/fit_plane.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/outline_crossing.hpp"
#include "veltrane/kernel/algo/plane_moments.hpp"
#include "veltrane/kernel/algo/shell.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

namespace veltrane::kernel {
namespace {

double largest_coordinate(const Point& point) {
    return point.cwiseAbs().maxCoeff();
}

/// Parameters that show a curve: some within every piece between knots, and the ends.
std::vector<double> samples_of(const Curve& curve, const Interval& range) {
    constexpr std::size_t kMost = 256;
    constexpr int kPerPiece = 7;
    std::vector<double> cuts = curve.breaks(range);
    const std::size_t step = cuts.size() / kMost + 1;
    std::vector<double> samples{range.last};
    for (std::size_t i = 0; i + 1 < cuts.size(); i += step) {
        const Interval piece{cuts[i], cuts[i + 1]};
        for (int k = 0; k < kPerPiece; ++k) samples.push_back(piece.at(static_cast<double>(k) / kPerPiece));
    }
    return samples;
}

bool is_bounded(const Loop& loop) {
    const std::vector<Shape>& edges = group_definition(loop.wire).children();
    return !edges.empty() && std::all_of(edges.begin(), edges.end(), [](const Shape& edge) {
        return edge_definition(edge).range().is_bounded();
    });
}

/// How far a length in space may reach in the parameters of a surface.
double in_parameters(const Surface& surface, const Point2& at, double length) {
    const SurfaceDerivatives d = surface.derivatives(at.x(), at.y());
    return length / std::max({1e-9, d.du.norm(), d.dv.norm()});
}

class Checker {
public:
    Checker(double tolerance, std::vector<Finding>& findings) : tolerance_(tolerance), findings_(findings) {}

    /// Shapes at all depths, each definition once, without recursion.
    void examine_all(const Shape& root) {
        std::vector<Shape> pending{root};
        std::unordered_set<const Definition*> met{root.definition().get()};
        while (!pending.empty()) {
            const Shape shape = std::move(pending.back());
            pending.pop_back();
            try {
                examine(shape);
            } catch (const KernelError&) {
                note(Flaw::NotExamined, shape);
            }
            std::vector<Shape> below = children(shape);
            for (auto part = below.rbegin(); part != below.rend(); ++part) {
                if (met.insert(part->definition().get()).second) pending.push_back(std::move(*part));
            }
        }
    }

private:
    void note(Flaw flaw, const Shape& shape, double size = 0) { findings_.push_back({flaw, shape, size}); }

    void examine(const Shape& shape) {
        switch (shape.kind()) {
            case ShapeKind::Edge:
                return examine_edge(shape);
            case ShapeKind::Wire:
                return examine_wire(shape);
            case ShapeKind::Face:
                return examine_face(shape);
            case ShapeKind::Shell:
                return examine_shell(shape);
            case ShapeKind::Solid:
                return examine_solid(shape);
            case ShapeKind::Vertex:
            case ShapeKind::CompoundSolid:
            case ShapeKind::Compound:
                return;
        }
    }

    void examine_edge(const Shape& shape) {
        const EdgeDefinition& edge = edge_definition(shape);
        const auto examine_end = [&](const Ref<const VertexDefinition>& vertex, double t) {
            if (!vertex || is_infinite(t)) return;
            const double gap = distance(edge.curve()->value(t), vertex->point());
            const double limit = above_rounding(std::max(tolerance_, vertex->tolerance()),
                                                largest_coordinate(vertex->point()));
            if (gap > limit) note(Flaw::VertexOffEdge, shape, gap);
        };
        examine_end(edge.start(), edge.range().first);
        examine_end(edge.end(), edge.range().last);
        if (!edge.range().is_bounded()) return;
        const double size = length(*edge.curve(), edge.range());
        if (size <= tolerance_) note(Flaw::DegenerateEdge, shape, size);
    }

    void examine_wire(const Shape& shape) {
        const std::vector<Shape> edges = edges_in_order(shape);
        for (std::size_t i = 1; i < edges.size(); ++i) {
            const Shape end = last_vertex(edges[i - 1]);
            if (!end.is_null() && is_same(end, first_vertex(edges[i]))) continue;
            return note(Flaw::BrokenWire, shape);
        }
    }

    void examine_face(const Shape& shape) {
        const FaceDefinition& face = face_definition(shape);
        bool is_whole = true;
        for (std::size_t i = 0; i < face.loops().size(); ++i) {
            const Loop& loop = face.loops()[i];
            if (!is_bounded(loop) || !is_closed_wire(loop.wire)) {
                note(Flaw::OpenLoop, child(shape, i));
                is_whole = false;
            } else {
                examine_curves(loop, *face.surface(), child(shape, i));
            }
        }
        if (!is_whole || face.loops().empty()) return;
        const bool crosses = examine_crossings(shape, face);
        if (!crosses && face.surface()->kind() == SurfaceKind::Plane) examine_loops(shape, face);
    }

    /// Edges against their curves on the surface.
    void examine_curves(const Loop& loop, const Surface& surface, const Shape& placed_wire) {
        for (std::size_t i = 0; i < loop.parameter_curves.size(); ++i) {
            const Shape edge = child(loop.wire, i);
            const EdgeGeometry geometry = edge_geometry(edge);
            double worst = 0, largest = 0;
            for (const double t : samples_of(*geometry.curve, geometry.range)) {
                const Point on_edge = geometry.curve->value(t);
                worst = std::max(worst, distance(surface.value(loop.parameter_curves[i].value(t)), on_edge));
                largest = std::max(largest, largest_coordinate(on_edge));
            }
            if (worst > above_rounding(tolerance_, largest)) {
                note(Flaw::EdgeOffSurface, child(placed_wire, i), worst);
            }
        }
    }

    /// How near boundaries come to touch in the parameters of a face.
    double reach_of(const FaceDefinition& face) const {
        const double reach = in_parameters(*face.surface(), point_of(face.loops().front()), tolerance_);
        double largest = 0;
        for (const Loop& loop : face.loops()) {
            for (std::size_t i = 0; i < loop.parameter_curves.size(); ++i) {
                const double start = edge_definition(own_child(loop.wire, i)).range().first;
                largest = std::max(largest, loop.parameter_curves[i].value(start).cwiseAbs().maxCoeff());
            }
        }
        return outline_tolerance(reach, largest);
    }

    bool examine_crossings(const Shape& shape, const FaceDefinition& face) {
        std::vector<std::vector<OutlinePiece>> outlines;
        for (const Loop& loop : face.loops()) outlines.push_back(outline_pieces(loop));
        const CrossingSearch search = find_crossing(outlines, reach_of(face));
        if (search.crossing) {
            note(Flaw::CrossingBoundary, shape);
        } else if (!search.is_complete) {
            note(Flaw::NotExamined, shape);
        }
        return search.crossing.has_value();
    }

    /// One loop of a plane runs counter-clockwise, and the others within it clockwise.
    void examine_loops(const Shape& shape, const FaceDefinition& face) {
        std::vector<LoopOutline> outlines;
        std::vector<double> areas;
        std::vector<bool> is_outer;
        const double reach = reach_of(face);
        for (const Loop& loop : face.loops()) {
            const double area = loop_moments(loop, point_of(loop)).area;
            outlines.emplace_back(loop, reach);
            areas.push_back(std::abs(area));
            is_outer.push_back(area > 0);
        }
        const std::vector<std::size_t> parents = nesting(outlines, areas);
        for (std::size_t i = 0; i < parents.size(); ++i) {
            const bool fits = parents[i] == kNoParent
                                  ? is_outer[i]
                                  : !is_outer[i] && parents[i] != i && parents[parents[i]] == kNoParent;
            if (!fits) return note(Flaw::MisplacedLoop, shape);
        }
        if (std::count(is_outer.begin(), is_outer.end(), true) != 1) note(Flaw::MisplacedLoop, shape);
    }

    void examine_shell(const Shape& shape) {
        const std::vector<Shape> faces = own_children(shape);
        if (faces.empty()) return;
        const std::vector<ShellReport> parts = make_shells(faces);
        const bool fits = std::all_of(parts.begin(), parts.end(), [](const ShellReport& part) {
            return part.is_oriented && part.turned == 0;
        });
        if (!fits) note(Flaw::UnorientedShell, shape);
    }

    void examine_solid(const Shape& shape) {
        bool is_whole = true;
        for (const Shape& shell : children(shape)) {
            const std::vector<Shape> faces = own_children(shell);
            const bool is_closed = !faces.empty() && make_shell(faces).is_closed;
            if (!is_closed) note(Flaw::OpenShell, shell);
            is_whole = is_whole && is_closed;
        }
        if (!is_whole) return;
        const double enclosed = volume(shape.oriented(Orientation::Forward));
        if (enclosed < 0) note(Flaw::InsideOut, shape, enclosed);
    }

    double tolerance_;
    std::vector<Finding>& findings_;
};

}  // namespace

std::string_view message(Flaw flaw) {
    switch (flaw) {
        case Flaw::DegenerateEdge:
            return "An edge has no length";
        case Flaw::VertexOffEdge:
            return "An edge does not end in its vertex";
        case Flaw::BrokenWire:
            return "The edges of a wire do not hang together";
        case Flaw::OpenLoop:
            return "The boundary of a face is not closed";
        case Flaw::EdgeOffSurface:
            return "An edge of a face does not lie on its surface";
        case Flaw::CrossingBoundary:
            return "The boundary of a face crosses itself";
        case Flaw::MisplacedLoop:
            return "The boundaries of a face do not lie inside one another as they should";
        case Flaw::UnorientedShell:
            return "The faces of a shell do not agree which side is out";
        case Flaw::OpenShell:
            return "The shell of a solid is not closed";
        case Flaw::InsideOut:
            return "The faces of a solid look inwards";
        case Flaw::NotExamined:
            return "A shape is too intricate or too ill-formed to be examined";
    }
    return "";
}

std::vector<Finding> check(const Shape& shape, double tolerance) {
    std::vector<Finding> findings;
    if (!shape.is_null()) Checker(tolerance, findings).examine_all(shape);
    return findings;
}

}  // namespace veltrane::kernel
