// Which records the parts of an insert's shape come from. Internal to the folder.
#pragma once

#include "veltrane/ent/inserts.hpp"
#include "veltrane/output/scene.hpp"
#include "veltrane/section/block_index.hpp"

#include <cstddef>
#include <deque>
#include <map>
#include <unordered_map>
#include <vector>

namespace veltrane {

/// The blocks of a drawing as groups of a scene: one for each shape that a block takes (scaled unevenly it
/// has another one) and each style that an insert lends to it. Groups are made empty and filled one after the
/// other, so that nesting of any depth needs no recursion.
class SceneBlocks {
public:
    struct Unfilled {
        SceneGroup* group;
        const DxfSection_Block* block;
        Style insert;
    };

    /// Model and process outlive this object; `groups` is added to.
    SceneBlocks(const DxfSection_Model& model, const ReadProcess& process, std::deque<SceneGroup>& groups)
        : index_(model), process_(process), groups_(groups) {}

    /// The group that an item places, filled or not; null when the item is no insert, or its parts cannot be
    /// told.
    const SceneGroup* content_of(const SceneItem& item);
    /// The next group without parts, once; null when there is none left.
    Unfilled* next_unfilled();
    /// What belongs into such a group: a part for each record that gave a shape, without its style.
    std::vector<SceneItem> parts_of(const Unfilled& unfilled);

private:
    struct Key {
        const kernel::Definition* shape;
        Style insert;
    };
    struct Before {
        bool operator()(const Key& a, const Key& b) const;
    };
    using Records = std::vector<Ref<DxfSection_Entity>>;

    const Records& shaped_records(const DxfSection_Block& block);

    DxfSection_BlockIndex index_;
    const ReadProcess& process_;
    std::deque<SceneGroup>& groups_;
    std::unordered_map<const DxfSection_Block*, Records> records_;
    std::map<Key, const SceneGroup*, Before> known_;
    std::deque<Unfilled> unfilled_;
    std::size_t next_ = 0;
    std::size_t parts_ = 0;
};

}  // namespace veltrane
