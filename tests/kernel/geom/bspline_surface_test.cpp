#include "veltrane/kernel/geom/bspline_surface.hpp"

#include "kernel/geom/samples.hpp"
#include "veltrane/kernel/geom/describe.hpp"
#include "veltrane/kernel/geom/surface_fit.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace veltrane::kernel {
namespace {

TEST(BSplineSurface, IsoCurvesLieOnIt) {
    for (const bool rational : {false, true}) {
        const BSplineSurface surface(samples::hilly_data(rational));
        for (const double u : {0.0, 0.3, 2.0, 5.0}) {
            for (const double v : {-1.0, 0.0, 0.4, 3.0}) {
                EXPECT_LT(distance(surface.curve_at_u(u)->value(v), surface.value(u, v)), 1e-13);
                EXPECT_LT(distance(surface.curve_at_v(v)->value(u), surface.value(u, v)), 1e-13);
            }
        }
        EXPECT_EQ(surface.curve_at_u(1)->is_rational(), rational);
    }
    EXPECT_EQ(
        describe(BSplineSurface(samples::hilly_data(true))).find("rational B-spline surface degree 3 x 2"),
        0u);
}

TEST(BSplineSurface, BoxHoldsThePointsAndIsTight) {
    for (const bool rational : {false, true}) {
        const BSplineSurface surface(samples::hilly_data(rational));
        const Interval u{0.5, 4.2}, v{-0.7, 2.9};
        const Box box = bounding_box(surface, u, v);
        Box sampled;
        for (int i = 0; i <= 400; ++i) {
            for (int j = 0; j <= 400; ++j) sampled.add(surface.value(u.at(i / 400.0), v.at(j / 400.0)));
        }
        EXPECT_TRUE(box.contains(sampled.min(), 1e-12) && box.contains(sampled.max(), 1e-12));
        EXPECT_LT((box.size() - sampled.size()).norm(), 0.01);  // one step of the samples up a slope
        EXPECT_THROW(bounding_box(surface, {-1, 2}, v), KernelError);
    }
}

TEST(BSplineSurface, BadDataIsRefused) {
    const struct {
        const char* what;
        std::function<void(BSplineSurfaceData&)> spoil;
    } rows[] = {
        {"a pole too few", [](auto& d) { d.poles.pop_back(); }},
        {"no poles", [](auto& d) { d.poles.clear(); }},
        {"no knots", [](auto& d) { d.u.knots.clear(), d.u.multiplicities.clear(); }},
        {"a weight too few", [](auto& d) { d.weights.pop_back(); }},
        {"a negative weight", [](auto& d) { d.weights[17] = -1; }},
        {"falling knots", [](auto& d) { std::swap(d.v.knots[1], d.v.knots[2]); }},
        {"degree 0", [](auto& d) { d.u.degree = 0; }},
        {"a huge degree", [](auto& d) { d.v.degree = std::numeric_limits<int>::max(); }},
        {"no number", [](auto& d) { d.poles[9].y() = std::nan(""); }},
    };
    for (const auto& row : rows) {
        BSplineSurfaceData data = samples::hilly_data(true);
        row.spoil(data);
        EXPECT_THROW(BSplineSurface{data}, KernelError) << row.what;
    }
    const auto surface = make<BSplineSurface>(samples::hilly_data(false));
    Matrix3 to_line = Matrix3::Zero();
    to_line(0, 0) = 1;
    EXPECT_THROW(surface->mapped(AffineMap(to_line, {0, 0, 0})), KernelError);
}

PointGrid grid_of(int rows, int columns, const std::function<double(double, double)>& height) {
    PointGrid grid{rows, columns, {}};
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < columns; ++j) {
            const double x = 10.0 * i / (rows - 1), y = 6.0 * j / (columns - 1);
            grid.points.emplace_back(x, y, height(x, y));
        }
    }
    return grid;
}

TEST(SurfaceFit, PassesThePointsWithinTheTolerance) {
    const auto hills = [](double x, double y) { return std::sin(x) * std::cos(y); };
    const auto saddle = [](double x, double y) { return x * y / 10; };
    const struct {
        const char* what;
        PointGrid grid;
        double tolerance;
        int poles_u, poles_v;  // at most
    } rows[] = {
        {"four corners out of plane", {2, 2, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0.1}}}, 0.001, 4, 4},
        {"a corner twice", {2, 2, {{0, 0, 0}, {1, 0, 0}, {0, 1, 1}, {0, 1, 1}}}, 0.001, 4, 4},
        {"three rows", grid_of(3, 5, hills), 0, 4, 5},
        {"hills, exactly", grid_of(40, 30, hills), 0, 40, 30},
        {"hills, nearly", grid_of(200, 150, hills), 0.001, 60, 40},
        {"saddle", grid_of(50, 50, saddle), 0.001, 4, 4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const auto surface = fit(row.grid, row.tolerance);
        EXPECT_EQ(surface->axis_u().degree, 3);
        EXPECT_LE(surface->pole_count_u(), row.poles_u);
        EXPECT_LE(surface->pole_count_v(), row.poles_v);
        const std::size_t step = 1 + row.grid.points.size() / 200;
        for (std::size_t i = 0; i < row.grid.points.size(); i += step) {
            const Point& p = row.grid.points[i];
            EXPECT_LE(distance(surface->value(surface->project(p)), p), row.tolerance + 1e-9);
        }
        EXPECT_LT(distance(surface->value(0, 0), row.grid.points.front()), 1e-12);
        EXPECT_LT(distance(surface->value(1, 1), row.grid.points.back()), 1e-12);
    }
}

TEST(SurfaceFit, BadGridsAreRefused) {
    const Point o(0, 0, 0), x(1, 0, 0), y(0, 1, 0), bad(std::nan(""), 0, 0);
    for (const PointGrid& grid :
         {PointGrid{1, 2, {o, x}}, PointGrid{2, 2, {o, x, y}}, PointGrid{2, 2, {o, x, y, bad}},
          PointGrid{2, 2, {o, o, o, o}}, PointGrid{3, 2, {o, x, o, x, y, {1, 1, 0}}}, PointGrid{}}) {
        EXPECT_THROW(fit(grid, 0.001), KernelError);
    }
    EXPECT_THROW(fit({2, 2, {o, x, y, {1, 1, 1}}}, 0.001, 26), KernelError);
}

}  // namespace
}  // namespace veltrane::kernel
