// The blocks of a drawing during one transfer.
#pragma once

#include "veltrane/kernel/topo/shape.hpp"
#include "veltrane/section/block_index.hpp"

#include <cstddef>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_set>

namespace veltrane {

class DxfData_BlockLibrary {
public:
    /// The block of that name in the drawing, as DxfSection_BlockIndex finds it. The drawing must not change
    /// between calls.
    Ref<DxfSection_Block> Find(const Ref<DxfSection_Model>& model, const Text& name);

    /// Blocks between Open and Close are being translated: to come upon one of them closes a ring.
    void Open(const DxfSection_Block& block) { open_.insert(&block); }
    void Close(const DxfSection_Block& block) { open_.erase(&block); }
    bool IsOpen(const DxfSection_Block& block) const { return open_.count(&block) > 0; }

    /// Takes from what a transfer may build beyond one shape for each record; false when that much is not
    /// left. It keeps arrays and scaled blocks of a small drawing from filling the memory.
    bool Spend(const Ref<DxfSection_Model>& model, std::size_t shapes);

    /// A block's shape scaled about the origin by three factors, kept for the next insert with the same ones;
    /// a null shape at first.
    kernel::Shape& ScaledShape(const DxfSection_Block& block, const kernel::Vector& factors) {
        return scaled_[{&block, factors.x(), factors.y(), factors.z()}];
    }

private:
    std::optional<DxfSection_BlockIndex> blocks_;
    std::unordered_set<const DxfSection_Block*> open_;
    std::map<std::tuple<const DxfSection_Block*, double, double, double>, kernel::Shape> scaled_;
    std::size_t spent_ = 0;
};

}  // namespace veltrane
