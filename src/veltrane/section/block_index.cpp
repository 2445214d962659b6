#include "veltrane/section/block_index.hpp"

namespace veltrane {

DxfSection_BlockIndex::DxfSection_BlockIndex(const DxfSection_Model& model) {
    for (int number = 1; number <= model.NbEntities(); ++number) {
        const auto block = as<DxfSection_Block>(model.Value(number));
        if (block) blocks_.try_emplace(block->BlockName1, block);
    }
}

Ref<DxfSection_Block> DxfSection_BlockIndex::find(const Text& name) const {
    const auto found = blocks_.find(name);
    return found == blocks_.end() ? nullptr : found->second;
}

}  // namespace veltrane
