#include "veltrane/output/picture.hpp"

#include "drawing.hpp"
#include "veltrane/ent/hatch.hpp"
#include "veltrane/kernel/algo/planar_face.hpp"
#include "veltrane/kernel/algo/prism.hpp"
#include "veltrane/kernel/geom/bspline_curve.hpp"
#include "veltrane/kernel/geom/plane.hpp"
#include "veltrane/kernel/topo/definition.hpp"
#include "veltrane/output/face_survey.hpp"
#include "veltrane/output/raster_image.hpp"

#include <gtest/gtest.h>

#include <cairo/cairo.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numbers>
#include <sstream>

namespace veltrane {
namespace {

using kernel::Point;
using namespace samples;

std::string temporary(const char* name) {
    return testing::TempDir() + "veltrane-" + std::to_string(::getpid()) + "-" + name;
}

std::string content(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

/// The text of a picture that is expected to succeed.
std::string drawn(const Scene& scene, const PictureOptions& options = {}) {
    const std::string file = temporary("picture");
    const PictureReport report = write_picture(scene, options, file);
    EXPECT_TRUE(report.is_done()) << report.problem;
    const std::string text = content(file);
    std::filesystem::remove(file);
    return text;
}

/// A PNG as an image to be asked about.
class Image {
public:
    explicit Image(const Scene& scene, int pixels = 200, Ground ground = Ground::White,
                   const View& view = View()) {
        PictureOptions options;
        options.format = PictureFormat::Png;
        options.view = view;
        options.pixels = pixels;
        options.ground = ground;
        const std::string file = temporary("image.png");
        const PictureReport report = write_picture(scene, options, file);
        EXPECT_TRUE(report.is_done()) << report.problem;
        surface_.reset(cairo_image_surface_create_from_png(file.c_str()));
        std::filesystem::remove(file);
    }

    int width() const { return cairo_image_surface_get_width(surface_.get()); }
    int height() const { return cairo_image_surface_get_height(surface_.get()); }
    Rgb at(int x, int y) const {
        const unsigned char* row =
            cairo_image_surface_get_data(surface_.get()) + y * cairo_image_surface_get_stride(surface_.get());
        return {row[4 * x + 2], row[4 * x + 1], row[4 * x]};
    }
    /// Pixels that differ from the ground in a part of the image, given in shares of its sides.
    int ink(double left, double top, double right, double bottom) const {
        const Rgb ground = at(0, 0);
        int count = 0;
        for (int y = static_cast<int>(top * height()); y < static_cast<int>(bottom * height()); ++y) {
            for (int x = static_cast<int>(left * width()); x < static_cast<int>(right * width()); ++x) {
                if (at(x, y) != ground) ++count;
            }
        }
        return count;
    }

private:
    struct Destroy {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    std::unique_ptr<cairo_surface_t, Destroy> surface_;
};

kernel::Shape segment(const Point& a, const Point& b) {
    return kernel::make_edge(a, b);
}

TEST(Picture, InkIsWhereTheGeometryIs) {
    struct Row {
        const char* what;
        std::vector<kernel::Shape> shapes;
        bool ink[2][2];  // of the quarters, top row first
    };
    constexpr double kPi = std::numbers::pi;
    const kernel::Shape frame =
        kernel::make_compound({segment({-10, 10, 0}, {-9.9, 10, 0}), segment({10, -10, 0}, {9.9, -10, 0})});
    kernel::BSplineData hook;
    hook.degree = 2;
    hook.poles = {{1, 1, 0}, {9, 1, 0}, {9, 9, 0}};
    hook.weights = {1, 0.7, 1};
    hook.knots = {0, 1};
    hook.multiplicities = {3, 3};
    const auto far_off = kernel::Transform::translation({5e6, 5e6, 0});
    const kernel::Shape arc = kernel::make_edge(circle({0, 0, 0}, 8), {kPi * 0.55, kPi * 0.95});
    const Row rows[] = {
        {"marks alone", {}, {{true, false}, {false, true}}},
        {"segment", {segment({1, 1, 0}, {8, 9, 0})}, {{true, true}, {false, true}}},
        {"arc in the lower left",
         {kernel::make_edge(circle({0, 0, 0}, 8), {kPi * 1.05, kPi * 1.45})},
         {{true, false}, {true, true}}},
        {"arc of a circle seen from below",
         {kernel::make_edge(circle({0, 0, 0}, 8, {0, 0, -1}), {kPi * 0.05, kPi * 0.45})},
         {{true, false}, {false, true}}},
        {"rational spline",
         {kernel::make_edge(make<kernel::BSplineCurve>(hook))},
         {{true, true}, {false, true}}},
        {"point", {kernel::make_vertex({5, 5, 0})}, {{true, true}, {false, true}}},
        {"ray", {ray({-5, -5, 0}, {-1, 0, 0})}, {{true, false}, {true, true}}},
        {"line seen end-on", {line_through({5, 5, 0}, {0, 0, 1})}, {{true, false}, {false, true}}},
    };
    for (const Row& row : rows) {
        std::vector<kernel::Shape> shapes = row.shapes;
        shapes.push_back(frame);
        const Image image(scene_of(shapes));
        ASSERT_EQ(image.width(), 200) << row.what;
        ASSERT_EQ(image.height(), 200) << row.what;
        for (int y = 0; y < 2; ++y) {
            for (int x = 0; x < 2; ++x) {
                const int ink = image.ink(x * 0.5 + 0.01, y * 0.5 + 0.01, x * 0.5 + 0.49, y * 0.5 + 0.49);
                EXPECT_EQ(ink > 0, row.ink[y][x]) << row.what << " quarter " << x << ' ' << y;
            }
        }
    }
    // A drawing in national co-ordinates looks like the same one at home.
    const Image home(scene_of({frame, arc}));
    const Image away(scene_of({kernel::moved(frame, far_off), kernel::moved(arc, far_off)}));
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) EXPECT_LE(std::abs(home.at(x, y).red - away.at(x, y).red), 8);
    }
}

TEST(Picture, UnboundedLinesReachTheEdges) {
    const auto box =
        kernel::make_compound({segment({0, 0, 0}, {100, 0, 0}), segment({0, 0, 0}, {0, 100, 0})});
    const Image image(scene_of({box, line_through({50, 50, 7}, {1, 0, 0}), ray({50, 50, 0}, {0, 1, 0})}));
    EXPECT_GT(image.ink(0, 0.4, 0.01, 0.6), 0);
    EXPECT_GT(image.ink(0.99, 0.4, 1, 0.6), 0);
    EXPECT_GT(image.ink(0.4, 0, 0.6, 0.01), 0);
    EXPECT_EQ(image.ink(0.2, 0.99, 0.8, 1), 0);
}

TEST(Picture, TakesColourWeightAndGroundOfTheStyle) {
    Scene scene = scene_of({segment({0, 0, 0}, {100, 0, 0}), segment({0, 50, 0}, {100, 50, 0})});
    scene.items[0].style.colour = 1;
    scene.items[0].style.lineweight = 2;
    const auto thickness = [](const Image& image, double top, double bottom) {
        return image.ink(0.5, top, 0.501, bottom);
    };
    for (const Ground ground : {Ground::White, Ground::Black}) {
        const Image image(scene, 1100, ground);
        EXPECT_EQ(image.at(0, 0), colour_of(ground));
        EXPECT_EQ(image.at(550, 550), (Rgb{255, 0, 0}));
        EXPECT_EQ(image.at(550, 50) == colour_of(ground), false);
        EXPECT_NEAR(thickness(image, 0.6, 1), 1100 / 300. * 2, 2);
        EXPECT_LE(thickness(image, 0, 0.4), 2);
    }
}

TEST(Picture, SvgIsOfTrueSizeAndKeepsLayers) {
    Scene scene = scene_of({segment({10, 20, 0}, {210, 20, 0}), segment({10, 20, 0}, {10, 120, 5}),
                            whole_circle({110, 70, 0}, 25)});
    scene.items[0].style.layer = "Walls & <\"doors\">";
    scene.items[1].style = scene.items[0].style;
    scene.items[2].style.layer =
        "Stra\xDF"
        "e";
    const std::string svg = drawn(scene);
    for (const char* part :
         {"width=\"220mm\" height=\"120mm\" viewBox=\"0 0 220 120\"", "M10 110L210 110", "M10 110L10 10",
          "data-layer=\"Walls &amp; &lt;&quot;doors&quot;>\"", "data-layer=\"Straße\""}) {
        EXPECT_NE(svg.find(part), std::string::npos) << part << " in\n" << svg;
    }
    std::size_t groups = 0;
    for (std::size_t at = svg.find("<g "); at != std::string::npos; at = svg.find("<g ", at + 1)) ++groups;
    EXPECT_EQ(groups, 2u);
    EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");
}

/// Numbers of the one path in a picture: points in page units.
std::vector<Eigen::Vector2d> path_points(const std::string& svg) {
    const std::size_t start = svg.find("d=\"") + 3;
    std::string path = svg.substr(start, svg.find('"', start) - start);
    for (char& c : path) {
        if (std::isalpha(static_cast<unsigned char>(c)) && c != 'e') c = ' ';
    }
    std::istringstream numbers(path);
    std::vector<Eigen::Vector2d> points;
    for (double x, y; numbers >> x >> y;) points.emplace_back(x, y);
    return points;
}

TEST(Picture, CubicsStayOnTheCircle) {
    struct Row {
        Point centre;
        double radius;
        double tolerance;  // share of the radius
    };
    const Row rows[] = {{{0, 0, 0}, 1, 1e-5},       {{-30, 7, 2}, 1000, 1e-5}, {{5e6, 6e6, 0}, 0.5, 1e-5},
                        {{5e6, 6e6, 0}, 4e7, 1e-5}, {{1e12, 0, 0}, 100, 1e-5}, {{0, 0, 0}, 1e12, 1e-5},
                        {{0, 0, 0}, 1e-6, 1e-5},    {{0, 0, 0}, 1e90, 1e-5}};
    for (const Row& row : rows) {
        const auto points = path_points(drawn(scene_of({whole_circle(row.centre, row.radius)})));
        ASSERT_GE(points.size(), 13u) << row.radius;
        ASSERT_EQ(points.size() % 3, 1u) << row.radius;
        // The middle of the page is the centre; the margin is a twentieth of the diameter.
        const Eigen::Vector2d first = points.front();
        const double radius = first.x() / 2.1;
        for (std::size_t i = 0; i + 3 < points.size(); i += 3) {
            for (const double u : {0.0, 0.25, 0.5, 0.75}) {
                const double v = 1 - u;
                const Eigen::Vector2d p = v * v * v * points[i] + 3 * v * v * u * points[i + 1] +
                                          3 * v * u * u * points[i + 2] + u * u * u * points[i + 3];
                EXPECT_NEAR((p - Eigen::Vector2d(1.1 * radius, 1.1 * radius)).norm() / radius, 1,
                            row.tolerance)
                    << row.radius;
            }
        }
    }
}

TEST(Picture, JoinsTheEdgesOfAWire) {
    const std::vector<kernel::Shape> edges = {segment({0, 0, 0}, {100, 0, 0}),
                                              segment({100, 0, 0}, {100, 50, 0}),
                                              segment({100, 50, 0}, {0, 0, 0})};
    const kernel::Shape wire = kernel::make_wire(edges);
    EXPECT_NE(drawn(scene_of({wire})).find("\"M5 55L105 55L105 5L5 55\""), std::string::npos);
    EXPECT_NE(drawn(scene_of({wire.reversed()})).find("\"M5 55L105 5L105 55L5 55\""), std::string::npos);
}

kernel::Shape polygon(const std::vector<Point>& corners) {
    std::vector<kernel::Shape> edges;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        edges.push_back(segment(corners[i], corners[(i + 1) % corners.size()]));
    }
    return kernel::make_wire(edges);
}

kernel::Shape rectangle(const Point& a, const Point& b) {
    return polygon(
        {{a.x(), a.y(), a.z()}, {b.x(), a.y(), a.z()}, {b.x(), b.y(), b.z()}, {a.x(), b.y(), b.z()}});
}

/// A face between heights that differ along y.
kernel::Shape rectangular_face(const Point& a, const Point& b) {
    return kernel::make_planar_face(rectangle(a, b)).face;
}

SceneItem coloured(kernel::Shape shape, std::int16_t colour, bool is_hatch = false) {
    SceneItem item{std::move(shape), {}, nullptr};
    item.style.colour = colour;
    item.style.lineweight = 5;  // some pixels
    if (!is_hatch) return item;
    auto hatch = make<DxfEnt_Hatch>();
    hatch->SolidFillFlag = 1;
    item.record = hatch;
    return item;
}

TEST(Picture, FillsFacesInTheOrderOfTheDrawing) {
    const std::vector<kernel::Shape> hole = {kernel::make_wire(std::vector{whole_circle({50, 50, 0}, 10)})};
    const kernel::Shape outer = rectangle({0, 0, 0}, {100, 100, 0});
    Scene scene;
    scene.items = {coloured(segment({5, 50, 0}, {30, 50, 0}), 3),
                   coloured(kernel::make_planar_face(outer, hole).face, 1, true),
                   coloured(segment({70, 50, 0}, {100, 50, 0}), 5)};
    const std::string svg = drawn(scene);
    std::size_t at = 0;
    for (const char* part : {"stroke=\"#00ff00\"", "M10 55L35 55", "fill=\"#ff0000\" fill-rule=\"evenodd\"",
                             "M5 105L105 105L105 5L5 5L5 105ZM65 55C", "Z\"/>", "stroke=\"#0000ff\""}) {
        const std::size_t next = svg.find(part, at);
        ASSERT_NE(next, std::string::npos) << part << " in\n" << svg;
        at = next;
    }
    for (const StandardView view : {StandardView::Top, StandardView::Bottom, StandardView::Isometric}) {
        const Image image(scene, 220, Ground::White, View(view));
        const auto has = [&](const Rgb& colour) {
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    if (image.at(x, y) == colour) return true;
                }
            }
            return false;
        };
        EXPECT_EQ(image.at(image.width() / 2, image.height() / 2), colour_of(Ground::White));
        EXPECT_TRUE(has({255, 0, 0}));
        EXPECT_TRUE(has({0, 0, 255}));
        EXPECT_FALSE(has({0, 255, 0}));  // drawn first, and covered
    }
}

