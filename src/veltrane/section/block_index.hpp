// The blocks of a drawing by name.
#pragma once

#include "veltrane/section/block.hpp"
#include "veltrane/section/model.hpp"

#include <unordered_map>

namespace veltrane {

/// Finds blocks in constant time. Changes of the drawing do not reach it.
class DxfSection_BlockIndex {
public:
    DxfSection_BlockIndex() = default;
    explicit DxfSection_BlockIndex(const DxfSection_Model& model);

    /// The first block of exactly that name; null when there is none.
    Ref<DxfSection_Block> find(const Text& name) const;

private:
    std::unordered_map<Text, Ref<DxfSection_Block>> blocks_;
};

}  // namespace veltrane
