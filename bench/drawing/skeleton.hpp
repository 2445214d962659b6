// What a DXF file holds around its entities: header, tables, frames of blocks, objects.
#pragma once

#include "drawing/tag_writer.hpp"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

inline constexpr std::array<std::string_view, 8> kLayers = {"0",          "WALLS", "DOORS", "PIPES-HOT",
                                                            "PIPES-COLD", "GRID",  "TEXT",  "HIDDEN_EDGES"};

/// A block and the record that names it in the tables.
struct BlockName {
    std::string name;
    Handle record;
};

/// R12: a header and the tables, without handles.
void put_r12_opening(TagWriter& out);

/// R2000: everything up to the blocks. The records of the blocks get their handles.
void put_r2000_opening(TagWriter& out, std::vector<BlockName>& blocks, Handle plot_style);

void put_block_begin(TagWriter& out, const BlockName& block, bool has_attributes);
void put_block_end(TagWriter& out, const BlockName& block);

/// R2000: the objects section, with a layout for each of the two spaces.
void put_objects(TagWriter& out, const BlockName& model, const BlockName& paper, Handle plot_style);

}  // namespace bench