TEST(Picture, FacesHideWhatLiesBehindThem) {
    // A red line over a face that rises along y, by levels and with depth; without depth the line has to be
    // cut where it passes through.
    struct Row {
        const char* what;
        double rise;       // of the face, over its 100 mm
        double from, to;   // heights of the line's ends above the face
        bool left, right;  // is the line seen there?
    };
    const Row rows[] = {{"behind", 0, -20, -20, false, false},
                        {"in front", 0, 20, 20, true, true},
                        {"on it", 0, 0, 0, true, true},
                        {"through it", 0, -20, 20, false, true},
                        {"behind, aslant", 60, -20, -20, false, false},
                        {"in front, aslant", 60, 20, 20, true, true},
                        {"on it, aslant", 60, 0, 0, true, true},
                        {"through it, aslant", 60, -20, 20, false, true}};
    for (const Row& row : rows) {
        for (const bool is_line_first : {false, true}) {
            const double middle = row.rise / 2;
            Scene scene;
            scene.items = {coloured(rectangular_face({0, 0, 0}, {100, 100, row.rise}), 5),
                           coloured(segment({20, 50, middle + row.from}, {80, 50, middle + row.to}), 1)};
            // In one plane the drawing's order counts.
            const bool is_on = row.from == 0 && row.to == 0;
            if (is_line_first && !is_on) std::swap(scene.items[0], scene.items[1]);
            const Image image(scene, 220);
            EXPECT_EQ(image.at(70, 110) == (Rgb{255, 0, 0}), row.left) << row.what;
            EXPECT_EQ(image.at(150, 110) == (Rgb{255, 0, 0}), row.right) << row.what;
            EXPECT_NE(image.at(60, 60), colour_of(Ground::White)) << row.what;
        }
    }
    // Upright faces are lines in the plan, and in pictures of lines nothing is hidden.
    const auto walls = kernel::prism(rectangle({0, 0, 0}, {100, 100, 0}), {0, 0, 10});
    const Scene plan = scene_of({walls, segment({20, 50, -9}, {80, 50, -9})});
    EXPECT_EQ(drawn(plan).find("fill=\"#"), drawn(plan).rfind("fill=\"#"));
}

