#include "veltrane/kernel/algo/bounds.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/cylinder.hpp"
#include "veltrane/kernel/geom/line.hpp"
#include "veltrane/kernel/geom/plane.hpp"

namespace veltrane::kernel {
namespace {

using samples::kPi;

void expect_box(const Box& box, const Point& min, const Point& max, double tolerance = 1e-9) {
    EXPECT_LT((box.min() - min).cwiseAbs().maxCoeff(), tolerance) << box.min().transpose();
    EXPECT_LT((box.max() - max).cwiseAbs().maxCoeff(), tolerance) << box.max().transpose();
}

TEST(BoundingBox, IsTight) {
    const Transform tilt = Transform::rotation({0, 0, 0}, {1, 0, 0}, kPi / 4);
    const Shape circle = make_edge(samples::circle(2, {0, 0, 0}));
    const double r = std::sqrt(2.0);
    const Shape nested = moved(make_compound({moved(make_compound({circle}), tilt)}), tilt);
    const struct {
        const char* what;
        Shape shape;
        Point min, max;
    } rows[] = {
        {"vertex", moved(make_vertex({1, 2, 3}), Transform::translation({1, 0, 0})), {2, 2, 3}, {2, 2, 3}},
        {"turned circle", moved(circle, tilt), {-2, -r, -r}, {2, r, r}},
        {"circle turned twice", nested, {-2, 0, -2}, {2, 0, 2}},
        {"arc over the seam",
         make_edge(samples::circle(2, {0, 0, 0}), {-kPi / 4, kPi / 4}),
         {r, -r, 0},
         {2, r, 0}},
        {"cylinder", prism(make_edge(samples::circle(2, {0, 0, 0})), {0, 0, -3}), {-2, -2, -3}, {2, 2, 0}},
        {"turned cylinder", moved(prism(circle, {0, 0, 2}), tilt), {-2, -2 * r, -r}, {2, r, 2 * r}},
        {"shell", prism(samples::mixed_wire(), {1, 0, 4}), {-3, -2, 0}, {4, 2, 4}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        expect_box(bounding_box(row.shape), row.min, row.max);
    }
    EXPECT_TRUE(bounding_box(Shape()).is_empty());
    EXPECT_TRUE(bounding_box(moved(make_compound({make_compound({})}), tilt)).is_empty());
}

TEST(BoundingBox, OpensWhereTheShapeIsUnbounded) {
    const auto line = [](const Vector& direction, double first, double last) {
        return make_edge(Ref<Curve>(make<Line>(Point(1, 2, 3), direction)), {first, last});
    };
    const Shape plane(make<FaceDefinition>(make<Plane>(Frame{{0, 0, 5}}), std::vector<Loop>()));
    const Shape pipe(make<FaceDefinition>(make<Cylinder>(Frame(), 2), std::vector<Loop>()));
    const double far = kInfinite;
    const struct {
        const char* what;
        Shape shape;
        Vector open_low, open_high;  // 1 where the box is open
    } rows[] = {
        {"line", line({1, 0, 0}, -far, far), {1, 0, 0}, {1, 0, 0}},
        {"ray", line({0, 1, 0}, 0, far), {0, 0, 0}, {0, 1, 0}},
        {"slanted ray", line({1, -1, 0}, 0, far), {0, 1, 0}, {1, 0, 0}},
        {"ray in compounds",
         moved(make_compound({make_compound({line({0, 1, 0}, 0, far)})}),
               Transform::rotation({0, 0, 0}, {0, 0, 1}, kPi)),
         {0, 1, 0},
         {0, 0, 0}},
        {"plane", plane, {1, 1, 0}, {1, 1, 0}},
        {"pipe", pipe, {0, 0, 1}, {0, 0, 1}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Box box = bounding_box(row.shape);
        EXPECT_TRUE(box.is_open());
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_FALSE(std::isnan(box.min()[axis]) || std::isnan(box.max()[axis]));
            // A direction turned by half a turn keeps a rounding error across.
            if (row.open_low[axis] != 0) {
                EXPECT_LT(box.min()[axis], -1e99);
            }
            if (row.open_high[axis] != 0) {
                EXPECT_GT(box.max()[axis], 1e99);
            }
        }
    }
    expect_box(bounding_box(make_compound({make_vertex({0, 0, 0})})), {0, 0, 0}, {0, 0, 0});
}

TEST(BoundingBox, HoldsTheShapeAndTouchesIt) {
    const Deflection fine{1e-5, 0.01, 100000};
    for (const samples::Sample& sample : samples::all()) {
        for (const Transform& transform : {Transform(), Transform::rotation({1, 2, 3}, {1, 2, -1}, 0.8),
                                           Transform::scaling({1, 1, 1}, -0.5)}) {
            SCOPED_TRACE(sample.name);
            const Shape shape = transformed(sample.shape, transform);
            Box sampled;
            for (const Shape& vertex : sub_shapes(shape, ShapeKind::Vertex))
                sampled.add(vertex_point(vertex));
            for (const Shape& edge : sub_shapes(shape, ShapeKind::Edge)) {
                const EdgeGeometry geometry = edge_geometry(edge);
                for (const Point& p : polyline(*geometry.curve, geometry.range, fine)) sampled.add(p);
            }
            expect_box(bounding_box(shape), sampled.min(), sampled.max(), 1e-4);
            EXPECT_TRUE(bounding_box(shape).enlarged(1e-9).contains(sampled.min()));
            EXPECT_TRUE(bounding_box(shape).enlarged(1e-9).contains(sampled.max()));
        }
    }
}

TEST(BoxSum, IsTheBoxOfAllThatIsBounded) {
    const Shape cross = make_compound(
        {make_edge(Point(-3, 0, 0), Point(3, 0, 0)), make_edge(Point(0, -1, 0), Point(0, 1, 0))});
    BoxSum sum;
    std::vector<Shape> copies;
    for (int i = 0; i < 100; ++i) {
        const Transform turn = Transform::rotation(Point(0, 0, 0), Vector(0, 0, 1), 0.37 * i);
        copies.push_back(moved(cross, Transform::translation({std::sqrt(i), 0, 0}) * turn));
        EXPECT_TRUE(sum.add(copies.back()));
    }
    EXPECT_FALSE(sum.add(make_compound({make_edge(make<Line>(Point(0, 0, 0), Vector(1, 0, 0)))})));
    EXPECT_TRUE(sum.add(make_compound({})));
    const Box all = bounding_box(make_compound(copies));
    EXPECT_EQ(sum.box().min(), all.min());
    EXPECT_EQ(sum.box().max(), all.max());
}

}  // namespace
}  // namespace veltrane::kernel
