// Nearest points and boxes of B-spline surfaces, patch by patch: what the hull of a patch rules out is not
// looked at.
#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/math/error.hpp"

#include <algorithm>
#include <deque>

namespace veltrane::kernel {

namespace {

struct Patch {
    Interval u, v;
    double distance = 0;
};

Box hull(const BSplineSurface& surface, const Interval& u, const Interval& v) {
    Box box;
    for (const HomogeneousPoint& pole : surface.bezier_patch(u, v)) {
        box.add(Point(pole.head<3>() / pole[3]));
    }
    return box;
}

template <class Action>
void for_each_patch(const BSplineSurface& surface, const Interval& u, const Interval& v, Action action) {
    const std::vector<double> across = spans(surface.axis_u(), u), along = spans(surface.axis_v(), v);
    for (std::size_t i = 1; i < across.size(); ++i) {
        for (std::size_t j = 1; j < along.size(); ++j) {
            action(Interval{across[i - 1], across[i]}, Interval{along[j - 1], along[j]});
        }
    }
}

/// The squared distance of a surface to a point, made smaller step by step within the parameter ranges.
class Descent {
public:
    Descent(const BSplineSurface& surface, const Point& target)
        : surface_(surface), target_(target), u_(surface.u_range()), v_(surface.v_range()) {}

    Point2 from(Point2 at) const {
        constexpr int kMostSteps = 60;
        for (int i = 0; i < kMostSteps; ++i) {
            const Point2 next = after(at);
            const double moved = (next - at).norm();
            at = next;
            if (moved <= 1e-15 * (u_.length() + v_.length())) break;
        }
        return at;
    }

    double squared(const Point2& at) const { return (surface_.value(at) - target_).squaredNorm(); }

private:
    Point2 clamped(const Point2& at) const { return {u_.clamp(at.x()), v_.clamp(at.y())}; }

    Point2 after(const Point2& at) const {
        const SurfaceDerivatives d = surface_.derivatives(at.x(), at.y());
        const Vector2 step = newton_step(d, at);
        const double now = (d.point - target_).squaredNorm();
        for (double share = 1; share > 1e-4; share /= 2) {
            const Point2 next = clamped(at + share * step);
            // The last full steps may lose to rounding.
            const double slack = share == 1 ? 1e-13 * now : 0;
            if (squared(next) < now + slack) return next;
        }
        return at;
    }

    /// Parameters pressed against their bounds do not move.
    Vector2 newton_step(const SurfaceDerivatives& d, const Point2& at) const {
        const Vector offset = d.point - target_;
        const double gu = offset.dot(d.du), gv = offset.dot(d.dv);
        const auto is_pressed = [](double t, double slope, const Interval& range) {
            return (t <= range.first && slope > 0) || (t >= range.last && slope < 0);
        };
        const bool free_u = !is_pressed(at.x(), gu, u_), free_v = !is_pressed(at.y(), gv, v_);
        const double uu = d.du.squaredNorm(), uv = d.du.dot(d.dv), vv = d.dv.squaredNorm();
        const double huu = uu + offset.dot(d.duu), huv = uv + offset.dot(d.duv), hvv = vv + offset.dot(d.dvv);
        const auto ratio = [](double a, double b) { return b > 0 ? a / b : 0; };
        if (!free_u && !free_v) return Vector2::Zero();
        if (!free_v) return {-ratio(gu, huu > 0 ? huu : uu), 0};
        if (!free_u) return {0, -ratio(gv, hvv > 0 ? hvv : vv)};
        if (huu > 0 && huu * hvv - huv * huv > 1e-14 * huu * std::abs(hvv)) {
            const double det = huu * hvv - huv * huv;
            return {-(gu * hvv - gv * huv) / det, -(gv * huu - gu * huv) / det};
        }
        return {-ratio(gu, 2 * uu), -ratio(gv, 2 * vv)};
    }

    const BSplineSurface& surface_;
    const Point& target_;
    Interval u_, v_;
};

}  // namespace

Point2 BSplineSurface::project(const Point& p) const {
    if (!is_usable(p)) throw KernelError("A point to project is not usable");
    std::vector<Patch> patches;
    for_each_patch(*this, range_u_, range_v_, [&](const Interval& u, const Interval& v) {
        patches.push_back({u, v, hull(*this, u, v).distance_to(p)});
    });
    std::stable_sort(patches.begin(), patches.end(),
                     [](const Patch& a, const Patch& b) { return a.distance < b.distance; });
    const Descent descent(*this, p);
    Point2 best(range_u_.first, range_v_.first);
    double least = descent.squared(best);
    const auto consider = [&](const Point2& at) {
        if (const double d = descent.squared(at); d < least) {
            best = at;
            least = d;
        }
    };
    for (const Patch& patch : patches) {
        if (patch.distance * patch.distance >= least) break;
        Point2 nearest(patch.u.first, patch.v.first);
        const int n = data_.u.degree + 2, m = data_.v.degree + 2;
        for (int i = 0; i < n; ++i) {
            for (int j = 0; j < m; ++j) {
                const Point2 at(patch.u.at((i + 0.5) / n), patch.v.at((j + 0.5) / m));
                if (descent.squared(at) < descent.squared(nearest)) nearest = at;
            }
        }
        consider(descent.from(nearest));
    }
    return best;
}

Box bounding_box(const BSplineSurface& surface, const Interval& u, const Interval& v) {
    constexpr int kMostPatches = 20000;
    constexpr double kSlack = 1e-7;
    const auto is_inside = [](const Interval& part, const Interval& range) {
        return part.first < part.last && range.contains(part.first, kParametric) &&
               range.contains(part.last, kParametric);
    };
    if (!is_inside(u, surface.u_range()) || !is_inside(v, surface.v_range())) {
        throw KernelError("A part of a surface is empty or lies outside it");
    }
    Box box;  // of points of the surface
    std::deque<Patch> waiting;
    for_each_patch(surface, u, v, [&](const Interval& pu, const Interval& pv) {
        for (const double a : {pu.first, pu.last}) {
            for (const double b : {pv.first, pv.last}) box.add(surface.value(a, b));
        }
        waiting.push_back({pu, pv});
    });
    Box rest;
    for (int count = 0; !waiting.empty(); ++count) {
        const Patch patch = waiting.front();
        waiting.pop_front();
        const Box bound = hull(surface, patch.u, patch.v);
        const double slack = kSlack * unite(box, bound).diagonal();
        if (box.contains(bound.min(), slack) && box.contains(bound.max(), slack)) {
            rest.add(bound);
            continue;
        }
        if (count >= kMostPatches) {
            rest.add(bound);
            continue;
        }
        const double um = patch.u.middle(), vm = patch.v.middle();
        box.add(surface.value(um, vm));
        for (const double t : {patch.u.first, patch.u.last}) box.add(surface.value(t, vm));
        for (const double t : {patch.v.first, patch.v.last}) box.add(surface.value(um, t));
        for (const Interval& pu : {Interval{patch.u.first, um}, Interval{um, patch.u.last}}) {
            for (const Interval& pv : {Interval{patch.v.first, vm}, Interval{vm, patch.v.last}}) {
                waiting.push_back({pu, pv});
            }
        }
    }
    return unite(box, rest);
}

}  // namespace veltrane::kernel
