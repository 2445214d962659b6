#include "veltrane/output/face_colours.hpp"

#include "veltrane/ent/annotations.hpp"
#include "veltrane/ent/faces.hpp"
#include "veltrane/ent/hatch.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace veltrane {
namespace {

template <std::size_t kCount>
bool is_one_of(const DxfSection_Entity& record, const std::array<const Type*, kCount>& types) {
    return std::any_of(types.begin(), types.end(), [&](const Type* type) { return record.is_kind(*type); });
}

FaceRole role_of(const DxfSection_Entity& record) {
    static const std::array kAreas = {&DxfEnt_Hatch::type(), &DxfEnt_Trace::type(), &DxfEnt_Leader::type(),
                                      &DxfEnt_Dimension::type()};
    static const std::array kTexts = {&DxfEnt_Text::type(), &DxfEnt_MText::type(), &DxfEnt_Attrib::type(),
                                      &DxfEnt_AttDef::type(), &DxfEnt_Tolerance::type()};
    if (is_one_of(record, kAreas)) return FaceRole::Area;
    return is_one_of(record, kTexts) ? FaceRole::Text : FaceRole::Body;
}

Rgb mixed(Rgb a, Rgb b, double share_of_b) {
    const auto level = [&](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(from + share_of_b * (to - from)));
    };
    return {level(a.red, b.red), level(a.green, b.green), level(a.blue, b.blue)};
}

/// Faces alone, as they are or in compounds of them.
bool is_of_faces(const kernel::Shape& shape, int nesting = 3) {
    if (!shape.is(kernel::ShapeKind::Compound) || nesting == 0) return shape.is(kernel::ShapeKind::Face);
    for (std::size_t i = 0; i < kernel::child_count(shape); ++i) {
        if (!is_of_faces(kernel::own_child(shape, i), nesting - 1)) return false;
    }
    return true;
}

constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{255, 255, 255};

}  // namespace

FaceRole role_of(const SceneItem& item, const kernel::Shape& shape) {
    // What was swept by a thickness is no longer made of faces alone.
    return item.record && is_of_faces(shape) ? role_of(*item.record) : FaceRole::Body;
}

Rgb ink_colour(const SceneItem& item, Ground ground) {
    const Rgb colour = palette_colour(item.style.colour, ground);
    const auto* hatch = as<const DxfEnt_Hatch>(item.record.get());
    return hatch && hatch->SolidFillFlag == 0 ? mixed(colour, colour_of(ground), 0.5) : colour;
}

FaceColours body_colours(Rgb colour, Ground ground) {
    if (ground == Ground::White) return {mixed(colour, kWhite, 0.7), mixed(colour, kBlack, 0.55)};
    return {mixed(colour, kBlack, 0.5), mixed(colour, kWhite, 0.3)};
}

Rgb shaded(Rgb colour, const kernel::Vector& normal) {
    static const kernel::Vector kToLight = kernel::Vector(-0.35, 0.45, 0.82).normalized();
    constexpr double kAmbient = 0.65;
    const double length = normal.norm();
    if (!(length > 0) || !std::isfinite(length)) return colour;
    const double cosine = normal.dot(kToLight) / (normal.z() < 0 ? -length : length);
    return mixed(kBlack, colour, kAmbient + (1 - kAmbient) * std::max(cosine, 0.0));
}

}  // namespace veltrane
