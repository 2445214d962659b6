// Curves: a point, derivatives, and the nearest point.
#include "drawing/random.hpp"
#include "veltrane/kernel/geom/bspline_curve.hpp"

#include <benchmark/benchmark.h>

namespace {

using namespace veltrane;
using namespace veltrane::kernel;

/// A wavy cubic of forty poles, as a drawn contour line.
Ref<Curve> spline(bool rational) {
    bench::Random random(1);
    constexpr int kPoles = 40;
    BSplineData data;
    data.degree = 3;
    for (int i = 0; i < kPoles; ++i) {
        const double height = random.between(-5, 5);
        data.poles.emplace_back(10.0 * i, height, random.between(-5, 5));
        if (rational) data.weights.push_back(random.between(0.5, 2));
    }
    for (int i = 0; i <= kPoles - data.degree; ++i) {
        data.knots.push_back(i);
        data.multiplicities.push_back(i == 0 || i == kPoles - data.degree ? data.degree + 1 : 1);
    }
    return make<BSplineCurve>(data);
}

/// Walks over the range in steps that fall on ever new parameters.
class Walk {
public:
    explicit Walk(const Interval& range) : range_(range) {}
    double next() {
        part_ += 0.6180339887498949;
        if (part_ >= 1) part_ -= 1;
        return range_.first + part_ * (range_.last - range_.first);
    }

private:
    Interval range_;
    double part_ = 0;
};

void value(benchmark::State& state, const Ref<Curve>& curve) {
    Walk walk(curve->range());
    for (auto _ : state) benchmark::DoNotOptimize(curve->value(walk.next()));
}

void derivatives(benchmark::State& state, const Ref<Curve>& curve) {
    Walk walk(curve->range());
    for (auto _ : state) benchmark::DoNotOptimize(curve->derivatives(walk.next()));
}

void project(benchmark::State& state, const Ref<Curve>& curve) {
    Walk walk(curve->range());
    for (auto _ : state) {
        const Point near = curve->value(walk.next()) + Vector(0.1, 0.2, 0.3);
        benchmark::DoNotOptimize(curve->project(near));
    }
}

BENCHMARK_CAPTURE(value, spline, spline(false));
BENCHMARK_CAPTURE(value, rational_spline, spline(true));
BENCHMARK_CAPTURE(derivatives, spline, spline(false));
BENCHMARK_CAPTURE(derivatives, rational_spline, spline(true));
BENCHMARK_CAPTURE(project, spline, spline(false));
BENCHMARK_CAPTURE(project, rational_spline, spline(true));

}  // namespace
