// B-spline surfaces.
#pragma once

#include "veltrane/kernel/geom/bspline_curve.hpp"
#include "veltrane/kernel/geom/surface.hpp"
#include "veltrane/kernel/math/box.hpp"

namespace veltrane::kernel {

/// Degree, distinct ascending knots and their multiplicities in one direction of a surface that is not
/// periodic. The rules are those of BSplineData.
struct BSplineAxis {
    int degree = 0;
    std::vector<double> knots;
    std::vector<int> multiplicities;

    /// How many poles the multiplicities ask for; below 1 when they fit none.
    long long pole_count() const;
};

/// A grid of poles, row after row: the pole that acts at place i along u and j along v has the index
/// i * (number of poles along v) + j. Weights are none (not rational) or one for each pole.
struct BSplineSurfaceData {
    BSplineAxis u, v;
    std::vector<Point> poles;
    std::vector<double> weights;
};

/// A tensor product surface, rational when it has weights; weights that are all the same are dropped.
/// Closed surfaces have a seam: no direction is periodic. Evaluation continues the outer patches beyond
/// the range of parameters.
class BSplineSurface : public Typed<BSplineSurface, Surface> {
public:
    static constexpr const char* kTypeName = "BSplineSurface";

    /// Throws KernelError as validate() of BSplineData does, for each direction, and when the number of
    /// poles or weights is not that of the grid.
    explicit BSplineSurface(BSplineSurfaceData data);

    const BSplineSurfaceData& data() const { return data_; }
    const BSplineAxis& axis_u() const { return data_.u; }
    const BSplineAxis& axis_v() const { return data_.v; }
    int pole_count_u() const { return count_u_; }
    int pole_count_v() const { return count_v_; }
    const Point& pole(int i, int j) const { return data_.poles[index(i, j)]; }
    bool is_rational() const { return !data_.weights.empty(); }

    SurfaceKind kind() const override { return SurfaceKind::BSpline; }
    Interval u_range() const override { return range_u_; }
    Interval v_range() const override { return range_v_; }
    using Surface::value;
    Point value(double u, double v) const override { return derivatives(u, v).point; }
    SurfaceDerivatives derivatives(double u, double v) const override;
    /// Searched patch by patch, from samples by Newton's method: a surface that turns many times within
    /// one patch may hide its nearest point.
    Point2 project(const Point& p) const override;
    MappedSurface transform_surface(const Transform& transform) const override;
    MappedSurface map_surface(const AffineMap& map) const override;

    /// The curve along v at a fixed u; its parameter is v. Throws KernelError when u is not usable.
    Ref<BSplineCurve> curve_at_u(double u) const;
    /// The curve along u at a fixed v; its parameter is u. Throws KernelError when v is not usable.
    Ref<BSplineCurve> curve_at_v(double v) const;

    /// The poles of the Bezier patch over a part of the parameters that holds no knot inside, in
    /// homogeneous form, ordered as the surface's own.
    std::vector<HomogeneousPoint> bezier_patch(const Interval& u, const Interval& v) const;

private:
    std::size_t index(int i, int j) const { return static_cast<std::size_t>(i) * count_v_ + j; }
    HomogeneousPoint homogeneous(int i, int j) const;
    MappedSurface with_poles(std::vector<Point> poles) const;

    BSplineSurfaceData data_;
    std::vector<double> flat_u_, flat_v_;
    int count_u_, count_v_;
    Interval range_u_, range_v_;
};

/// The box of the surface over a part of its parameters; it may be larger than the tight box by 1e-7 of its
/// size, and by more for a surface that touches the box in very many places. Throws KernelError for
/// intervals that are empty or outside the surface.
Box bounding_box(const BSplineSurface& surface, const Interval& u, const Interval& v);

/// The parts of an axis between two parameters that hold no knot inside, by their ends in ascending order.
std::vector<double> spans(const BSplineAxis& axis, const Interval& interval);

}  // namespace veltrane::kernel
