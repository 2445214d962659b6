#include "veltrane/kernel/algo/measure.hpp"

#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/math/quadrature.hpp"
#include "veltrane/kernel/topo/compound_fold.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veltrane::kernel {
namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

void add(double& sum, double value) {
    sum += value;
}

double edge_length(const Shape& edge) {
    const EdgeDefinition& definition = edge_definition(edge);
    return definition.range().is_bounded() ? length(*definition.curve(), definition.range()) : kEndless;
}

/// Length of anything but a compound. Placements do not matter for lengths, but
/// tell edges apart.
double simple_length(const Shape& shape) {
    if (shape.is(ShapeKind::Edge)) return edge_length(shape);
    double sum = 0;
    for (const Shape& edge :
         shape.is(ShapeKind::Wire) ? own_children(shape) : distinct_sub_shapes(shape, ShapeKind::Edge)) {
        sum += edge_length(edge);
    }
    return sum;
}

/// The element of area per du dv.
double density(const Surface& surface, double u, double v) {
    const SurfaceDerivatives at = surface.derivatives(u, v);
    return cross(at.du, at.dv).norm();
}

/// Where the density of a surface along u has kinks.
std::vector<double> breaks_in_u(const Surface& surface, const Interval& range) {
    const auto* extrusion = as<const LinearExtrusion>(&surface);
    return extrusion ? extrusion->basis()->breaks(range) : std::vector<double>{range.first, range.last};
}

/// Area between a parameter curve and a base line of constant v: by Green's
/// theorem the area within loops is the sum of these, taken along the loops.
/// Every kind of surface has straight rulings along v on which the density does
/// not change.
class AreaBelow {
public:
    AreaBelow(const Surface& surface, double base) : surface_(surface), base_(base) {}

    /// Along the curve in its own direction; the area lies to the left of a curve
    /// that runs to smaller u.
    double along(const ParameterCurve& path, const Interval& edge_range) const {
        const double a = path.from_edge(edge_range.first);
        const double b = path.from_edge(edge_range.last);
        const Interval range{std::min(a, b), std::max(a, b)};
        const double sum = sum_over(*path.curve, range);
        return a <= b ? sum : -sum;
    }

private:
    double sum_over(const Curve2& curve, const Interval& range) const {
        const std::vector<double> cuts = cuts_of(curve, range);
        double sum = 0;
        for (std::size_t i = 1; i < cuts.size(); ++i) {
            if (cuts[i - 1] < cuts[i]) sum += integrate(integrand(curve), {cuts[i - 1], cuts[i]}).value;
        }
        return sum;
    }

    std::function<double(double)> integrand(const Curve2& curve) const {
        return [this, &curve](double t) {
            const Curve2Derivatives at = curve.derivatives(t);
            if (at.first.x() == 0) return 0.0;
            return -density(surface_, at.point.x(), base_) * (at.point.y() - base_) * at.first.x();
        };
    }

    /// Kinks of the curve, and those of the surface where the curve runs
    /// straight.
    std::vector<double> cuts_of(const Curve2& curve, const Interval& range) const {
        std::vector<double> cuts = curve.in_plane()->breaks(range);
        const Curve2Derivatives at = curve.derivatives(range.first);
        if (curve.kind() != CurveKind::Line || std::abs(at.first.x()) <= kAngular) return cuts;
        const double from = at.point.x();
        const double to = curve.value(range.last).x();
        for (const double u : breaks_in_u(surface_, {std::min(from, to), std::max(from, to)})) {
            cuts.push_back(range.clamp(range.first + (u - from) / at.first.x()));
        }
        std::sort(cuts.begin(), cuts.end());
        return cuts;
    }

    const Surface& surface_;
    double base_;
};

double loop_area(const Surface& surface, const Loop& loop, double base) {
    const AreaBelow below(surface, base);
    const std::vector<Shape>& edges = group_definition(loop.wire).children();
    double sum = 0;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Interval& range = edge_definition(edges[i]).range();
        if (!range.is_bounded()) return kEndless;
        const double part = below.along(loop.parameter_curves[i], range);
        sum +=
            composed(loop.wire.orientation(), edges[i].orientation()) == Orientation::Forward ? part : -part;
    }
    return sum;
}

/// A base line that touches the face, so that areas far from the origin lose no
/// digits.
double base_line(const Loop& loop) {
    const std::vector<Shape>& edges = group_definition(loop.wire).children();
    if (edges.empty()) return 0;
    const Interval& range = edge_definition(edges.front()).range();
    return range.is_bounded() ? loop.parameter_curves.front().value(range.first).y() : 0;
}

double face_area(const Shape& face) {
    const FaceDefinition& definition = face_definition(face);
    if (definition.loops().empty()) return kEndless;
    const double base = base_line(definition.loops().front());
    double sum = 0;
    for (const Loop& loop : definition.loops()) sum += loop_area(*definition.surface(), loop, base);
    return std::abs(sum);
}

double simple_area(const Shape& shape) {
    double sum = 0;
    visit(shape, ShapeKind::Face, [&](const Shape& face) {
        sum += face_area(face);
        return true;
    });
    return sum;
}

}  // namespace

double length(const Shape& shape) {
    return shape.is_null() ? 0 : fold_compounds(shape, 0.0, simple_length, add);
}

double area(const Shape& shape) {
    return shape.is_null() ? 0 : fold_compounds(shape, 0.0, simple_area, add);
}

}  // namespace veltrane::kernel
