// Every line of the pattern is cut with the outline of the faces, by even and odd, and what lies inside is
// divided into dashes, whose beginning the pattern fixes on the line, not on the outline.
#include "veltrane/output/hatch_pattern.hpp"

#include "veltrane/kernel/algo/build.hpp"
#include "veltrane/kernel/algo/transform.hpp"
#include "veltrane/kernel/math/error.hpp"
#include "veltrane/kernel/math/frame.hpp"
#include "veltrane/kernel/mesh/mesh.hpp"
#include "veltrane/kernel/topo/explore.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <optional>
#include <utility>
#include <vector>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Point2;
using kernel::Shape;
using kernel::Vector;
using kernel::Vector2;

constexpr std::size_t kMostStrokes = 200'000;  // of one hatch
constexpr double kOutlineAngle = 0.1;          // radians between the chords of a curved outline

struct Segment {
    Point2 from, to;
};

/// One family of lines in millimetres: line k runs through base + k * offset.
struct LineFamily {
    Point2 base;
    Vector2 along;
    Vector2 offset;
    std::vector<double> dashes;  ///< lengths, below 0 for a gap; empty for whole lines
    double period = 0;

    Vector2 across() const { return {-along.y(), along.x()}; }
    double spacing() const { return across().dot(offset); }
};

std::optional<LineFamily> family_of(const DxfEnt_HatchPatternData& data, double scale) {
    const double angle = data.LineAngle * std::numbers::pi / 180;
    LineFamily family{scale * Point2(data.BasePointX, data.BasePointY),
                      {std::cos(angle), std::sin(angle)},
                      scale * Vector2(data.OffsetX, data.OffsetY),
                      {},
                      0};
    if (data.DashLengths) {
        for (const double dash : *data.DashLengths) {
            family.dashes.push_back(scale * dash);
            family.period += std::abs(scale * dash);
        }
    }
    if (!(family.period > 0)) family.dashes.clear();
    const double spacing = std::abs(family.spacing());
    if (!(spacing > 0) || !std::isfinite(spacing + family.period + family.base.norm())) return std::nullopt;
    return family;
}

Shape outline_of(const Shape& faces) {
    return kernel::make_compound(kernel::sub_shapes(faces, kernel::ShapeKind::Wire));
}

/// The outline of faces as chords, in the object co-ordinates of the hatch.
std::vector<Segment> chords_of(const Shape& faces, const kernel::Frame& frame) {
    kernel::MeshOptions options;
    options.deflection = 1e12;  // the angle alone says how finely
    options.angle = kOutlineAngle;
    const kernel::Mesh mesh = kernel::mesh(faces, options);
    const auto in_plane = [&](std::uint32_t index) {
        const Vector from_origin = mesh.points[index] - frame.origin;
        return Point2(frame.x.dot(from_origin), frame.y.dot(from_origin));
    };
    std::vector<Segment> outline;
    for (const kernel::MeshEdge& edge : mesh.edges) {
        for (std::size_t i = 1; i < edge.points.size(); ++i) {
            outline.push_back({in_plane(edge.points[i - 1]), in_plane(edge.points[i])});
        }
    }
    return outline;
}

class PatternDrawer {
public:
    PatternDrawer(const kernel::Frame& frame, const std::vector<Segment>& outline)
        : frame_(frame), outline_(outline) {}

    /// False when there are too many strokes.
    bool draw(const LineFamily& family) {
        std::map<double, std::vector<double>> crossings;  // by the line's number: places along it
        const Vector2 across = family.across();
        const double spacing = family.spacing();
        const double zero = across.dot(family.base);
        for (const Segment& segment : outline_) {
            double first = (across.dot(segment.from) - zero) / spacing;
            double last = (across.dot(segment.to) - zero) / spacing;
            if (first > last) std::swap(first, last);
            if (last - first > static_cast<double>(kMostStrokes)) return false;
            // Half open, so that a corner on a line counts once for both of its sides.
            for (double k = std::floor(first) + 1; k <= last; ++k) {
                if (++steps_ > kMostStrokes) return false;
                crossings[k].push_back(crossing(segment, across, zero + k * spacing, family.along));
            }
        }
        for (auto& [k, places] : crossings) {
            std::sort(places.begin(), places.end());
            const Point2 start = family.base + k * family.offset;
            for (std::size_t i = 1; i < places.size(); i += 2) {
                if (!draw_within(family, start, places[i - 1], places[i])) return false;
            }
        }
        return true;
    }

    Shape finish() { return parts_.empty() ? Shape() : kernel::make_compound(std::move(parts_)); }

private:
    static double crossing(const Segment& segment, const Vector2& across, double height,
                           const Vector2& along) {
        const double from = across.dot(segment.from), to = across.dot(segment.to);
        const double part = (height - from) / (to - from);
        return along.dot(segment.from + part * (segment.to - segment.from));
    }

