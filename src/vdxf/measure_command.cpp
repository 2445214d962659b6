#include "vdxf/measure_command.hpp"

#include "vdxf/drawing.hpp"
#include "vdxf/drawing_text.hpp"
#include "vdxf/text_columns.hpp"
#include "veltrane/output/scene_measure.hpp"

#include <fmt/format.h>
#include <fmt/ostream.h>
#include <nlohmann/json.hpp>

#include <memory>
#include <utility>

namespace veltrane::tool {

namespace {

using Json = nlohmann::ordered_json;

struct MeasureOptions {
    CommonOptions common;
    std::string file;
    double gap = kContourGap;
};

struct Result {
    Drawing& drawing;
    const Scene& scene;
    const SceneMeasures& measures;
    DrawingText text;
};

/// Kinds that members of compounds can have, with their names in the tool's words.
constexpr std::pair<kernel::ShapeKind, const char*> kKinds[] = {
    {kernel::ShapeKind::Vertex, "points"},
    {kernel::ShapeKind::Edge, "curves"},
    {kernel::ShapeKind::Wire, "wires"},
    {kernel::ShapeKind::Face, "faces"},
    {kernel::ShapeKind::Shell, "shells"},
    {kernel::ShapeKind::Solid, "solids"},
    {kernel::ShapeKind::CompoundSolid, "compound solids"}};

std::size_t count_of(const Measures& measures, kernel::ShapeKind kind) {
    return measures.shapes[static_cast<std::size_t>(kind)];
}

// As text

std::string kinds_text(const Measures& measures) {
    std::string text;
    for (const auto& [kind, name] : kKinds) {
        if (const std::size_t count = count_of(measures, kind)) {
            text += fmt::format("{}{} {}", text.empty() ? "" : ", ", count, name);
        }
    }
    return text.empty() ? "none" : text;
}

std::string point_text(const kernel::Point& p) {
    return fmt::format("({:.9g}, {:.9g}, {:.9g})", p.x(), p.y(), p.z());
}

std::string omissions_text(const Scene& scene) {
    std::string text;
    for (std::size_t i = 0; i < kOmissionCount; ++i) {
        if (scene.omitted[i] == 0) continue;
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", scene.omitted[i],
                            name_of(static_cast<Omission>(i)));
    }
    return text;
}

std::string size_text(double size) {
    return size == 0 ? "." : fmt::format("{:.9g}", size);
}

void print_row(std::ostream& out, const std::string& name, const Measures& row) {
    fmt::print(out, "  {} {:>9} {:>8} {:>8} {:>14} {:>14} {:>14}\n", padded(name, 22),
               count_text(row.shape_count()), count_text(row.closed), count_text(row.open),
               size_text(row.length), size_text(row.area), size_text(row.volume));
}

void print_text(std::ostream& out, const Result& result) {
    const Measures& total = result.measures.total;
    const kernel::Box& box = result.measures.box;
    fmt::print(out, "{}\n  all in millimetres; a drawing unit is {:.9g} mm\n", result.drawing.file(),
               result.drawing.model().UnitScale());
    fmt::print(out, "  extents    {}\n",
               box.is_empty() ? "nothing bounded" : point_text(box.min()) + " to " + point_text(box.max()));
    fmt::print(out, "  shapes     {}\n", kinds_text(total));

    fmt::print(out,
               "\nLayer                      shapes   closed     open         length           area"
               "         volume\n");
    for (const LayerMeasures& layer : result.measures.layers) print_row(out, result.text.name(layer.layer), layer.measures);
    if (result.measures.layers.size() != 1) print_row(out, "(all)", total);

    if (total.unbounded > 0) fmt::print(out, "\nIn no sum: {} unbounded\n", total.unbounded);
    if (total.unmeasured > 0) fmt::print(out, "\nIn no sum: {} that cannot be measured\n", total.unmeasured);
    if (const std::string left_out = omissions_text(result.scene); !left_out.empty()) {
        fmt::print(out, "\nRecords not measured: {}\n", left_out);
    }
}

// As JSON

Json to_json(const Measures& measures) {
    Json shapes = Json::object();
    for (const auto& [kind, name] : kKinds) shapes[name] = count_of(measures, kind);
    return {{"shapes", std::move(shapes)},
            {"length", measures.length},
            {"area", measures.area},
            {"volume", measures.volume},
            {"contours", {{"closed", measures.closed}, {"open", measures.open}}},
            {"unbounded", measures.unbounded},
            {"unmeasured", measures.unmeasured}};
}

Json to_json(const kernel::Point& p) {
    return {p.x(), p.y(), p.z()};
}

Json to_json(const Result& result) {
    const kernel::Box& box = result.measures.box;
    Json layers = Json::array(), omitted = Json::object();
    for (const LayerMeasures& layer : result.measures.layers) {
        Json entry = {{"layer", result.text.name(layer.layer)}};
        entry.update(to_json(layer.measures));
        layers.push_back(std::move(entry));
    }
    for (std::size_t i = 0; i < kOmissionCount; ++i) {
        omitted[std::string(name_of(static_cast<Omission>(i)))] = result.scene.omitted[i];
    }
    Json json = {{"file", result.drawing.file()},
                 {"unit", "mm"},
                 {"millimetres_per_drawing_unit", result.drawing.model().UnitScale()},
                 {"extents", nullptr}};
    if (!box.is_empty()) json["extents"] = {{"min", to_json(box.min())}, {"max", to_json(box.max())}};
    json["total"] = to_json(result.measures.total);
    json["layers"] = std::move(layers);
    json["omitted"] = std::move(omitted);
    return json;
}

ExitCode run_measure(const MeasureOptions& options, Console& console) {
    Drawing drawing(options.file, console);
    drawing.translate(console);
    const Scene scene = make_scene(drawing.model(), *drawing.reader().Process());
    const SceneMeasures measures = measure(scene, options.gap);
    const Result result{drawing, scene, measures, DrawingText(drawing.model())};
    if (options.common.json) {
        console.out() << to_json(result).dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    } else {
        print_text(console.out(), result);
    }
    return ExitCode::Done;
}

}  // namespace

