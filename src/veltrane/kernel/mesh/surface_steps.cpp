#include "veltrane/kernel/mesh/surface_steps.hpp"

#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/geom/circle.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/geom/cylinder.hpp"
#include "veltrane/kernel/geom/linear_extrusion.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>
#include <cmath>

namespace veltrane::kernel {

namespace {

Deflection deflection_of(const MeshOptions& options) {
    return {options.deflection, options.angle, options.max_divisions + 1};
}

/// One step over the whole interval, or over 1 when it has no length.
StepScale one_step(const Interval& interval) {
    const double length = interval.length();
    return StepScale({interval.first, interval.first + (length > 0 ? length : 1)});
}

StepScale steps_around(const Cylinder& cylinder, const Interval& u, const MeshOptions& options) {
    const Frame& frame = cylinder.frame();
    const Circle section({frame.origin, frame.x, frame.y, cross(frame.x, frame.y)}, cylinder.radius());
    const Interval turn{0, std::clamp(u.length(), kParametric, kTwoPi)};
    const double count =
        static_cast<double>(polyline_parameters(section, turn, deflection_of(options)).size()) - 1;
    return StepScale({u.first, u.first + turn.length() / count});
}

StepScale steps_along(const LinearExtrusion& extrusion, Interval u, const MeshOptions& options) {
    const Interval range = extrusion.u_range();
    if (extrusion.u_period() > 0) {
        u.last = std::min(u.last, u.first + extrusion.u_period());
    } else {
        u = {range.clamp(u.first), range.clamp(u.last)};
    }
    if (!(u.length() > kParametric)) return one_step(u);
    return StepScale(polyline_parameters(*extrusion.basis(), u, deflection_of(options)));
}

/// A few parameters between neighbours of `ends`, and the ends.
std::vector<double> samples_of(const std::vector<double>& ends) {
    constexpr std::size_t kMost = 64;
    const std::size_t stride = 1 + ends.size() / kMost;
    std::vector<double> result{ends.front()};
    for (std::size_t i = stride; i < ends.size() + stride - 1; i += stride) {
        const double from = result.back(), to = ends[std::min(i, ends.size() - 1)];
        result.push_back((from + to) / 2);
        result.push_back(to);
    }
    return result;
}

/// How many divisions each span of a B-spline surface needs in one direction, by curves across.
class SpanDivisions {
public:
    explicit SpanDivisions(std::vector<double> ends) : ends_(std::move(ends)), counts_(ends_.size() - 1, 1) {}

    void heed(const Curve& curve, const Deflection& deflection) {
        const std::vector<double> parameters =
            polyline_parameters(curve, {ends_.front(), ends_.back()}, deflection);
        auto at = parameters.begin();
        for (std::size_t i = 0; i < counts_.size(); ++i) {
            const auto end =
                std::lower_bound(at, parameters.end(), ends_[i + 1] - 1e-12 * (ends_[i + 1] - ends_[i]));
            counts_[i] = std::max(counts_[i], static_cast<double>(end - at));
            at = end;
        }
    }
    void multiply(std::size_t span, double factor) { counts_[span] *= factor; }
    double count(std::size_t span) const { return counts_[span]; }
    double total() const {
        double sum = 0;
        for (const double count : counts_) sum += std::ceil(count);
        return sum;
    }

