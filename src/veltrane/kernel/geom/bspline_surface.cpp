// After Piegl and Tiller, "The NURBS Book", chapters 3 and 4: a surface is a curve whose poles run along
// curves.
#include "veltrane/kernel/geom/bspline_surface.hpp"

#include "veltrane/kernel/geom/bspline_eval.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>
#include <numeric>

namespace veltrane::kernel {

namespace {

BSplineData line_of(const BSplineAxis& axis) {
    return {axis.degree, {}, {}, axis.knots, axis.multiplicities, false};
}

/// The checks on curves do for each direction. Every pole is seen once along v.
BSplineSurfaceData validated(BSplineSurfaceData data) {
    const long long along_u = data.u.pole_count(), along_v = data.v.pole_count();
    const auto poles = static_cast<long long>(data.poles.size());
    if (along_u < 2 || along_v < 2 || poles % along_v != 0 || poles / along_v != along_u) {
        throw KernelError("The poles of a B-spline surface do not fit its knots");
    }
    if (!data.weights.empty() && data.weights.size() != data.poles.size()) {
        throw KernelError("A B-spline surface needs one weight for each pole");
    }
    BSplineData across = line_of(data.u);
    across.poles.assign(along_u, Point(0, 0, 0));
    validate(across);
    for (auto at = data.poles.begin(); at != data.poles.end(); at += along_v) {
        BSplineData row = line_of(data.v);
        row.poles.assign(at, at + along_v);
        if (!data.weights.empty()) {
            const auto first = data.weights.begin() + (at - data.poles.begin());
            row.weights.assign(first, first + along_v);
        }
        validate(row);
    }
    const auto& w = data.weights;
    if (std::adjacent_find(w.begin(), w.end(), std::not_equal_to<>()) == w.end()) data.weights.clear();
    return data;
}

Interval range_of(const BSplineAxis& axis) {
    return parameter_range(line_of(axis));
}

BSplineData curve_data(const BSplineAxis& axis, const std::vector<HomogeneousPoint>& poles, bool rational) {
    BSplineData data = line_of(axis);
    data.weights.resize(rational ? 1 : 0);
    set_homogeneous(data, poles);
    return data;
}

void require_usable(double parameter) {
    if (!is_usable(parameter)) throw KernelError("A parameter of a surface is not usable");
}

/// The Bezier poles over [a, b] of the line with the given local poles.
void to_bezier(std::span<const double> knots, int degree, int span, const HomogeneousPoint* line, double a,
               double b, HomogeneousPoint* out) {
    double arguments[kMaxDegree];
    HomogeneousPoint local[kMaxDegree + 1];
    std::fill_n(arguments, degree, a);
    for (int j = 0; j <= degree; ++j) {
        if (j > 0) arguments[degree - j] = b;
        std::copy_n(line, degree + 1, local);
        out[j] = blossom(knots, degree, span, local, arguments);
    }
}

bool lie_on_a_line(const std::vector<Point>& points) {
    const auto from_first = [&](const Point& p) { return Vector(p - points.front()); };
    Vector along = Vector::Zero();
    for (const Point& p : points) {
        if (from_first(p).squaredNorm() > along.squaredNorm()) along = from_first(p);
    }
    if (along == Vector::Zero()) return true;
    return std::all_of(points.begin(), points.end(), [&](const Point& p) {
        return cross(along, from_first(p)).norm() <= kAngular * along.squaredNorm();
    });
}

}  // namespace

long long BSplineAxis::pole_count() const {
    return std::accumulate(multiplicities.begin(), multiplicities.end(), 0LL) - degree - 1;
}

BSplineSurface::BSplineSurface(BSplineSurfaceData data)
    : data_(validated(std::move(data))),
      flat_u_(flat_knots(line_of(data_.u))),
      flat_v_(flat_knots(line_of(data_.v))),
      count_u_(static_cast<int>(data_.u.pole_count())),
      count_v_(static_cast<int>(data_.v.pole_count())),
      range_u_(range_of(data_.u)),
      range_v_(range_of(data_.v)) {}

HomogeneousPoint BSplineSurface::homogeneous(int i, int j) const {
    const double w = is_rational() ? data_.weights[index(i, j)] : 1.0;
    HomogeneousPoint result;
    result << w * pole(i, j), w;
    return result;
}

SurfaceDerivatives BSplineSurface::derivatives(double u, double v) const {
    const int p = data_.u.degree, q = data_.v.degree;
    const int span_u = find_span(flat_u_, p, count_u_, u), span_v = find_span(flat_v_, q, count_v_, v);
    HomogeneousPoint row[kMaxDegree + 1];
    HomogeneousPoint value[kMaxDegree + 1], first[kMaxDegree + 1], second[kMaxDegree + 1];
    for (int i = 0; i <= p; ++i) {
        for (int j = 0; j <= q; ++j) row[j] = homogeneous(span_u - p + i, span_v - q + j);
        const HomogeneousJet jet = de_boor(flat_v_, q, span_v, row, v);
        value[i] = jet.point;
        first[i] = jet.first;
        second[i] = jet.second;
    }
    const HomogeneousJet a = de_boor(flat_u_, p, span_u, value, u);
    const HomogeneousJet b = de_boor(flat_u_, p, span_u, first, u);
    const HomogeneousJet c = de_boor(flat_u_, p, span_u, second, u);
    SurfaceDerivatives d;
    const double w = a.point[3];
    d.point = a.point.head<3>() / w;
    d.du = (a.first.head<3>() - a.first[3] * d.point) / w;
    d.dv = (b.point.head<3>() - b.point[3] * d.point) / w;
    d.duu = (a.second.head<3>() - 2 * a.first[3] * d.du - a.second[3] * d.point) / w;
    d.duv = (b.first.head<3>() - a.first[3] * d.dv - b.point[3] * d.du - b.first[3] * d.point) / w;
    d.dvv = (c.point.head<3>() - 2 * b.point[3] * d.dv - c.point[3] * d.point) / w;
    return d;
}

MappedSurface BSplineSurface::with_poles(std::vector<Point> poles) const {
    BSplineSurfaceData image = data_;
    image.poles = std::move(poles);
    return {make<BSplineSurface>(std::move(image)), {}};
}

MappedSurface BSplineSurface::transform_surface(const Transform& transform) const {
    return map_surface(transform);
}

MappedSurface BSplineSurface::map_surface(const AffineMap& map) const {
    std::vector<Point> poles(data_.poles.size());
    std::transform(data_.poles.begin(), data_.poles.end(), poles.begin(),
                   [&](const Point& pole) { return map.point(pole); });
    if (lie_on_a_line(poles)) throw KernelError("The image of a surface is a line or a point");
    return with_poles(std::move(poles));
}

Ref<BSplineCurve> BSplineSurface::curve_at_u(double u) const {
    require_usable(u);
    const int p = data_.u.degree;
    const int span = find_span(flat_u_, p, count_u_, u);
    std::vector<HomogeneousPoint> poles(count_v_);
    HomogeneousPoint column[kMaxDegree + 1];
    for (int j = 0; j < count_v_; ++j) {
        for (int i = 0; i <= p; ++i) column[i] = homogeneous(span - p + i, j);
        poles[j] = de_boor(flat_u_, p, span, column, u).point;
    }
    return make<BSplineCurve>(curve_data(data_.v, poles, is_rational()));
}

Ref<BSplineCurve> BSplineSurface::curve_at_v(double v) const {
    require_usable(v);
    const int q = data_.v.degree;
    const int span = find_span(flat_v_, q, count_v_, v);
    std::vector<HomogeneousPoint> poles(count_u_);
    HomogeneousPoint row[kMaxDegree + 1];
    for (int i = 0; i < count_u_; ++i) {
        for (int j = 0; j <= q; ++j) row[j] = homogeneous(i, span - q + j);
        poles[i] = de_boor(flat_v_, q, span, row, v).point;
    }
    return make<BSplineCurve>(curve_data(data_.u, poles, is_rational()));
}

std::vector<HomogeneousPoint> BSplineSurface::bezier_patch(const Interval& u, const Interval& v) const {
    const int p = data_.u.degree, q = data_.v.degree;
    const int span_u = find_span(flat_u_, p, count_u_, u.middle());
    const int span_v = find_span(flat_v_, q, count_v_, v.middle());
    std::vector<HomogeneousPoint> patch(static_cast<std::size_t>(p + 1) * (q + 1));
    HomogeneousPoint line[kMaxDegree + 1], bezier[kMaxDegree + 1];
    for (int i = 0; i <= p; ++i) {
        for (int j = 0; j <= q; ++j) line[j] = homogeneous(span_u - p + i, span_v - q + j);
        to_bezier(flat_v_, q, span_v, line, v.first, v.last, &patch[i * (q + 1)]);
    }
    for (int j = 0; j <= q; ++j) {
        for (int i = 0; i <= p; ++i) line[i] = patch[i * (q + 1) + j];
        to_bezier(flat_u_, p, span_u, line, u.first, u.last, bezier);
        for (int i = 0; i <= p; ++i) patch[i * (q + 1) + j] = bezier[i];
    }
    return patch;
}

std::vector<double> spans(const BSplineAxis& axis, const Interval& interval) {
    std::vector<double> ends{interval.first};
    const double little = 1e-13 * interval.length();
    for (const double knot : axis.knots) {
        if (knot > interval.first + little && knot < interval.last - little) ends.push_back(knot);
    }
    ends.push_back(interval.last);
    return ends;
}

}  // namespace veltrane::kernel
