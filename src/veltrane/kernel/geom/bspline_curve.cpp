#include "veltrane/kernel/geom/bspline_curve.hpp"

#include "veltrane/kernel/geom/bezier.hpp"
#include "veltrane/kernel/geom/bspline_eval.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>

namespace veltrane::kernel {

namespace {

/// Checked before members are built from it.
BSplineData validated(BSplineData data) {
    validate(data);
    // Weights that are all the same say nothing: the curve is not rational.
    const auto& w = data.weights;
    if (std::adjacent_find(w.begin(), w.end(), std::not_equal_to<>()) == w.end()) data.weights.clear();
    return data;
}

/// Zeros of the derivative of the squared distance to `p`, as values of u on the Bezier piece. With the
/// piece A / w and B = A - w p the derivative vanishes with B . (B' w - B w').
std::vector<double> critical_parameters(const std::vector<HomogeneousPoint>& poles, const Point& p) {
    const std::size_t count = poles.size();
    Bernstein w(count);
    Bernstein offset[3];
    for (std::size_t i = 0; i < count; ++i) w[i] = poles[i][3];
    const bool polynomial = std::all_of(w.begin(), w.end(), [](double x) { return x == 1; });
    const Bernstein w_slope = derivative(w);
    Bernstein sum;
    for (int axis = 0; axis < 3; ++axis) {
        Bernstein b(count);
        for (std::size_t i = 0; i < count; ++i) b[i] = poles[i][axis] - w[i] * p[axis];
        Bernstein slope = derivative(b);
        if (!polynomial) slope = add(multiply(slope, w), multiply(b, w_slope), -1);
        const Bernstein product = multiply(b, slope);
        sum = sum.empty() ? product : add(sum, product);
    }
    return roots(sum);
}

}  // namespace

BSplineCurve::BSplineCurve(BSplineData data)
    : data_(validated(std::move(data))), flat_(kernel::flat_knots(data_)), range_(parameter_range(data_)) {}

bool BSplineCurve::is_closed() const {
    return data_.periodic || distance(value(range_.first), value(range_.last)) <= kConfusion;
}

Point BSplineCurve::value(double t) const {
    return derivatives(t).point;
}

CurveDerivatives BSplineCurve::derivatives(double t) const {
    const int count = static_cast<int>(data_.poles.size()) + (data_.periodic ? data_.degree : 0);
    if (data_.periodic) t = wrapped(t, range_);
    const int span = find_span(flat_, data_.degree, count, t);
    HomogeneousPoint local[kMaxDegree + 1];
    local_poles(data_, span, local);
    const HomogeneousJet jet = de_boor(flat_, data_.degree, span, local, t);
    if (!is_rational()) return {jet.point.head<3>(), jet.first.head<3>(), jet.second.head<3>()};
    const double w = jet.point[3];
    const Point point = jet.point.head<3>() / w;
    const Vector first = (jet.first.head<3>() - jet.first[3] * point) / w;
    const Vector second = (jet.second.head<3>() - 2 * jet.first[3] * first - jet.second[3] * point) / w;
    return {point, first, second};
}

double BSplineCurve::project(const Point& p, const Interval& interval) const {
    if (!is_usable(p)) throw KernelError("A point to project is not usable");
    require_piece(interval);
    double best = interval.first;
    double best_distance = distance(value(best), p);
    const auto consider = [&](double t) {
        const double d = distance(value(t), p);
        if (d >= best_distance) return;
        best = t;
        best_distance = d;
    };
    const std::vector<double> ends = breaks(interval);
    for (const double t : ends) consider(t);
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
        const std::vector<HomogeneousPoint> poles = bezier_poles(*this, ends[i], ends[i + 1]);
        Box hull;
        for (const auto& pole : poles) hull.add(Point(pole.head<3>() / pole[3]));
        if (hull.distance_to(p) >= best_distance) continue;
        for (const double u : critical_parameters(poles, p)) consider(Interval{ends[i], ends[i + 1]}.at(u));
    }
    // One step of Newton's method takes away what the change of basis lost.
    const CurveDerivatives d = derivatives(best);
    const Vector offset = d.point - p;
    const double refined = best - offset.dot(d.first) / (d.first.squaredNorm() + offset.dot(d.second));
    if (std::abs(refined - best) <= 1e-6 * interval.length() && interval.contains(refined)) {
        if (distance(value(refined), p) <= best_distance * (1 + 1e-12) + 1e-15) return refined;
    }
    return best;
}

std::vector<double> BSplineCurve::breaks(const Interval& interval) const {
    std::vector<double> result{interval.first};
    const double little = 1e-13 * interval.length();
    const auto consider = [&](double t) {
        if (t > interval.first + little && t < interval.last - little) result.push_back(t);
    };
    if (!data_.periodic) {
        for (const double knot : data_.knots) consider(knot);
    } else {
        require_piece(interval);
        const double turn = std::floor((interval.first - range_.first) / period()) * period();
        for (const double shift : {turn, turn + period(), turn + 2 * period()}) {
            for (std::size_t i = 0; i + 1 < data_.knots.size(); ++i) consider(data_.knots[i] + shift);
        }
    }
    result.push_back(interval.last);
    return result;
}

MappedCurve BSplineCurve::transform_curve(const Transform& transform) const {
    BSplineData image = data_;
    for (Point& pole : image.poles) pole = transform.point(pole);
    return {make<BSplineCurve>(std::move(image)), {}};
}

MappedCurve BSplineCurve::map_curve(const AffineMap& map) const {
    BSplineData image = data_;
    for (Point& pole : image.poles) pole = map.point(pole);
    return {make<BSplineCurve>(std::move(image)), {}};
}

MappedCurve BSplineCurve::reverse_curve() const {
    BSplineData image = data_;
    const double sum = data_.periodic ? range_.first + range_.last : data_.knots.front() + data_.knots.back();
    std::reverse(image.knots.begin(), image.knots.end());
    for (double& knot : image.knots) knot = sum - knot;
    std::reverse(image.multiplicities.begin(), image.multiplicities.end());
    std::reverse(image.poles.begin(), image.poles.end());
    std::reverse(image.weights.begin(), image.weights.end());
    if (data_.periodic) {
        // Reversal puts last what acts first; turn the list until pole 0 again acts just after the seam.
        const int count = static_cast<int>(image.poles.size());
        int turn = (count - 1 - (data_.degree - data_.multiplicities.front())) % count;
        if (turn < 0) turn += count;
        std::rotate(image.poles.begin(), image.poles.begin() + turn, image.poles.end());
        if (is_rational()) {
            std::rotate(image.weights.begin(), image.weights.begin() + turn, image.weights.end());
        }
    }
    return {make<BSplineCurve>(std::move(image)), {-1, sum}};
}

}  // namespace veltrane::kernel
