#include "veltrane/output/scene.hpp"

#include "drawing.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

const kernel::Shape kSomething = kernel::make_vertex({1, 2, 3});

TEST(Scene, LeavesOutWhatIsNotToBeSeenAndCountsIt) {
    samples::Drawing drawing;
    drawing.add_layer("Ice", 5)->Flag = 1;
    drawing.add_layer("Off", -3);
    struct Row {
        const char* layer;
        int paper_space, visibility;
        bool has_shape;
    };
    const Row rows[] = {
        {"0", 0, 0, true},   {"Ice", 0, 0, true}, {"Off", 0, 0, true}, {"0", 0, 1, true},
        {"Off", 1, 0, true}, {"0", 0, 0, false},  {"New", 0, 0, true},
    };
    for (const Row& row : rows) {
        const auto record = drawing.add_entity();
        record->Layer = row.layer;
        record->InModelSpace = row.paper_space;
        record->Visibility = row.visibility;
        drawing.bind(record, row.has_shape ? kSomething : kernel::Shape());
    }
    drawing.add_entity<DxfSection_Entity>();
    drawing.add_to("ENTITIES", make<DxfSection_UnrecognizedObject>());

    const Scene scene = make_scene(*drawing.model, *drawing.process);
    ASSERT_EQ(scene.items.size(), 2u);
    EXPECT_EQ(scene.items[0].style.layer, "0");
    EXPECT_EQ(scene.items[1].style.layer, "New");
    EXPECT_EQ(scene.omitted_for(Omission::NoShape), 3u);
    EXPECT_EQ(scene.omitted_for(Omission::PaperSpace), 1u);
    EXPECT_EQ(scene.omitted_for(Omission::Invisible), 1u);
    EXPECT_EQ(scene.omitted_for(Omission::LayerFrozen), 1u);
    EXPECT_EQ(scene.omitted_for(Omission::LayerOff), 1u);
}

TEST(Scene, IsPaperSpaceWhenThereIsNothingElse) {
    samples::Drawing drawing;
    const auto sheet = drawing.add_entity();
    sheet->InModelSpace = 1;
    drawing.bind(sheet, kSomething);
    drawing.bind(drawing.add_entity(), kernel::Shape());
    const Scene scene = make_scene(*drawing.model, *drawing.process);
    ASSERT_EQ(scene.items.size(), 1u);
    EXPECT_EQ(scene.items[0].record, sheet);
    EXPECT_EQ(scene.omitted_for(Omission::PaperSpace), 0u);
}

/// A block of a line on layer "0" by block, a point by layer "Fixed" and something on a frozen layer,
/// inserted by another block, which is inserted twice with the red and blue layers' colours, the second time
/// in an array.
TEST(Scene, ResolvesPartsThroughNestedInserts) {
    samples::Drawing drawing;
    drawing.add_layer("Red", 1);
    drawing.add_layer("Blue", 5);
    drawing.add_layer("Fixed", 3);
    drawing.add_layer("Ice", 2)->Flag = 1;
    const auto part = [&](const char* layer, int colour, const kernel::Point& at) {
        auto record = make<DxfSection_Entity>();
        record->Layer = layer;
        record->Color = colour;
        drawing.bind(record, kernel::make_vertex(at));
        return record;
    };
    const auto inner = drawing.add_block("inner", {part("0", 0, {1, 0, 0}), part("Fixed", 256, {2, 0, 0}),
                                                   part("Ice", 1, {3, 0, 0}), make<DxfSection_Entity>()});
    const auto nested = make<DxfEnt_Insert>();
    nested->BlockName = "inner";
    nested->Layer = "0";
    const auto up = kernel::Transform::translation({0, 0, 7});
    drawing.bind(nested, kernel::moved(inner, up));
    const auto outer = drawing.add_block("outer", {nested, part("0", 256, {4, 0, 0})});

    const auto red = drawing.add_entity<DxfEnt_Insert>();
    red->BlockName = "outer";
    red->Layer = "Red";
    drawing.bind(red, kernel::moved(outer, kernel::Transform::translation({10, 0, 0})));
    const auto blue = drawing.add_entity<DxfEnt_Insert>();
    blue->BlockName = "outer";
    blue->Layer = "Blue";
    blue->ColumnCount = 2;
    drawing.bind(blue, kernel::make_compound(
                           {outer, kernel::moved(outer, kernel::Transform::translation({0, 20, 0}))}));

    const Scene scene = make_scene(*drawing.model, *drawing.process);
    EXPECT_EQ(scene.groups.size(), 4u);
    EXPECT_EQ(scene.omitted_for(Omission::LayerFrozen), 2u);
    EXPECT_EQ(copies_of(scene.items[1]).size(), 2u);
    struct Row {
        kernel::Point at;
        int colour;
        const char* layer;
    };
    // "0" by block takes what the nested insert takes: by layer, on layer "0", so the outer insert's layer.
    const std::vector<Row> rows = {
        {{11, 0, 7}, 1, "Red"},  {{12, 0, 7}, 3, "Fixed"}, {{14, 0, 0}, 1, "Red"},
        {{1, 0, 7}, 5, "Blue"},  {{2, 0, 7}, 3, "Fixed"},  {{4, 0, 0}, 5, "Blue"},
        {{1, 20, 7}, 5, "Blue"}, {{2, 20, 7}, 3, "Fixed"}, {{4, 20, 0}, 5, "Blue"}};
    std::size_t next = 0;
    const auto check = [&](const kernel::Shape& shape, const SceneItem& item) {
        const Row& row = rows.at(next++);
        EXPECT_EQ(kernel::vertex_point(shape), row.at) << next;
        EXPECT_EQ(item.style.colour, row.colour) << next;
        EXPECT_EQ(item.style.layer, row.layer) << next;
        return true;
    };
    EXPECT_TRUE(visit_leaves(scene.items, 1000, check));
    EXPECT_EQ(next, rows.size());
    EXPECT_FALSE(visit_leaves(scene.items, 5, [](const auto&, const auto&) { return true; }));
}

TEST(Scene, OfAnEmptyDrawingIsEmpty) {
    const samples::Drawing drawing;
    EXPECT_TRUE(make_scene(*drawing.model, *drawing.process).items.empty());
}

}  // namespace
}  // namespace veltrane
