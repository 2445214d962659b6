// The shape: a small value made of a shared definition, a shared placement and an orientation.
#pragma once

#include "veltrane/base/ref.hpp"
#include "veltrane/kernel/math/transform.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace veltrane::kernel {

/// Kinds from the simplest to the richest; the order is meant to be compared.
enum class ShapeKind : std::uint8_t { Vertex, Edge, Wire, Face, Shell, Solid, CompoundSolid, Compound };
inline constexpr std::size_t kShapeKindCount = 8;

/// "vertex", "edge", ..., "compound solid", "compound".
std::string_view name_of(ShapeKind kind);

enum class Orientation : std::uint8_t { Forward, Reversed };

inline Orientation reversed(Orientation orientation) {
    return orientation == Orientation::Forward ? Orientation::Reversed : Orientation::Forward;
}
/// Orientation of a sub-shape seen from outside its parent.
inline Orientation composed(Orientation parent, Orientation child) {
    return parent == Orientation::Forward ? child : reversed(child);
}

/// What a shape is made of, in its own co-ordinates; immutable and shared. The kinds of definitions stand in
/// topo/definition.hpp.
class Definition : public Typed<Definition, Transient> {
public:
    static constexpr const char* kTypeName = "Definition";
    ShapeKind kind() const { return kind_; }

protected:
    explicit Definition(ShapeKind kind) : kind_(kind) {}

private:
    ShapeKind kind_;
};

/// A rigid motion shared by the shapes that it places. It never scales nor mirrors; located() and moved()
/// see to that.
class Placement : public Typed<Placement, Transient> {
public:
    static constexpr const char* kTypeName = "Placement";
    explicit Placement(const Transform& transform) : transform_(transform) {}
    const Transform& transform() const { return transform_; }

private:
    Transform transform_;
};

/// A topological shape. Copies are cheap: they share the definition and the placement. A default-made shape
/// is null.
class Shape {
public:
    Shape() = default;
    explicit Shape(Ref<const Definition> definition, Orientation orientation = Orientation::Forward,
                   Ref<const Placement> placement = nullptr)
        : definition_(std::move(definition)), placement_(std::move(placement)), orientation_(orientation) {}

    bool is_null() const { return !definition_; }
    /// Throws KernelError for a null shape.
    ShapeKind kind() const;
    /// True for a shape of that kind; false for others and for a null shape.
    bool is(ShapeKind kind) const { return definition_ && definition_->kind() == kind; }

    const Ref<const Definition>& definition() const { return definition_; }
    Orientation orientation() const { return orientation_; }
    bool is_reversed() const { return orientation_ == Orientation::Reversed; }
    /// Null stands for the identity.
    const Ref<const Placement>& placement() const { return placement_; }
    /// The placement as a motion; the identity when there is none.
    Transform transform() const;

    /// The same definition and placement with another orientation.
    Shape oriented(Orientation orientation) const { return Shape(definition_, orientation, placement_); }
    Shape reversed() const { return oriented(kernel::reversed(orientation_)); }
    /// The same definition and orientation at another placement; null removes it.
    Shape placed(Ref<const Placement> placement) const {
        return Shape(definition_, orientation_, std::move(placement));
    }

private:
    Ref<const Definition> definition_;
    Ref<const Placement> placement_;
    Orientation orientation_ = Orientation::Forward;
};

/// Two placements that move alike: the same object, or equal to the last bit.
bool same_placement(const Ref<const Placement>& a, const Ref<const Placement>& b);
/// `outer` after `inner`; shares an operand when the other is null.
Ref<const Placement> composed(const Ref<const Placement>& outer, const Ref<const Placement>& inner);

/// Same definition, wherever and however it stands. Two null shapes are partners.
bool is_partner(const Shape& a, const Shape& b);
/// Same definition at the same placement, whatever the orientation.
bool is_same(const Shape& a, const Shape& b);
/// Same definition, placement and orientation.
bool is_equal(const Shape& a, const Shape& b);

/// Hash and comparison for maps whose keys are shapes up to is_same().
struct SameShapeHash {
    std::size_t operator()(const Shape& shape) const noexcept;
};
struct SameShape {
    bool operator()(const Shape& a, const Shape& b) const { return is_same(a, b); }
};
/// The same up to is_partner().
struct PartnerShapeHash {
    std::size_t operator()(const Shape& shape) const noexcept;
};
struct PartnerShape {
    bool operator()(const Shape& a, const Shape& b) const { return is_partner(a, b); }
};

/// The shape with `transform` in place of its placement. A transform that mirrors, or whose scale factor
/// differs from 1 by 1e-14 or more, throws DomainError "Location with scaling transformation is forbidden".
Shape located(const Shape& shape, const Transform& transform);
/// The shape moved on by `transform` from where it stands. A transform that mirrors, or whose scale factor
/// differs from 1 by 1e-14 or more, throws DomainError "Moving with scaling transformation is forbidden".
Shape moved(const Shape& shape, const Transform& transform);

}  // namespace veltrane::kernel
