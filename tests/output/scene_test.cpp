#include "veltrane/output/scene.hpp"

#include "drawing.hpp"

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

TEST(Scene, OfAnEmptyDrawingIsEmpty) {
    const samples::Drawing drawing;
    EXPECT_TRUE(make_scene(*drawing.model, *drawing.process).items.empty());
}

}  // namespace
}  // namespace veltrane
