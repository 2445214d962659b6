#include "veltrane/kernel/algo/spline_face.hpp"

#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <utility>
#include <vector>

namespace veltrane::kernel {

namespace {

/// The straight way on the surface from one end of an edge to the other.
ParameterCurve straight_path(const BSplineSurface& surface, const Shape& edge, double tolerance) {
    const EdgeGeometry geometry = edge_geometry(edge);
    if (!geometry.range.is_bounded()) throw KernelError("The edge is unbounded");
    const auto at = [&](double fraction) { return geometry.curve->value(geometry.range.at(fraction)); };
    const Point2 from = surface.project(at(0)), to = surface.project(at(1));
    const double length = (to - from).norm();
    if (!(length > kParametric)) throw KernelError("An edge has no extent on a surface");
    constexpr int kSamples = 16;
    for (int i = 0; i <= kSamples; ++i) {
        const double fraction = static_cast<double>(i) / kSamples;
        if (!(distance(surface.value(from + fraction * (to - from)), at(fraction)) <= tolerance)) {
            throw KernelError("An edge does not run straight on a surface");
        }
    }
    const double scale = length / geometry.range.length();
    return {make_line2(from, to - from), {scale, -scale * geometry.range.first}};
}

}  // namespace

Shape make_spline_face(const Ref<BSplineSurface>& surface, const Shape& wire, double tolerance) {
    const std::vector<Shape> edges = edges_in_order(wire);
    std::vector<Point2> corners;
    std::vector<ParameterCurve> paths;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (!is_same(last_vertex(edges[i]), first_vertex(edges[(i + 1) % edges.size()]))) {
            throw KernelError("The wire is not closed");
        }
        paths.push_back(straight_path(*surface, edges[i], tolerance));
        const Interval& range = edge_definition(edges[i]).range();
        corners.push_back(paths.back().value(edges[i].is_reversed() ? range.last : range.first));
    }
    double area = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        area += cross2(corners[i] - corners.front(), corners[(i + 1) % corners.size()] - corners.front());
    }
    if (area == 0) throw KernelError("A wire encloses nothing on a surface");
    // Parameter curves follow the wire's definition, whatever its orientation.
    if (wire.is_reversed()) paths = {paths.rbegin(), paths.rend()};
    Loop loop{area > 0 ? wire : wire.reversed(), std::move(paths)};
    return Shape(make<FaceDefinition>(surface, std::vector<Loop>{std::move(loop)}));
}

}  // namespace veltrane::kernel