Command declare_measure(CLI::App& application) {
    const auto options = std::make_shared<MeasureOptions>();
    CLI::App* parser =
        application.add_subcommand("measure", "Tell lengths, areas, volumes and contours, layer by layer");
    parser->add_option("FILE", options->file, "The drawing, an ASCII DXF file")->required()->type_name("");
    parser->add_option("--gap", options->gap, "Ends of curves closer than this, in mm, belong to one contour")
        ->check(real_in(0, 1e6))
        ->type_name("MM")
        ->capture_default_str();
    add_common_options(*parser, options->common);
    parser->footer(
        "Everything is told in millimetres and measured exactly on curves and surfaces, not on polygons.\n"
        "  shapes    points, curves, wires, faces, shells and solids; those in blocks once for each insert\n"
        "  closed    contours that close: polylines, circles, and loose curves of a layer whose ends meet\n"
        "  open      chains of curves that do not\n"
        "  length    of all curves that bound no face\n"
        "  area      of all faces, solid hatches among them\n"
        "  volume    of solids and closed shells\n"
        "What is hidden (frozen layers, layers that are off, invisible records) is not measured.\n\n"
        "Examples:\n"
        "  vdxf measure plate.dxf\n"
        "  vdxf measure plate.dxf --gap 0.05        close gaps of badly drawn contours\n"
        "  vdxf measure --json plate.dxf | jq '.layers[] | [.layer, .length]'");
    return {parser, [options]() -> const CommonOptions& { return options->common; },
            [options](Console& console) { return run_measure(*options, console); }};
}

}  // namespace veltrane::tool
