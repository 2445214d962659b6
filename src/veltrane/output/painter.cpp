#include "veltrane/output/painter.hpp"

#include "veltrane/kernel/geom/bezier.hpp"
#include "veltrane/output/limits.hpp"

#include <algorithm>
#include <array>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Point2;

constexpr double kDotWidth = 3;      // line widths
constexpr double kSeenEndOn = 1e-9;  // sine of the angle to the line of sight
constexpr double kTouching = 1e-9;   // share of the page within which strokes go on

/// The poles of a part of a Bezier piece (de Casteljau).
template <std::size_t kCount>
std::array<Point, kCount> part_of(std::array<Point, kCount> poles, const kernel::Interval& part) {
    const auto cut_end = [&poles](double u) {  // keeps what comes before u
        for (std::size_t k = 1; k < kCount; ++k) {
            for (std::size_t i = kCount - 1; i >= k; --i) {
                poles[i] = (1 - u) * poles[i - 1] + u * poles[i];
            }
        }
    };
    const bool is_to_end = part.last >= 1;
    if (!is_to_end) cut_end(part.last);
    if (part.first <= 0) return poles;
    std::reverse(poles.begin(), poles.end());
    cut_end(1 - part.first / (is_to_end ? 1 : part.last));
    std::reverse(poles.begin(), poles.end());
    return poles;
}

}  // namespace

Painter::Painter(const Projection& projection, double deviation, Canvas& canvas)
    : projection_(projection),
      deviation_(deviation),
      canvas_(canvas),
      touching_(std::max(projection.page.width, projection.page.height) * kTouching) {}

void Painter::stroke(const kernel::Shape& shape, const Pen& pen, OutlineCount& count, StrokeCutter* cutter) {
    pen_ = pen;
    cutter_ = cutter;
    state_ = State::New;
    outline(shape, kMostParts, *this, count);
}

template <std::size_t kCount>
void Painter::visible_parts(const std::array<Point, kCount>& poles) {
    for (const kernel::Interval& range : cutter_->parts(poles)) {
        const std::array<Point, kCount> part = part_of(poles, range);
        const auto on_page = [&](std::size_t i) -> Point2 { return part[i].template head<2>(); };
        if constexpr (kCount == 2) {
            straight(on_page(0), on_page(1));
        } else {
            cubic(on_page(0), on_page(1), on_page(2), on_page(3));
        }
    }
}

void Painter::stroke(const std::array<Point, 2>& places, const Pen& pen, StrokeCutter& cutter) {
    pen_ = pen;
    cutter_ = &cutter;
    state_ = State::New;
    visible_parts(places);
}

void Painter::point(const Point& point) {
    if (cutter_ && !cutter_->shows(projection_.place(point))) return;
    Pen dot = pen_;
    dot.width *= kDotWidth;
    canvas_.begin_item(dot);
    const Point2 p = projection_.on_page(point);
    canvas_.move_to(p);
    canvas_.line_to(p);
    state_ = State::New;
}

void Painter::segment(const Point& from, const Point& to) {
    if (!cutter_) return straight(projection_.on_page(from), projection_.on_page(to));
    visible_parts(std::array{projection_.place(from), projection_.place(to)});
}

void Painter::unbounded_line(const kernel::Line& line, const kernel::Interval& range) {
    const View& view = projection_.view;
    const Page& page = projection_.page;
    const kernel::Vector2 direction = view.vector(line.direction());
    if (direction.norm() < kSeenEndOn) return;
    const Point2 base = view.project(line.origin());
    const auto seen = clipped_line(base, direction, range, page.area);
    if (!seen) return;
    const auto [from, to] = *seen;
    if (!cutter_) return straight(page.to_page(from), page.to_page(to));
    const auto place = [&](const Point2& p) -> Point {
        const double along = (p - base).dot(direction) / direction.squaredNorm();
        const Point2 at = page.to_page(p);
        return {at.x(), at.y(), projection_.place(line.origin() + along * line.direction()).z()};
    };
    visible_parts(std::array{place(from), place(to)});
}

void Painter::curve(const kernel::Curve& curve, const kernel::Interval& range, bool is_reversed) {
    auto pieces = kernel::cubic_segments(curve, range, deviation_);
    if (is_reversed) {
        std::reverse(pieces.begin(), pieces.end());
        for (kernel::CubicSegment& piece : pieces) std::reverse(piece.begin(), piece.end());
    }
    for (const kernel::CubicSegment& piece : pieces) {
        if (!cutter_) {
            const auto on_page = [&](std::size_t i) { return projection_.on_page(piece[i]); };
            cubic(on_page(0), on_page(1), on_page(2), on_page(3));
            continue;
        }
        const auto place = [&](std::size_t i) { return projection_.place(piece[i]); };
        visible_parts(std::array{place(0), place(1), place(2), place(3)});
    }
}

void Painter::straight(const Point2& from, const Point2& to) {
    go_to(from);
    canvas_.line_to(to);
    last_ = to;
}

void Painter::cubic(const Point2& a, const Point2& b, const Point2& c, const Point2& d) {
    go_to(a);
    canvas_.curve_to(b, c, d);
    last_ = d;
}

/// Lets a stroke go on where the last one ended.
void Painter::go_to(const Point2& p) {
    if (state_ == State::New) {
        canvas_.begin_item(pen_);
        state_ = State::Drawing;
    } else if ((p - last_).cwiseAbs().maxCoeff() <= touching_) {
        return;
    }
    canvas_.move_to(p);
}

}  // namespace veltrane
