// Brings outlines to a canvas. Internal to the folder.
#pragma once

#include "veltrane/output/canvas.hpp"
#include "veltrane/output/outline.hpp"
#include "veltrane/output/projection.hpp"
#include "veltrane/output/visible_stroke.hpp"

#include <array>
#include <cstddef>

namespace veltrane {

class Painter : public OutlineSink {
public:
    /// The projection and the canvas outlive this object. Curves deviate by `deviation` (millimetres).
    Painter(const Projection& projection, double deviation, Canvas& canvas);

    /// Strokes the outline of a shape, or what `cutter` leaves of it.
    void stroke(const kernel::Shape& shape, const Pen& pen, OutlineCount& count,
                StrokeCutter* cutter = nullptr);

    /// Strokes what is seen of a line between places of the projection.
    void stroke(const std::array<kernel::Point, 2>& places, const Pen& pen, StrokeCutter& cutter);

    void point(const kernel::Point& point) override;
    void segment(const kernel::Point& from, const kernel::Point& to) override;
    void unbounded_line(const kernel::Line& line, const kernel::Interval& range) override;
    void curve(const kernel::Curve& curve, const kernel::Interval& range, bool is_reversed) override;

private:
    enum class State { New, Drawing };

    void straight(const kernel::Point2& from, const kernel::Point2& to);
    void cubic(const kernel::Point2& a, const kernel::Point2& b, const kernel::Point2& c,
               const kernel::Point2& d);
    template <std::size_t kCount>
    void visible_parts(const std::array<kernel::Point, kCount>& poles);
    void go_to(const kernel::Point2& p);

    const Projection& projection_;
    double deviation_;
    Canvas& canvas_;
    double touching_;
    StrokeCutter* cutter_ = nullptr;
    Pen pen_;
    State state_ = State::New;
    kernel::Point2 last_{0, 0};
};

}  // namespace veltrane
