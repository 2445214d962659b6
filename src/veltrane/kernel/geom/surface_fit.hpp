// Surfaces through grids of points. After Piegl and Tiller, "The NURBS Book", chapter 9.
#pragma once

#include "veltrane/kernel/geom/bspline_surface.hpp"

namespace veltrane::kernel {

/// rows x columns points, row after row.
struct PointGrid {
    int rows = 0;
    int columns = 0;
    std::vector<Point> points;

    const Point& at(int row, int column) const {
        return points[static_cast<std::size_t>(row) * columns + column];
    }
};

/// A surface that passes every point of the grid within `tolerance` (drawing units; 0 asks for one through
/// the points); the outer corners are met exactly. u runs from row to row, v within a row, both over [0, 1]
/// by mean chord lengths. The degree is `degree` in both directions, all inner knots are simple, and poles
/// are as few as halving the spans finds. The work is linear in the number of points.
/// Throws KernelError when there are less than two rows or columns, the number of points is not theirs, a
/// point is not usable, the degree is not 1 to kMaxDegree, and when two neighbouring rows or columns
/// coincide.
Ref<BSplineSurface> fit(const PointGrid& grid, double tolerance, int degree = 3);

}  // namespace veltrane::kernel
