#include "veltrane/output/scene_blocks.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/limits.hpp"

#include <algorithm>
#include <string_view>
#include <tuple>

namespace veltrane {
namespace {

/// One copy of what an insert places: an array is a compound of copies that share their definition.
kernel::Shape first_copy(const kernel::Shape& shape, const DxfEnt_Insert& insert) {
    const auto rows = static_cast<std::size_t>(std::max(insert.RowCount, 1));
    const auto columns = static_cast<std::size_t>(std::max(insert.ColumnCount, 1));
    const std::size_t count = kernel::child_count(shape);
    if (rows * columns == 1 || count != rows * columns) return shape;
    kernel::Shape first = kernel::own_child(shape, 0);
    const bool is_array = first.is(kernel::ShapeKind::Compound) &&
                          kernel::is_partner(first, kernel::own_child(shape, count - 1));
    return is_array ? first : shape;
}

}  // namespace

bool SceneBlocks::Before::operator()(const Key& a, const Key& b) const {
    const auto parts = [](const Key& key) {
        return std::tuple(key.shape, key.insert.colour, key.insert.lineweight,
                          std::string_view(key.insert.layer));
    };
    return parts(a) < parts(b);
}

const SceneGroup* SceneBlocks::content_of(const SceneItem& item) {
    const auto* insert = as<const DxfEnt_Insert>(item.record.get());
    if (!insert || !item.shape.is(kernel::ShapeKind::Compound)) return nullptr;
    const kernel::Shape copy = first_copy(item.shape, *insert);
    const Key key{copy.definition().get(), item.style};
    if (const auto known = known_.find(key); known != known_.end()) return known->second;

    const Ref<DxfSection_Block> block = index_.find(insert->BlockName);
    if (!block) return nullptr;
    const std::size_t count = kernel::child_count(copy);
    // Parts that could not be scaled are missing: then nobody knows which record is which part.
    if (shaped_records(*block).size() != count || count > kMostBlockParts - parts_) return nullptr;
    parts_ += count;
    SceneGroup& group = groups_.emplace_back(SceneGroup{kernel::Shape(copy.definition()), {}});
    unfilled_.push_back({&group, block.get(), item.style});
    return known_.emplace(key, &group).first->second;
}

SceneBlocks::Unfilled* SceneBlocks::next_unfilled() {
    return next_ < unfilled_.size() ? &unfilled_[next_++] : nullptr;
}

std::vector<SceneItem> SceneBlocks::parts_of(const Unfilled& unfilled) {
    const Records& records = shaped_records(*unfilled.block);
    std::vector<SceneItem> parts;
    parts.reserve(records.size());
    for (std::size_t i = 0; i < records.size(); ++i) {
        parts.push_back({kernel::own_child(unfilled.group->shape, i), {}, records[i]});
    }
    return parts;
}

/// The records of a block's members, in the order of its compound.
const SceneBlocks::Records& SceneBlocks::shaped_records(const DxfSection_Block& block) {
    const auto [entry, is_new] = records_.try_emplace(&block);
    if (!is_new || !block.Objects) return entry->second;
    for (const auto& record : *block.Objects) {
        auto entity = as<DxfSection_Entity>(record);
        if (!entity || shape_result(process_.Find(entity.get()).get()).is_null()) continue;
        entry->second.push_back(std::move(entity));
    }
    return entry->second;
}

}  // namespace veltrane
