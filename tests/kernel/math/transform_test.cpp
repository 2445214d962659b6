#include "veltrane/kernel/math/transform.hpp"

#include "veltrane/kernel/math/box.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace veltrane::kernel {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
const Point kProbe(1.5, -2.25, 7);

struct NamedTransform {
    const char* name;
    Transform transform;
    double scale;
};

std::vector<NamedTransform> transforms() {
    const Point p(3, 4, 5);
    const Vector v(1, -2, 0.5);
    Frame left = Frame::from_normal(p, v);
    left.z = -left.z;
    return {
        {"identity", Transform(), 1},
        {"translation", Transform::translation(v), 1},
        {"rotation", Transform::rotation(p, v, 1.1), 1},
        {"mirror in point", Transform::mirror_in_point(p), -1},
        {"mirror in axis", Transform::mirror_in_axis(p, v), 1},
        {"mirror in plane", Transform::mirror_in_plane(p, v), -1},
        {"scaling", Transform::scaling(p, 2.5), 2.5},
        {"negative scaling", Transform::scaling(p, -0.5), -0.5},
        {"frame", Transform::from_frame(Frame::from_normal(p, v)), 1},
        {"left-handed frame", Transform::from_frame(left), -1},
        {"product", Transform::mirror_in_plane(p, v) * Transform::scaling(p, 3), -3},
    };
}

TEST(Transform, InvertsComposesAndConverts) {
    for (const auto& [name, t, scale] : transforms()) {
        SCOPED_TRACE(name);
        EXPECT_NEAR(t.scale_factor(), scale, 1e-15 * std::abs(scale));
        EXPECT_EQ(t.is_mirrored(), scale < 0);
        const Point image = t.point(kProbe);
        EXPECT_NEAR(distance(t.inverse().point(image), kProbe), 0, 1e-13);
        EXPECT_TRUE((t * t.inverse()).is_identity(1e-13));
        // Distances scale, and handedness follows the sign.
        EXPECT_NEAR(t.vector(Vector(0, 3, 4)).norm(), 5 * std::abs(scale), 1e-13);
        const double hand = cross(t.vector({1, 0, 0}), t.vector({0, 1, 0})).dot(t.vector({0, 0, 1}));
        EXPECT_EQ(hand < 0, scale < 0);
        EXPECT_NEAR(t.direction(Vector(0, 3, 4)).norm(), 5, 1e-13);
        EXPECT_GT(t.direction(Vector(1, 2, 3)).dot(t.vector(Vector(1, 2, 3))), 0);

        const AffineMap map = t;
        EXPECT_NEAR(distance(map.point(kProbe), image), 0, 1e-13);
        const auto back = map.as_transform();
        ASSERT_TRUE(back);
        EXPECT_NEAR(distance(back->point(kProbe), image), 0, 1e-13);
        EXPECT_NEAR(back->scale_factor(), scale, 1e-14 * std::abs(scale));
        for (const auto& other : transforms()) {
            const Point both = other.transform.point(image);
            EXPECT_NEAR(distance((other.transform * t).point(kProbe), both), 0, 1e-12);
        }
    }
}

TEST(Transform, MirrorsFixWhatTheyMirrorIn) {
    const Point p(3, 4, 5);
    const Vector v(1, -2, 0.5);
    EXPECT_NEAR(distance(Transform::mirror_in_axis(p, v).point(p + 7 * v), p + 7 * v), 0, 1e-13);
    const Vector in_plane = perpendicular(v);
    EXPECT_NEAR(distance(Transform::mirror_in_plane(p, v).point(p + 7 * in_plane), p + 7 * in_plane), 0,
                1e-13);
    EXPECT_NEAR(distance(Transform::mirror_in_plane(p, v).point(p + v), p - v), 0, 1e-13);
    EXPECT_NEAR(distance(Transform::rotation({1, 0, 0}, {0, 0, 2}, std::numbers::pi / 2).point({2, 0, 3}),
                         Point(1, 1, 3)),
                0, 1e-15);
}

TEST(Transform, RefusesWhatIsNone) {
    Matrix3 shear = Matrix3::Identity();
    shear(0, 1) = 1e-6;
    EXPECT_THROW(Transform::from_matrix(shear, Vector::Zero()), KernelError);
    EXPECT_THROW(Transform::from_matrix(Matrix3::Zero(), Vector::Zero()), KernelError);
    EXPECT_FALSE(AffineMap(shear, Vector::Zero()).as_transform());
    EXPECT_THROW(Transform::scaling({0, 0, 0}, 0), KernelError);
    EXPECT_THROW(Transform::scaling({0, 0, 0}, kNan), KernelError);
    EXPECT_THROW(Transform::rotation({0, 0, 0}, {0, 0, 0}, 1), KernelError);
    EXPECT_THROW(Transform::rotation({0, 0, 0}, {0, 0, 1}, kNan), KernelError);
    EXPECT_THROW(Transform::translation({1e300, 0, 0}), KernelError);
    EXPECT_THROW(AffineMap(Matrix3::Constant(kNan), Vector::Zero()), KernelError);
    EXPECT_THROW(AffineMap::scaling(Frame(), {1, 1, 0}).inverse(), KernelError);
}

