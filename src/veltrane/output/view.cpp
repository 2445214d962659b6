#include "veltrane/output/view.hpp"

#include "veltrane/kernel/geom/curve_measure.hpp"
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

/// Gathers the rectangles around what is bounded and around the base points of what is not.
class AreaSink : public OutlineSink {
public:
    explicit AreaSink(const View& view) : view_(view) {}

    void point(const kernel::Point& point) override { bounded_.add(view_.project(point)); }
    void segment(const kernel::Point& from, const kernel::Point& to) override {
        bounded_.add(view_.project(from));
        bounded_.add(view_.project(to));
    }
    void unbounded_line(const kernel::Line& line, const kernel::Interval&) override {
        bases_.add(view_.project(line.origin()));
    }
    void curve(const kernel::Curve& curve, const kernel::Interval& range, bool) override {
        bounded_.add(view_.box_of(curve, range));
    }

    const Rect& bounded() const { return bounded_; }
    const Rect& bases() const { return bases_; }

private:
    const View& view_;
    Rect bounded_;
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

Rect View::box_of(const kernel::Curve& curve, const kernel::Interval& range) const {
    const bool is_plan = frame_.x.x() == 1 && frame_.y.y() == 1;
    const auto turn = kernel::Transform::from_frame(frame_).inverse();
    const kernel::Box box =
        is_plan ? kernel::bounding_box(curve, range) : kernel::bounding_box(*curve.transformed(turn), range);
    return box.is_empty() ? Rect() : Rect(box.min().head<2>(), box.max().head<2>());
}

Rect picture_area(const Scene& scene, const View& view) {
    AreaSink sink(view);
    OutlineCount count;
    visit_leaves(scene.items, kMostParts, [&](const kernel::Shape& shape, const SceneItem&) {
        outline(shape, kMostParts, sink, count);
        return count.is_complete;
    });

    const bool has_bounded = !sink.bounded().is_empty();
    Rect area = has_bounded ? sink.bounded() : sink.bases();
    if (area.is_empty()) area.add(kernel::Point2(0, 0));
    if (!(area.long_side() > kSmallestSize)) return area.enlarged(half_around(area.centre()));
    return has_bounded ? area : area.enlarged(area.long_side() / 4);
}

}  // namespace veltrane
