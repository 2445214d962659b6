#include "vdxf/extents.hpp"

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/output/record_walk.hpp"

#include <charconv>
#include <string_view>

namespace veltrane::tool {

namespace {

bool is_in_paper_space(const DxfSection_Object& record) {
    const auto* entity = as<const DxfSection_Entity>(&record);
    return entity && entity->InModelSpace == 1;  // the field holds the format's paper-space flag
}

/// The shapes of model space, or those of paper space.
struct Space {
    std::size_t shapes = 0;
    std::size_t unbounded = 0;
    kernel::BoxSum boxes;

    void add(const kernel::Shape& shape) {
        ++shapes;
        if (!boxes.add(shape)) ++unbounded;
    }

    MeasuredExtents extents(double unit_scale) const {
        MeasuredExtents result{{}, shapes, unbounded};
        const kernel::Box& box = boxes.box();
        if (!box.is_empty()) result.box = {box.min() / unit_scale, box.max() / unit_scale};
        return result;
    }
};

std::optional<double> real_in(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos) return std::nullopt;
    double value = 0;
    const auto result = std::from_chars(text.data() + start, text.data() + text.size(), value);
    if (result.ec != std::errc()) return std::nullopt;
    return value;
}

std::optional<kernel::Point> header_point(const DxfSection_Model& model, std::string_view name) {
    const auto variable = const_cast<DxfSection_Model&>(model).FindVariable(name, false);
    if (!variable || !variable->Value) return std::nullopt;
    kernel::Point point(0, 0, 0);
    int found = 0;
    for (const DxfSection_DxfGroup& group : *variable->Value) {
        const auto value = real_in(group.Value);
        if (!value || (group.Code != 10 && group.Code != 20 && group.Code != 30)) continue;
        point[group.Code / 10 - 1] = *value;
        ++found;
    }
    if (found < 2) return std::nullopt;
    return point;
}

}  // namespace

MeasuredExtents measure_extents(Drawing& drawing) {
    const ReadProcess& process = *drawing.reader().Process();
    Space model_space, paper_space;
    visit_entities(drawing.model(), [&](const Ref<DxfSection_Object>& record) {
        const kernel::Shape shape = shape_result(process.Find(record.get()).get());
        if (!shape.is_null()) (is_in_paper_space(*record) ? paper_space : model_space).add(shape);
    });
    const Space& shown = model_space.shapes > 0 ? model_space : paper_space;
    return shown.extents(drawing.model().UnitScale());
}

std::optional<std::pair<kernel::Point, kernel::Point>> header_extents(const DxfSection_Model& model) {
    const auto low = header_point(model, "$EXTMIN");
    const auto high = header_point(model, "$EXTMAX");
    if (!low || !high) return std::nullopt;
    return std::pair(*low, *high);
}

}  // namespace veltrane::tool
