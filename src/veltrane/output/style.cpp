#include "veltrane/output/style.hpp"

#include "veltrane/base/letter_case.hpp"
#include "veltrane/section/tables.hpp"

#include <algorithm>

namespace veltrane {
namespace {

constexpr std::int32_t kByLayerColour = 256;
constexpr std::int32_t kByBlockColour = 0;
constexpr std::int32_t kByBlockLineweight = -2;
constexpr std::int32_t kDefaultLineweight = -3;
constexpr std::int32_t kFrozenBit = 1;

std::int16_t valid_colour(std::int32_t number) {
    return static_cast<std::int16_t>(number >= 1 && number <= 255 ? number : 7);
}

/// From hundredths of a millimetre; negative ones have no width of their own.
double in_millimetres(std::int32_t lineweight) {
    return lineweight > 0 ? std::min(lineweight, 1000) / 100.0 : 0;
}

LayerStyle style_of(const DxfSection_Layer& layer) {
    const bool is_off = layer.Color < 0;
    return {valid_colour(is_off && layer.Color >= -255 ? -layer.Color : layer.Color), is_off,
            (layer.Flag & kFrozenBit) != 0, in_millimetres(layer.LineWeight)};
}

Hidden hidden_state(const DxfSection_Entity& record, const LayerStyle& layer, const Style* insert) {
    if (insert && (insert->hidden == Hidden::Invisible || insert->hidden == Hidden::LayerFrozen)) {
        return insert->hidden;
    }
    if (record.Visibility == 1) return Hidden::Invisible;
    if (layer.is_frozen) return Hidden::LayerFrozen;
    return layer.is_off ? Hidden::LayerOff : Hidden::No;
}

}  // namespace

LayerStyles::LayerStyles(const DxfSection_Model& model) {
    const auto& root = model.DxfFile();
    if (!root || !root->Sections) return;
    const auto add_entries = [this](const DxfSection_Table& table) {
        if (!table.Objects) return;
        for (const auto& entry : *table.Objects) {
            // The first layer of a name is the one that counts.
            if (const auto* layer = as<const DxfSection_Layer>(entry.get())) {
                layers_.emplace(upper_case(layer->Name), style_of(*layer));
            }
        }
    };
    for (const auto& section : *root->Sections) {
        const auto records = section ? section->GetSubObjects() : nullptr;
        if (!records) continue;
        for (const auto& record : *records) {
            if (const auto* table = as<const DxfSection_Table>(record.get())) add_entries(*table);
        }
    }
}

const LayerStyle& LayerStyles::find(std::string_view name) const {
    static const LayerStyle kPlain;
    const auto found = layers_.find(upper_case(name));
    return found == layers_.end() ? kPlain : found->second;
}

Style resolve_style(const DxfSection_Entity& record, const LayerStyles& layers, const Style* insert) {
    Style style;
    const bool on_insert_layer = insert && (record.Layer.empty() || record.Layer == "0");
    style.layer = on_insert_layer ? insert->layer : record.Layer;
    const LayerStyle& layer = layers.find(style.layer);
    style.hidden = hidden_state(record, layer, insert);

    if (record.Color == kByLayerColour) {
        style.colour = layer.colour;
    } else if (record.Color == kByBlockColour) {
        style.colour = insert ? insert->colour : std::int16_t{7};
    } else {
        style.colour = valid_colour(record.Color);
    }

    if (record.Lineweight == kByBlockLineweight) {
        style.lineweight = insert ? insert->lineweight : 0;
    } else if (record.Lineweight > 0 || record.Lineweight == kDefaultLineweight) {
        style.lineweight = in_millimetres(record.Lineweight);
    } else {
        style.lineweight = layer.lineweight;
    }
    return style;
}

}  // namespace veltrane
