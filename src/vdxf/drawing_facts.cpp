#include "vdxf/drawing_facts.hpp"

#include "veltrane/section/block.hpp"
#include "veltrane/section/tables.hpp"

#include <charconv>
#include <cstdlib>
#include <string_view>
#include <unordered_map>

namespace veltrane::tool {

namespace {

constexpr std::int32_t kFrozen = 1, kLocked = 4;  // of a layer's flags
constexpr std::int32_t kAnonymous = 1;            // of a block's

std::optional<std::int32_t> integer_in(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos) return std::nullopt;
    std::int32_t value = 0;
    const auto result = std::from_chars(text.data() + start, text.data() + text.size(), value);
    if (result.ec != std::errc()) return std::nullopt;
    return value;
}

std::vector<SectionFacts> sections_of(const DxfSection_Model& model, const DrawingText& text) {
    std::vector<SectionFacts> sections;
    if (!model.DxfFile()->Sections) return sections;
    for (const auto& record : *model.DxfFile()->Sections) {
        const auto* section = as<const DxfSection_Section>(record.get());
        if (!section) continue;
        sections.push_back({text.name(section->Name), static_cast<std::size_t>(length(section->Variables)),
                            static_cast<std::size_t>(length(section->Objects))});
    }
    return sections;
}

/// Layers in the order of their definitions, then those that records alone name.
class LayerList {
public:
    explicit LayerList(const DrawingText& text) : text_(text) {}

    void define(const DxfSection_Layer& layer) {
        LayerFacts& facts = of(layer.Name);
        facts.is_defined = true;
        facts.colour = std::abs(layer.Color);
        facts.is_off = layer.Color < 0;
        facts.is_frozen = (layer.Flag & kFrozen) != 0;
        facts.is_locked = (layer.Flag & kLocked) != 0;
    }
    void count(const Text& name) { ++of(name).records; }
    std::vector<LayerFacts> take() { return std::move(layers_); }

private:
    LayerFacts& of(const Text& name) {
        const auto [place, is_new] = places_.try_emplace(name, layers_.size());
        if (is_new) {
            layers_.emplace_back().name = text_.name(name);
            layers_.back().is_defined = false;
        }
        return layers_[place->second];
    }

    const DrawingText& text_;
    std::vector<LayerFacts> layers_;
    std::unordered_map<Text, std::size_t> places_;
};

std::vector<LayerFacts> layers_of(const DxfSection_Model& model, const DrawingText& text) {
    LayerList layers(text);
    for (const Ref<Transient>& record : model.records()) {
        if (const auto* layer = as<const DxfSection_Layer>(record.get())) layers.define(*layer);
    }
    std::string_view section;
    for (const Ref<Transient>& listed : model.records()) {
        const auto* record = as<const DxfSection_Object>(listed.get());
        if (!record) continue;
        if (const auto* begun = as<const DxfSection_Section>(record)) section = begun->Name.view();
        if (section != "ENTITIES" && section != "BLOCKS") continue;
        const Text name = layer_of(*record);
        if (!name.is_null()) layers.count(name);
    }
    return layers.take();
}

std::vector<BlockFacts> blocks_of(const DxfSection_Model& model, const DrawingText& text) {
    std::vector<BlockFacts> blocks;
    for (const Ref<Transient>& record : model.records()) {
        const auto* block = as<const DxfSection_Block>(record.get());
        if (!block) continue;
        blocks.push_back({text.name(block->BlockName1), static_cast<std::size_t>(length(block->Objects)),
                          (block->BlockTypeFlag & kAnonymous) != 0, text.name(block->XRefPathName)});
    }
    return blocks;
}

}  // namespace

std::size_t DrawingFacts::records() const {
    std::size_t sum = 0;
    for (const TypeCount& type : types) sum += type.records;
    return sum;
}

std::size_t DrawingFacts::carried_through() const {
    std::size_t sum = 0;
    for (const TypeCount& type : types) sum += type.carried_through ? type.records : 0;
    return sum;
}

DrawingFacts gather_facts(const DxfSection_Model& model) {
    const DrawingText text(model);
    DrawingFacts facts;
    facts.version = text.name(model.GetVariableString("$ACADVER"));
    facts.code_page = text.name(model.GetVariableString("$DWGCODEPAGE"));
    facts.insunits = integer_in(model.GetVariableString("$INSUNITS"));
    facts.measurement = integer_in(model.GetVariableString("$MEASUREMENT"));
    facts.sections = sections_of(model, text);
    facts.layers = layers_of(model, text);
    facts.blocks = blocks_of(model, text);
    facts.types = count_types(model);
    return facts;
}

}  // namespace veltrane::tool
