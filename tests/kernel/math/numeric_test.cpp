#include "veltrane/kernel/math/bernstein.hpp"
#include "veltrane/kernel/math/quadrature.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace veltrane::kernel {
namespace {

TEST(Quadrature, IsExactForPolynomialsOfDegree22) {
    for (int degree = 0; degree <= 22; ++degree) {
        const Integral one_piece = integrate([&](double x) { return std::pow(x, degree); }, {0, 2}, 0, 1);
        EXPECT_NEAR(one_piece.value / (std::pow(2, degree + 1) / (degree + 1)), 1, 2e-15) << degree;
    }
}

TEST(Quadrature, AdaptsWithinBounds) {
    struct Row {
        const char* name;
        std::function<double(double)> f;
        Interval interval;
        double value, relative;
    };
    const Row rows[] = {
        {"peak", [](double x) { return 1 / (1e-6 + x * x); }, {-1, 1}, 2e3 * std::atan(1e3), 1e-12},
        {"root", [](double x) { return std::sqrt(x); }, {0, 1}, 2.0 / 3, 1e-12},
        {"kink", [](double x) { return std::abs(x - 0.3); }, {0, 1}, 0.29, 1e-12},
        {"backwards", [](double x) { return x; }, {1, 0}, -0.5, 1e-15},
        {"jumps", [](double x) { return std::sin(1 / x) > 0 ? 1.0 : 0.0; }, {0, 1}, 0.6, 0.4},
    };
    for (const Row& row : rows) {
        int calls = 0;
        const Integral result = integrate([&](double x) { return ++calls, row.f(x); }, row.interval);
        EXPECT_NEAR(result.value / row.value, 1, row.relative) << row.name;
        EXPECT_LE(calls, 15 * 800) << row.name;
    }
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(integrate([&](double) { return nan; }, {0, 1}).value));
}

/// The polynomial with the given roots, from linear factors.
Bernstein with_roots(const std::vector<double>& roots) {
    Bernstein p{1};
    for (const double r : roots) p = multiply(p, {-r, 1 - r});
    return p;
}

TEST(Bernstein, EvaluatesMultipliesAndDerives) {
    const Bernstein p = with_roots({0.2, 0.7, -3}), q = with_roots({0.5, 2});
    for (const double u : {0.0, 0.1, 0.5, 0.83, 1.0}) {
        const double value = (u - 0.2) * (u - 0.7) * (u + 3);
        EXPECT_NEAR(evaluate(p, u), value, 1e-15);
        EXPECT_NEAR(evaluate(multiply(p, q), u), value * (u - 0.5) * (u - 2), 1e-15);
        EXPECT_NEAR(evaluate(add(p, q, 2), u), value + 2 * (u - 0.5) * (u - 2), 1e-15);
        EXPECT_NEAR(evaluate(elevate(p, 9), u), value, 1e-15);
        EXPECT_NEAR(evaluate(derivative(p), u),
                    (u - 0.7) * (u + 3) + (u - 0.2) * (u + 3) + (u - 0.2) * (u - 0.7), 1e-14);
    }
}

TEST(Bernstein, FindsAllRoots) {
    struct Row {
        std::vector<double> roots;
        double tolerance;
    };
    const Row rows[] = {
        {{}, 0},
        {{0.3}, 1e-15},
        {{0, 1}, 1e-15},
        {{0.5}, 1e-15},
        {{0.25, 0.5, 0.75}, 1e-14},
        {{0.3, 0.3000001}, 1e-8},
        {{1e-9, 0.4, 1 - 1e-9}, 1e-14},
        {{0.05, 0.15, 0.25, 0.35, 0.45, 0.55, 0.65, 0.75, 0.85, 0.95}, 1e-9},
        {{0.4, 0.4, 0.4}, 1e-4},
    };
    for (const Row& row : rows) {
        std::vector<double> factors = row.roots;
        factors.push_back(-0.5);  // roots outside do not count
        factors.push_back(1.7);
        const std::vector<double> found = roots(with_roots(factors));
        for (const double r : row.roots) {
            double nearest = 1;
            for (const double f : found) nearest = std::min(nearest, std::abs(f - r));
            EXPECT_LE(nearest, row.tolerance) << r;
        }
        for (const double f : found) {
            double nearest = 1;
            for (const double r : row.roots) nearest = std::min(nearest, std::abs(f - r));
            EXPECT_LE(nearest, row.tolerance) << f;
        }
    }
    EXPECT_TRUE(roots({}).empty());
    EXPECT_TRUE(roots({0, 0, 0}).empty());
    EXPECT_TRUE(roots({1, std::numeric_limits<double>::infinity()}).empty());
    EXPECT_TRUE(roots({1, std::numeric_limits<double>::quiet_NaN(), -1}).empty());
    // Noise of high degree: many sign changes, bounded work.
    Bernstein noise;
    for (int i = 0; i < 100; ++i) noise.push_back(i % 2 ? 1 : -1);
    EXPECT_LE(roots(noise).size(), 99u);
}

}  // namespace
}  // namespace veltrane::kernel
