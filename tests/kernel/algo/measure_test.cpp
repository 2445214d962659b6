#include "veltrane/kernel/algo/measure.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/plane.hpp"

#include <cmath>

namespace veltrane::kernel {
namespace {

using samples::kPi;

TEST(Length, CountsEdgesAsOneWould) {
    const Shape segment = make_edge({0, 0, 0}, {3, 0, 0});
    const Shape there_and_back = make_wire(std::vector{segment, segment.reversed()});
    const Shape pipe = prism(make_edge(samples::circle(2)), {0, 0, 5});
    const Shape block = make_compound({segment});
    const struct {
        const char* what;
        Shape shape;
        double length;
    } rows[] = {
        {"null", Shape(), 0},
        {"vertex", make_vertex({1, 2, 3}), 0},
        {"edge", segment, 3},
        {"arc", make_edge(samples::circle(2), {6, 7}), 2},
        {"there and back", there_and_back, 6},
        {"face", prism(segment, {0, 0, 2}), 10},
        {"seam counts once", pipe, 8 * kPi + 5},
        {"shell counts shared edges once",
         prism(make_wire(samples::polygon_edges({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}})), {0, 0, 1}),
         12},
        {"block placed twice", make_compound({block, moved(block, Transform::translation({0, 1, 0})), block}),
         9},
    };
    for (const auto& row : rows) EXPECT_NEAR(length(row.shape), row.length, 1e-9) << row.what;
    EXPECT_TRUE(std::isinf(
        length(make_compound({make_edge(Ref<Curve>(make<Line>(Point(0, 0, 0), Vector(1, 0, 0))))}))));
}

/// A face in a plane within circles; the first is the outer one, the others are holes.
Shape disc(const Frame& frame, const std::vector<std::pair<Point2, double>>& circles) {
    std::vector<Loop> loops;
    for (const auto& [centre, radius] : circles) {
        const Ref<Curve2> flat = make_circle2(centre, radius, loops.empty());
        const Shape edge = make_edge(flat->placed(frame));
        loops.push_back({make_wire(std::span(&edge, 1)), {{flat}}});
    }
    return Shape(make<FaceDefinition>(make<Plane>(frame), std::move(loops)));
}

TEST(Area, TakesHolesAndPlaces) {
    const Frame far = Frame::from_normal({1e6, -2e6, 3e5}, {1, 2, 3});
    EXPECT_NEAR(area(disc(Frame(), {{{0, 0}, 2}})), 4 * kPi, 1e-9);
    const Shape washer = disc(far, {{{1, 5}, 3}, {{1, 4}, 1}, {{1, 7}, 0.5}});
    EXPECT_NEAR(area(washer), 7.75 * kPi, 1e-9 * 25);
    EXPECT_NEAR(area(moved(washer.reversed(), Transform::rotation({9, 9, 9}, {1, 0, 2}, 2))), 7.75 * kPi,
                1e-9 * 25);
    EXPECT_NEAR(area(make_compound({washer, make_compound({washer, washer})})), 3 * 7.75 * kPi, 1e-9 * 75);
    EXPECT_EQ(area(make_edge({0, 0, 0}, {1, 0, 0})), 0);
    EXPECT_TRUE(std::isinf(area(Shape(make<FaceDefinition>(make<Plane>(Frame()), std::vector<Loop>())))));
}

TEST(Area, OfASweepIsBreadthTimesHeight) {
    for (const samples::Sample& sample : samples::edges()) {
        if (sample.name.find("spline") != std::string::npos) continue;  // not planar: no simple formula
        SCOPED_TRACE(sample.name);
        const double expected = 5 * length(sample.shape);
        EXPECT_NEAR(area(prism(sample.shape, {0, 0, 5})), expected, 1e-9 * expected);
    }
    // Seen along the sweep the spline is its projection.
    BSplineData flat = as<const BSplineCurve>(samples::spline().get())->data();
    for (Point& pole : flat.poles) pole.z() = 0;
    const double expected = 5 * length(*make<BSplineCurve>(std::move(flat)));
    EXPECT_NEAR(area(prism(make_edge(samples::spline()), {0, 0, 5})), expected, 1e-9 * expected);
}

}  // namespace
}  // namespace veltrane::kernel