TEST(Picture, BodiesAreShadedInAnImageUnderTheirEdges) {
    const auto base = rectangular_face({0, 0, 0}, {50, 50, 0});
    const Scene scene = scene_of({kernel::prism(base, {0, 0, 50})});
    PictureOptions options;
    options.view = View(StandardView::Isometric);
    const std::string svg = drawn(scene, options);
    const std::size_t image = svg.find("xlink:href=\"data:image/png;base64,iVBORw0KGgo");
    EXPECT_LT(image, svg.find("<path"));
    std::size_t edges = 0;
    for (const char c : svg.substr(svg.find("<g "))) edges += c == 'L';
    EXPECT_EQ(edges, 9u);  // the three at the far corner are hidden

    const Image picture(scene, 300, Ground::White, options.view);
    const int middle = picture.width() / 2, third = picture.width() / 3;
    const Rgb top = picture.at(middle, picture.height() / 4);
    const Rgb left = picture.at(third, picture.height() * 2 / 3);
    const Rgb right = picture.at(picture.width() - third, picture.height() * 2 / 3);
    EXPECT_GT(top.red, left.red + 10);
    EXPECT_GT(left.red, right.red + 10);
}

TEST(Picture, BoundsWhatCannotBeFilled) {
    const auto whole_plane = kernel::Shape(
        make<kernel::FaceDefinition>(make<kernel::Plane>(kernel::Frame()), std::vector<kernel::Loop>()));
    const auto face = rectangular_face({0, 0, 0}, {10, 10, 0}),
               slope = rectangular_face({0, 0, 0}, {10, 10, 5});
    struct Row {
        const char* what;
        Scene scene;
        const char* note;
    };
    const char* const unfilled = "1 face could not be filled and is shown by its edges.";
    const Row rows[] = {{"whole plane", scene_of({face, whole_plane}), unfilled},
                        {"whole plane beside a body", scene_of({slope, whole_plane}), unfilled}};
    for (const Row& row : rows) {
        const std::string file = temporary("bounded.svg");
        const PictureReport report = write_picture(row.scene, {}, file);
        EXPECT_TRUE(report.is_done()) << row.what << report.problem;
        ASSERT_EQ(report.notes.size(), 1u) << row.what;
        EXPECT_NE(report.notes[0].find(row.note), std::string::npos) << row.what << ": " << report.notes[0];
        std::filesystem::remove(file);
    }
    kernel::Shape doubled = face;
    for (int i = 0; i < 60; ++i) doubled = kernel::make_compound({doubled, doubled});
    FaceWalk walk(1000);
    int faces = 0;
    const auto visitor = [&](const kernel::Shape&) { ++faces; };
    EXPECT_TRUE(walk.visit(kernel::make_compound({face, slope}), visitor));
    EXPECT_FALSE(walk.visit(doubled, visitor));
    EXPECT_EQ(faces, 2);
}