TEST(AffineMap, ScalesAlongAFrameAndInverts) {
    const Frame frame = Frame::from_normal({1, 2, 3}, {1, 1, 1});
    const AffineMap map = AffineMap::scaling(frame, {2, 3, -4});
    EXPECT_NEAR(distance(map.point(frame.to_world({1, 1, 1})), frame.to_world({2, 3, -4})), 0, 1e-14);
    EXPECT_NEAR(map.determinant(), -24, 1e-12);
    EXPECT_NEAR(distance((map.inverse() * map).point(kProbe), kProbe), 0, 1e-13);
    AffineMap2 plane;
    plane.linear << 1, 2, 3, 4;
    plane.translation = {5, 6};
    EXPECT_NEAR((plane.inverse().point(plane.point({7, 8})) - Point2(7, 8)).norm(), 0, 1e-14);
}

TEST(Frame, FollowsTheArbitraryAxisRule) {
    struct Row {
        Vector normal, x;
    };
    const double s = std::sqrt(0.5);
    const Row rows[] = {
        {{0, 0, 1}, {1, 0, 0}},
        {{0, 0, -1}, {-1, 0, 0}},
        {{1, 0, 0}, {0, 1, 0}},
        {{0, 1, 0}, {-1, 0, 0}},
        {{1, 1, 0}, {-s, s, 0}},
        {{1e-3, 0, 1}, {1 / std::sqrt(1 + 1e-6), 0, -1e-3 / std::sqrt(1 + 1e-6)}},
        {{1.0 / 32, 0, 1}, {0, 1, 0}},
        {{0, 0, 1e150}, {1, 0, 0}},
    };
    for (const Row& row : rows) {
        const Frame frame = Frame::from_normal({1, 2, 3}, row.normal);
        EXPECT_NEAR((frame.x - row.x).norm(), 0, 1e-15) << row.normal.transpose();
        EXPECT_TRUE(frame.is_valid() && frame.is_right_handed());
        EXPECT_NEAR(distance(frame.to_local(frame.to_world(kProbe)), kProbe), 0, 1e-14);
    }
    const Frame given = Frame::from_normal_and_x({0, 0, 0}, {0, 0, 2}, {3, 3, 9});
    EXPECT_NEAR((given.x - Vector(s, s, 0)).norm(), 0, 1e-15);
    EXPECT_THROW(Frame::from_normal({0, 0, 0}, {0, 0, 0}), KernelError);
    EXPECT_THROW(Frame::from_normal({kNan, 0, 0}, {0, 0, 1}), KernelError);
    EXPECT_THROW(Frame::from_normal({0, 0, 0}, {kNan, 0, 1}), KernelError);
    EXPECT_THROW(Frame::from_normal_and_x({0, 0, 0}, {0, 0, 1}, {0, 0, -3}), KernelError);
    EXPECT_THROW(Frame::from_normal_and_x({0, 0, 0}, {0, 0, 1}, {0, 0, 0}), KernelError);
}

TEST(Box, GathersPointsAndKnowsInfinity) {
    Box box;
    EXPECT_TRUE(box.is_empty() && !box.is_finite() && !box.is_open());
    box.add(Point(kNan, 0, 0));
    EXPECT_TRUE(box.is_empty());
    EXPECT_TRUE(box.enlarged(1).is_empty() && box.transformed(Transform()).is_empty());
    box.add(Point(1, 2, 3));
    box.add(Point(-1, 4, 3));
    EXPECT_EQ(box.size(), Vector(2, 2, 0));
    EXPECT_TRUE(box.contains({0, 3, 3}) && !box.contains({0, 3, 3.1}) && box.contains({0, 3, 3.1}, 0.2));
    EXPECT_DOUBLE_EQ(box.distance_to({4, 8, 3}), 5);
    const Box turned = box.transformed(Transform::rotation({0, 0, 0}, {0, 0, 1}, std::numbers::pi / 2));
    EXPECT_NEAR(distance(turned.min(), {-4, -1, 3}), 0, 1e-15);
    EXPECT_NEAR(distance(turned.max(), {-2, 1, 3}), 0, 1e-15);
    EXPECT_TRUE(box.intersects(box.enlarged(-0.5).enlarged(0.5)) &&
                !box.intersects(Box({5, 5, 5}, {6, 6, 6})));
    box.add(Point(0, 0, -kInfinite));
    EXPECT_TRUE(box.is_open() && !box.is_finite());
    EXPECT_TRUE(box.transformed(Transform::scaling({0, 0, 0}, 1e-3)).is_open());
}

TEST(Vectors, UnitSurvivesExtremeLengths) {
    for (const double size : {1e-300, 1e-160, 1e-5, 1.0, 1e5, 1e160, 1e300}) {
        EXPECT_NEAR((unit(Vector(3 * size, 0, 4 * size)) - Vector(0.6, 0, 0.8)).norm(), 0, 1e-15) << size;
    }
    const Vector once = unit(Vector(1, 2, 3));
    EXPECT_EQ(unit(once), once);
    EXPECT_NEAR(angle_between({1, 0, 0}, {-1, 1e-9, 0}), std::numbers::pi - 1e-9, 1e-15);
}

}  // namespace
}  // namespace veltrane::kernel
