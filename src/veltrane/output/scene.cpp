#include "veltrane/output/scene.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/output/record_walk.hpp"

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
    std::vector<SceneItem> items = shaped_records(model, process, scene);
    const bool draws_model_space = has_model_space(items);
    const LayerStyles layers(model);
    for (SceneItem& item : items) {
        if (draws_model_space && is_in_paper_space(item)) {
            scene.count(Omission::PaperSpace);
            continue;
        }
        item.style = resolve_style(*item.record, layers);
        if (item.style.hidden == Hidden::No) {
            scene.items.push_back(std::move(item));
        } else {
            scene.count(omission_of(item.style.hidden));
        }
    }
    return scene;
}

}  // namespace veltrane
