// Sums over nested compounds.
#pragma once

#include "veltrane/kernel/topo/definition.hpp"

#include <unordered_map>
#include <utility>
#include <vector>

namespace veltrane::kernel {

/// Adds up `leaf(shape)` over all members of nested compounds that are no
/// compounds themselves. For a compound the sum starts with `empty`. A compound
/// that is used many times is summed once, so that compounds of compounds of
/// compounds cannot blow up the time; there is no recursion.
///
/// `add(sum, value, placement)` adds in place. Leaves come without placement, so
/// that every value stands in its shape's own co-ordinates; the placement leads
/// from there to those of the sum (null: the same). That of `root` is left to
/// the caller.
template <class Value, class Leaf, class Add>
Value fold_compounds(const Shape& root, const Value& empty, Leaf leaf, Add add) {
    if (!root.is(ShapeKind::Compound)) return leaf(root.placed(nullptr));

    struct Frame {
        const GroupDefinition* compound;
        std::size_t next;
        Value sum;
        Ref<const Placement> placement;
    };
    std::unordered_map<const GroupDefinition*, Value> known;
    std::vector<Frame> stack{{&group_definition(root), 0, empty, nullptr}};
    while (true) {
        Frame& top = stack.back();
        if (top.next < top.compound->children().size()) {
            const Shape& member = top.compound->children()[top.next++];
            if (!member.is(ShapeKind::Compound)) {
                add(top.sum, leaf(member.placed(nullptr)), member.placement());
                continue;
            }
            const GroupDefinition* below = &group_definition(member);
            if (const auto found = known.find(below); found != known.end()) {
                add(top.sum, found->second, member.placement());
            } else {
                stack.push_back({below, 0, empty, member.placement()});
            }
            continue;
        }
        Frame done = std::move(stack.back());
        stack.pop_back();
        if (stack.empty()) return std::move(done.sum);
        add(stack.back().sum, done.sum, done.placement);
        if (done.compound->use_count() > 1) known.emplace(done.compound, std::move(done.sum));
    }
}

}  // namespace veltrane::kernel
