// Pieces of curves.
#pragma once

#include "veltrane/kernel/geom/curve.hpp"

namespace veltrane::kernel {

/// A piece of a basis curve between two of its parameters. The basis is never itself trimmed: trimming a
/// trimmed curve takes its basis.
class TrimmedCurve : public Typed<TrimmedCurve, Curve> {
public:
    static constexpr const char* kTypeName = "TrimmedCurve";

    /// On a periodic basis the piece runs counter-clockwise from `first`, and `last` is moved by whole
    /// periods to lie after it, at most a period away; equal parameters (within kParametric periods) give the
    /// whole turn. On any other basis first < last must lie in its range. Throws KernelError otherwise.
    TrimmedCurve(const Ref<Curve>& basis, double first, double last);

    const Ref<Curve>& basis() const { return basis_; }
    double first() const { return interval_.first; }
    double last() const { return interval_.last; }

    CurveKind kind() const override { return CurveKind::Trimmed; }
    Interval range() const override { return interval_; }
    bool is_closed() const override;
    Point value(double t) const override { return basis_->value(t); }
    CurveDerivatives derivatives(double t) const override { return basis_->derivatives(t); }
    using Curve::project;
    double project(const Point& p, const Interval& interval) const override;
    std::vector<double> breaks(const Interval& interval) const override { return basis_->breaks(interval); }
    MappedCurve transform_curve(const Transform& transform) const override;
    MappedCurve map_curve(const AffineMap& map) const override;
    MappedCurve reverse_curve() const override;

private:
    Ref<Curve> basis_;
    Interval interval_;
};

/// The straight segment from `a` to `b`. Throws KernelError when they are not kConfusion apart.
Ref<TrimmedCurve> make_segment(const Point& a, const Point& b);

/// The arc from `a` over `b` to `c`. Throws KernelError when they lie on a line or two of them coincide.
Ref<TrimmedCurve> make_arc(const Point& a, const Point& b, const Point& c);

/// The curve with all trimming removed; the curve itself when it is not trimmed.
Ref<Curve> untrimmed(const Ref<Curve>& curve);

}  // namespace veltrane::kernel
