#include "veltrane/data/block_library.hpp"

namespace veltrane {
namespace {

constexpr std::size_t kShapesForAnyDrawing = std::size_t{1} << 20;
constexpr std::size_t kShapesForARecord = 16;

}  // namespace

Ref<DxfSection_Block> DxfData_BlockLibrary::Find(const Ref<DxfSection_Model>& model, const Text& name) {
    if (!is_filled_ && model) {
        for (int number = 1; number <= model->NbEntities(); ++number) {
            const auto block = as<DxfSection_Block>(model->Value(number));
            if (block) by_name_.try_emplace(block->BlockName1, block);
        }
    }
    is_filled_ = true;
    const auto found = by_name_.find(name);
    return found == by_name_.end() ? nullptr : found->second;
}

bool DxfData_BlockLibrary::Spend(const Ref<DxfSection_Model>& model, std::size_t shapes) {
    const std::size_t records = model ? static_cast<std::size_t>(model->NbEntities()) : 0;
    const std::size_t allowed = kShapesForAnyDrawing + kShapesForARecord * records;
    if (shapes > allowed || spent_ > allowed - shapes) return false;
    spent_ += shapes;
    return true;
}

}  // namespace veltrane
