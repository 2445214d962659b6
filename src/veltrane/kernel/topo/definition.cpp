// Definitions of shapes: what each kind accepts, and how lists of any nesting
// are released.
#include "veltrane/kernel/topo/definition.hpp"

#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <string>
#include <utility>

namespace veltrane::kernel {
namespace {

/// The kind that a list holds; a compound holds any.
bool accepts(ShapeKind list, ShapeKind child) {
    switch (list) {
        case ShapeKind::Wire:
            return child == ShapeKind::Edge;
        case ShapeKind::Shell:
            return child == ShapeKind::Face;
        case ShapeKind::Solid:
            return child == ShapeKind::Shell;
        case ShapeKind::CompoundSolid:
            return child == ShapeKind::Solid;
        case ShapeKind::Compound:
            return true;
        default:
            return false;
    }
}

bool is_list(ShapeKind kind) {
    return kind == ShapeKind::Wire || kind >= ShapeKind::Shell;
}

Ref<Curve> basis_of(const Ref<Curve>& curve) {
    if (!curve) throw KernelError("An edge needs a curve");
    return untrimmed(curve);
}

/// Releases shapes that would release others in their turn, one after the
/// other: a destructor that finds another one at work leaves its children to
/// it. Compounds nested a hundred thousand deep would else use up the stack.
void release_flat(std::vector<Shape>& shapes) {
    thread_local std::vector<Shape>* pending = nullptr;
    if (pending) {
        pending->insert(pending->end(), std::make_move_iterator(shapes.begin()),
                        std::make_move_iterator(shapes.end()));
        return;
    }
    std::vector<Shape> queue = std::move(shapes);
    pending = &queue;
    while (!queue.empty()) {
        const Shape last = std::move(queue.back());
        queue.pop_back();
    }
    pending = nullptr;
}

template <class D>
const D& definition_of(const Shape& shape, bool fits, const char* expected) {
    if (!fits) throw KernelError(std::string("The shape is not ") + expected);
    return static_cast<const D&>(*shape.definition());
}

}  // namespace

EdgeDefinition::EdgeDefinition(const Ref<Curve>& curve, Interval range, Ref<const VertexDefinition> start,
                               Ref<const VertexDefinition> end)
    : Typed(ShapeKind::Edge),
      curve_(basis_of(curve)),
      range_(range),
      start_(std::move(start)),
      end_(std::move(end)) {
    if (!(range_.first < range_.last)) throw KernelError("The range of an edge is empty");
}

FaceDefinition::FaceDefinition(Ref<Surface> surface, std::vector<Loop> loops)
    : Typed(ShapeKind::Face), surface_(std::move(surface)), loops_(std::move(loops)) {
    if (!surface_) throw KernelError("A face needs a surface");
    for (const Loop& loop : loops_) {
        if (!loop.wire.is(ShapeKind::Wire)) throw KernelError("A loop of a face is no wire");
        if (loop.parameter_curves.size() != group_definition(loop.wire).children().size()) {
            throw KernelError("A loop needs a parameter curve for every edge");
        }
        for (const ParameterCurve& parameter_curve : loop.parameter_curves) {
            if (!parameter_curve.curve) throw KernelError("A loop needs a parameter curve for every edge");
        }
    }
}

GroupDefinition::GroupDefinition(ShapeKind kind, std::vector<Shape> children)
    : Typed(kind), children_(std::move(children)) {
    if (!is_list(kind)) throw KernelError("A " + std::string(name_of(kind)) + " is no list of shapes");
    for (const Shape& child : children_) {
        if (child.is_null()) throw KernelError("A null shape cannot be part of another");
        if (accepts(kind, child.kind())) continue;
        throw KernelError("A " + std::string(name_of(child.kind())) + " cannot be part of a " +
                          std::string(name_of(kind)));
    }
}

GroupDefinition::~GroupDefinition() {
    release_flat(children_);
}

const VertexDefinition& vertex_definition(const Shape& shape) {
    return definition_of<VertexDefinition>(shape, shape.is(ShapeKind::Vertex), "a vertex");
}

const EdgeDefinition& edge_definition(const Shape& shape) {
    return definition_of<EdgeDefinition>(shape, shape.is(ShapeKind::Edge), "an edge");
}

const FaceDefinition& face_definition(const Shape& shape) {
    return definition_of<FaceDefinition>(shape, shape.is(ShapeKind::Face), "a face");
}

const GroupDefinition& group_definition(const Shape& shape) {
    return definition_of<GroupDefinition>(shape, !shape.is_null() && is_list(shape.kind()),
                                          "a list of shapes");
}

Shape make_group(ShapeKind kind, std::vector<Shape> children) {
    return Shape(make<GroupDefinition>(kind, std::move(children)));
}

}  // namespace veltrane::kernel
