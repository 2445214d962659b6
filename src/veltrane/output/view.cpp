#include "veltrane/output/view.hpp"

#include "veltrane/kernel/algo/bounds.hpp"
#include "veltrane/kernel/geom/bspline_surface.hpp"
#include "veltrane/kernel/geom/curve_measure.hpp"
#include "veltrane/kernel/topo/definition.hpp"
#include "veltrane/output/face_survey.hpp"
#include "veltrane/output/limits.hpp"
#include "veltrane/output/outline.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace veltrane {
namespace {

constexpr std::array<std::pair<std::string_view, StandardView>, 9> kNames = {
    {{"top", StandardView::Top},
     {"plan", StandardView::Top},
     {"bottom", StandardView::Bottom},
     {"front", StandardView::Front},
     {"back", StandardView::Back},
     {"left", StandardView::Left},
     {"right", StandardView::Right},
     {"isometric", StandardView::Isometric},
     {"iso", StandardView::Isometric}}};

kernel::Vector direction_of(StandardView view) {
    switch (view) {
        case StandardView::Top:
            return {0, 0, 1};
        case StandardView::Bottom:
            return {0, 0, -1};
        case StandardView::Front:
            return {0, -1, 0};
        case StandardView::Back:
            return {0, 1, 0};
        case StandardView::Left:
            return {-1, 0, 0};
        case StandardView::Right:
            return {1, 0, 0};
        case StandardView::Isometric:
            return {-1, -1, 1};
    }
    return {0, 0, 1};
}

/// Every point lies on a straight line that leads from edge to edge.
bool is_ruled(const kernel::BSplineSurface& surface) {
    const auto is_straight = [](const kernel::BSplineAxis& axis) {
        return axis.degree == 1 && axis.knots.size() == 2;
    };
    return is_straight(surface.axis_u()) || is_straight(surface.axis_v());
}

/// Gathers the box around what is bounded, as it is seen, and the rectangle around the base points of what is
/// not.
class BoundsSink : public OutlineSink {
public:
    explicit BoundsSink(const View& view) : view_(view) {}

    void point(const kernel::Point& point) override { add(point); }
    void segment(const kernel::Point& from, const kernel::Point& to) override {
        add(from);
        add(to);
    }
    void unbounded_line(const kernel::Line& line, const kernel::Interval&) override {
        bases_.add(view_.project(line.origin()));
    }
    void curve(const kernel::Curve& curve, const kernel::Interval& range, bool) override {
        bounded_.add(view_.box_of(curve, range));
    }
    /// Faces do not reach beyond their edges, unless they bulge.
    void face(const kernel::Shape& face) {
        const auto* surface = as<const kernel::BSplineSurface>(kernel::face_definition(face).surface().get());
        if (!surface || is_ruled(*surface)) return;
        const kernel::Box box = view_.box_of(face);
        if (box.is_finite()) bounded_.add(box);
    }

    const kernel::Box& bounded() const { return bounded_; }
    const Rect& bases() const { return bases_; }

private:
    void add(const kernel::Point& p) {
        const kernel::Point2 at = view_.project(p);
        bounded_.add(kernel::Point(at.x(), at.y(), view_.depth(p)));
    }

    const View& view_;
    kernel::Box bounded_;
    Rect bases_;
};

constexpr double kSmallestHalf = 5;      // millimetres
constexpr double kSmallestSize = 1e-30;  // what is below is rounding, not geometry

/// Room around a point that survives the addition to its co-ordinates.
double half_around(const kernel::Point2& p) {
    return std::max(kSmallestHalf, 1e-12 * p.cwiseAbs().maxCoeff());
}

}  // namespace

std::optional<StandardView> standard_view(std::string_view name) {
    for (const auto& [text, view] : kNames) {
        if (text == name) return view;
    }
    return std::nullopt;
}

View::View(StandardView view) : View(direction_of(view)) {}

View::View(const kernel::Vector& direction)
    : frame_(kernel::Frame::from_normal(kernel::Point(0, 0, 0), direction)) {}

kernel::Box View::box_of(const kernel::Curve& curve, const kernel::Interval& range) const {
    const bool is_plan = frame_.x.x() == 1 && frame_.y.y() == 1;
    if (is_plan) return kernel::bounding_box(curve, range);
    return kernel::bounding_box(*curve.transformed(kernel::Transform::from_frame(frame_).inverse()), range);
}

kernel::Box View::box_of(const kernel::Shape& face) const {
    return kernel::bounding_box(kernel::moved(face, kernel::Transform::from_frame(frame_).inverse()));
}

PictureBounds picture_bounds(const Scene& scene, const View& view) {
    BoundsSink sink(view);
    OutlineCount count;
    FaceWalk faces(kMostParts);
    visit_leaves(scene.items, kMostParts, [&](const kernel::Shape& shape, const SceneItem&) {
        outline(shape, kMostParts, sink, count);
        faces.visit(shape, [&](const kernel::Shape& face) { sink.face(face); });
        return count.is_complete;
    });

    PictureBounds bounds;
    const kernel::Box& box = sink.bounded();
    if (!box.is_empty()) {
        bounds.area = Rect(box.min().head<2>(), box.max().head<2>());
        bounds.depths = {box.min().z(), box.max().z()};
    } else if (!sink.bases().is_empty()) {
        const Rect& bases = sink.bases();
        bounds.area = bases.enlarged(bases.long_side() / 4);
    } else {
        bounds.area.add(kernel::Point2(0, 0));
    }
    Rect& area = bounds.area;
    if (!(area.long_side() > kSmallestSize)) area = area.enlarged(half_around(area.centre()));
    return bounds;
}

}  // namespace veltrane
