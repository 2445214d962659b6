// B-spline curves.
#pragma once

#include "veltrane/kernel/geom/bspline_data.hpp"
#include "veltrane/kernel/geom/curve.hpp"

namespace veltrane::kernel {

/// A B-spline curve, rational when it has weights. See BSplineData for the conventions. Weights that are
/// all the same are dropped.
class BSplineCurve : public Typed<BSplineCurve, Curve> {
public:
    static constexpr const char* kTypeName = "BSplineCurve";

    /// Throws KernelError as validate() does.
    explicit BSplineCurve(BSplineData data);

    const BSplineData& data() const { return data_; }
    int degree() const { return data_.degree; }
    const std::vector<Point>& poles() const { return data_.poles; }
    /// Empty when not rational.
    const std::vector<double>& weights() const { return data_.weights; }
    const std::vector<double>& knots() const { return data_.knots; }
    const std::vector<int>& multiplicities() const { return data_.multiplicities; }
    bool is_rational() const { return !data_.weights.empty(); }
    /// Every knot as often as it counts; see flat_knots().
    const std::vector<double>& flat_knots() const { return flat_; }

    CurveKind kind() const override { return CurveKind::BSpline; }
    Interval range() const override { return range_; }
    bool is_closed() const override;
    bool is_periodic() const override { return data_.periodic; }
    double period() const override { return data_.periodic ? range_.length() : 0; }
    Point value(double t) const override;
    CurveDerivatives derivatives(double t) const override;
    using Curve::project;
    double project(const Point& p, const Interval& interval) const override;
    std::vector<double> breaks(const Interval& interval) const override;
    MappedCurve transform_curve(const Transform& transform) const override;
    MappedCurve map_curve(const AffineMap& map) const override;
    MappedCurve reverse_curve() const override;

private:
    BSplineData data_;
    std::vector<double> flat_;
    Interval range_;
};

}  // namespace veltrane::kernel
