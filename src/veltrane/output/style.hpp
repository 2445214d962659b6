// How a record looks: its colour, line weight and visibility, with layer and block resolved.
#pragma once

#include "veltrane/section/model.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace veltrane {

/// Why a record is not to be seen.
enum class Hidden : std::uint8_t { No, Invisible, LayerFrozen, LayerOff };

/// What one layer lends to the records on it.
struct LayerStyle {
    std::int16_t colour = 7;  ///< 1 to 255
    bool is_off = false;
    bool is_frozen = false;
    double lineweight = 0;  ///< millimetres; 0 is the default line
};

/// The layers of a drawing, to be looked up in constant time. Unlike the look-ups of the model this one is
/// lenient about case, because records of real drawings are. Changes of the model do not reach it.
class LayerStyles {
public:
    LayerStyles() = default;
    explicit LayerStyles(const DxfSection_Model& model);

    /// The style of a layer; that of a plain visible layer when there is none of this name.
    const LayerStyle& find(std::string_view name) const;

private:
    std::unordered_map<std::string, LayerStyle> layers_;  // by name in upper case
};

/// The appearance of a record, nothing in it left to be looked up.
struct Style {
    std::int16_t colour = 7;  ///< 1 to 255
    Hidden hidden = Hidden::No;
    double lineweight = 0;  ///< millimetres; 0 is the default line
    Text layer;             ///< the layer that the record takes its properties from
};

/// The appearance of a record. Colour 256 and line weight -1 are those of its layer, colour 0 and line weight
/// -2 those of the insert it is drawn through, 7 and the default line without one. `insert` is the style that
/// this function gave for that insert, so that nested inserts resolve from the outside inwards: what stands
/// on layer "0" takes the insert's layer, and what is inside an invisible insert, or one on a frozen layer,
/// is hidden too. A layer that is off hides only what takes its properties from it. Line weight 0 counts as
/// by layer: records that state none have it.
Style resolve_style(const DxfSection_Entity& record, const LayerStyles& layers,
                    const Style* insert = nullptr);

}  // namespace veltrane