TEST(RasterImage, BecomesTextThatIsAPng) {
    const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (int width = 1; width < 5; ++width) {
        const std::string text = base64_png({width, 1, std::vector<std::uint32_t>(width, 0xff102030u)});
        EXPECT_EQ(text.size() % 4, 0u);
        std::string bytes;
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < text.size() && text[i] != '='; ++i) {
            bits = bits << 6 | static_cast<std::uint32_t>(digits.find(text[i]));
            if (i % 4 > 0) bytes += static_cast<char>(bits >> (6 - 2 * (i % 4)));
        }
        EXPECT_EQ(bytes.substr(1, 3), "PNG");
        EXPECT_EQ(bytes.substr(bytes.size() - 8), "IEND\xae\x42\x60\x82");
    }
}

TEST(Picture, PdfHasTheSizeOfTheModel) {
    PictureOptions options;
    options.format = PictureFormat::Pdf;
    const std::string pdf = drawn(scene_of({segment({0, 0, 0}, {254, 0, 0})}), options);
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    // 279.4 mm x 25.4 mm.
    EXPECT_NE(pdf.find("/MediaBox [ 0 0 792 72 ]"), std::string::npos);
}

TEST(Picture, ReportsWhatIsWorthKnowing) {
    const std::string file = temporary("report.svg");
    struct Row {
        const char* what;
        Scene scene;
        const char* note;
    };
    const Row rows[] = {
        {"nothing", {}, "There is nothing to draw: the picture is empty."},
        {"large", scene_of({segment({0, 0, 0}, {1e9, 0, 0})}), "it is drawn at 1:20000"},
        {"small", scene_of({segment({0, 0, 0}, {1e-5, 0, 0})}), "it is drawn at 10000:1"},
        {"circle without end", scene_of({whole_circle({0, 0, 0}, 1e101), segment({0, 0, 0}, {1, 0, 0})}),
         "1 curve could not be drawn."},
    };
    for (const Row& row : rows) {
        const PictureReport report = write_picture(row.scene, {}, file);
        EXPECT_TRUE(report.is_done()) << row.what << report.problem;
        ASSERT_EQ(report.notes.size(), 1u) << row.what;
        EXPECT_NE(report.notes[0].find(row.note), std::string::npos) << row.what << ": " << report.notes[0];
    }
    std::filesystem::remove(file);
}

