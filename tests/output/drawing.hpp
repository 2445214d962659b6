// Drawings and scenes made by hand.
#pragma once

#include "veltrane/exchange/shape_binder.hpp"
#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/output/scene.hpp"
#include "veltrane/section/block.hpp"
#include "veltrane/section/tables.hpp"

#include <string>
#include <utility>
#include <vector>

namespace veltrane::samples {

inline Ref<kernel::Curve> circle(const kernel::Point& centre, double radius,
                                 const kernel::Vector& normal = {0, 0, 1}) {
    return make<kernel::Circle>(kernel::Frame::from_normal(centre, normal), radius);
}
inline kernel::Shape whole_circle(const kernel::Point& centre, double radius) {
    return kernel::make_edge(circle(centre, radius));
}
inline kernel::Shape line_through(const kernel::Point& p, const kernel::Vector& direction) {
    return kernel::make_edge(make<kernel::Line>(p, direction));
}
inline kernel::Shape ray(const kernel::Point& p, const kernel::Vector& direction) {
    return kernel::make_edge(make<kernel::Line>(p, direction), {0, kernel::kInfinite});
}

inline Scene scene_of(std::vector<kernel::Shape> shapes) {
    Scene scene;
    for (kernel::Shape& shape : shapes) scene.items.push_back({std::move(shape), {}, nullptr});
    return scene;
}

/// A drawing whose records are added one by one, with the process that holds their shapes.
struct Drawing {
    Ref<DxfSection_Model> model = make<DxfSection_Model>();
    Ref<ReadProcess> process = make<ReadProcess>();

    Drawing() { process->SetModel(model); }

    void add_to(std::string_view section, const Ref<DxfSection_Object>& record, int line = 0) {
        append(model->FindSection(section, true)->Objects, record);
        model->AddEntity(record, line);
    }
    template <class Record = DxfSection_Entity>
    Ref<Record> add_entity(int line = 0) {
        auto record = make<Record>();
        add_to("ENTITIES", record, line);
        return record;
    }
    Ref<DxfSection_Layer> add_layer(const char* name, int colour) {
        const auto table = model->FindTable("LAYER", true);
        auto layer = make<DxfSection_Layer>();
        layer->Name = name;
        layer->Color = colour;
        append(table->Objects, Ref<DxfSection_Object>(layer));
        return layer;
    }
    /// A block of records and the compound of the shapes bound to them, which is bound to it and given back.
    kernel::Shape add_block(const char* name, const std::vector<Ref<DxfSection_Object>>& records) {
        auto block = make<DxfSection_Block>();
        block->BlockName1 = name;
        block->Objects = make<DxfSection_HSequenceOfObject>();
        std::vector<kernel::Shape> shapes;
        for (const auto& record : records) {
            append(block->Objects, record);
            kernel::Shape shape = shape_result(process->Find(record.get()).get());
            if (!shape.is_null()) shapes.push_back(std::move(shape));
        }
        add_to("BLOCKS", block);
        kernel::Shape compound = kernel::make_compound(std::move(shapes));
        bind(block, compound);
        return compound;
    }
    void bind(const Ref<Transient>& record, kernel::Shape shape) {
        process->Bind(record, make<ShapeBinder>(std::move(shape)));
    }
};

}  // namespace veltrane::samples
