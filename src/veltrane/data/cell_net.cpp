#include "veltrane/data/cell_net.hpp"

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/geom/surface_fit.hpp"
#include "veltrane/kernel/geom/trimmed_curve.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/definition.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Point2;
using kernel::Vector;

constexpr double kCoincident = 1e-6;  // corners, and their distance from lines and planes
constexpr double kParallel = 1e-6;    // radians
constexpr double kSurfaceTolerance = 1e-3;
constexpr int kSurfaceDegree = 3;

/// Where two segments cross, with some of each on both sides of the crossing.
std::optional<Point> crossing(const Point& a, const Point& b, const Point& c, const Point& d) {
    const Vector u = b - a, v = d - c, between = c - a;
    const Vector normal = kernel::cross(u, v);
    const double size = normal.norm();
    if (!(size > kParallel * u.norm() * v.norm())) return {};
    if (std::abs(between.dot(normal)) > kCoincident * size) return {};
    const double s = kernel::cross(between, v).dot(normal) / (size * size);
    const double t = kernel::cross(between, u).dot(normal) / (size * size);
    const auto is_inside = [](double share, const Vector& side) {
        return std::min(share, 1 - share) * side.norm() > kernel::kConfusion;
    };
    if (!is_inside(s, u) || !is_inside(t, v)) return {};
    return Point(a + s * u);
}

/// The parameters of a corner of the surface through four corners, which has the second one along its v.
Point2 parameters_of_corner(std::size_t number) {
    static const std::array<Point2, 4> kCorners = {Point2(0, 0), Point2(0, 1), Point2(1, 1), Point2(1, 0)};
    return kCorners[number % 4];
}

kernel::ParameterCurve side_curve(const kernel::Shape& edge, std::size_t number) {
    Point2 from = parameters_of_corner(number), to = parameters_of_corner(number + 1);
    if (edge.is_reversed()) std::swap(from, to);
    return {kernel::make_segment2(from, to), {1 / kernel::edge_definition(edge).range().length(), 0}};
}

}  // namespace

void DxfData_CellNet::add(const Corners& corners) {
    Polygon kept = distinct(corners);
    drop_middle_of_line(kept);
    cells_.push_back(split_where_sides_cross(kept));
}

DxfData_CellNet::Polygon DxfData_CellNet::distinct(const Corners& corners) const {
    Polygon kept;
    for (const std::size_t corner : corners) {
        const bool is_known = std::any_of(kept.begin(), kept.end(), [&](std::size_t other) {
            return kernel::distance(points_[corner], points_[other]) <= kCoincident;
        });
        if (!is_known) kept.push_back(corner);
    }
    return kept;
}

/// Leaves the two ends of corners that all lie on a line.
void DxfData_CellNet::drop_middle_of_line(Polygon& corners) const {
    if (corners.size() < 3) return;
    const Point& origin = points_[corners[0]];
    const Vector along = points_[corners[1]] - origin;
    const double length = along.norm();
    const bool is_line = std::all_of(corners.begin() + 2, corners.end(), [&](std::size_t corner) {
        return kernel::cross(along, points_[corner] - origin).norm() <= kCoincident * length;
    });
    if (!is_line) return;
    const auto [first, last] = std::minmax_element(
        corners.begin(), corners.end(),
        [&](std::size_t a, std::size_t b) { return along.dot(points_[a] - points_[b]) < 0; });
    corners = {*first, *last};
}

DxfData_CellNet::Cell DxfData_CellNet::split_where_sides_cross(const Polygon& corners) {
    if (corners.size() < 4) return {corners};
    for (const std::size_t first : {0, 3}) {
        const auto corner = [&](std::size_t number) { return corners[(first + number) % 4]; };
        const auto at =
            crossing(points_[corner(0)], points_[corner(1)], points_[corner(2)], points_[corner(3)]);
        if (!at) continue;
        points_.push_back(*at);
        const std::size_t x = points_.size() - 1;
        // The way round crosses itself: one triangle is turned so that both show the same side.
        return {{x, corner(1), corner(2)}, {x, corner(0), corner(3)}};
    }
    return {corners};
}

std::vector<kernel::Shape> DxfData_CellNet::shapes() const {
    kernel::PolygonNet net(points_, kCoincident);
    std::vector<kernel::Shape> shapes;
    shapes.reserve(cells_.size());
    for (const Cell& cell : cells_) {
        kernel::Shape shape = shape_of(cell.front(), net);
        if (cell.size() == 2) shape = kernel::make_compound({shape, shape_of(cell.back(), net)});
        shapes.push_back(std::move(shape));
    }
    return shapes;
}

kernel::Shape DxfData_CellNet::shape_of(const Polygon& corners, kernel::PolygonNet& net) const {
    if (corners.size() == 1) return net.vertex(corners[0]);
    if (corners.size() == 2) return net.edge(corners[0], corners[1]);
    const kernel::Shape wire = net.wire(corners);
    const kernel::PlanarFace made = kernel::make_planar_face(wire);
    if (made.fault != kernel::PlanarFault::NotPlanar) return made.face;
    return kernel::child_count(wire) == 4 ? curved_face(corners, wire) : kernel::Shape();
}

kernel::Shape DxfData_CellNet::curved_face(const Polygon& corners, const kernel::Shape& wire) const {
    const auto at = [&](std::size_t number) { return points_[corners[number]]; };
    kernel::Loop loop{wire.reversed(), {}};  // the second corner lies along v: the normal is turned
    for (std::size_t i = 0; i < corners.size(); ++i) {
        loop.parameter_curves.push_back(side_curve(kernel::own_child(wire, i), i));
    }
    const auto surface = kernel::fit({2, 2, {at(0), at(1), at(3), at(2)}}, kSurfaceTolerance, kSurfaceDegree);
    return kernel::Shape(make<kernel::FaceDefinition>(surface, std::vector<kernel::Loop>{std::move(loop)}),
                         kernel::Orientation::Reversed);
}

Ref<DxfData_GeometrySequence> DxfData_CellNet::geometry() const {
    auto sequence = make<DxfData_GeometrySequence>();
    for (const Cell& cell : cells_) {
        for (const Polygon& corners : cell) {
            if (corners.size() == 1) sequence->Append(make<kernel::FreePoint>(points_[corners[0]]));
            const std::size_t sides = corners.size() > 2 ? corners.size() : corners.size() - 1;
            for (std::size_t i = 0; i < sides; ++i) {
                sequence->Append(
                    kernel::make_segment(points_[corners[i]], points_[corners[(i + 1) % corners.size()]]));
            }
        }
    }
    return sequence;
}

}  // namespace veltrane
