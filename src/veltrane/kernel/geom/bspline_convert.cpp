#include "veltrane/kernel/geom/bspline_convert.hpp"

#include "veltrane/kernel/geom/bspline_eval.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/conic.hpp"
#include "veltrane/kernel/geom/ellipse.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>

namespace veltrane::kernel {

namespace {

/// The curve over the interval, with end knots of full multiplicity.
BSplineData clamped_piece(const BSplineCurve& curve, const Interval& interval) {
    const BSplineData& old = curve.data();
    const double shift =
        curve.is_periodic()
            ? std::floor((interval.first - curve.range().first) / curve.period() + 1e-12) * curve.period()
            : 0;
    const FlatSpline source = write_out(old, 2);
    // Knots are taken from the source as they are, so that equal ones are recognised as equal.
    const double first = interval.first - shift, last = interval.last - shift;
    const double little = 1e-13 * interval.length();
    BSplineData piece;
    piece.degree = old.degree;
    std::vector<double> flat(old.degree + 1, first);
    for (const double knot : source.knots) {
        if (knot > first + little && knot < last - little) flat.push_back(knot);
    }
    flat.insert(flat.end(), old.degree + 1, last);
    piece.weights.resize(curve.is_rational() ? 1 : 0);
    set_homogeneous(piece, refined_poles(source, flat));
    DistinctKnots knots = distinct_knots(flat);
    piece.knots = std::move(knots.knots);
    piece.multiplicities = std::move(knots.multiplicities);
    for (double& knot : piece.knots) knot += shift;
    piece.knots.front() = interval.first;
    piece.knots.back() = interval.last;
    return piece;
}

bool is_clamped(const BSplineCurve& curve) {
    const auto& m = curve.multiplicities();
    return !curve.is_periodic() && m.front() == curve.degree() + 1 && m.back() == curve.degree() + 1;
}

/// One degree more: the blossom of the raised polynomial is the mean of the old blossom with each
/// argument left out in turn.
BSplineData raised(const BSplineData& data) {
    const FlatSpline source = write_out(data);
    BSplineData result;
    result.degree = data.degree + 1;
    result.knots = data.knots;
    result.multiplicities = data.multiplicities;
    for (int& m : result.multiplicities) ++m;
    result.weights.resize(data.weights.empty() ? 0 : 1);
    const std::vector<double> flat = flat_knots(result);
    std::vector<HomogeneousPoint> poles(flat.size() - result.degree - 1);
    HomogeneousPoint local[kMaxDegree + 1];
    double arguments[kMaxDegree + 1];
    for (std::size_t i = 0; i < poles.size(); ++i) {
        const int span = find_span(source.knots, data.degree, source.count(), flat[i]);
        poles[i].setZero();
        for (int left_out = 0; left_out <= data.degree; ++left_out) {
            const double* from = flat.data() + i + 1;
            std::copy(from, from + left_out, arguments);
            std::copy(from + left_out + 1, from + result.degree, arguments + left_out);
            std::copy_n(source.poles.begin() + span - data.degree, data.degree + 1, local);
            poles[i] += blossom(source.knots, data.degree, span, local, arguments);
        }
        poles[i] /= result.degree;
    }
    set_homogeneous(result, poles);
    return result;
}

/// The ellipse frame.origin + a cos t X + b sin t Y over the interval.
BSplineData conic_piece(const Frame& frame, double a, double b, const Interval& interval) {
    BSplineData data;
    data.degree = 2;
    const std::vector<UnitArc> arcs = unit_arcs(interval);
    const auto add_pole = [&](const UnitArc& arc, int i) {
        const double w = arc.weight[i];
        data.poles.push_back(frame.in_plane(a * arc.cosine[i] / w, b * arc.sine[i] / w));
        data.weights.push_back(w);
    };
    for (const UnitArc& arc : arcs) {
        add_pole(arc, 0);
        add_pole(arc, 1);
        data.knots.push_back(arc.angles.first);
        data.multiplicities.push_back(2);
    }
    add_pole(arcs.back(), 2);
    data.knots.push_back(interval.last);
    data.multiplicities.push_back(3);
    data.multiplicities.front() = 3;
    return data;
}

BSplineData periodic_conic(BSplineData data) {
    data.poles.pop_back();
    data.weights.pop_back();
    data.multiplicities.front() = data.multiplicities.back() = 2;
    data.periodic = true;
    return data;
}

}  // namespace

Ref<BSplineCurve> make_periodic(const BSplineCurve& curve) {
    if (curve.is_periodic()) return make<BSplineCurve>(curve.data());
    BSplineData data = make_clamped(curve)->data();
    if (!(distance(data.poles.front(), data.poles.back()) <= kConfusion)) {
        throw KernelError("A B-spline whose ends do not meet cannot be made periodic");
    }
    if (!data.weights.empty()) {
        const double w = data.weights.front();
        if (!(std::abs(data.weights.back() - w) <= kParametric * w)) {
            throw KernelError("A B-spline with different end weights cannot be made periodic");
        }
        data.weights.pop_back();
    }
    data.poles.front() = (data.poles.front() + data.poles.back()) / 2;
    data.poles.pop_back();
    data.multiplicities.front() = data.multiplicities.back() = data.degree;
    data.periodic = true;
    return make<BSplineCurve>(std::move(data));
}

Ref<BSplineCurve> make_clamped(const BSplineCurve& curve) {
    if (is_clamped(curve)) return make<BSplineCurve>(curve.data());
    return make<BSplineCurve>(clamped_piece(curve, curve.range()));
}

Ref<BSplineCurve> segment(const BSplineCurve& curve, const Interval& interval) {
    curve.require_piece(interval);
    const Interval range = curve.range();
    if (curve.is_periodic()) return make<BSplineCurve>(clamped_piece(curve, interval));
    if (!range.contains(interval.first, kParametric) || !range.contains(interval.last, kParametric)) {
        throw KernelError("A piece of a B-spline lies outside the curve");
    }
    const Interval inside{range.clamp(interval.first), range.clamp(interval.last)};
    curve.require_piece(inside);
    if (inside == range) return make_clamped(curve);
    return make<BSplineCurve>(clamped_piece(curve, inside));
}

Ref<BSplineCurve> with_degree(const BSplineCurve& curve, int degree) {
    if (degree > kMaxDegree) throw KernelError("The degree of a B-spline is not 1 to 25");
    BSplineData data = make_clamped(curve)->data();
    while (data.degree < degree) data = raised(data);
    return make<BSplineCurve>(std::move(data));
}

Ref<BSplineCurve> to_bspline(const Curve& curve) {
    const Interval range = curve.range();
    switch (curve.kind()) {
        case CurveKind::Circle: {
            const Circle& circle = static_cast<const Circle&>(curve);
            const double r = circle.radius();
            return make<BSplineCurve>(periodic_conic(conic_piece(circle.frame(), r, r, range)));
        }
        case CurveKind::Ellipse: {
            const Ellipse& ellipse = static_cast<const Ellipse&>(curve);
            return make<BSplineCurve>(periodic_conic(
                conic_piece(ellipse.frame(), ellipse.major_radius(), ellipse.minor_radius(), range)));
        }
        case CurveKind::BSpline:
            return make<BSplineCurve>(static_cast<const BSplineCurve&>(curve).data());
        case CurveKind::Line:
        case CurveKind::Trimmed:
            break;
    }
    return to_bspline(curve, range);
}

Ref<BSplineCurve> to_bspline(const Curve& curve, const Interval& interval) {
    curve.require_piece(interval);
    switch (curve.kind()) {
        case CurveKind::Line: {
            BSplineData data;
            data.degree = 1;
            data.poles = {curve.value(interval.first), curve.value(interval.last)};
            data.knots = {interval.first, interval.last};
            data.multiplicities = {2, 2};
            return make<BSplineCurve>(std::move(data));
        }
        case CurveKind::Circle: {
            const Circle& circle = static_cast<const Circle&>(curve);
            return make<BSplineCurve>(
                conic_piece(circle.frame(), circle.radius(), circle.radius(), interval));
        }
        case CurveKind::Ellipse: {
            const Ellipse& ellipse = static_cast<const Ellipse&>(curve);
            return make<BSplineCurve>(
                conic_piece(ellipse.frame(), ellipse.major_radius(), ellipse.minor_radius(), interval));
        }
        case CurveKind::BSpline:
            return segment(static_cast<const BSplineCurve&>(curve), interval);
        case CurveKind::Trimmed:
            return to_bspline(*static_cast<const TrimmedCurve&>(curve).basis(), interval);
    }
    throw KernelError("A curve has no B-spline form");
}

}  // namespace veltrane::kernel
