#include "veltrane/output/scene_painter.hpp"

#include "veltrane/output/face_colours.hpp"
#include "veltrane/output/face_fill.hpp"
#include "veltrane/output/face_raster.hpp"
#include "veltrane/output/limits.hpp"

#include <algorithm>
#include <limits>

namespace veltrane {
namespace {

constexpr double kRelativeDeviation = 4e-6;  // of curves: share of the longer side
constexpr double kSameHeight = 1e-6;         // share of the longer side
constexpr double kHairline = 0.5;            // default lines, around areas, so that neighbours leave no gap
constexpr double kThinnestEdge = 0.15;       // of its width
constexpr double kSlabSteps = 3000;          // along the page, where strokes are cut between slabs

std::string counted(std::size_t count, const char* what) {
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

}  // namespace

double height_tolerance(const Rect& area) {
    return area.long_side() * kSameHeight;
}

ScenePainter::ScenePainter(const Scene& scene, const Projection& projection, Ground ground, Canvas& canvas)
    : scene_(scene),
      projection_(projection),
      ground_(ground),
      canvas_(canvas),
      deviation_(projection.page.area.long_side() * kRelativeDeviation),
      painter_(projection, deviation_, canvas) {}

ScenePainter::Leaf ScenePainter::leaf_of(const kernel::Shape& shape, const SceneItem& item) const {
    const Style& style = item.style;
    const Rgb colour = palette_colour(style.colour, ground_);
    const double width = projection_.page.line_width(style.lineweight);
    const Pen line{colour, width, style.layer};
    const FaceRole role = role_of(item, shape);
    if (role != FaceRole::Body) {
        const double hairline = role == FaceRole::Area ? projection_.page.default_line * kHairline : 0;
        return {shape, line, line, {ink_colour(item, ground_), hairline, style.layer, true}, true};
    }
    const FaceColours colours = body_colours(colour, ground_);
    const View& view = projection_.view;
    const kernel::Vector& up = projection_.upwards;
    const kernel::Vector seen_up(view.right().dot(up), view.up().dot(up), view.toward_eye().dot(up));
    const Pen fill{shaded(colours.fill, seen_up), 0, style.layer, true};
    return {shape, line, {colours.edge, width, style.layer}, fill, false};
}

void ScenePainter::visit(const std::function<void(const kernel::Shape&, const SceneItem&)>& visitor) {
    count_ = {};
    const bool saw_all =
        visit_leaves(scene_.items, kMostParts, [&](const kernel::Shape& shape, const SceneItem& item) {
            visitor(shape, item);
            return count_.is_complete;
        });
    count_.is_complete = saw_all;
}

void ScenePainter::draw_lines() {
    visit([&](const kernel::Shape& shape, const SceneItem& item) {
        const Style& style = item.style;
        const Pen pen{palette_colour(style.colour, ground_), projection_.page.line_width(style.lineweight),
                      style.layer};
        painter_.stroke(shape, pen, count_);
    });
}

void ScenePainter::draw_all(StrokeCutter& cutter, const FaceVisitor& on_face, const EdgeWidth& edge_width) {
    FaceWalk walk(kMostParts);
    visit([&](const kernel::Shape& shape, const SceneItem& item) {
        Leaf leaf = leaf_of(shape, item);
        leaf.edge.width *= edge_width(shape);
        bool is_face_seen = false;
        walk.visit(shape, [&](const kernel::Shape& face) {
            const bool is_seen = !is_edge_on(face, projection_.view);
            is_face_seen = is_face_seen || is_seen;
            if (is_seen) on_face(face, leaf);
            if (!is_seen && leaf.is_ink) painter_.stroke(face, leaf.line, count_, &cutter);
        });
        if (is_face_seen && leaf.is_ink) return;
        painter_.stroke(shape, is_face_seen ? leaf.edge : leaf.line, count_, &cutter);
    });
}

void ScenePainter::draw_slab(double low, double high, bool has_faces) {
    const double page_size = std::max(projection_.page.width, projection_.page.height);
    const HeightSlab slab(projection_.to_height(low), projection_.to_height(high), page_size / kSlabSteps);
    StrokeCutter cutter(slab);
    const auto draw_face = [&](const kernel::Shape& face, const Leaf& leaf) {
        const double height = height_of(face, projection_.upwards);
        if (!has_faces || height < low || height >= high) return;
        if (fill_face(face, leaf.fill, projection_, deviation_, canvas_)) return;
        ++unfilled_;
        if (leaf.is_ink) painter_.stroke(face, leaf.line, count_, &cutter);
    };
    draw_all(cutter, draw_face, [](const kernel::Shape&) { return 1.0; });
}

void ScenePainter::draw_levels(const std::vector<double>& levels, const kernel::Interval& heights) {
    // Faces lie within the tolerance of a level, and levels may be little more than that apart.
    const double reach = 2 * height_tolerance(projection_.page.area);
    double low = -std::numeric_limits<double>::infinity();
    for (const double level : levels) {
        const double border = std::max(low, level - reach);
        if (heights.first < border) draw_slab(low, border, false);
        low = level + reach;
        draw_slab(border, low, true);
    }
    if (heights.last >= low) draw_slab(low, std::numeric_limits<double>::infinity(), false);
}

void ScenePainter::draw_bodies(int pixels) {
    const FaceRaster raster = rasterise_faces(scene_, projection_, ground_, pixels);
    canvas_.image(raster.buffer.image());
    const RasterVisibility visibility(raster.buffer, projection_.page);
    StrokeCutter cutter(visibility);
    const auto draw_face = [&](const kernel::Shape& face, const Leaf& leaf) {
        if (!leaf.is_ink) return;
        Pen pen = leaf.line;
        if (!raster.unmeshed.contains(face.definition().get())) pen = leaf.fill;
        pen.fills = false;
        if (pen.width > 0) painter_.stroke(face, pen, count_, &cutter);
    };
    // Edges of small faces would be all that is seen of them.
    const double small_face = kSmallFace * projection_.page.default_line;
    const auto edge_width = [&](const kernel::Shape& shape) {
        const auto size = raster.face_sizes.find(shape.definition().get());
        return size == raster.face_sizes.end() ? 1.0 : std::max(size->second / small_face, kThinnestEdge);
    };
    for (const FaceRaster::Fold& fold : raster.folds) {
        Pen pen = leaf_of(fold.item->shape, *fold.item).edge;
        pen.width *= edge_width(fold.item->shape);
        painter_.stroke(fold.line, pen, cutter);
    }
    draw_all(cutter, draw_face, edge_width);
    unfilled_ = raster.unfilled;
    if (raster.is_coarse) {
        face_notes_.emplace_back("The faces lie in very many layers; they are filled at a lower resolution.");
    }
    if (!raster.is_complete) {
        face_notes_.emplace_back("There are more faces than a picture takes; some are shown by their edges.");
    }
}

std::vector<std::string> ScenePainter::notes() const {
    std::vector<std::string> notes;
    if (scene_.items.empty()) notes.emplace_back("There is nothing to draw: the picture is empty.");
    if (count_.skipped > 0) notes.push_back(counted(count_.skipped, "curve") + " could not be drawn.");
    if (unfilled_ > 0) {
        notes.push_back(counted(unfilled_, "face") + " could not be filled and " +
                        (unfilled_ == 1 ? "is shown by its edges." : "are shown by their edges."));
    }
    notes.insert(notes.end(), face_notes_.begin(), face_notes_.end());
    if (!count_.is_complete) {
        notes.push_back("The picture is broken off after " + counted(count_.parts, "curve") + '.');
    }
    return notes;
}

}  // namespace veltrane
