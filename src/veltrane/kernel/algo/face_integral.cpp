#include "veltrane/kernel/algo/face_integral.hpp"

#include "veltrane/kernel/algo/plane_moments.hpp"
#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/quadrature.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <cmath>

namespace veltrane::kernel {
namespace {

constexpr double kInner = 1e-13, kOuter = 1e-12;
constexpr int kMostPieces = 200;

/// Where densities on a surface have kinks along u and along v.
std::vector<double> breaks_in_u(const Surface& surface, const Interval& range) {
    if (const auto* extrusion = as<const LinearExtrusion>(&surface)) return extrusion->basis()->breaks(range);
    if (const auto* spline = as<const BSplineSurface>(&surface)) return spans(spline->axis_u(), range);
    return {range.first, range.last};
}
std::vector<double> breaks_in_v(const Surface& surface, const Interval& range) {
    if (const auto* spline = as<const BSplineSurface>(&surface)) return spans(spline->axis_v(), range);
    return {range.first, range.last};
}

/// Over consecutive pieces between the cuts.
double sum_over(const std::function<double(double)>& f, const std::vector<double>& cuts, double relative) {
    double sum = 0;
    for (std::size_t i = 1; i < cuts.size(); ++i) {
        if (cuts[i - 1] < cuts[i]) {
            sum += integrate(f, {cuts[i - 1], cuts[i]}, relative, kMostPieces).value;
        }
    }
    return sum;
}

/// The integral between a curve of the parameter plane and a base line of constant v.
class IntegralBelow {
public:
    IntegralBelow(const Surface& surface, const FaceDensity& density, double base)
        : surface_(surface), density_(density), base_(base) {}

    /// Along the curve in its own direction; positive for a curve that runs to smaller u above the base.
    double along(const ParameterCurve& path, const Interval& edge_range) const {
        const double a = path.from_edge(edge_range.first);
        const double b = path.from_edge(edge_range.last);
        const Curve2& curve = *path.curve;
        const auto rate = [&](double t) {
            const Curve2Derivatives at = curve.derivatives(t);
            return at.first.x() == 0 ? 0.0 : -up_to(at.point.x(), at.point.y()) * at.first.x();
        };
        const double sum = sum_over(rate, cuts_of(curve, {std::min(a, b), std::max(a, b)}), kOuter);
        return a <= b ? sum : -sum;
    }

    /// From the base to v, at constant u.
    double up_to(double u, double v) const {
        if (v == base_) return 0;
        const auto along_v = [&](double at) { return density_(u, at); };
        const Interval range{std::min(v, base_), std::max(v, base_)};
        const double sum = sum_over(along_v, breaks_in_v(surface_, range), kInner);
        return v > base_ ? sum : -sum;
    }

private:
    /// Kinks of the curve, and those of the surface where the curve runs straight.
    std::vector<double> cuts_of(const Curve2& curve, const Interval& range) const {
        std::vector<double> cuts = curve.in_plane()->breaks(range);
        const Curve2Derivatives at = curve.derivatives(range.first);
        if (curve.kind() != CurveKind::Line || std::abs(at.first.x()) <= kAngular) return cuts;
        const double from = at.point.x(), to = curve.value(range.last).x();
        for (const double u : breaks_in_u(surface_, {std::min(from, to), std::max(from, to)})) {
            cuts.push_back(range.clamp(range.first + (u - from) / at.first.x()));
        }
        std::sort(cuts.begin(), cuts.end());
        return cuts;
    }

    const Surface& surface_;
    const FaceDensity& density_;
    double base_;
};

double over_loop(const IntegralBelow& below, const Loop& loop) {
    const std::vector<Shape>& edges = group_definition(loop.wire).children();
    double sum = 0;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Interval& range = edge_definition(edges[i]).range();
        if (!range.is_bounded()) throw KernelError("The face is unbounded");
        const double part = below.along(loop.parameter_curves[i], range);
        sum += loop.wire.orientation() == edges[i].orientation() ? part : -part;
    }
    return sum;
}

double over_surface(const Surface& surface, const FaceDensity& density) {
    const Interval u_range = surface.u_range(), v_range = surface.v_range();
    if (!u_range.is_bounded() || !v_range.is_bounded()) throw KernelError("The face is unbounded");
    const IntegralBelow below(surface, density, v_range.first);
    return sum_over([&](double u) { return below.up_to(u, v_range.last); }, breaks_in_u(surface, u_range),
                    kOuter);
}

}  // namespace

double integrate(const FaceDefinition& face, const FaceDensity& density) {
    const Surface& surface = *face.surface();
    if (face.loops().empty()) return over_surface(surface, density);
    // A base line that touches the face, so that faces far from the origin lose no digits.
    const IntegralBelow below(surface, density, point_of(face.loops().front()).y());
    double sum = 0;
    for (const Loop& loop : face.loops()) sum += over_loop(below, loop);
    return sum;
}

}  // namespace veltrane::kernel
