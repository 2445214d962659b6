#include "veltrane/kernel/mesh/face_mesh.hpp"

#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/mesh/surface_steps.hpp"
#include "veltrane/kernel/mesh/triangulation.hpp"

#include <algorithm>
#include <optional>
#include <utility>

namespace veltrane::kernel {

namespace {

double distance_to_segment(const Point2& p, const Point2& a, const Point2& b) {
    const Vector2 along = b - a;
    const double length = along.squaredNorm();
    const double t = length > 0 ? std::clamp((p - a).dot(along) / length, 0.0, 1.0) : 0;
    return (p - a - t * along).norm();
}

class FaceMesher {
public:
    FaceMesher(const Surface& surface, const std::vector<Polygon>& polygons, const MeshOptions& options,
               std::vector<Point>& points, FaceMesh& result)
        : surface_(surface),
          options_(options),
          points_(points),
          result_(result),
          steps_(steps_for(surface, polygons, options)),
          plane_(positions(polygons)) {
        add_outlines(polygons);
        plane_.mark_inside();
        if (steps_.is_curved_both_ways) add_inner_points();
        if (steps_.is_curved) refine();
        take_triangles();
    }

private:
    static SurfaceSteps steps_for(const Surface& surface, const std::vector<Polygon>& polygons,
                                  const MeshOptions& options) {
        Point2 low = polygons.front().front().parameters, high = low;
        for (const Polygon& polygon : polygons) {
            for (const Corner& corner : polygon) {
                low = low.cwiseMin(corner.parameters);
                high = high.cwiseMax(corner.parameters);
            }
        }
        return surface_steps(surface, {low.x(), high.x()}, {low.y(), high.y()}, options);
    }

    /// Fills places_ along the way.
    std::vector<Point2> positions(const std::vector<Polygon>& polygons) {
        std::vector<Point2> result;
        for (const Polygon& polygon : polygons) {
            for (const Corner& corner : polygon) {
                result.push_back(steps_.to_steps(corner.parameters));
                if (!is_usable(result.back()))
                    throw KernelError("A face has no extent beside its co-ordinates");
                places_.push_back(corner.point);
            }
        }
        places_.resize(places_.size() + 4);  // the far corners
        return result;
    }

    void add_outlines(const std::vector<Polygon>& polygons) {
        int first = 0;
        for (const Polygon& polygon : polygons) {
            const int count = static_cast<int>(polygon.size());
            for (int i = 0; i < count; ++i) {
                const int here = first + i;
                if (plane_.standing_for(here) != here) {
                    result_.same_points.emplace_back(places_[here], places_[plane_.standing_for(here)]);
                }
                add_side(here, first + (i + 1) % count);
            }
            first += count;
        }
    }

    /// Vertices that lie on a side divide it for this face only. Triangles without area go between the pieces
    /// and the whole, which the neighbouring face uses.
    void add_side(int from, int to) {
        std::vector<int> passed;
        if (!plane_.add_boundary(from, to, passed)) {
            throw KernelError("The boundary of a face crosses itself too often");
        }
        while (static_cast<int>(places_.size()) < plane_.vertex_count()) {
            add_point(plane_.point(static_cast<int>(places_.size())));
        }
        int ahead = to;
        for (auto v = passed.rbegin(); v != passed.rend(); ++v) {
            add_triangle(from, ahead, *v);
            ahead = *v;
        }
    }

    void add_point(const Point2& p) {
        places_.push_back(static_cast<std::uint32_t>(points_.size()));
        points_.push_back(surface_.value(steps_.to_parameters(p)));
    }

    void add_triangle(int a, int b, int c) {
        const MeshTriangle triangle{places_[a], places_[b], places_[c]};
        if (triangle[0] == triangle[1] || triangle[1] == triangle[2] || triangle[2] == triangle[0]) return;
        result_.triangles.push_back(triangle);
    }

    /// Where loops that should touch cross a little, triangles that they run around the wrong way are turned:
    /// then the sides of all triangles add up to the loops.
    void take_triangles() {
        for (const auto& [from, to, vertex, passes] : plane_.splits()) {
            for (int i = 0; i < passes; ++i) add_triangle(from, to, vertex);
            for (int i = 0; i > passes; --i) add_triangle(to, from, vertex);
        }
        double sum = 0;
        for (const Triangulation::Triangle& triangle : plane_.triangles()) {
            if (!triangle.is_inside()) continue;
            const auto& [a, b, c] = triangle.corners;
            const double size = cross2(plane_.point(b) - plane_.point(a), plane_.point(c) - plane_.point(a));
            if (triangle.winding > 0) {
                sum += size;
                add_triangle(a, b, c);
            } else {
                sum -= size;
                add_triangle(a, c, b);
            }
        }
        if (sum >= 0) return;
        for (MeshTriangle& triangle : result_.triangles) std::swap(triangle[1], triangle[2]);
    }