    /// The dashes of a line between two places on it.
    bool draw_within(const LineFamily& family, const Point2& start, double first, double last) {
        const double zero = family.along.dot(start);
        const auto at = [&](double place) { return Point2(start + (place - zero) * family.along); };
        if (family.dashes.empty()) return add(at(first), at(last));
        const double first_period = std::floor((first - zero) / family.period);
        const double last_period = std::floor((last - zero) / family.period);
        if (last_period - first_period > static_cast<double>(kMostStrokes)) return false;
        for (double period = first_period; period <= last_period; ++period) {
            double place = zero + period * family.period;
            for (const double dash : family.dashes) {
                const double from = std::max(place, first), to = std::min(place + std::abs(dash), last);
                if (dash >= 0 && from <= to && !add(at(from), at(to))) return false;
                place += std::abs(dash);
            }
        }
        return true;
    }

    bool add(const Point2& from, const Point2& to) {
        const Point a = in_space(from), b = in_space(to);
        parts_.push_back((b - a).norm() > kernel::kConfusion ? kernel::make_edge(a, b)
                                                             : kernel::make_vertex(a));
        return parts_.size() <= kMostStrokes;
    }

    Point in_space(const Point2& p) const { return frame_.origin + p.x() * frame_.x + p.y() * frame_.y; }

    const kernel::Frame& frame_;
    const std::vector<Segment>& outline_;
    std::vector<Shape> parts_;
    std::size_t steps_ = 0;
};

/// Three points of a plane figure that are far from lying on a line, by their places in `points`.
std::optional<std::array<std::size_t, 3>> spread(const std::vector<Point>& points) {
    if (points.empty()) return std::nullopt;
    const auto farthest = [&](auto distance) {
        std::size_t best = 0;
        for (std::size_t i = 1; i < points.size(); ++i) {
            if (distance(points[i]) > distance(points[best])) best = i;
        }
        return best;
    };
    const std::size_t second = farthest([&](const Point& p) { return (p - points[0]).norm(); });
    const Vector way = points[second] - points[0];
    const auto off_line = [&](const Point& p) { return kernel::cross(way, p - points[0]).norm(); };
    const std::size_t third = farthest(off_line);
    if (!(off_line(points[third]) > 1e-6 * way.squaredNorm())) return std::nullopt;
    return std::array{std::size_t{0}, second, third};
}

std::vector<Point> corners(const Shape& faces) {
    std::vector<Point> points;
    for (const Shape& vertex : kernel::sub_shapes(faces, kernel::ShapeKind::Vertex)) {
        points.push_back(kernel::vertex_point(vertex));
    }
    return points;
}

/// The map that takes three points of one plane to three of another, and the normals to one another.
kernel::AffineMap map_between(const std::array<Point, 3>& from, const std::array<Point, 3>& to) {
    const auto out_of_unit = [](const std::array<Point, 3>& p) {
        const Vector a = p[1] - p[0], b = p[2] - p[0];
        kernel::Matrix3 matrix;
        matrix << a, b, kernel::unit(kernel::cross(a, b));
        return kernel::AffineMap(matrix, p[0]);
    };
    return out_of_unit(to) * out_of_unit(from).inverse();
}

}  // namespace

Shape hatch_pattern(const DxfEnt_Hatch& hatch, const Shape& faces, double unit_scale) {
    if (hatch.SolidFillFlag != 0 || faces.is_null()) return {};
    try {
        if (length(hatch.PatternLines) == 0) return outline_of(faces);
        const Vector normal = kernel::unit(hatch.ExtrusionDir);
        const kernel::Frame frame =
            kernel::Frame::from_normal(unit_scale * hatch.ElevationPoint.z() * normal, normal);
        const std::vector<Segment> outline = chords_of(faces, frame);
        PatternDrawer drawer(frame, outline);
        for (const auto& data : *hatch.PatternLines) {
            const auto family = data ? family_of(*data, unit_scale) : std::nullopt;
            if (family && !drawer.draw(*family)) return {};
        }
        return drawer.finish();
    } catch (const kernel::KernelError&) {
        return {};
    }
}

Shape carried_over(const Shape& flat, const Shape& faces, const Shape& image) {
    if (flat.is_null() || kernel::is_same(faces, image)) return flat;
    const std::vector<Point> from = corners(faces), to = corners(image);
    const auto chosen = spread(from);
    if (!chosen || from.size() != to.size()) return {};
    try {
        const auto pick = [&](const std::vector<Point>& points) {
            return std::array{points[(*chosen)[0]], points[(*chosen)[1]], points[(*chosen)[2]]};
        };
        return kernel::transformed(flat, map_between(pick(from), pick(to)));
    } catch (const kernel::KernelError&) {
        return {};
    }
}

}  // namespace veltrane
