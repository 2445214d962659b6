// Transformation of shapes. New definitions are made once for every definition
// (and, under affine maps, for every linear part under which it is seen), which
// keeps shared sub-shapes shared.
#include "veltrane/kernel/algo/transform.hpp"

#include "veltrane/kernel/topo/definition.hpp"
#include "veltrane/kernel/topo/hashing.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>

namespace veltrane::kernel {
namespace {

constexpr double kRigidTolerance = 1e-14;

ParameterMap after(const ParameterMap& outer, const ParameterMap& inner) {
    return {outer.scale * inner.scale, outer.scale * inner.shift + outer.shift};
}

ParameterMap inverse(const ParameterMap& map) {
    return {1 / map.scale, -map.shift / map.scale};
}

/// The image run through in the direction of the original.
MappedCurve forward(const MappedCurve& mapped) {
    if (mapped.parameters.scale > 0) return mapped;
    const MappedCurve turned = mapped.curve->reverse_curve();
    return {turned.curve, after(turned.parameters, mapped.parameters)};
}

/// Ends at infinity stay there, whatever the scale.
Interval mapped_range(const ParameterMap& map, const Interval& range) {
    const auto end = [&](double t) { return is_infinite(t) ? t : map(t); };
    return {end(range.first), end(range.last)};
}

/// The map under which a definition is seen, and how placements below it come
/// out.
class Mapping {
public:
    explicit Mapping(const Transform& similarity) : affine_(similarity), similarity_(similarity) {}
    explicit Mapping(const AffineMap& affine) : affine_(affine) {}

    Point point(const Point& p) const { return affine_.point(p); }
    MappedCurve curve(const Curve& curve) const {
        return forward(similarity_ ? curve.transform_curve(*similarity_) : curve.map_curve(affine_));
    }
    MappedSurface surface(const Surface& surface) const {
        return similarity_ ? surface.transform_surface(*similarity_) : surface.map_surface(affine_);
    }
    const Matrix3& linear_part() const { return affine_.linear_part(); }
    bool is_mirrored() const { return affine_.determinant() < 0; }
    double tolerance(double own) const {
        return std::max(kConfusion, own * (similarity_ ? std::abs(similarity_->scale_factor())
                                                       : affine_.linear_part().norm()));
    }

    struct Below;
    /// The mapping of a definition that stands at `placement`, and the placement
    /// of its image.
    Below below(const Ref<const Placement>& placement) const;

private:
    AffineMap affine_;
    std::optional<Transform> similarity_;
};

struct Mapping::Below {
    Mapping mapping;
    Ref<const Placement> placement;
};

/// A similarity goes past a placement and leaves a rigid motion: all uses of a
/// definition share one image. A general map swallows all but the translation.
Mapping::Below Mapping::below(const Ref<const Placement>& placement) const {
    if (!placement) return {*this, nullptr};
    const Transform& motion = placement->transform();
    if (similarity_) {
        return {*this, make<Placement>(*similarity_ * motion * similarity_->inverse())};
    }
    const Vector offset = affine_.vector(motion.translation_part());
    const AffineMap turned(affine_.linear_part() * motion.rotation_part(), affine_.translation_part());
    if (offset == Vector::Zero()) return {Mapping(turned), nullptr};
    return {Mapping(turned), make<Placement>(Transform::translation(offset))};
}

/// The image of a definition as an unplaced shape. Its orientation tells
/// whether the image has to be turned.
struct Image {
    Shape shape;
    /// Of an edge, or of each edge of a wire: where the parameters of its curve
    /// went.
    std::vector<ParameterMap> parameters;
};

class Baker {
public:
    Shape image_of(const Shape& root, const Mapping& mapping) {
        const Image image = root.is(ShapeKind::Compound) ? compound(root.definition(), mapping)
                                                         : simple(root.definition(), mapping);
        return used(image, root.orientation(), nullptr);
    }

private:
    static Shape used(const Image& image, Orientation orientation, Ref<const Placement> placement) {
        return Shape(image.shape.definition(), composed(orientation, image.shape.orientation()),
                     std::move(placement));
    }

    const Image* known(const Ref<const Definition>& definition, const Mapping& mapping) const {
        if (definition->use_count() == 1) return nullptr;
        const auto found = images_.find({definition.get(), mapping.linear_part()});
        return found == images_.end() ? nullptr : &found->second;
    }
    void remember(const Definition& definition, const Mapping& mapping, const Image& image) {
        if (definition.use_count() > 1)
            images_.emplace(SeenDefinition{&definition, mapping.linear_part()}, image);
    }

    /// A compound being rebuilt, and how its parent uses it.
    struct Frame {
        const GroupDefinition* source;
        Mapping mapping;
        Orientation orientation;
        Ref<const Placement> placement;
        std::vector<Shape> done;
    };

    static Frame frame(const Ref<const Definition>& definition, const Mapping& mapping,
                       Orientation orientation, Ref<const Placement> placement) {
        const auto* source = static_cast<const GroupDefinition*>(definition.get());
        Frame result{source, mapping, orientation, std::move(placement), {}};
        result.done.reserve(source->children().size());
        return result;
    }

