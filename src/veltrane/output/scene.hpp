// What there is to draw of a drawing.
#pragma once

#include "veltrane/exchange/read_process.hpp"
#include "veltrane/kernel/topo/shape.hpp"
#include "veltrane/output/style.hpp"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace veltrane {

/// Why a record of the drawing is not in its scene.
enum class Omission : std::uint8_t {
    NoShape,      ///< it gave no shape
    PaperSpace,   ///< it stands in paper space, beside records in model space
    Invisible,    ///< the record says so itself
    LayerFrozen,  ///< its layer is frozen
    LayerOff,     ///< its layer is switched off
};
inline constexpr std::size_t kOmissionCount = 5;

/// In words: "no shape", "in paper space", ...
std::string_view name_of(Omission omission);

struct SceneItem {
    kernel::Shape shape;  ///< in world place, millimetres
    Style style;
    Ref<DxfSection_Entity> record;  ///< null for a shape that came from elsewhere
};

/// Items are drawn in this order.
struct Scene {
    std::vector<SceneItem> items;
    std::array<std::size_t, kOmissionCount> omitted{};  ///< records left out, by static_cast<std::size_t>

    std::size_t omitted_for(Omission reason) const { return omitted[static_cast<std::size_t>(reason)]; }
    void count(Omission reason) { ++omitted[static_cast<std::size_t>(reason)]; }
};

/// The records of the ENTITIES section in file order, with the shapes that `process` has bound to them.
/// Records in paper space are left out, since their co-ordinates are those of a sheet and would lie across
/// the model's; only when no record in model space gave a shape are they what is drawn. What is hidden is
/// left out.
Scene make_scene(const DxfSection_Model& model, const ReadProcess& process);

}  // namespace veltrane
