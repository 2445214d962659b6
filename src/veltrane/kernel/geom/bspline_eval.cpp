#include "veltrane/kernel/geom/bspline_eval.hpp"

#include <algorithm>

namespace veltrane::kernel {

namespace {

/// One level of the de Boor recursion: points 0 .. degree - level from 0 .. degree - level + 1.
void step(std::span<const double> knots, int degree, int span, int level, double t, HomogeneousPoint* local) {
    for (int j = 0; j <= degree - level; ++j) {
        const double low = knots[span - degree + level + j];
        const double high = knots[span + 1 + j];
        const double share = (t - low) / (high - low);
        local[j] = (1 - share) * local[j] + share * local[j + 1];
    }
}

/// The old pole that has the same arguments, so that poles away from a change keep every bit; -1 if none
/// has. Looked for at the same place from either end, too: poles beyond the range of an unclamped curve
/// belong to no span of it.
int same_pole(const FlatSpline& curve, int span, const double* arguments, int place, int place_from_end) {
    const auto is_same = [&](int i) {
        return i >= 0 && i < curve.count() &&
               std::equal(arguments, arguments + curve.degree, curve.knots.begin() + i + 1);
    };
    if (is_same(place)) return place;
    if (is_same(place_from_end)) return place_from_end;
    for (int i = span - curve.degree; i <= span; ++i) {
        if (is_same(i)) return i;
    }
    return -1;
}

}  // namespace

FlatSpline write_out(const BSplineData& data, int turns) {
    FlatSpline result{data.degree, flat_knots(data), homogeneous_poles(data)};
    if (!data.periodic) return result;
    const int period_count = result.count();
    const int count = period_count * turns + data.degree;
    const double period = data.knots.back() - data.knots.front();
    result.poles.reserve(count);
    for (int i = period_count; i < count; ++i) result.poles.push_back(result.poles[i - period_count]);
    result.knots.reserve(count + data.degree + 1);
    for (int i = static_cast<int>(result.knots.size()); i < count + data.degree + 1; ++i) {
        result.knots.push_back(result.knots[i - period_count] + period);
    }
    return result;
}

void local_poles(const BSplineData& data, int span, HomogeneousPoint* out) {
    const int count = static_cast<int>(data.poles.size());
    for (int j = 0; j <= data.degree; ++j) {
        const int index = span - data.degree + j;
        const int i = data.periodic ? index % count : index;
        const double w = data.weights.empty() ? 1.0 : data.weights[i];
        out[j] << w * data.poles[i], w;
    }
}

HomogeneousPoint blossom(std::span<const double> knots, int degree, int span, HomogeneousPoint* local,
                         const double* arguments) {
    for (int level = 1; level <= degree; ++level)
        step(knots, degree, span, level, arguments[level - 1], local);
    return local[0];
}

HomogeneousJet de_boor(std::span<const double> knots, int degree, int span, HomogeneousPoint* local,
                       double t) {
    HomogeneousJet jet;
    jet.second.setZero();
    const int p = degree;
    const double width = knots[span + 1] - knots[span];
    for (int level = 1; level <= p; ++level) {
        if (level == p - 1) {
            const double after = knots[span + 2] - knots[span];
            const double before = knots[span + 1] - knots[span - 1];
            jet.second =
                (p * (p - 1) / width) * ((local[2] - local[1]) / after - (local[1] - local[0]) / before);
        }
        if (level == p) jet.first = (p / width) * (local[1] - local[0]);
        step(knots, p, span, level, t, local);
    }
    jet.point = local[0];
    return jet;
}

std::vector<HomogeneousPoint> refined_poles(const FlatSpline& curve, std::span<const double> knots) {
    const int degree = curve.degree;
    std::vector<HomogeneousPoint> poles(knots.size() - degree - 1);
    HomogeneousPoint local[kMaxDegree + 1];
    const int added = static_cast<int>(poles.size()) - curve.count();
    for (int i = 0; i < static_cast<int>(poles.size()); ++i) {
        const int span = find_span(curve.knots, degree, curve.count(), knots[i]);
        const double* arguments = knots.data() + i + 1;
        const int same = same_pole(curve, span, arguments, i, i - added);
        if (same >= 0) {
            poles[i] = curve.poles[same];
            continue;
        }
        std::copy_n(curve.poles.begin() + span - degree, degree + 1, local);
        poles[i] = blossom(curve.knots, degree, span, local, arguments);
    }
    return poles;
}

std::vector<HomogeneousPoint> bezier_poles(const BSplineCurve& curve, double a, double b) {
    const BSplineData& data = curve.data();
    const int degree = data.degree;
    const int count = static_cast<int>(data.poles.size()) + (data.periodic ? degree : 0);
    double middle = a + (b - a) / 2;
    if (data.periodic) {
        const double shift = wrapped(middle, curve.range()) - middle;
        middle += shift;
        a += shift;
        b += shift;
    }
    const int span = find_span(curve.flat_knots(), degree, count, middle);
    HomogeneousPoint source[kMaxDegree + 1], local[kMaxDegree + 1];
    local_poles(data, span, source);
    std::vector<HomogeneousPoint> poles(degree + 1);
    double arguments[kMaxDegree];
    std::fill_n(arguments, degree, a);
    for (int j = 0; j <= degree; ++j) {
        if (j > 0) arguments[degree - j] = b;
        std::copy_n(source, degree + 1, local);
        poles[j] = blossom(curve.flat_knots(), degree, span, local, arguments);
    }
    return poles;
}

}  // namespace veltrane::kernel
