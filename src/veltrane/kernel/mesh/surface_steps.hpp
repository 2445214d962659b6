// How large a step on a surface may be. Internal to the folder.
#pragma once

#include "veltrane/kernel/geom/surface.hpp"
#include "veltrane/kernel/mesh/mesh.hpp"

#include <vector>

namespace veltrane::kernel {

/// A parameter measured in permitted steps: 0 at the first division, 1 at the next, linear between divisions
/// and beyond them.
class StepScale {
public:
    /// At least two ascending parameters.
    explicit StepScale(std::vector<double> divisions) : divisions_(std::move(divisions)) {}

    double to_steps(double parameter) const;
    double to_parameter(double steps) const;
    int count() const { return static_cast<int>(divisions_.size()) - 1; }

private:
    std::vector<double> divisions_;
};

/// Parameters of a surface in steps of both directions: the plane in which triangles of good shape deviate
/// little from the surface.
struct SurfaceSteps {
    StepScale u, v;
    bool is_curved;            ///< false: straight lines between points of the surface lie in it
    bool is_curved_both_ways;  ///< points inside are needed where steps of both directions meet

    Point2 to_steps(const Point2& uv) const { return {u.to_steps(uv.x()), v.to_steps(uv.y())}; }
    Point2 to_parameters(const Point2& s) const { return {u.to_parameter(s.x()), v.to_parameter(s.y())}; }
};

/// The steps over a part of a surface. A chord over one step, or a triangle in it, keeps the deflection and
/// the angle, as far as the limits permit. Throws KernelError for parts that are not bounded.
SurfaceSteps surface_steps(const Surface& surface, const Interval& u, const Interval& v,
                           const MeshOptions& options);

}  // namespace veltrane::kernel
