// What there is to tell about a drawing at a glance.
#pragma once

#include "vdxf/census.hpp"
#include "vdxf/drawing_text.hpp"
#include "veltrane/section/model.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace veltrane::tool {

struct SectionFacts {
    std::string name;
    std::size_t variables = 0;
    std::size_t records = 0;  ///< directly in the section
};

struct LayerFacts {
    std::string name;
    bool is_defined = true;  ///< false for a layer that records name and no table defines
    int colour = 7;          ///< 1 to 255
    bool is_off = false;
    bool is_frozen = false;
    bool is_locked = false;
    std::size_t records = 0;  ///< in the ENTITIES and BLOCKS sections
};

struct BlockFacts {
    std::string name;
    std::size_t records = 0;
    bool is_anonymous = false;
    std::string external;  ///< path of the drawing that an external reference names
};

/// Texts are UTF-8, fit for a terminal.
struct DrawingFacts {
    std::string version;                      ///< $ACADVER; empty when the header has none
    std::string code_page;                    ///< $DWGCODEPAGE
    std::optional<std::int32_t> insunits;     ///< $INSUNITS
    std::optional<std::int32_t> measurement;  ///< $MEASUREMENT: 0 English, 1 metric
    std::vector<SectionFacts> sections;
    std::vector<LayerFacts> layers;
    std::vector<BlockFacts> blocks;
    std::vector<TypeCount> types;

    std::size_t records() const;
    std::size_t carried_through() const;
};

DrawingFacts gather_facts(const DxfSection_Model& model);

}  // namespace veltrane::tool
