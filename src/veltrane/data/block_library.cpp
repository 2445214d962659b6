#include "veltrane/data/block_library.hpp"

#include <algorithm>

namespace veltrane {
namespace {

// A copy with its share of edges and vertices takes some 150 bytes. Drawings of landscapes do scale each of
// their hundred thousand trees by a factor of its own; what is more than a few gigabytes is an accident or an
// attack.
constexpr std::size_t kShapesForAnyDrawing = std::size_t{1} << 21;
constexpr std::size_t kShapesForARecord = 256;
constexpr std::size_t kMostShapes = std::size_t{1} << 25;

}  // namespace

Ref<DxfSection_Block> DxfData_BlockLibrary::Find(const Ref<DxfSection_Model>& model, const Text& name) {
    if (!blocks_ && model) blocks_.emplace(*model);
    return blocks_ ? blocks_->find(name) : nullptr;
}

bool DxfData_BlockLibrary::Spend(const Ref<DxfSection_Model>& model, std::size_t shapes) {
    const std::size_t records = model ? static_cast<std::size_t>(model->NbEntities()) : 0;
    const std::size_t allowed = std::min(kShapesForAnyDrawing + kShapesForARecord * records, kMostShapes);
    if (shapes > allowed || spent_ > allowed - shapes) return false;
    spent_ += shapes;
    return true;
}

}  // namespace veltrane
