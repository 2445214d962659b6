// What there is to draw of a drawing.
#pragma once

#include "veltrane/exchange/read_process.hpp"
#include "veltrane/kernel/topo/shape.hpp"
#include "veltrane/output/style.hpp"

#include <array>
#include <cstddef>
#include <deque>
#include <functional>
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

struct SceneGroup;

struct SceneItem {
    kernel::Shape shape;  ///< millimetres, in the place of its scene or group
    Style style;
    Ref<DxfSection_Entity> record;  ///< null for a shape that came from elsewhere
    /// What an insert places, part by part; the shape holds one copy of it or several. Null for other
    /// records, and where the parts are not known: then the style is that of all of the shape.
    const SceneGroup* content = nullptr;
};

/// The parts of a block as they look through inserts of one style.
struct SceneGroup {
    kernel::Shape shape;           ///< all of the block, hidden parts too, in the block's own place
    std::vector<SceneItem> items;  ///< in the block's own place, in the order of its records
};

/// Items are drawn in this order.
struct Scene {
    std::vector<SceneItem> items;
    /// What the items' inserts place, each block once for each style of insert. Addresses stay.
    std::deque<SceneGroup> groups;
    /// Records left out, by static_cast<std::size_t>; those of blocks as often as there are groups of them.
    std::array<std::size_t, kOmissionCount> omitted{};

    std::size_t omitted_for(Omission reason) const { return omitted[static_cast<std::size_t>(reason)]; }
    void count(Omission reason) { ++omitted[static_cast<std::size_t>(reason)]; }
};

/// How hatches with a pattern come into a scene, where they gave faces.
enum class Patterns : std::uint8_t {
    Faces,  ///< as these faces
    Lines,  ///< as the lines of the pattern, as they are drawn
};

/// The records of the ENTITIES section in file order, with the shapes that `process` has bound to them.
/// Records in paper space are left out, since their co-ordinates are those of a sheet and would lie across
/// the model's; only when no record in model space gave a shape are they what is drawn. What is hidden is
/// left out, also inside blocks.
Scene make_scene(const DxfSection_Model& model, const ReadProcess& process,
                 Patterns patterns = Patterns::Faces);

/// The copies of its content that an item places, one shape for each; the item's own shape without content.
std::vector<kernel::Shape> copies_of(const SceneItem& item);

/// Takes a part of a scene: its shape in world place, and the item with its style and record. False stops.
using LeafVisitor = std::function<bool(const kernel::Shape&, const SceneItem&)>;

/// Visits whatever is drawn, with each insert resolved into its parts and these in turn, in drawing order.
/// Blocks may share their contents over and over: the visitor has to know when it has had enough. Empty
/// blocks cannot keep it waiting: the walk ends by itself after `most_steps` items. Returns false when
/// stopped.
bool visit_leaves(const std::vector<SceneItem>& items, std::size_t most_steps, const LeafVisitor& visitor);

}  // namespace veltrane
