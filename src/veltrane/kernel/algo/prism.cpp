// Linear sweeps. Everything is swept in the shape's own co-ordinates and then
// stands where the shape stands.
#include "veltrane/kernel/algo/prism.hpp"

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/shell.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/cylinder.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_map>
#include <utility>

namespace veltrane::kernel {
namespace {

using VertexRef = Ref<const VertexDefinition>;

/// The surface swept by a curve: the point of the curve at t, raised by s, has
/// the parameters (t, 0) + s x `up`.
struct SweptSurface {
    Ref<Surface> surface;
    Vector2 up;
    bool turned;  ///< the natural normal is against (curve direction) x (sweep)
};

SweptSurface swept_line(const Line& line, const Vector& direction) {
    const Vector across = cross(line.direction(), direction);
    if (across.norm() < kAngular) throw KernelError("A line cannot be swept along itself");
    const Frame frame = Frame::from_normal_and_x(line.origin(), across, line.direction());
    return {make<Plane>(frame), Vector2(direction.dot(frame.x), direction.dot(frame.y)), false};
}

SweptSurface swept_curve(const Ref<Curve>& curve, const Vector& direction) {
    if (const Line* line = as<const Line>(curve.get())) return swept_line(*line, direction);
    const Circle* circle = as<const Circle>(curve.get());
    if (circle && cross(circle->axis(), direction).norm() < kAngular) {
        const bool down = circle->axis().dot(direction) < 0;
        return {make<Cylinder>(circle->frame(), circle->radius()), Vector2(0, down ? -1 : 1), down};
    }
    return {make<LinearExtrusion>(curve, direction), Vector2(0, 1), false};
}

/// Sweeps definitions along one vector; what is met again is not swept again.
class Sweeper {
public:
    explicit Sweeper(const Vector& sweep)
        : sweep_(sweep), length_(sweep.stableNorm()), direction_(unit(sweep)) {}

    /// From the vertex to its image.
    Shape edge_of(const VertexRef& vertex) { return Shape(side(vertex).edge); }

    Shape face_of(const Shape& edge) {
        const Shape& face = swept(edge).face;
        return face.oriented(composed(edge.orientation(), face.orientation()));
    }

    /// The image of an edge.
    Shape top_of(const Shape& edge) { return swept(edge).top.oriented(edge.orientation()); }

private:
    struct Swept {
        Shape face;
        Shape top;
    };

    const Swept& swept(const Shape& edge) {
        const auto* definition = &edge_definition(edge);
        const auto found = faces_.find(definition);
        if (found != faces_.end()) return found->second;
        return faces_.emplace(definition, new_face(Shape(edge.definition()))).first->second;
    }

    struct Side {
        Ref<const EdgeDefinition> edge;
        VertexRef top;
    };

    const Side& side(const VertexRef& vertex) {
        const auto [place, is_new] = sides_.try_emplace(vertex.get());
        if (!is_new) return place->second;
        const Point& from = vertex->point();
        auto top = make<VertexDefinition>(from + sweep_, vertex->tolerance());
        place->second = {
            make<EdgeDefinition>(make<Line>(from, direction_), Interval{0, length_}, vertex, top), top};
        return place->second;
    }

    Swept new_face(const Shape& bottom) {
        const EdgeDefinition& source = edge_definition(bottom);
        if (!source.start() || !source.end()) throw KernelError("An unbounded edge cannot be swept");
        const Side& first = side(source.start());
        const Side& last = side(source.end());
        const Ref<Curve> raised = source.curve()->transformed(Transform::translation(sweep_));
        const Shape top(make<EdgeDefinition>(raised, source.range(), first.top, last.top));

        const SweptSurface surface = swept_curve(source.curve(), direction_);
        const Vector2 rise = surface.up * length_;
        const auto along = [](const Vector2& offset) { return ParameterCurve{make_line2(offset, {1, 0})}; };
        const auto upwards = [&](double u) { return ParameterCurve{make_line2({u, 0}, surface.up)}; };
        Loop loop;
        loop.wire = make_group(ShapeKind::Wire, {bottom, Shape(last.edge), top.reversed(),
                                                 Shape(first.edge, Orientation::Reversed)});
        loop.parameter_curves = {along({0, 0}), upwards(source.range().last), along(rise),
                                 upwards(source.range().first)};
        if (surface.turned) loop.wire = loop.wire.reversed();
        const auto face = make<FaceDefinition>(surface.surface, std::vector<Loop>{std::move(loop)});
        return {Shape(face, surface.turned ? Orientation::Reversed : Orientation::Forward), top};
    }

