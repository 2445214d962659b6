#include "veltrane/output/hatch_pattern.hpp"

#include "drawing.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/algo/wire_repair.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <gtest/gtest.h>

#include <numbers>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Shape;
using kernel::ShapeKind;

Shape rectangle(double x1, double y1, double x2, double y2) {
    const Point corners[] = {{x1, y1, 0}, {x2, y1, 0}, {x2, y2, 0}, {x1, y2, 0}};
    std::vector<Shape> edges;
    for (int i = 0; i < 4; ++i) edges.push_back(kernel::make_edge(corners[i], corners[(i + 1) % 4]));
    return kernel::repair_wire(edges).wire;
}

/// A plate of 10 x 4 with a window from 4 to 6 over its lower half.
Shape plate() {
    const std::vector<Shape> holes = {rectangle(4, 0.5, 6, 2.5)};
    return kernel::make_planar_face(rectangle(0, 0, 10, 4), holes).face;
}

Ref<DxfEnt_Hatch> hatch(double angle, Point offset, std::vector<double> dashes, double base_x = 0) {
    auto data = make<DxfEnt_HatchPatternData>();
    data->LineAngle = angle;
    data->BasePointX = base_x;
    data->OffsetX = offset.x();
    data->OffsetY = offset.y();
    data->DashLengths = make<Sequence<double>>();
    for (const double dash : dashes) append(data->DashLengths, dash);
    auto hatch = make<DxfEnt_Hatch>();
    hatch->PatternLines = make<Sequence<Ref<DxfEnt_HatchPatternData>>>();
    append(hatch->PatternLines, data);
    return hatch;
}

TEST(HatchPattern, IsCutToTheFaces) {
    const Shape disc =
        kernel::make_planar_face(kernel::make_wire(std::vector<Shape>{samples::whole_circle({0, 0, 0}, 1)}))
            .face;
    struct Row {
        const char* what;
        Ref<DxfEnt_Hatch> hatch;
        Shape faces;
        std::size_t strokes, dots;
        double length;
    };
    const Row rows[] = {
        // Lines at heights 1, 2 (parted by the window), 3 and 4 (an edge).
        {"whole lines", hatch(0, {0, 1, 0}, {}), plate(), 6, 0, 8 + 8 + 10 + 10},
        {"lines upwards", hatch(90, {-5, 0, 0}, {}), plate(), 3, 0, 2 + 4},
        {"dashes begin where the pattern says", hatch(0, {0, 3, 0}, {1, -1}, 0.5), plate(), 5, 0, 5},
        {"dots", hatch(0, {0, 3, 0}, {0, -2.5}), plate(), 0, 5, 0},
        {"a slanted pattern", hatch(45, {-1, 1, 0}, {}), plate(), 0, 0, -1},
        {"a disc", hatch(0, {0, 0.5, 0}, {}), disc, 3, 0, 2 + 2 * std::sqrt(3)},
        {"too dense", hatch(0, {0, 1e-6, 0}, {}), plate(), 0, 0, 0},
        {"no distance", hatch(0, {1, 0, 0}, {}), plate(), 0, 0, 0},
    };
    for (const Row& row : rows) {
        const Shape pattern = hatch_pattern(*row.hatch, row.faces, 1);
        if (row.length < 0) {  // what matters is the area that the lines stand for
            EXPECT_NEAR(kernel::length(pattern) * std::numbers::sqrt2, 36, 4) << row.what;
            continue;
        }
        EXPECT_EQ(kernel::sub_shapes(pattern, ShapeKind::Edge).size(), row.strokes) << row.what;
        EXPECT_NEAR(kernel::length(pattern), row.length, 0.01) << row.what;
        EXPECT_EQ(kernel::sub_shapes(pattern, ShapeKind::Vertex).size(), row.strokes * 2 + row.dots)
            << row.what;
    }
    const auto named = hatch(0, {0, 1, 0}, {});
    named->PatternLines = nullptr;
    EXPECT_NEAR(kernel::length(hatch_pattern(*named, plate(), 1)), 36, 1e-9) << "the outline";
    const auto solid = hatch(0, {0, 1, 0}, {});
    solid->SolidFillFlag = 1;
    EXPECT_TRUE(hatch_pattern(*solid, plate(), 1).is_null());
}

TEST(HatchPattern, GoesWithAnImageOfItsFaces) {
    const Shape pattern = hatch_pattern(*hatch(30, {-0.5, 1, 0}, {}), plate(), 1);
    const kernel::AffineMap map = kernel::AffineMap(kernel::Transform::rotation({1, 2, 3}, {1, 1, 0}, 0.7)) *
                                  kernel::AffineMap::scaling(kernel::Frame(), {2, -0.5, 3});
    const Shape image = carried_over(pattern, plate(), kernel::transformed(plate(), map));
    EXPECT_NEAR(kernel::length(image), kernel::length(kernel::transformed(pattern, map)), 1e-9);
    EXPECT_LT((kernel::centre(image) - map.point(kernel::centre(pattern))).norm(), 1e-9);
}

}  // namespace
}  // namespace veltrane
