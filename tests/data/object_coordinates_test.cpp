#include "veltrane/data/object_coordinates.hpp"

#include "veltrane/data/drawing_unit.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Vector;

const Vector kNormals[] = {{0, 0, 1},          {0, 0, -1},         {1, 0, 0},  {0, 1, 0},     {0, -1, 0},
                           {0.01, 0.01, 0.99}, {0.0157, 0, 0.999}, {1, 2, -3}, {-1, -1, 1e-3}};

TEST(ObjectCoordinates, KnownPoints) {
    struct Row {
        Vector normal;
        Point object;
        Point world;
    };
    for (const Row& row : {Row{{0, 0, 1}, {1, 2, 3}, {1, 2, 3}}, Row{{0, 0, -1}, {1, 2, 3}, {-1, 2, -3}},
                           Row{{1, 0, 0}, {1, 0, 0}, {0, 1, 0}}, Row{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                           Row{{0, 1, 0}, {1, 0, 0}, {-1, 0, 0}}, Row{{0, 0, 5}, {1, 2, 3}, {1, 2, 3}}}) {
        Point point = row.object;
        DxfData::ECSToWCS(row.normal, point);
        EXPECT_LT((point - row.world).norm(), 1e-15) << row.normal.transpose();
    }
}

TEST(ObjectCoordinates, BackAndForthIsNothingAndMatrixAndMotionAgree) {
    const Point given(3, -5, 7);
    for (const Vector& any : kNormals) {
        const Vector normal = any.normalized();
        Point point = given;
        const kernel::Matrix3 axes = DxfData::ECSToWCS(normal, point);
        EXPECT_LT((kernel::cross(axes.col(0), axes.col(1)) - axes.col(2)).norm(), 1e-15);
        EXPECT_LT((axes.col(2) - normal).norm(), 1e-15);
        EXPECT_LT((DxfData::ECSToWCS(normal).point(given) - point).norm(), 1e-14);
        DxfData::WCSToECS(normal, point);
        EXPECT_LT((point - given).norm(), 1e-14);

        const double angle = 0.7;
        const kernel::Transform placed = DxfData::ECSToWCS(normal, given, angle);
        Point expected = given + Point(std::cos(angle), std::sin(angle), 0);
        DxfData::ECSToWCS(normal, expected);
        EXPECT_LT((placed.point({1, 0, 0}) - expected).norm(), 1e-14);
        EXPECT_EQ(placed.scale_factor(), 1);  // so that it can be a placement
    }
}

TEST(ObjectCoordinates, NoNormal) {
    Point point(1, 2, 3);
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    for (const Vector& normal : {Vector(0, 0, 0), Vector(kNan, 0, 0)}) {
        EXPECT_THROW(DxfData::ECSToWCS(normal, point), kernel::KernelError);
    }
}

TEST(DrawingUnit, KnownAndUnknown) {
    EXPECT_EQ(DxfData::millimetres_per_unit(1), 25.4);
    EXPECT_EQ(DxfData::millimetres_per_unit(6), 1000);
    EXPECT_EQ(DxfData::millimetres_per_unit(20), 3.08568025e19);
    for (int unknown : {-1, 21, INT32_MIN, INT32_MAX}) {
        EXPECT_FALSE(DxfData::millimetres_per_unit(unknown)) << unknown;
    }
}

}  // namespace
}  // namespace veltrane
