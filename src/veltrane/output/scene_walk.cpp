// Walking the leaves of a scene.
#include "veltrane/kernel/topo/explore.hpp"
#include "veltrane/output/scene.hpp"

namespace veltrane {

std::vector<kernel::Shape> copies_of(const SceneItem& item) {
    if (!item.content || kernel::is_partner(item.shape, item.content->shape)) return {item.shape};
    return kernel::children(item.shape);
}

bool visit_leaves(const std::vector<SceneItem>& items, std::size_t most_steps, const LeafVisitor& visitor) {
    struct Step {
        const std::vector<SceneItem>* items;
        std::size_t next = 0;
        std::vector<Ref<const kernel::Placement>> copies;  // of the items, the last first
    };
    std::vector<Step> path;
    path.push_back({&items, 0, {nullptr}});
    while (!path.empty()) {
        Step& top = path.back();
        if (top.next == top.items->size()) {
            top.next = 0;
            top.copies.pop_back();
        }
        if (top.copies.empty() || top.items->empty()) {
            path.pop_back();
            continue;
        }
        if (most_steps-- == 0) return false;
        const SceneItem& item = (*top.items)[top.next++];
        const Ref<const kernel::Placement>& outer = top.copies.back();
        if (!item.content) {
            const kernel::Shape placed = item.shape.placed(composed(outer, item.shape.placement()));
            if (!visitor(placed, item)) return false;
            continue;
        }
        Step inner{&item.content->items, 0, {}};
        const std::vector<kernel::Shape> copies = copies_of(item);
        for (auto copy = copies.rbegin(); copy != copies.rend(); ++copy) {
            inner.copies.push_back(composed(outer, copy->placement()));
        }
        path.push_back(std::move(inner));
    }
    return true;
}

}  // namespace veltrane