    /// The distance that a point in a triangle keeps from its corners and from boundaries, in steps.
    double clearance(const Triangulation::Triangle& triangle, const Point2& p) const {
        double least = 1e9;
        for (int i = 0; i < 3; ++i) {
            const Point2& a = plane_.point(triangle.corners[(i + 1) % 3]);
            const Point2& b = plane_.point(triangle.corners[(i + 2) % 3]);
            least = std::min(least, (p - a).norm());
            if (triangle.sides[i].is_fixed) least = std::min(least, distance_to_segment(p, a, b));
        }
        return least;
    }

    bool insert(const Point2& p, double least_clearance, int near = -1) {
        const auto has_room = [&](const auto& triangle) { return clearance(triangle, p) >= least_clearance; };
        if (plane_.insert_inside(p, has_room, near) < 0) return false;
        add_point(p);
        return true;
    }

    void add_inner_points() {
        constexpr double kClearance = 0.4;
        for (int i = 1; i < steps_.u.count(); ++i) {
            for (int j = 1; j < steps_.v.count(); ++j) insert(Point2(i, j), kClearance);
        }
    }

    /// Points where triangles still leave the surface too far.
    void refine() {
        constexpr int kMostRounds = 12;
        constexpr double kClearance = 0.2;
        const int limit = plane_.vertex_count() + options_.max_face_points;
        for (int round = 0; round < kMostRounds; ++round) {
            struct Wanted {
                Point2 at;
                int triangle;
            };
            std::vector<Wanted> wanted;
            for (std::size_t t = 0; t < plane_.triangles().size(); ++t) {
                if (!plane_.triangles()[t].is_inside()) continue;
                if (const auto at = worst_place(plane_.triangles()[t]))
                    wanted.push_back({*at, static_cast<int>(t)});
            }
            bool changed = false;
            for (const Wanted& place : wanted) {
                if (plane_.vertex_count() >= limit) return;
                changed = insert(place.at, kClearance, place.triangle) || changed;
            }
            if (!changed) return;
        }
    }

    /// Where in a triangle the surface is farthest from it, among the centre and the middles of free sides;
    /// none when that is near enough.
    std::optional<Point2> worst_place(const Triangulation::Triangle& triangle) const {
        const auto& [a, b, c] = triangle.corners;
        const Point& origin = points_[places_[a]];
        const Vector across = cross(points_[places_[b]] - origin, points_[places_[c]] - origin);
        const double size = across.norm();
        if (!(size > 0)) return std::nullopt;
        double worst = options_.deflection;
        std::optional<Point2> place;
        const auto consider = [&](const Point2& at) {
            const Point on_surface = surface_.value(steps_.to_parameters(at));
            const double deviation = std::abs((on_surface - origin).dot(across)) / size;
            if (!(deviation > worst)) return;
            worst = deviation;
            place = at;
        };
        consider((plane_.point(a) + plane_.point(b) + plane_.point(c)) / 3);
        for (int i = 0; i < 3; ++i) {
            if (triangle.sides[i].is_fixed) continue;
            consider(
                (plane_.point(triangle.corners[(i + 1) % 3]) + plane_.point(triangle.corners[(i + 2) % 3])) /
                2);
        }
        return place;
    }

    const Surface& surface_;
    const MeshOptions& options_;
    std::vector<Point>& points_;
    FaceMesh& result_;
    SurfaceSteps steps_;
    std::vector<std::uint32_t> places_;  // of each vertex, in points_
    Triangulation plane_;
};

}  // namespace

FaceMesh mesh_face(const Surface& surface, const std::vector<Outline>& outlines, const MeshOptions& options,
                   std::vector<Point>& points) {
    FaceMesh result;
    const std::vector<Polygon> polygons = closed_polygons(surface, outlines, points, result.same_points);
    if (polygons.empty()) throw KernelError("A face has no boundary");
    FaceMesher(surface, polygons, options, points, result);
    return result;
}

}  // namespace veltrane::kernel
