// Boxes of shapes. Curves are boxed where they stand; a compound that is used
// again under the same rotation has its box moved instead.
#include "veltrane/kernel/algo/bounds.hpp"

#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/cylinder.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/kernel/topo/hashing.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>

namespace veltrane::kernel {
namespace {

/// Beyond so many nested compounds boxes of used-up ones are turned, corners
/// and all, instead of their content: compounds that hold turned copies of
/// compounds that hold turned copies would never come to an end.
constexpr std::size_t kMostTightCompounds = std::size_t{1} << 21;

/// Opens the box towards both ends of a direction.
void open_along(Box& box, const Vector& direction) {
    constexpr double kFar = std::numeric_limits<double>::infinity();
    Point low = box.min();
    Point high = box.max();
    for (int axis = 0; axis < 3; ++axis) {
        if (std::abs(direction[axis]) <= kAngular) continue;
        low[axis] = -kFar;
        high[axis] = kFar;
    }
    box.add(low);
    box.add(high);
}

/// The whole of a surface that no loop bounds.
Box whole_surface_box(const Surface& surface) {
    Box box;
    if (const auto* plane = as<const Plane>(&surface)) {
        box.add(plane->frame().origin);
        open_along(box, plane->frame().x);
        open_along(box, plane->frame().y);
    } else if (const auto* cylinder = as<const Cylinder>(&surface)) {
        box = bounding_box(Circle(cylinder->frame(), cylinder->radius()));
        open_along(box, cylinder->frame().z);
    } else if (const auto* extrusion = as<const LinearExtrusion>(&surface)) {
        box = bounding_box(*extrusion->basis());
        open_along(box, extrusion->direction());
    } else if (const auto* spline = as<const BSplineSurface>(&surface)) {
        box = bounding_box(*spline, spline->u_range(), spline->v_range());
    }
    return box;
}

Box edge_box(const Shape& edge) {
    const EdgeGeometry geometry = edge_geometry(edge);
    return bounding_box(*geometry.curve, geometry.range);
}

void add_edges(Box& box, const Shape& shape) {
    visit(shape, ShapeKind::Edge, [&](const Shape& edge) {
        box.add(edge_box(edge));
        return true;
    });
}

/// The box of a B-spline surface over the parameters that the loops span.
Box spanned_box(const BSplineSurface& surface, const std::vector<Loop>& loops) {
    Box parameters;
    for (const Loop& loop : loops) {
        const std::vector<Shape>& edges = group_definition(loop.wire).children();
        for (std::size_t i = 0; i < edges.size(); ++i) {
            const ParameterCurve& path = loop.parameter_curves[i];
            const Interval& range = edge_definition(edges[i]).range();
            const double a = path.from_edge(range.first), b = path.from_edge(range.last);
            parameters.add(bounding_box(*path.curve->in_plane(), {std::min(a, b), std::max(a, b)}));
        }
    }
    const auto inside = [&](const Interval& range, int axis) {
        return Interval{range.clamp(parameters.min()[axis]), range.clamp(parameters.max()[axis])};
    };
    return bounding_box(surface, inside(surface.u_range(), 0), inside(surface.v_range(), 1));
}

/// On a surface with straight rulings every point inside the loops lies between
/// two points of the loops on its ruling, so that the loops reach as far as the
/// face does.
void add_faces(Box& box, const Shape& shape) {
    visit(shape, ShapeKind::Face, [&](const Shape& face) {
        const std::vector<Loop>& loops = face_definition(face).loops();
        const Ref<Surface> surface = face_surface(face);
        if (loops.empty()) {
            box.add(whole_surface_box(*surface));
        } else if (const auto* spline = as<const BSplineSurface>(surface.get())) {
            box.add(spanned_box(*spline, loops));
        } else {
            add_edges(box, face);
        }
        return true;
    });
}

/// The box of anything but a compound.
Box simple_box(const Shape& shape) {
    Box box;
    switch (shape.kind()) {
        case ShapeKind::Vertex:
            box.add(vertex_point(shape));
            break;
        case ShapeKind::Edge:
        case ShapeKind::Wire:
            add_edges(box, shape);
            break;
        default:
            add_faces(box, shape);
    }
    return box;
}

Box moved_box(const Box& box, const Vector& offset) {
    return box.is_empty() ? box : Box(box.min() + offset, box.max() + offset);
}

/// Boxes of nested compounds without recursion. Each compound is boxed as it is
/// turned in the world, but about its own origin; its parent then moves the
/// box.
class CompoundBoxes {
public:
    Box box_of(const Shape& root) {
        push(root, nullptr);
        while (true) {
            Frame& top = stack_.back();
            if (top.next < top.compound->children().size()) {
                take(top.compound->children()[top.next++]);
                continue;
            }
            const Frame done = std::move(top);
            stack_.pop_back();
            if (done.compound->use_count() > 1) known_.emplace(key(*done.compound, done.turn), done.box);
            const Box box = brought_out(done.box, done.outwards);
            if (stack_.empty()) return box;
            stack_.back().box.add(box);
        }
    }

private:
    struct Frame {
        const GroupDefinition* compound;
        std::size_t next;
        Ref<const Placement> turn;      // rotation in the world
        Ref<const Placement> outwards;  // takes the box to the parent: an offset, as a rule
        Box box;
    };

