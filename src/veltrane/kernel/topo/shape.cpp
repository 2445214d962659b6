// Shapes as values: comparison, hashing and placing.
#include "veltrane/kernel/topo/shape.hpp"

#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/hashing.hpp"

#include <array>
#include <cmath>

namespace veltrane::kernel {
namespace {

constexpr double kScaleTolerance = 1e-14;

/// A mirror has a negative scale. Written so that a scale that is not a number
/// is refused as well.
bool is_rigid(const Transform& transform) {
    return std::abs(transform.scale_factor() - 1) < kScaleTolerance;
}

Ref<const Placement> make_placement(const Transform& transform) {
    if (transform.is_identity()) return nullptr;
    return make<Placement>(transform);
}

/// Equal placements have equal hashes; the translation alone spreads them well
/// enough.
std::size_t hash_of(const Ref<const Placement>& placement) {
    if (!placement) return 0;
    std::size_t hash = 0;
    const Vector& translation = placement->transform().translation_part();
    for (int axis = 0; axis < 3; ++axis) hash = mixed(hash, translation[axis]);
    return hash;
}

}  // namespace

std::string_view name_of(ShapeKind kind) {
    static constexpr std::array<std::string_view, kShapeKindCount> kNames = {
        "vertex", "edge", "wire", "face", "shell", "solid", "compound solid", "compound"};
    return kNames[static_cast<std::size_t>(kind)];
}

ShapeKind Shape::kind() const {
    if (!definition_) throw KernelError("A null shape has no kind");
    return definition_->kind();
}

Transform Shape::transform() const {
    return placement_ ? placement_->transform() : Transform();
}

bool same_placement(const Ref<const Placement>& a, const Ref<const Placement>& b) {
    if (a == b) return true;
    return a && b && a->transform() == b->transform();
}

Ref<const Placement> composed(const Ref<const Placement>& outer, const Ref<const Placement>& inner) {
    if (!outer) return inner;
    if (!inner) return outer;
    return make_placement(outer->transform() * inner->transform());
}

bool is_partner(const Shape& a, const Shape& b) {
    return a.definition() == b.definition();
}

bool is_same(const Shape& a, const Shape& b) {
    return is_partner(a, b) && same_placement(a.placement(), b.placement());
}

bool is_equal(const Shape& a, const Shape& b) {
    return a.orientation() == b.orientation() && is_same(a, b);
}

std::size_t SameShapeHash::operator()(const Shape& shape) const noexcept {
    return mixed(PartnerShapeHash()(shape), hash_of(shape.placement()));
}

std::size_t PartnerShapeHash::operator()(const Shape& shape) const noexcept {
    return mixed(0, reinterpret_cast<std::uintptr_t>(shape.definition().get()));
}

Shape located(const Shape& shape, const Transform& transform) {
    if (!is_rigid(transform)) throw DomainError("Location with scaling transformation is forbidden");
    return shape.placed(make_placement(transform));
}

Shape moved(const Shape& shape, const Transform& transform) {
    if (!is_rigid(transform)) throw DomainError("Moving with scaling transformation is forbidden");
    return shape.placed(composed(make_placement(transform), shape.placement()));
}

}  // namespace veltrane::kernel
