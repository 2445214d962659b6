#include "veltrane/output/picture.hpp"

#include "veltrane/base/letter_case.hpp"
#include "veltrane/exchange/file_stream.hpp"
#include "veltrane/output/canvas.hpp"
#include "veltrane/output/face_survey.hpp"
#include "veltrane/output/projection.hpp"
#include "veltrane/output/scene_painter.hpp"

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <utility>

namespace veltrane {
namespace {

constexpr double kSeenFlat = 1e-6;     // an angle
constexpr int kBodyPixels = 3000;      // of the image under the strokes of SVG and PDF
constexpr int kMostBodyPixels = 4096;  // of that image in any picture
constexpr int kPixelsPerPixel = 2;     // of it in a PNG, for smooth borders

std::unique_ptr<Canvas> make_canvas(std::ostream& out, const Page& page, const PictureOptions& options) {
    const Rgb ground = colour_of(options.ground);
    if (options.format == PictureFormat::Svg) return make_svg_canvas(out, page, ground);
    return make_cairo_canvas(out, page, ground, options.format);
}

int body_pixels(const PictureOptions& options, const Page& page) {
    if (options.format != PictureFormat::Png) return kBodyPixels;
    const int pixels = static_cast<int>(std::max(page.width, page.height));
    return std::min(pixels * kPixelsPerPixel, kMostBodyPixels);
}

/// What is drawn where, and in which of the ways of a ScenePainter.
struct Plan {
    FaceSurvey faces;
    Projection projection;
    kernel::Interval heights;  ///< of everything, where there are levels
};

Plan plan_for(const Scene& scene, const PictureOptions& options) {
    const View& view = options.view;
    const PictureBounds bounds = picture_bounds(scene, view);
    const Page page = lay_out(bounds.area, options.format, options.pixels);
    Plan plan{survey_faces(scene, view, height_tolerance(page.area)),
              {view, page, view.toward_eye(), bounds.depths.middle()},
              bounds.depths};
    const bool is_seen_flat = kernel::angle_between(plan.faces.normal, view.toward_eye()) < kSeenFlat;
    if (plan.faces.has_faces && plan.faces.has_levels && !is_seen_flat) {
        constexpr double kFar = std::numeric_limits<double>::infinity();
        plan.projection.upwards = plan.faces.normal;
        plan.projection.zero = plan.faces.levels.front();
        plan.heights = {-kFar, kFar};
    }
    return plan;
}

void draw_scene(const Plan& plan, const PictureOptions& options, ScenePainter& painter) {
    if (!plan.faces.has_faces) {
        painter.draw_lines();
    } else if (plan.faces.has_levels) {
        painter.draw_levels(plan.faces.levels, plan.heights);
    } else {
        painter.draw_bodies(body_pixels(options, plan.projection.page));
    }
}

PictureReport draw(const Scene& scene, const PictureOptions& options, const std::string& file) {
    PictureReport report;
    OutputFile out(file);
    if (!out.good()) return {out.problem(), {}};
    const Plan plan = plan_for(scene, options);
    const Page& page = plan.projection.page;
    if (!page.note.empty()) report.notes.push_back(page.note);

    const auto canvas = make_canvas(out, page, options);
    ScenePainter painter(scene, plan.projection, options.ground, *canvas);
    draw_scene(plan, options, painter);
    for (std::string& note : painter.notes()) report.notes.push_back(std::move(note));

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