    static SeenDefinition key(const Definition& definition, const Ref<const Placement>& turn) {
        return {&definition, turn ? turn->transform().rotation_part() : Matrix3(Matrix3::Identity())};
    }

    static Box brought_out(const Box& box, const Ref<const Placement>& outwards) {
        if (!outwards) return box;
        const Transform& motion = outwards->transform();
        if (motion.rotation_part() == Matrix3::Identity()) return moved_box(box, motion.translation_part());
        return box.transformed(motion);
    }

    void take(const Shape& member) {
        Frame& top = stack_.back();
        if (!member.is(ShapeKind::Compound)) {
            top.box.add(simple_box(member.placed(composed(top.turn, member.placement()))));
        } else {
            push(member, top.turn);
        }
    }

    /// Begins with a compound, or adds its box at once when it is known.
    void push(const Shape& compound, const Ref<const Placement>& turn) {
        const GroupDefinition& definition = group_definition(compound);
        Ref<const Placement> outwards = composed(turn, compound.placement());
        Ref<const Placement> inner;
        const bool loosely = ++visited_ > kMostTightCompounds && definition.use_count() > 1;
        if (outwards && !loosely) {
            const Transform motion = outwards->transform();
            const Transform offset = Transform::translation(motion.translation_part());
            if (motion.rotation_part() != Matrix3::Identity()) {
                inner = make<Placement>(offset.inverse() * motion);
            }
            outwards = make<Placement>(offset);
        }
        const auto found = known_.find(key(definition, inner));
        if (found == known_.end()) {
            stack_.push_back({&definition, 0, std::move(inner), std::move(outwards), Box()});
        } else {
            stack_.back().box.add(brought_out(found->second, outwards));
        }
    }

    std::vector<Frame> stack_;
    std::unordered_map<SeenDefinition, Box, SeenDefinitionHash> known_;
    std::size_t visited_ = 0;
};

}  // namespace

Box bounding_box(const Shape& shape) {
    if (shape.is_null()) return {};
    return shape.is(ShapeKind::Compound) ? CompoundBoxes().box_of(shape) : simple_box(shape);
}

Box BoxSum::loose_box(const Shape& shape) {
    const auto [known, is_new] = known_.try_emplace(shape.definition().get());
    if (is_new) known->second = {shape.definition(), bounding_box(shape.placed(nullptr))};
    const Box& own = known->second.box;
    return shape.placement() ? own.transformed(shape.transform()) : own;
}

bool BoxSum::add(const Shape& shape) {
    if (shape.is(ShapeKind::Compound) && shape.definition()->use_count() > 1) {
        const Box loose = loose_box(shape);
        if (loose.is_empty()) return true;
        if (loose.is_finite() && box_.contains(loose.min()) && box_.contains(loose.max())) return true;
    }
    const Box box = bounding_box(shape);
    if (box.is_open()) return false;
    box_.add(box);
    return true;
}

}  // namespace veltrane::kernel
