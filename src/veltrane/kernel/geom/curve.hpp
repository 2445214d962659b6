// Curves in space.
#pragma once

#include "veltrane/kernel/geom/geometry.hpp"
#include "veltrane/kernel/math/interval.hpp"
#include "veltrane/kernel/math/transform.hpp"

#include <vector>

namespace veltrane::kernel {

class Curve;

enum class CurveKind { Line, Circle, Ellipse, BSpline, Trimmed };

struct CurveDerivatives {
    Point point;
    Vector first;
    Vector second;
};

/// How parameters of one curve become parameters of another: t -> scale * t + shift.
struct ParameterMap {
    double scale = 1;
    double shift = 0;
    double operator()(double t) const { return scale * t + shift; }
    double inverse(double t) const { return (t - shift) / scale; }
};

/// A curve that was moved, reversed or mapped, and where its parameters went: the image of value(t) is
/// curve->value(parameters(t)).
struct MappedCurve {
    Ref<Curve> curve;
    ParameterMap parameters;
};

/// A parametric curve. Immutable; every number in it is finite. value() and derivatives() accept any
/// parameter: lines and conics go on for ever, B-splines wrap when periodic and continue their end
/// pieces otherwise.
class Curve : public Typed<Curve, Geometry> {
public:
    static constexpr const char* kTypeName = "Curve";

    virtual CurveKind kind() const = 0;
    /// The parameters the curve runs over; +-kInfinite where it is unbounded.
    virtual Interval range() const = 0;
    /// The ends meet within kConfusion (always, for a periodic curve).
    virtual bool is_closed() const = 0;
    virtual bool is_periodic() const { return false; }
    /// 0 when not periodic.
    virtual double period() const { return 0; }

    virtual Point value(double t) const = 0;
    virtual CurveDerivatives derivatives(double t) const = 0;

    /// Parameter of the point of the curve nearest to `p`, over its range or over the given interval
    /// (for a periodic curve any interval up to a period long). Throws KernelError when `p` is not usable.
    double project(const Point& p) const { return project(p, range()); }
    virtual double project(const Point& p, const Interval& interval) const = 0;

    /// Ascending parameters that cut the interval into pieces on which the curve has all derivatives:
    /// both ends and the knots between them.
    virtual std::vector<double> breaks(const Interval& interval) const {
        return {interval.first, interval.last};
    }

    /// Moved by a similarity; the kind stays. Mirrors keep the direction of growing parameters.
    Ref<Curve> transformed(const Transform& transform) const { return transform_curve(transform).curve; }
    virtual MappedCurve transform_curve(const Transform& transform) const = 0;

    /// The exact image under an affine map: a line stays a line, a conic becomes an ellipse or circle, a
    /// B-spline stays one. Throws KernelError when the image shrinks to a point.
    Ref<Curve> mapped(const AffineMap& map) const { return map_curve(map).curve; }
    virtual MappedCurve map_curve(const AffineMap& map) const = 0;

    /// The same points run through backwards.
    Ref<Curve> reversed() const { return reverse_curve().curve; }
    virtual MappedCurve reverse_curve() const = 0;

    /// Throws KernelError unless the interval is bounded, runs forwards and, for a periodic curve, is at
    /// most a period long. What works through a curve piece by piece asks this first.
    void require_piece(const Interval& interval) const;

    Point start() const { return value(range().first); }
    Point end() const { return value(range().last); }
};

}  // namespace veltrane::kernel