TEST(Picture, FailsWithoutLeavingAnything) {
    const std::string folder = temporary("folder");
    std::filesystem::create_directory(folder);
    for (const PictureFormat format : {PictureFormat::Svg, PictureFormat::Pdf, PictureFormat::Png}) {
        PictureOptions options;
        options.format = format;
        Scene scene = scene_of({whole_circle({0, 0, 0}, 1)});
        for (int i = 0; i < 12; ++i)
            scene.items.insert(scene.items.end(), scene.items.begin(), scene.items.end());
        for (const std::string& file : {folder + "/none/picture", folder, std::string("/dev/full")}) {
            const PictureReport report = write_picture(scene, options, file);
            EXPECT_FALSE(report.is_done()) << file;
            EXPECT_NE(report.problem.find(file), std::string::npos) << report.problem;
        }
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    std::filesystem::remove(folder);
}

TEST(Picture, FormatFollowsTheExtension) {
    EXPECT_EQ(picture_format_of("a/b.svg"), PictureFormat::Svg);
    EXPECT_EQ(picture_format_of("x.PDF"), PictureFormat::Pdf);
    EXPECT_EQ(picture_format_of(".png"), PictureFormat::Png);
    for (const char* name : {"", "svg", "a.dxf", "a.svgz", "png.a"})
        EXPECT_FALSE(picture_format_of(name)) << name;
}

}  // namespace
}  // namespace veltrane
