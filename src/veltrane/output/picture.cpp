#include "veltrane/output/picture.hpp"

#include "veltrane/base/letter_case.hpp"
#include "veltrane/exchange/file_stream.hpp"
#include "veltrane/kernel/geom/bezier.hpp"
#include "veltrane/output/canvas.hpp"
#include "veltrane/output/limits.hpp"
#include "veltrane/output/outline.hpp"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

namespace veltrane {
namespace {

constexpr double kRelativeDeviation = 4e-6;
constexpr double kDotWidth = 3;      // line widths
constexpr double kSeenEndOn = 1e-9;  // sine of the angle to the line of sight
constexpr double kTouching = 1e-9;   // share of the page within which strokes go on

/// Brings the outlines of items to the page.
class Painter : public OutlineSink {
public:
    Painter(const View& view, const Page& page, Ground ground, Canvas& canvas)
        : view_(view),
          page_(page),
          ground_(ground),
          canvas_(canvas),
          deviation_(page.area.long_side() * kRelativeDeviation),
          touching_(std::max(page.width, page.height) * kTouching) {}

    void draw(const kernel::Shape& shape, const Style& style, OutlineCount& count) {
        pen_ = {palette_colour(style.colour, ground_), page_.line_width(style.lineweight), style.layer};
        state_ = State::New;
        outline(shape, kMostParts, *this, count);
    }

    void point(const kernel::Point& point) override {
        Pen dot = pen_;
        dot.width *= kDotWidth;
        canvas_.begin_item(dot);
        const kernel::Point2 p = on_page(point);
        canvas_.move_to(p);
        canvas_.line_to(p);
        state_ = State::New;
    }

    void segment(const kernel::Point& from, const kernel::Point& to) override {
        stroke(on_page(from), on_page(to));
    }

    void unbounded_line(const kernel::Line& line, const kernel::Interval& range) override {
        const kernel::Vector2 direction = view_.vector(line.direction());
        if (direction.norm() < kSeenEndOn) return;
        const auto visible = clipped_line(view_.project(line.origin()), direction, range, page_.area);
        if (visible) stroke(page_.to_page(visible->first), page_.to_page(visible->second));
    }

    void curve(const kernel::Curve& curve, const kernel::Interval& range, bool is_reversed) override {
        auto pieces = kernel::cubic_segments(curve, range, deviation_);
        if (is_reversed) {
            std::reverse(pieces.begin(), pieces.end());
            for (kernel::CubicSegment& piece : pieces) std::reverse(piece.begin(), piece.end());
        }
        for (const kernel::CubicSegment& piece : pieces) {
            go_to(on_page(piece[0]));
            last_ = on_page(piece[3]);
            canvas_.curve_to(on_page(piece[1]), on_page(piece[2]), last_);
        }
    }

private:
    enum class State { New, Drawing };

    kernel::Point2 on_page(const kernel::Point& p) const { return page_.to_page(view_.project(p)); }

    void stroke(const kernel::Point2& from, const kernel::Point2& to) {
        go_to(from);
        canvas_.line_to(to);
        last_ = to;
    }

    /// Lets a stroke go on where the last one ended.
    void go_to(const kernel::Point2& p) {
        if (state_ == State::New) {
            canvas_.begin_item(pen_);
            state_ = State::Drawing;
        } else if ((p - last_).cwiseAbs().maxCoeff() <= touching_) {
            return;
        }
        canvas_.move_to(p);
    }

    const View& view_;
    const Page& page_;
    Ground ground_;
    Canvas& canvas_;
    double deviation_;
    double touching_;
    Pen pen_;
    State state_ = State::New;
    kernel::Point2 last_{0, 0};
};

std::unique_ptr<Canvas> make_canvas(std::ostream& out, const Page& page, const PictureOptions& options) {
    const Rgb ground = colour_of(options.ground);
    if (options.format == PictureFormat::Svg) return make_svg_canvas(out, page, ground);
    return make_cairo_canvas(out, page, ground, options.format);
}

void note_losses(const Scene& scene, const OutlineCount& count, std::vector<std::string>& notes) {
    if (scene.items.empty()) notes.emplace_back("There is nothing to draw: the picture is empty.");
    if (count.skipped > 0) {
        notes.push_back(std::to_string(count.skipped) + (count.skipped == 1 ? " curve" : " curves") +
                        " could not be drawn.");
    }
    if (!count.is_complete) {
        notes.push_back("The picture is broken off after " + std::to_string(count.parts) + " curves.");
    }
}

PictureReport draw(const Scene& scene, const PictureOptions& options, const std::string& file) {
    PictureReport report;
    OutputFile out(file);
    if (!out.good()) return {out.problem(), {}};
    const Page page = lay_out(picture_area(scene, options.view), options.format, options.pixels);
    if (!page.note.empty()) report.notes.push_back(page.note);

    const auto canvas = make_canvas(out, page, options);
    Painter painter(options.view, page, options.ground, *canvas);
    OutlineCount count;
    const bool saw_all =
        visit_leaves(scene.items, kMostParts, [&](const kernel::Shape& shape, const SceneItem& item) {
            painter.draw(shape, item.style, count);
            return count.is_complete;
        });
    count.is_complete = saw_all;
    note_losses(scene, count, report.notes);

    const std::string problem = canvas->finish();
    if (!problem.empty() && out.good()) {
        // What went wrong is the drawing, not the writing; the file is given up.
        report.problem = "cannot draw " + file + ": " + problem;
    } else if (!out.Close()) {
        report.problem = out.problem();
    }
    return report;
}

}  // namespace

std::optional<PictureFormat> picture_format_of(std::string_view file) {
    static constexpr std::array<std::pair<std::string_view, PictureFormat>, 3> kExtensions = {
        {{".svg", PictureFormat::Svg}, {".pdf", PictureFormat::Pdf}, {".png", PictureFormat::Png}}};
    if (file.size() < 4) return std::nullopt;
    const std::string ending = lower_case(file.substr(file.size() - 4));
    for (const auto& [extension, format] : kExtensions) {
        if (ending == extension) return format;
    }
    return std::nullopt;
}

PictureReport write_picture(const Scene& scene, const PictureOptions& options, const std::string& file) {
    try {
        return draw(scene, options, file);
    } catch (const std::exception& error) {
        return {"cannot draw " + file + ": " + error.what(), {}};
    }
}

}  // namespace veltrane