    Vector sweep_;
    double length_;
    Vector direction_;
    std::unordered_map<const VertexDefinition*, Side> sides_;
    std::unordered_map<const EdgeDefinition*, Swept> faces_;
};

Shape shell_of(const Shape& wire, Sweeper& sweeper) {
    std::vector<Shape> edges = own_children(wire);
    const bool has_placements = std::any_of(edges.begin(), edges.end(),
                                            [](const Shape& edge) { return edge.placement() != nullptr; });
    if (has_placements) edges = own_children(make_wire(edges).placed(nullptr));
    for (Shape& edge : edges) edge = sweeper.face_of(edge);
    return make_group(ShapeKind::Shell, std::move(edges)).oriented(wire.orientation());
}

bool has_placed_edges(const FaceDefinition& face) {
    return std::any_of(face.loops().begin(), face.loops().end(), [](const Loop& loop) {
        const std::vector<Shape>& edges = group_definition(loop.wire).children();
        return loop.wire.placement() || std::any_of(edges.begin(), edges.end(), [](const Shape& edge) {
                   return edge.placement() != nullptr;
               });
    });
}

/// The face at the end of its sweep.
Shape top_of(const FaceDefinition& face, const Vector& sweep, Sweeper& sweeper) {
    std::vector<Loop> loops = face.loops();
    for (Loop& loop : loops) {
        std::vector<Shape> edges = group_definition(loop.wire).children();
        for (Shape& edge : edges) edge = sweeper.top_of(edge);
        loop.wire = make_group(ShapeKind::Wire, std::move(edges)).oriented(loop.wire.orientation());
    }
    const Ref<Surface> surface = face.surface()->transformed(Transform::translation(sweep));
    return Shape(make<FaceDefinition>(surface, std::move(loops)));
}

/// Faces swept by the edges of a face. A seam, which the face lies on both sides of, sweeps no wall.
void add_walls(const Shape& face, Sweeper& sweeper, std::vector<Shape>& faces) {
    const std::vector<Shape> edges = sub_shapes(face, ShapeKind::Edge);
    std::unordered_map<const Definition*, int> uses;
    for (const Shape& edge : edges) ++uses[edge.definition().get()];
    for (const Shape& edge : edges) {
        if (uses[edge.definition().get()] == 1) faces.push_back(sweeper.face_of(edge));
    }
}

Shape solid_of(const Shape& given, const Vector& sweep, Sweeper& sweeper) {
    Shape face(given.definition());
    if (has_placed_edges(face_definition(face))) face = transformed(face, AffineMap());
    std::vector<Shape> faces = {face.reversed(), top_of(face_definition(face), sweep, sweeper)};
    add_walls(face, sweeper, faces);
    const Shape shell = make_group(ShapeKind::Shell, std::move(faces));
    if (!(std::abs(volume(shell)) > kConfusion * area(face))) {
        throw KernelError("A face cannot be swept within itself");
    }
    return make_solid(shell);
}

Shape swept_in_place(const Shape& shape, const Vector& sweep, Sweeper& sweeper) {
    switch (shape.kind()) {
        case ShapeKind::Vertex:
            return sweeper.edge_of(as<const VertexDefinition>(shape.definition()));
        case ShapeKind::Edge:
            return sweeper.face_of(shape);
        case ShapeKind::Wire:
            return shell_of(shape, sweeper);
        case ShapeKind::Face:
            return solid_of(shape, sweep, sweeper);
        default:
            throw KernelError("A " + std::string(name_of(shape.kind())) + " cannot be swept");
    }
}

/// The members of nested compounds that are no compounds themselves, in order.
std::vector<Shape> flat_members(const Shape& compound) {
    std::vector<Shape> pending{compound}, result;
    while (!pending.empty()) {
        const Shape next = std::move(pending.back());
        pending.pop_back();
        if (next.is(ShapeKind::Compound)) {
            std::vector<Shape> members = children(next);
            pending.insert(pending.end(), members.rbegin(), members.rend());
        } else {
            result.push_back(next);
        }
    }
    return result;
}

}  // namespace

Shape prism(const Shape& shape, const Vector& sweep) {
    if (!is_usable(sweep) || sweep.stableNorm() <= kConfusion) throw KernelError("The sweep has no length");
    if (shape.is(ShapeKind::Compound)) {
        std::vector<Shape> members = flat_members(shape);
        for (Shape& member : members) member = prism(member, sweep);
        return make_compound(std::move(members));
    }
    const Vector own = shape.placement() ? shape.placement()->transform().inverse().vector(sweep) : sweep;
    Sweeper sweeper(own);
    return swept_in_place(shape, own, sweeper).placed(shape.placement());
}

}  // namespace veltrane::kernel
