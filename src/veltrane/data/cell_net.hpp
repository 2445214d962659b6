// Faces over three or four corners each that share vertices and edges: the cells of a mesh, or a single face
// of a drawing.
#pragma once

#include "veltrane/data/transfer_context.hpp"
#include "veltrane/kernel/algo/shell.hpp"

#include <array>
#include <cstddef>
#include <vector>

namespace veltrane {

/// Add the cells, then ask for what they give. Points are in millimetres and world co-ordinates.
class DxfData_CellNet {
public:
    using Corners = std::array<std::size_t, 4>;

    explicit DxfData_CellNet(std::vector<kernel::Point> points) : points_(std::move(points)) {}

    /// Adds a cell by the indices of its corners in running order. Corners that coincide, or all lie on a
    /// line, leave a triangle, an edge or a point. A cell with crossing sides becomes the two triangles that
    /// meet where they cross.
    void add(const Corners& corners);
    bool is_empty() const { return cells_.empty(); }

    /// A shape for every cell: a face, planar if possible and else on a B-spline surface, a compound of two
    /// triangles, an edge or a vertex; null when there is none. Cells that have a side in common share its
    /// edge.
    std::vector<kernel::Shape> shapes() const;
    /// The sides of every cell, one after the other; a point for a cell that is but a point.
    Ref<DxfData_GeometrySequence> geometry() const;

private:
    using Polygon = std::vector<std::size_t>;  // one to four different corners
    using Cell = std::vector<Polygon>;         // one, or two triangles

    Polygon distinct(const Corners& corners) const;
    void drop_middle_of_line(Polygon& corners) const;
    Cell split_where_sides_cross(const Polygon& corners);
    kernel::Shape shape_of(const Polygon& corners, kernel::PolygonNet& net) const;
    kernel::Shape curved_face(const Polygon& corners, const kernel::Shape& wire) const;

    std::vector<kernel::Point> points_;  // given ones, then crossings
    std::vector<Cell> cells_;
};

}  // namespace veltrane
