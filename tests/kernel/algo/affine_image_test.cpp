// Random affine maps of every kind of geometry: the mapped point is the point of the image.
#include "kernel/algo/sample_shapes.hpp"
#include "kernel/algo/spline_face.hpp"
#include "kernel/geom/samples.hpp"
#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/algo/transform.hpp"

namespace veltrane::kernel {
namespace {

AffineMap random_map(samples::Random& random) {
    while (true) {
        Matrix3 linear;
        for (int i = 0; i < 9; ++i) linear.data()[i] = random(-2, 2);
        if (std::abs(AffineMap(linear, Vector(0, 0, 0)).determinant()) > 0.1) {
            return {linear, random.point()};
        }
    }
}

TEST(AffineImage, PointsOfCurvesAndSurfacesGoWhereTheMapTakesThem) {
    samples::Random random(11);
    for (int round = 0; round < 50; ++round) {
        const AffineMap map = random_map(random);
        for (const auto& [name, curve] : samples::curves()) {
            const MappedCurve image = curve->map_curve(map);
            for (const double t : samples::parameters(curve->range(), 5)) {
                const Point expected = map.point(curve->value(t));
                EXPECT_LT(distance(image.curve->value(image.parameters(t)), expected),
                          1e-11 * (1 + expected.norm()))
                    << name;
            }
        }
        for (const auto& [name, surface] : samples::surfaces()) {
            const MappedSurface image = surface->map_surface(map);
            for (const double u : samples::parameters(surface->u_range(), 3)) {
                for (const double v : samples::parameters(surface->v_range(), 3)) {
                    const Point expected = map.point(surface->value(u, v));
                    const Point2 uv = image.parameters.point({u, v});
                    EXPECT_LT(distance(image.surface->value(uv), expected), 1e-11 * (1 + expected.norm()))
                        << name;
                }
            }
        }
    }
}

TEST(AffineImage, StretchedCirclesAreEllipsesOnTheirPrincipalAxes) {
    const struct {
        Vector factors;
        double major, minor;
        Vector axis;  // of the major radius
    } rows[] = {
        {{3, 1, 1}, 6, 2, {1, 0, 0}},
        {{1, 4, 9}, 8, 2, {0, 1, 0}},
        {{-3, 1, 1}, 6, 2, {1, 0, 0}},
        {{1, 0.25, 1}, 2, 0.5, {1, 0, 0}},
    };
    const Circle circle(Frame::from_normal_and_x({0, 0, 0}, {0, 0, 1}, {1, 1, 0}), 2);
    for (const auto& row : rows) {
        const Ref<Curve> image = circle.mapped(AffineMap::scaling(Frame(), row.factors));
        const Ellipse* ellipse = as<Ellipse>(image.get());
        ASSERT_TRUE(ellipse);
        EXPECT_DOUBLE_EQ(ellipse->major_radius(), row.major);
        EXPECT_DOUBLE_EQ(ellipse->minor_radius(), row.minor);
        EXPECT_LT(cross(ellipse->frame().x, row.axis).norm(), 1e-15);
        EXPECT_TRUE(ellipse->frame().is_right_handed());
    }
}

TEST(AffineImage, FacesOnSplinesKeepTheirSideAndTheirEdges) {
    samples::Random random(3);
    const Shape face = samples::spline_face(make<BSplineSurface>(samples::hilly_data(true)));
    for (int round = 0; round < 20; ++round) {
        const AffineMap map = random_map(random);
        const Shape image = transformed(face, map);
        samples::expect_sound(image);
        EXPECT_EQ(image.is_reversed(), map.determinant() < 0);
        const Vector outwards = map.vector(samples::face_normal(face));
        EXPECT_GT(outwards.dot(samples::face_normal(image)), 0);
        const Box box = bounding_box(image);
        const Point inside = map.point(face_surface(face)->value(2.5, 1.1));
        EXPECT_TRUE(box.contains(inside));
    }
}

}  // namespace
}  // namespace veltrane::kernel