    /// Ascending parameters, thinned out to at most `most` steps.
    std::vector<double> divisions(double most) const {
        std::vector<double> all;
        for (std::size_t i = 0; i < counts_.size(); ++i) {
            const double count = std::ceil(std::min(counts_[i], most));
            for (double k = 0; k < count; ++k) all.push_back(Interval{ends_[i], ends_[i + 1]}.at(k / count));
        }
        const auto stride = static_cast<std::size_t>(std::ceil(static_cast<double>(all.size()) / most));
        std::vector<double> result;
        for (std::size_t i = 0; i < all.size(); i += std::max<std::size_t>(stride, 1))
            result.push_back(all[i]);
        result.push_back(ends_.back());
        return result;
    }

private:
    std::vector<double> ends_;
    std::vector<double> counts_;
};

/// A twisted patch leaves its diagonals by a quarter of its twist, though its sides may be straight.
void heed_twist(const BSplineSurface& surface, const std::vector<double>& across,
                const std::vector<double>& along, double deflection, SpanDivisions& u, SpanDivisions& v) {
    const auto middle = [](const std::vector<double>& ends, std::size_t i) {
        return (ends[i] + ends[i + 1]) / 2;
    };
    std::vector<double> factor_u(across.size() - 1, 1), factor_v(along.size() - 1, 1);
    for (std::size_t i = 0; i + 1 < across.size(); ++i) {
        for (std::size_t j = 0; j + 1 < along.size(); ++j) {
            const Vector twist = surface.derivatives(middle(across, i), middle(along, j)).duv;
            const double size = (across[i + 1] - across[i]) * (along[j + 1] - along[j]);
            const double factor = std::sqrt(twist.norm() * size / (4 * deflection * u.count(i) * v.count(j)));
            factor_u[i] = std::max(factor_u[i], factor);
            factor_v[j] = std::max(factor_v[j], factor);
        }
    }
    for (std::size_t i = 0; i < factor_u.size(); ++i) u.multiply(i, factor_u[i]);
    for (std::size_t j = 0; j < factor_v.size(); ++j) v.multiply(j, factor_v[j]);
}

SurfaceSteps spline_steps(const BSplineSurface& surface, const Interval& u, const Interval& v,
                          const MeshOptions& options) {
    const auto inside = [](const Interval& part, const Interval& range) {
        const Interval result{range.clamp(part.first), range.clamp(part.last)};
        if (!(result.length() > 0)) throw KernelError("A face has no extent on its surface");
        return result;
    };
    const std::vector<double> across = spans(surface.axis_u(), inside(u, surface.u_range()));
    const std::vector<double> along = spans(surface.axis_v(), inside(v, surface.v_range()));
    SpanDivisions in_u(across), in_v(along);
    for (const double t : samples_of(along)) in_u.heed(*surface.curve_at_v(t), deflection_of(options));
    for (const double t : samples_of(across)) in_v.heed(*surface.curve_at_u(t), deflection_of(options));
    heed_twist(surface, across, along, options.deflection, in_u, in_v);
    const double most = options.max_divisions;
    const double points = std::min(in_u.total(), most) * std::min(in_v.total(), most);
    const double share = std::min(1.0, std::sqrt(options.max_face_points / points));
    StepScale scale_u(in_u.divisions(std::max(1.0, std::floor(share * std::min(in_u.total(), most)))));
    StepScale scale_v(in_v.divisions(std::max(1.0, std::floor(share * std::min(in_v.total(), most)))));
    const bool both = scale_u.count() > 1 && scale_v.count() > 1;
    return {std::move(scale_u), std::move(scale_v), true, both};
}

}  // namespace

double StepScale::to_steps(double t) const {
    const auto above = std::upper_bound(divisions_.begin() + 1, divisions_.end() - 1, t);
    const double low = *(above - 1), high = *above;
    return static_cast<double>(above - 1 - divisions_.begin()) + (t - low) / (high - low);
}

double StepScale::to_parameter(double steps) const {
    const double place = std::clamp(std::floor(steps), 0.0, static_cast<double>(count() - 1));
    const auto i = static_cast<std::size_t>(place);
    return divisions_[i] + (steps - place) * (divisions_[i + 1] - divisions_[i]);
}

SurfaceSteps surface_steps(const Surface& surface, const Interval& u, const Interval& v,
                           const MeshOptions& options) {
    if (!u.is_bounded() || !v.is_bounded()) throw KernelError("A face is unbounded");
    switch (surface.kind()) {
        case SurfaceKind::Plane: {
            const double size = std::max(u.length(), v.length());
            return {one_step({u.first, u.first + size}), one_step({v.first, v.first + size}), false, false};
        }
        case SurfaceKind::Cylinder:
            return {steps_around(static_cast<const Cylinder&>(surface), u, options), one_step(v), true,
                    false};
        case SurfaceKind::LinearExtrusion:
            return {steps_along(static_cast<const LinearExtrusion&>(surface), u, options), one_step(v), true,
                    false};
        case SurfaceKind::BSpline:
            return spline_steps(static_cast<const BSplineSurface&>(surface), u, v, options);
    }
    throw KernelError("A surface has no mesh");
}

}  // namespace veltrane::kernel
