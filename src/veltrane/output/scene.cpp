#include "veltrane/output/scene.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/output/hatch_pattern.hpp"
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

class SceneMaker {
public:
    SceneMaker(const DxfSection_Model& model, const ReadProcess& process, Patterns patterns, Scene& scene)
        : model_(model),
          process_(process),
          patterns_(patterns),
          scene_(scene),
          layers_(model),
          blocks_(model, process, scene.groups) {}

    void make() {
        std::vector<SceneItem> items = shaped_records(model_, process_, scene_);
        if (has_model_space(items)) {
            const std::size_t all = items.size();
            std::erase_if(items, is_in_paper_space);
            scene_.omitted[static_cast<std::size_t>(Omission::PaperSpace)] += all - items.size();
        }
        scene_.items = visible(std::move(items), nullptr);
        while (const SceneBlocks::Unfilled* next = blocks_.next_unfilled()) {
            const Style insert = next->insert;
            SceneGroup& group = *next->group;
            group.items = visible(blocks_.parts_of(*next), &insert);
        }
    }

private:
    /// Gives the items their styles and leaves out what is hidden.
    std::vector<SceneItem> visible(std::vector<SceneItem> items, const Style* insert) {
        std::vector<SceneItem> visible;
        visible.reserve(items.size());
        for (SceneItem& item : items) {
            item.style = resolve_style(*item.record, layers_, insert);
            if (item.style.hidden != Hidden::No) {
                scene_.count(omission_of(item.style.hidden));
                continue;
            }
            item.content = blocks_.content_of(item);
            if (patterns_ == Patterns::Lines) take_pattern(item);
            visible.push_back(std::move(item));
        }
        return visible;
    }

    void take_pattern(SceneItem& item) const {
        const auto* hatch = as<const DxfEnt_Hatch>(item.record.get());
        if (!hatch || hatch->SolidFillFlag != 0) return;
        const kernel::Shape faces = shape_result(process_.Find(hatch).get());
        const kernel::Shape pattern = hatch_pattern(*hatch, faces, model_.UnitScale());
        kernel::Shape lines = carried_over(pattern, faces, item.shape);
        if (!lines.is_null()) item.shape = std::move(lines);
    }

    const DxfSection_Model& model_;
    const ReadProcess& process_;
    Patterns patterns_;
    Scene& scene_;
    LayerStyles layers_;
    SceneBlocks blocks_;
};

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

Scene make_scene(const DxfSection_Model& model, const ReadProcess& process, Patterns patterns) {
    Scene scene;
    SceneMaker(model, process, patterns, scene).make();
    return scene;
}

}  // namespace veltrane