    /// Compounds nest without limit, hence the stack.
    Image compound(const Ref<const Definition>& definition, const Mapping& mapping) {
        std::vector<Frame> stack;
        stack.push_back(frame(definition, mapping, Orientation::Forward, nullptr));
        while (true) {
            Frame& top = stack.back();
            if (top.done.size() < top.source->children().size()) {
                const Shape& member = top.source->children()[top.done.size()];
                Mapping::Below below = top.mapping.below(member.placement());
                if (!member.is(ShapeKind::Compound)) {
                    const Image image = simple(member.definition(), below.mapping);
                    top.done.push_back(used(image, member.orientation(), std::move(below.placement)));
                } else if (const Image* image = known(member.definition(), below.mapping)) {
                    top.done.push_back(used(*image, member.orientation(), std::move(below.placement)));
                } else {
                    stack.push_back(frame(member.definition(), below.mapping, member.orientation(),
                                          std::move(below.placement)));
                }
                continue;
            }
            Frame done = std::move(top);
            stack.pop_back();
            Image image{make_group(ShapeKind::Compound, std::move(done.done)), {}};
            if (stack.empty()) return image;
            remember(*done.source, done.mapping, image);
            stack.back().done.push_back(used(image, done.orientation, std::move(done.placement)));
        }
    }

    /// Anything but a compound.
    Image simple(const Ref<const Definition>& definition, const Mapping& mapping) {
        if (const Image* image = known(definition, mapping)) return *image;
        Image image = made(*definition, mapping);
        remember(*definition, mapping, image);
        return image;
    }

    Image made(const Definition& definition, const Mapping& mapping) {
        switch (definition.kind()) {
            case ShapeKind::Vertex:
                return vertex(static_cast<const VertexDefinition&>(definition), mapping);
            case ShapeKind::Edge:
                return edge(static_cast<const EdgeDefinition&>(definition), mapping);
            case ShapeKind::Face:
                return face(static_cast<const FaceDefinition&>(definition), mapping);
            default:
                return group(static_cast<const GroupDefinition&>(definition), mapping);
        }
    }

    Image vertex(const VertexDefinition& source, const Mapping& mapping) {
        return {Shape(make<VertexDefinition>(mapping.point(source.point()),
                                             mapping.tolerance(source.tolerance()))),
                {}};
    }

    Ref<const VertexDefinition> end(const Ref<const VertexDefinition>& source, const Mapping& mapping) {
        if (!source) return nullptr;
        return as<const VertexDefinition>(simple(source, mapping).shape.definition());
    }

    Image edge(const EdgeDefinition& source, const Mapping& mapping) {
        const MappedCurve mapped = mapping.curve(*source.curve());
        const Interval range = mapped_range(mapped.parameters, source.range());
        const auto start = end(source.start(), mapping);
        const auto last = source.is_closed() ? start : end(source.end(), mapping);
        return {Shape(make<EdgeDefinition>(mapped.curve, range, start, last)), {mapped.parameters}};
    }

    Image group(const GroupDefinition& source, const Mapping& mapping) {
        std::vector<Shape> children;
        children.reserve(source.children().size());
        std::vector<ParameterMap> parameters;
        for (const Shape& child : source.children()) {
            Mapping::Below below = mapping.below(child.placement());
            const Image image = simple(child.definition(), below.mapping);
            children.push_back(used(image, child.orientation(), std::move(below.placement)));
            if (source.kind() == ShapeKind::Wire) parameters.push_back(image.parameters.front());
        }
        return {make_group(source.kind(), std::move(children)), std::move(parameters)};
    }

    Image face(const FaceDefinition& source, const Mapping& mapping) {
        const MappedSurface mapped = mapping.surface(*source.surface());
        const bool turns_parameters = mapped.parameters.determinant() < 0;
        std::vector<Loop> loops;
        loops.reserve(source.loops().size());
        for (const Loop& loop : source.loops()) {
            loops.push_back(loop_image(loop, mapping, mapped.parameters));
            if (turns_parameters) loops.back().wire = loops.back().wire.reversed();
        }
        // A mirror leaves the natural normal on the other side, and so does a
        // change of parameters.
        const bool turns_normal = mapping.is_mirrored() != turns_parameters;
        return {Shape(make<FaceDefinition>(mapped.surface, std::move(loops)),
                      turns_normal ? mirrored(ShapeKind::Face, Orientation::Forward) : Orientation::Forward),
                {}};
    }

    Loop loop_image(const Loop& source, const Mapping& mapping, const AffineMap2& parameters) {
        Mapping::Below below = mapping.below(source.wire.placement());
        const Image wire = simple(source.wire.definition(), below.mapping);
        Loop loop{used(wire, source.wire.orientation(), std::move(below.placement)), {}};
        loop.parameter_curves.reserve(source.parameter_curves.size());
        for (std::size_t i = 0; i < source.parameter_curves.size(); ++i) {
            const ParameterCurve& own = source.parameter_curves[i];
            ParameterMap moved;
            Ref<Curve2> curve = own.curve->mapped(parameters, &moved);
            const ParameterMap from_image = inverse(wire.parameters[i]);
            loop.parameter_curves.push_back(
                {std::move(curve), after(moved, after(own.from_edge, from_image))});
        }
        return loop;
    }

    /// The translation of the map is the same throughout one transformation, so the linear part will do.
    std::unordered_map<SeenDefinition, Image, SeenDefinitionHash> images_;
};

}  // namespace

Shape transformed(const Shape& shape, const Transform& transform) {
    if (shape.is_null()) return shape;
    if (std::abs(transform.scale_factor() - 1) < kRigidTolerance) return moved(shape, transform);
    return Baker().image_of(shape, Mapping(transform * shape.transform()));
}

Shape transformed(const Shape& shape, const AffineMap& map) {
    if (shape.is_null()) return shape;
    return Baker().image_of(shape, Mapping(map * AffineMap(shape.transform())));
}

Orientation mirrored(ShapeKind kind, Orientation orientation) {
    return kind == ShapeKind::Face ? reversed(orientation) : orientation;
}

}  // namespace veltrane::kernel
