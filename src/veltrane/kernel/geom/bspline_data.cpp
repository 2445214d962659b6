#include "veltrane/kernel/geom/bspline_data.hpp"

#include "veltrane/kernel/math/error.hpp"

#include <algorithm>
#include <numeric>

namespace veltrane::kernel {

namespace {

void require(bool condition, const char* message) {
    if (!condition) throw KernelError(message);
}

void validate_poles(const BSplineData& data) {
    require(data.poles.size() >= 2, "A B-spline needs at least two poles");
    require(std::all_of(data.poles.begin(), data.poles.end(), [](const Point& p) { return is_usable(p); }),
            "A pole of a B-spline is not a usable point");
    if (data.weights.empty()) return;
    require(data.weights.size() == data.poles.size(), "A B-spline needs one weight for each pole");
    require(std::all_of(data.weights.begin(), data.weights.end(),
                        [](double w) { return w >= 1 / kLargest && is_usable(w); }),
            "A weight of a B-spline is not a positive number");
}

void validate_knots(const BSplineData& data) {
    const auto& knots = data.knots;
    require(knots.size() >= 2, "A B-spline needs at least two knots");
    require(knots.size() == data.multiplicities.size(), "A B-spline needs one multiplicity for each knot");
    require(std::all_of(knots.begin(), knots.end(), [](double k) { return is_usable(k); }),
            "A knot of a B-spline is not a usable number");
    require(std::adjacent_find(knots.begin(), knots.end(), std::greater_equal<>()) == knots.end(),
            "The knots of a B-spline must ascend");
}

void validate_multiplicities(const BSplineData& data, bool pieces) {
    const auto& m = data.multiplicities;
    require(std::all_of(m.begin(), m.end(), [](int i) { return i >= 1; }),
            "A multiplicity of a B-spline is below 1");
    require(std::all_of(m.begin() + 1, m.end() - 1, [&](int i) { return pieces || i <= data.degree; }),
            "A multiplicity of a B-spline exceeds the degree");
    const int end_limit = data.periodic ? data.degree : data.degree + 1;
    require(m.front() <= end_limit && m.back() <= end_limit,
            "An end multiplicity of a B-spline exceeds its limit");
    const auto poles = static_cast<long long>(data.poles.size());
    const long long sum = std::accumulate(m.begin(), m.end(), 0LL);
    if (data.periodic) {
        require(m.front() == m.back(), "The end multiplicities of a periodic B-spline differ");
        require(sum - m.back() == poles, "The multiplicities of a periodic B-spline do not fit its poles");
    } else {
        require(sum == poles + data.degree + 1, "The multiplicities of a B-spline do not fit its poles");
        require(poles > data.degree, "A B-spline has too few poles for its degree");
    }
}

}  // namespace

void validate(const BSplineData& data, bool pieces) {
    require(data.degree >= 1 && data.degree <= kMaxDegree, "The degree of a B-spline is not 1 to 25");
    validate_poles(data);
    validate_knots(data);
    validate_multiplicities(data, pieces);
    const Interval range = parameter_range(data);
    require(range.first < range.last, "The parameter range of a B-spline is empty");
}

std::vector<double> flat_knots(const BSplineData& data) {
    std::vector<double> flat;
    const std::size_t last = data.periodic ? data.knots.size() - 1 : data.knots.size();
    for (std::size_t i = 0; i < last; ++i) flat.insert(flat.end(), data.multiplicities[i], data.knots[i]);
    if (!data.periodic) return flat;
    // One period of knots is repeated: place `degree` of the result is the last copy of the first knot.
    const int count = static_cast<int>(flat.size());
    const double period = data.knots.back() - data.knots.front();
    std::vector<double> extended(count + 2 * data.degree + 1);
    for (int i = 0; i < static_cast<int>(extended.size()); ++i) {
        const int place = i - data.degree + data.multiplicities.front() - 1;
        const int turn = place >= 0 ? place / count : -((count - 1 - place) / count);
        const double knot = flat[place - turn * count];
        extended[i] = turn == 1 && knot == data.knots.front() ? data.knots.back() : knot + turn * period;
    }
    return extended;
}

Interval parameter_range(const BSplineData& data) {
    if (data.periodic) return {data.knots.front(), data.knots.back()};
    // The flat knots number `degree` from either end.
    const auto nth = [&](auto knot, auto multiplicity) {
        for (int left = data.degree; left >= *multiplicity; ++knot, ++multiplicity) left -= *multiplicity;
        return *knot;
    };
    return {nth(data.knots.begin(), data.multiplicities.begin()),
            nth(data.knots.rbegin(), data.multiplicities.rbegin())};
}

DistinctKnots distinct_knots(std::span<const double> flat, double tolerance) {
    DistinctKnots result;
    for (const double knot : flat) {
        if (!result.knots.empty() && std::abs(knot - result.knots.back()) <= tolerance) {
            ++result.multiplicities.back();
        } else {
            result.knots.push_back(knot);
            result.multiplicities.push_back(1);
        }
    }
    return result;
}

std::vector<HomogeneousPoint> homogeneous_poles(const BSplineData& data) {
    std::vector<HomogeneousPoint> poles(data.poles.size());
    for (std::size_t i = 0; i < poles.size(); ++i) {
        const double w = data.weights.empty() ? 1.0 : data.weights[i];
        poles[i] << w * data.poles[i], w;
    }
    return poles;
}

void set_homogeneous(BSplineData& data, std::span<const HomogeneousPoint> poles) {
    const bool rational = !data.weights.empty();
    data.poles.resize(poles.size());
    if (rational) data.weights.resize(poles.size());
    for (std::size_t i = 0; i < poles.size(); ++i) {
        data.poles[i] = rational ? Point(poles[i].head<3>() / poles[i][3]) : Point(poles[i].head<3>());
        if (rational) data.weights[i] = poles[i][3];
    }
}

int find_span(std::span<const double> flat, int degree, int count, double t) {
    const auto first = flat.begin() + degree;
    const auto last = flat.begin() + count;
    auto above = std::upper_bound(first, last, t);
    if (above == last) above = std::lower_bound(first, last, *last);  // the last span that is not empty
    if (above == first) above = std::upper_bound(first, last, *first);
    return static_cast<int>(above - flat.begin()) - 1;
}

}  // namespace veltrane::kernel
