#include "veltrane/output/scene.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/output/record_walk.hpp"
#include "veltrane/output/scene_blocks.hpp"

namespace veltrane {
namespace {

Omission omission_of(Hidden hidden) {
    switch (hidden) {
        case Hidden::LayerFrozen:
            return Omission::LayerFrozen;
        case Hidden::LayerOff:
            return Omission::LayerOff;
        default:
            return Omission::Invisible;
    }
}

bool is_in_paper_space(const SceneItem& item) {
    return item.record->InModelSpace == 1;
}

/// Every graphical record that gave a shape.
std::vector<SceneItem> shaped_records(const DxfSection_Model& model, const ReadProcess& process,
                                      Scene& scene) {
    std::vector<SceneItem> items;
    visit_entities(model, [&](const Ref<DxfSection_Object>& record) {
        const Ref<TransferBinder> binder = process.Find(record.get());
        kernel::Shape shape = shape_result(binder.get());
        auto entity = as<DxfSection_Entity>(record);
        if (shape.is_null() || !entity) {
            scene.count(Omission::NoShape);
        } else {
            items.push_back({std::move(shape), {}, std::move(entity)});
        }
    });
    return items;
}

bool has_model_space(const std::vector<SceneItem>& items) {
    for (const SceneItem& item : items) {
        if (!is_in_paper_space(item)) return true;
    }
    return false;
}

/// Gives the items their styles and leaves out what is hidden.
std::vector<SceneItem> visible_items(std::vector<SceneItem> items, const LayerStyles& layers,
                                     const Style* insert, SceneBlocks& blocks, Scene& scene) {
    std::vector<SceneItem> visible;
    visible.reserve(items.size());
    for (SceneItem& item : items) {
        item.style = resolve_style(*item.record, layers, insert);
        if (item.style.hidden != Hidden::No) {
            scene.count(omission_of(item.style.hidden));
            continue;
        }
        item.content = blocks.content_of(item);
        visible.push_back(std::move(item));
    }
    return visible;
}

}  // namespace

std::string_view name_of(Omission omission) {
    switch (omission) {
        case Omission::NoShape:
            return "no shape";
        case Omission::PaperSpace:
            return "in paper space";
        case Omission::Invisible:
            return "invisible";
        case Omission::LayerFrozen:
            return "on a frozen layer";
        case Omission::LayerOff:
            return "on a layer that is off";
    }
    return {};
}

Scene make_scene(const DxfSection_Model& model, const ReadProcess& process) {
    Scene scene;
    const LayerStyles layers(model);
    SceneBlocks blocks(model, process, scene.groups);
    std::vector<SceneItem> items = shaped_records(model, process, scene);
    if (has_model_space(items)) {
        const std::size_t all = items.size();
        std::erase_if(items, is_in_paper_space);
        scene.omitted[static_cast<std::size_t>(Omission::PaperSpace)] += all - items.size();
    }
    scene.items = visible_items(std::move(items), layers, nullptr, blocks, scene);
    while (SceneBlocks::Unfilled* next = blocks.next_unfilled()) {
        const Style insert = next->insert;
        SceneGroup& group = *next->group;
        group.items = visible_items(blocks.parts_of(*next), layers, &insert, blocks, scene);
    }
    return scene;
}

}  // namespace veltrane
