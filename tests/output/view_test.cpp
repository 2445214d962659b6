#include "veltrane/output/view.hpp"

#include "drawing.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/output/outline.hpp"
#include "veltrane/output/page.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace veltrane {
namespace {

using kernel::Point;
using kernel::Point2;
using kernel::Vector;

TEST(ClippedLine, EndsOnTheRectangle) {
    struct Row {
        const char* what;
        Point2 base, direction;
        kernel::Interval range;
        bool visible;
        Point2 from, to;
    };
    const double kFar = kernel::kInfinite;
    const Row rows[] = {
        {"level line", {5, 2}, {1, 0}, {-kFar, kFar}, true, {0, 2}, {10, 2}},
        {"upright line downwards", {3, 50}, {0, -1}, {-kFar, kFar}, true, {3, 5}, {3, 0}},
        {"diagonal", {0, 0}, {1, 1}, {-kFar, kFar}, true, {0, 0}, {5, 5}},
        {"line that passes by", {0, 6}, {1, 0.1}, {-kFar, kFar}, false, {}, {}},
        {"ray from inside", {4, 2}, {1, 0}, {0, kFar}, true, {4, 2}, {10, 2}},
        {"ray that leads away", {11, 2}, {1, 0}, {0, kFar}, false, {}, {}},
        {"ray from afar", {-1e9, 1}, {1, 0}, {0, kFar}, true, {0, 1}, {10, 1}},
        {"along the edge", {-5, 5}, {1, 0}, {-kFar, kFar}, true, {0, 5}, {10, 5}},
        {"touching a corner", {-1, 4}, {1, 1}, {-kFar, kFar}, true, {0, 5}, {0, 5}},
        {"next to level", {5, 2}, {1, 1e-300}, {-kFar, kFar}, true, {0, 2}, {10, 2}},
        {"tiny direction", {5, 2}, {1e-300, 0}, {-kFar, kFar}, true, {5, 2}, {5, 2}},
        {"no direction", {5, 2}, {0, 0}, {-kFar, kFar}, false, {}, {}},
        {"infinite range", {5, 2}, {1, 0}, {-INFINITY, INFINITY}, true, {0, 2}, {10, 2}},
    };
    const Rect rect({0, 0}, {10, 5});
    for (const Row& row : rows) {
        const auto part = clipped_line(row.base, row.direction, row.range, rect);
        ASSERT_EQ(part.has_value(), row.visible) << row.what;
        if (!part) continue;
        EXPECT_LT((part->first - row.from).norm(), 1e-9) << row.what;
        EXPECT_LT((part->second - row.to).norm(), 1e-9) << row.what;
    }
    EXPECT_FALSE(clipped_line({0, 0}, {1, 0}, {0, 1}, Rect()));
}

TEST(View, StandardViewsSeeTheRightAxes) {
    struct Row {
        const char* name;
        Vector right, up;
    };
    const Row rows[] = {
        {"top", {1, 0, 0}, {0, 1, 0}},   {"plan", {1, 0, 0}, {0, 1, 0}},  {"bottom", {-1, 0, 0}, {0, 1, 0}},
        {"front", {1, 0, 0}, {0, 0, 1}}, {"back", {-1, 0, 0}, {0, 0, 1}}, {"left", {0, -1, 0}, {0, 0, 1}},
        {"right", {0, 1, 0}, {0, 0, 1}},
    };
    for (const Row& row : rows) {
        const auto which = standard_view(row.name);
        ASSERT_TRUE(which) << row.name;
        const View view(*which);
        EXPECT_LT((view.right() - row.right).norm(), 1e-12) << row.name;
        EXPECT_LT((view.up() - row.up).norm(), 1e-12) << row.name;
    }
    EXPECT_FALSE(standard_view("sideways"));
    // In the isometric view all edges of a cube look equally long and Z is upright.
    const View iso(StandardView::Isometric);
    for (const Vector& axis : {Vector(1, 0, 0), Vector(0, 1, 0), Vector(0, 0, 1)}) {
        EXPECT_NEAR(iso.vector(axis).norm(), std::sqrt(2.0 / 3), 1e-12);
    }
    EXPECT_NEAR(iso.vector({0, 0, 1}).x(), 0, 1e-12);
}

TEST(PictureArea, FitsWhatIsBounded) {
    using namespace samples;
    struct Row {
        const char* what;
        std::vector<kernel::Shape> shapes;
        StandardView view;
        Point2 min, max;
    };
    const auto segment = kernel::make_edge(Point(1, 2, 3), Point(4, 8, 5));
    const auto quarter = kernel::make_edge(circle({0, 0, 0}, 2), {0, std::acos(0.0)});
    const double sqrt2 = std::sqrt(2.0), sqrt3 = std::sqrt(3.0);
    const Row rows[] = {
        {"segment", {segment}, StandardView::Top, {1, 2}, {4, 8}},
        {"segment from the left", {segment}, StandardView::Left, {-8, 3}, {-2, 5}},
        {"quarter of a circle", {quarter}, StandardView::Top, {0, 0}, {2, 2}},
        {"circle seen edge-on", {whole_circle({0, 0, 1}, 2)}, StandardView::Front, {-2, 1}, {2, 1}},
        {"circle seen aslant",
         {whole_circle({0, 0, 0}, 3)},
         StandardView::Isometric,
         {-3, -3 / sqrt3},
         {3, 3 / sqrt3}},
        {"point beside a segment",
         {segment, kernel::make_vertex({-1, 0, 0})},
         StandardView::Top,
         {-1, 0},
         {4, 8}},
        {"box of edges",
         {kernel::prism(segment, {0, 0, 10})},
         StandardView::Isometric,
         {-4 / sqrt2, 0},
         {-1 / sqrt2, 0}},
        {"nested compounds",
         {kernel::make_compound({kernel::make_compound({segment}), kernel::make_compound({})})},
         StandardView::Top,
         {1, 2},
         {4, 8}},
        {"unbounded line beside a segment",
         {segment, line_through({100, 100, 0}, {1, 2, 0}), ray({-50, 0, 0}, {0, 1, 0})},
         StandardView::Top,
         {1, 2},
         {4, 8}},
        {"a point", {kernel::make_vertex({7, 8, 9})}, StandardView::Top, {2, 3}, {12, 13}},
        {"nothing", {}, StandardView::Top, {-5, -5}, {5, 5}},
        {"one unbounded line", {line_through({7, 8, 0}, {1, 2, 0})}, StandardView::Top, {2, 3}, {12, 13}},
        {"two rays",
         {ray({0, 0, 0}, {1, 2, 0}), ray({100, 20, 0}, {1, 2, 0})},
         StandardView::Top,
         {-25, -25},
         {125, 45}},
    };
    for (const Row& row : rows) {
        const Rect area = picture_bounds(scene_of(row.shapes), View(row.view)).area;
        EXPECT_NEAR(area.min().x(), row.min.x(), 1e-9) << row.what;
        EXPECT_NEAR(area.max().x(), row.max.x(), 1e-9) << row.what;
        if (std::string(row.what) == "box of edges") continue;  // its width tells enough
        EXPECT_NEAR(area.min().y(), row.min.y(), 1e-9) << row.what;
        EXPECT_NEAR(area.max().y(), row.max.y(), 1e-9) << row.what;
    }
}

TEST(PictureArea, IsNeverAPoint) {
    for (const double at : {0.0, 1e-300, 5e6, 1e12, 1e30, 1e98}) {
        const auto area = picture_bounds(samples::scene_of({kernel::make_vertex({at, -at, 0})}), View()).area;
        EXPECT_GT(area.long_side(), 0) << at;
        const Page page = lay_out(area, PictureFormat::Png, 100);
        EXPECT_TRUE(std::isfinite(page.scale)) << at;
        const Point2 p = page.to_page({at, -at});
        EXPECT_NEAR(p.x(), page.width / 2, 1) << at;
        EXPECT_NEAR(p.y(), page.height / 2, 1) << at;
    }
}

class Counter : public OutlineSink {
public:
    void point(const Point&) override { ++points; }
    void segment(const Point&, const Point&) override { ++segments; }
    void unbounded_line(const kernel::Line&, const kernel::Interval&) override { ++lines; }
    void curve(const kernel::Curve&, const kernel::Interval&, bool) override { ++curves; }
    int points = 0, segments = 0, lines = 0, curves = 0;
};

TEST(Outline, HandsOnEachEdgeOfAFaceOnceAndStopsAtItsLimit) {
    const auto segment = kernel::make_edge(Point(0, 0, 0), Point(1, 0, 0));
    kernel::Shape doubled = kernel::make_compound(
        {kernel::prism(segment, {0, 0, 1}), kernel::prism(samples::whole_circle({0, 0, 0}, 1), {0, 0, 1}),
         kernel::make_vertex({1, 1, 1}), samples::line_through({0, 0, 0}, {1, 0, 0})});
    Counter once;
    OutlineCount count;
    outline(doubled, 1000, once, count);
    EXPECT_EQ(once.segments, 5);  // four sides and the seam
    EXPECT_EQ(once.curves, 2);
    EXPECT_EQ(once.points, 1);
    EXPECT_EQ(once.lines, 1);
    EXPECT_EQ(count.parts, 9u);
    EXPECT_TRUE(count.is_complete);

    // Sixty doublings would take for ever, whether there is anything in them or not.
    kernel::Shape empty = kernel::make_compound({});
    for (int i = 0; i < 60; ++i) {
        doubled = kernel::make_compound({doubled, doubled});
        empty = kernel::make_compound({empty, empty});
    }
    for (const kernel::Shape& shape : {doubled, empty}) {
        Counter counter;
        OutlineCount limited;
        outline(shape, 1000, counter, limited);
        EXPECT_FALSE(limited.is_complete);
        EXPECT_LT(limited.parts, 1100u);
    }
}

TEST(Page, IsOfTrueSizeWithinLimits) {
    struct Row {
        const char* what;
        PictureFormat format;
        double width, height;  // of the area
        double page_width, page_height;
        double millimetre;  // of the model, on the page
        bool noted;
    };
    const double point = 72 / 25.4;
    const Row rows[] = {
        {"sheet in SVG", PictureFormat::Svg, 200, 100, 220, 120, 1, false},
        {"sheet in PDF", PictureFormat::Pdf, 200, 100, 220 * point, 120 * point, point, false},
        {"upright", PictureFormat::Svg, 50, 100, 60, 110, 1, false},
        {"straight line", PictureFormat::Svg, 100, 0, 110, 10, 1, false},
        {"house in SVG", PictureFormat::Svg, 20000, 10000, 22000, 12000, 1, false},
        {"house in PDF", PictureFormat::Pdf, 20000, 10000, 4400 * point, 2400 * point, point / 5, true},
        {"town", PictureFormat::Svg, 3e6, 3e6, 66000, 66000, 1 / 50., true},
        {"orbit", PictureFormat::Svg, 1e15, 1e15, 55000, 55000, 1 / 2e10, true},
        {"grain in SVG", PictureFormat::Svg, 1e-9, 1e-9, 0.11, 0.11, 1e8, true},
        {"grain in PDF", PictureFormat::Pdf, 1, 1, 11 * point, 11 * point, 10 * point, true},
        {"pixels", PictureFormat::Png, 100, 50, 1100, 600, 10, false},
    };
    for (const Row& row : rows) {
        const Page page = lay_out(Rect({5, 5}, {5 + row.width, 5 + row.height}), row.format, 1100);
        if (row.width > 1e-6) {
            EXPECT_NEAR(page.width, row.page_width, 1e-6 * row.page_width) << row.what;
            EXPECT_NEAR(page.height, row.page_height, 1e-6 * row.page_height) << row.what;
        }
        EXPECT_NEAR(page.scale, row.millimetre, 1e-6 * row.millimetre) << row.what;
        EXPECT_EQ(!page.note.empty(), row.noted) << row.what << ": " << page.note;
        EXPECT_LE(page.width, row.format == PictureFormat::Pdf ? 14400 : kLargestSvg) << row.what;
        EXPECT_GE(page.line_width(0.01), page.default_line) << row.what;
        EXPECT_LT(page.line_width(2), std::max(page.width, page.height) / 20) << row.what;
    }
    EXPECT_NEAR(lay_out(Rect({0, 0}, {200, 100}), PictureFormat::Svg, 0).line_width(0.5), 0.5, 1e-12);
}

}  // namespace
}  // namespace veltrane
