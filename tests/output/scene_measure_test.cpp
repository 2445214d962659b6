#include "veltrane/output/scene_measure.hpp"

#include "drawing.hpp"
#include "veltrane/ent/inserts.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"

#include <gtest/gtest.h>

#include <numbers>

namespace veltrane {
namespace {

using kernel::ShapeKind;

kernel::Shape segment(double x1, double y1, double x2, double y2) {
    return kernel::make_edge(kernel::Point(x1, y1, 0), kernel::Point(x2, y2, 0));
}

kernel::Shape square_wire(double side) {
    const std::vector<kernel::Shape> edges = {segment(0, 0, side, 0), segment(side, 0, side, side),
                                              segment(side, side, 0, side), segment(0, side, 0, 0)};
    return kernel::repair_wire(edges).wire;
}

std::size_t count(const Measures& measures, ShapeKind kind) {
    return measures.shapes[static_cast<std::size_t>(kind)];
}

TEST(SceneMeasure, FollowsContoursOnEachLayer) {
    struct Row {
        const char* what;
        std::vector<kernel::Shape> shapes;
        std::size_t closed, open;
        double length;
    };
    const Row rows[] = {
        {"a circle", {samples::whole_circle({0, 0, 0}, 2)}, 1, 0, 4 * std::numbers::pi},
        {"a closed polyline", {square_wire(3)}, 1, 0, 12},
        {"loose lines in any order",
         {segment(0, 0, 3, 0), segment(0, 4, 0, 0), segment(0, 4, 3, 0)},
         1,
         0,
         12},
        {"a gap within bounds", {segment(0, 0, 3, 0), segment(3, 0.0009, 0, 0)}, 1, 0, 6},
        {"a gap beyond them", {segment(0, 0, 3, 0), segment(3, 0.002, 0, 0)}, 0, 1, 6},
        {"two polylines with a common corner", {square_wire(1), segment(0, 0, -1, 0)}, 1, 1, 5},
    };
    for (const Row& row : rows) {
        const SceneMeasures result = measure(samples::scene_of(row.shapes));
        EXPECT_EQ(result.total.closed, row.closed) << row.what;
        EXPECT_EQ(result.total.open, row.open) << row.what;
        EXPECT_NEAR(result.total.length, row.length, 1e-6) << row.what;
    }

    Scene apart = samples::scene_of({segment(0, 0, 1, 0), segment(1, 0, 0, 0)});
    apart.items[1].style.layer = "B";
    const SceneMeasures result = measure(apart);
    ASSERT_EQ(result.layers.size(), 2u);
    EXPECT_EQ(result.layers[1].layer, "B");
    EXPECT_EQ(result.total.open, 2u) << "layers are apart";
}

TEST(SceneMeasure, SumsUpSizesAndNamesWhatIsInNoSum) {
    const kernel::Shape box = kernel::prism(kernel::make_planar_face(square_wire(2)).face, {0, 0, -5});
    const SceneMeasures result =
        measure(samples::scene_of({box, kernel::make_compound({box, kernel::make_vertex({9, 9, 9})}),
                                   samples::ray({0, 0, 0}, {1, 0, 0}), kernel::make_compound({})}));
    EXPECT_NEAR(result.total.volume, 40, 1e-9);
    EXPECT_NEAR(result.total.area, 2 * (8 + 40), 1e-9);
    EXPECT_EQ(result.total.length, 0) << "edges of faces are no curves of their own";
    EXPECT_EQ(count(result.total, ShapeKind::Solid), 2u);
    EXPECT_EQ(count(result.total, ShapeKind::Vertex), 1u);
    EXPECT_EQ(result.total.unbounded, 1u);
    EXPECT_EQ(result.box.min(), kernel::Point(0, 0, -5));
    EXPECT_EQ(result.box.max(), kernel::Point(9, 9, 9));
}

/// Arrays of arrays of arrays: 27 million squares, measured as one.
TEST(SceneMeasure, MultipliesWhatIsInserted) {
    samples::Drawing drawing;
    auto square = make<DxfSection_Entity>();
    square->Layer = "Walls";
    drawing.bind(square, square_wire(1));
    kernel::Shape content = drawing.add_block("b0", {square});
    for (int level = 0; level < 3; ++level) {
        std::vector<kernel::Shape> copies;
        for (int i = 0; i < 300; ++i) {
            copies.push_back(kernel::moved(content, kernel::Transform::translation({0, 0, 1.0 * i})));
        }
        const auto insert = level < 2 ? make<DxfEnt_Insert>() : drawing.add_entity<DxfEnt_Insert>();
        insert->BlockName = "b" + std::to_string(level);
        insert->ColumnCount = 30;
        insert->RowCount = 10;
        drawing.bind(insert, kernel::make_compound(copies));
        if (level < 2) content = drawing.add_block(("b" + std::to_string(level + 1)).c_str(), {insert});
    }
    const SceneMeasures result = measure(make_scene(*drawing.model, *drawing.process));
    ASSERT_EQ(result.layers.size(), 1u);
    EXPECT_EQ(result.layers[0].layer, "Walls");
    EXPECT_EQ(result.total.closed, 27'000'000u);
    EXPECT_EQ(count(result.total, ShapeKind::Wire), 27'000'000u);
    EXPECT_NEAR(result.total.length, 4 * 27e6, 1e-3);
    EXPECT_NEAR(result.box.max().z(), 3 * 299, 1e-9);
}

}  // namespace
}  // namespace veltrane
