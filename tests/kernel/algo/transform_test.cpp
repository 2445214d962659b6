#include "veltrane/kernel/algo/transform.hpp"

#include "kernel/algo/sample_shapes.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/measure.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>

namespace veltrane::kernel {
namespace {

const Point kOrigin(0, 0, 0);

std::vector<Transform> transforms() {
    const Transform turn = Transform::rotation({1, 2, 3}, {1, -1, 2}, 1.1);
    return {
        Transform(),
        turn,
        Transform::scaling({1, 0, 0}, 2.5),
        Transform::mirror_in_plane({0, 1, 0}, {1, 1, 0}),
        turn * Transform::scaling(kOrigin, -0.3) * Transform::translation({5, 6, 7}),
    };
}

std::vector<AffineMap> maps() {
    Matrix3 shear;
    shear << 1, 0.4, 0.1, 0, 2, -0.3, 0.2, 0, 0.7;
    Matrix3 mirror = shear;
    mirror.row(1) *= -1;
    return {AffineMap(shear, {3, 1, 4}), AffineMap(mirror, {0, 0, 0}), AffineMap::scaling(Frame(), {1, 2, 1}),
            AffineMap(transforms().back())};
}

/// Points of a shape that a transformation has to carry along, in a fixed order.
std::vector<Point> probes(const Shape& shape) {
    std::vector<Point> points;
    for (const Shape& vertex : sub_shapes(shape, ShapeKind::Vertex)) points.push_back(vertex_point(vertex));
    for (const Shape& edge : sub_shapes(shape, ShapeKind::Edge)) {
        const EdgeGeometry geometry = edge_geometry(edge);
        for (const double fraction : {0.0, 0.37, 1.0}) {
            points.push_back(geometry.curve->value(geometry.range.at(fraction)));
        }
    }
    return points;
}

template <class Map>
void expect_carried(const Shape& shape, const Map& map) {
    const Shape image = transformed(shape, map);
    samples::expect_sound(image);
    EXPECT_EQ(count_by_kind(image), count_by_kind(shape));
    const std::vector<Point> before = probes(shape), after = probes(image);
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_LT(distance(map.point(before[i]), after[i]), 1e-9);
}

TEST(Transformed, CarriesEveryPointAndKeepsShapesSound) {
    for (const samples::Sample& sample : samples::all()) {
        SCOPED_TRACE(sample.name);
        for (const Transform& transform : transforms()) expect_carried(sample.shape, transform);
        for (const AffineMap& map : maps()) expect_carried(sample.shape, map);
    }
}

TEST(Transformed, MeasuresScale) {
    for (const samples::Sample& sample : samples::all()) {
        SCOPED_TRACE(sample.name);
        for (const Transform& transform : transforms()) {
            const double scale = std::abs(transform.scale_factor());
            const Shape image = transformed(sample.shape, transform);
            EXPECT_NEAR(length(image), scale * length(sample.shape), 1e-9 * (1 + length(image)));
            EXPECT_NEAR(area(image), scale * scale * area(sample.shape), 1e-9 * (1 + area(image)));
        }
    }
}

TEST(Transformed, FacesKeepTheirSide) {
    for (const samples::Sample& sample : samples::faces()) {
        SCOPED_TRACE(sample.name);
        const std::vector<Shape> faces = sub_shapes(sample.shape, ShapeKind::Face);
        for (const Transform& transform : transforms()) {
            const std::vector<Shape> images =
                sub_shapes(transformed(sample.shape, transform), ShapeKind::Face);
            for (std::size_t i = 0; i < faces.size(); ++i) {
                const Vector expected = transform.direction(samples::face_normal(faces[i]));
                EXPECT_LT((samples::face_normal(images[i]) - expected).norm(), 1e-9);
            }
        }
        for (const AffineMap& map : maps()) {
            const std::vector<Shape> images = sub_shapes(transformed(sample.shape, map), ShapeKind::Face);
            for (std::size_t i = 0; i < faces.size(); ++i) {
                // Normals go by the inverse transpose, so a product with what sticks out keeps its sign.
                const Vector outwards = map.vector(samples::face_normal(faces[i]));
                EXPECT_GT(outwards.dot(samples::face_normal(images[i])), 0);
            }
        }
    }
}

TEST(Transformed, RigidMotionsKeepDefinitions) {
    const Shape shape = samples::mixed_wire();
    const Shape image = transformed(shape, transforms()[1]);
    EXPECT_TRUE(is_partner(shape, image));
    EXPECT_FALSE(is_partner(shape, transformed(shape, transforms()[2])));
    EXPECT_FALSE(is_partner(shape, transformed(shape, AffineMap())));
    EXPECT_TRUE(transformed(Shape(), transforms()[2]).is_null());
}

TEST(Transformed, KeepsSharing) {
    const Shape part = prism(samples::mixed_wire(), {0, 0, 1});
    const Transform turn = transforms()[1];
    const Shape all = make_compound({part, moved(part, Transform::translation({9, 0, 0})), moved(part, turn),
                                     moved(part, turn * Transform::translation({0, 9, 0}))});
    const auto partner_groups = [](const Shape& shape) {
        std::vector<const Definition*> definitions;
        for (const Shape& member : own_children(shape)) definitions.push_back(member.definition().get());
        std::sort(definitions.begin(), definitions.end());
        return std::unique(definitions.begin(), definitions.end()) - definitions.begin();
    };
    EXPECT_EQ(partner_groups(transformed(all, transforms()[2])), 1);
    EXPECT_EQ(partner_groups(transformed(all, transforms()[3])), 1);
    EXPECT_EQ(partner_groups(transformed(all, maps()[0])), 2);
    for (const Shape& image : {transformed(all, transforms()[4]), transformed(all, maps()[0])}) {
        for (const ShapeKind kind : {ShapeKind::Vertex, ShapeKind::Edge, ShapeKind::Face}) {
            EXPECT_EQ(distinct_sub_shapes(image, kind).size(), distinct_sub_shapes(all, kind).size());
        }
    }
}

TEST(Transformed, MapsThatLeaveNothingAreRefused) {
    const AffineMap flat = AffineMap::scaling(Frame(), {1, 1, 0});
    EXPECT_THROW(transformed(make_edge({0, 0, 0}, {0, 0, 1}), flat), KernelError);
    EXPECT_NEAR(length(transformed(make_edge({0, 0, 0}, {3, 4, 1}), flat)), 5, 1e-12);
    EXPECT_THROW(transformed(prism(make_edge({0, 0, 0}, {1, 0, 0}), {0, 0, 1}), flat), KernelError);
}

TEST(Transformed, InfiniteEndsStayInfinite) {
    const Shape ray = make_edge(edge_definition(make_edge({0, 0, 0}, {1, 0, 0})).curve(), {0, kInfinite});
    const Shape image = transformed(ray, Transform::scaling(kOrigin, 1e-3));
    EXPECT_EQ(edge_definition(image).range(), (Interval{0, kInfinite}));
    EXPECT_TRUE(last_vertex(image).is_null());
}

}  // namespace
}  // namespace veltrane::kernel
