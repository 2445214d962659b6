#include "veltrane/data/block_library.hpp"

namespace veltrane {
namespace {

constexpr std::size_t kShapesForAnyDrawing = std::size_t{1} << 20;
constexpr std::size_t kShapesForARecord = 16;

}  // namespace

Ref<DxfSection_Block> DxfData_BlockLibrary::Find(const Ref<DxfSection_Model>& model, const Text& name) {
    if (!blocks_ && model) blocks_.emplace(*model);
    return blocks_ ? blocks_->find(name) : nullptr;
}

bool DxfData_BlockLibrary::Spend(const Ref<DxfSection_Model>& model, std::size_t shapes) {
    const std::size_t records = model ? static_cast<std::size_t>(model->NbEntities()) : 0;
    const std::size_t allowed = kShapesForAnyDrawing + kShapesForARecord * records;
    if (shapes > allowed || spent_ > allowed - shapes) return false;
    spent_ += shapes;
    return true;
}

}  // namespace veltrane
