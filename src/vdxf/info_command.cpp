#include "vdxf/info_command.hpp"

#include "vdxf/drawing_facts.hpp"
#include "vdxf/extents.hpp"
#include "vdxf/labels.hpp"
#include "vdxf/message_summary.hpp"
#include "vdxf/text_columns.hpp"

#include <fmt/format.h>
#include <fmt/ostream.h>

#include <algorithm>
#include <memory>

namespace veltrane::tool {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kShownEntries = 20;  // of a list that may be long

struct InfoOptions {
    CommonOptions common;
    std::string file;
    bool skip_measuring = false;
};

struct Info {
    Drawing& drawing;
    DrawingFacts facts;
    MessageSummary reading;
    std::optional<MeasuredExtents> measured;
};

// As text

std::string units_text(const DrawingFacts& facts) {
    if (facts.insunits) {
        const std::string_view label = unit_label(*facts.insunits);
        return fmt::format("{} ($INSUNITS {})", label.empty() ? "unknown" : label, *facts.insunits);
    }
    if (facts.measurement) {
        return fmt::format("{} ($MEASUREMENT {})", *facts.measurement == 0 ? "English" : "metric",
                           *facts.measurement);
    }
    return "not stated";
}

std::string version_text(const DrawingFacts& facts) {
    if (facts.version.empty()) return "not stated";
    const std::string_view label = release_label(facts.version);
    return fmt::format("{} ({})", facts.version, label.empty() ? "a version not known here" : label);
}

std::string corners_text(const kernel::Point& low, const kernel::Point& high) {
    return fmt::format("({:.9g}, {:.9g}, {:.9g}) to ({:.9g}, {:.9g}, {:.9g})", low.x(), low.y(), low.z(),
                       high.x(), high.y(), high.z());
}

std::string measured_text(const MeasuredExtents& measured) {
    std::string text =
        measured.box.is_empty() ? "nothing bounded" : corners_text(measured.box.min(), measured.box.max());
    text += fmt::format(", measured on {} shapes", measured.shapes);
    if (measured.unbounded > 0) text += fmt::format(", {} of them unbounded", measured.unbounded);
    return text;
}

void print_head(std::ostream& out, const Info& info) {
    const DrawingFacts& facts = info.facts;
    fmt::print(out, "{}\n", info.drawing.file());
    fmt::print(out, "  version    {}\n  units      {}\n", version_text(facts), units_text(facts));
    fmt::print(out, "  code page  {}\n", facts.code_page.empty() ? "not stated" : facts.code_page);
    fmt::print(out, "  line ends  {}\n", info.drawing.line_ends());
    if (info.measured) fmt::print(out, "  extents    {}\n", measured_text(*info.measured));
    if (const auto header = header_extents(info.drawing.model())) {
        fmt::print(out, "  {:9}  {} says the header\n", info.measured ? "" : "extents",
                   corners_text(header->first, header->second));
    }
}

void print_sections(std::ostream& out, const DrawingFacts& facts) {
    fmt::print(out, "\nSections\n");
    for (const SectionFacts& section : facts.sections) {
        fmt::print(out, "  {:<15} {:>9} {}\n", section.name.empty() ? "(no name)" : section.name,
                   section.variables > 0 ? section.variables : section.records,
                   section.variables > 0 ? "variables" : "records");
    }
    if (facts.sections.empty()) fmt::print(out, "  none\n");
}

std::string state_text(const LayerFacts& layer) {
    if (!layer.is_defined) return "not defined";
    std::string text = layer.is_off ? "off" : "on";
    if (layer.is_frozen) text += ", frozen";
    if (layer.is_locked) text += ", locked";
    return text;
}

/// The lines of a list, the first of them only unless the user wants all.
template <class List, class PrintEntry>
void print_list(std::ostream& out, const List& list, bool all, PrintEntry print_entry) {
    const std::size_t shown = all ? list.size() : std::min(list.size(), kShownEntries);
    for (std::size_t i = 0; i < shown; ++i) print_entry(list[i]);
    if (shown < list.size()) fmt::print(out, "  ... and {} more (-v shows all)\n", list.size() - shown);
}

void print_layers(std::ostream& out, const DrawingFacts& facts, bool all) {
    if (facts.layers.empty()) return;
    fmt::print(out, "\nLayers                    colour    records  state\n");
    print_list(out, facts.layers, all, [&](const LayerFacts& layer) {
        fmt::print(out, "  {} {:>7} {:>10}  {}\n", padded(layer.name, 22), layer.colour, layer.records,
                   state_text(layer));
    });
}

void print_blocks(std::ostream& out, const DrawingFacts& facts, bool all) {
    if (facts.blocks.empty()) return;
    fmt::print(out, "\nBlocks                              records\n");
    print_list(out, facts.blocks, all, [&](const BlockFacts& block) {
        fmt::print(out, "  {} {:>10}{}{}\n", padded(block.name, 30), block.records,
                   block.is_anonymous ? "  anonymous" : "",
                   block.external.empty() ? "" : "  external: " + block.external);
    });
}

void print_types(std::ostream& out, const DrawingFacts& facts) {
    const std::size_t width = type_width(facts.types);
    fmt::print(out, "\n{:<{}}       all  in ENTITIES  in BLOCKS\n", "Records by type", width + 2);
    for (const TypeCount& type : facts.types) {
        fmt::print(out, "  {:<{}} {:>9} {:>12} {:>10}{}\n", type.type, width, type.records,
                   count_text(type.in_entities), count_text(type.in_blocks),
                   type.carried_through ? "  carried through" : "");
    }
    fmt::print(out, "  {} records, {} of them carried through: kept and written, not interpreted\n",
               facts.records(), facts.carried_through());
}

void print_messages(std::ostream& out, const MessageSummary& summary, bool all) {
    if (summary.is_empty()) {
        fmt::print(out, "\nReading: no fails, no warnings\n");
        return;
    }
    fmt::print(out, "\nReading: {}\n", summary.counts());
    print_list(out, summary.kinds, all,
               [&](const MessageKind& kind) { fmt::print(out, "  {}\n", line_of(kind)); });
}

void print_text(std::ostream& out, const Info& info, bool all) {
    print_head(out, info);
    print_sections(out, info.facts);
    print_layers(out, info.facts, all);
    print_blocks(out, info.facts, all);
    print_types(out, info.facts);
    print_messages(out, info.reading, all);
}

// As JSON

Json to_json(const kernel::Point& point) {
    return {point.x(), point.y(), point.z()};
}

Json extents_json(const Info& info) {
    Json extents;
    if (const auto header = header_extents(info.drawing.model())) {
        extents["header"] = {{"min", to_json(header->first)}, {"max", to_json(header->second)}};
    }
    if (info.measured) {
        Json measured = {{"shapes", info.measured->shapes}, {"unbounded", info.measured->unbounded}};
        if (!info.measured->box.is_empty()) {
            measured["min"] = to_json(info.measured->box.min());
            measured["max"] = to_json(info.measured->box.max());
        }
        extents["measured"] = std::move(measured);
    }
    return extents;
}

Json types_json(const DrawingFacts& facts) {
    Json types = Json::array();
    for (const TypeCount& type : facts.types) {
        types.push_back({{"type", type.type},
                         {"carried_through", type.carried_through},
                         {"records", type.records},
                         {"in_entities", type.in_entities},
                         {"in_blocks", type.in_blocks}});
    }
    return types;
}

Json layers_json(const DrawingFacts& facts) {
    Json layers = Json::array();
    for (const LayerFacts& layer : facts.layers) {
        layers.push_back({{"name", layer.name},
                          {"defined", layer.is_defined},
                          {"colour", layer.colour},
                          {"off", layer.is_off},
                          {"frozen", layer.is_frozen},
                          {"locked", layer.is_locked},
                          {"records", layer.records}});
    }
    return layers;
}

Json to_json(const Info& info) {
    const DrawingFacts& facts = info.facts;
    Json sections = Json::array(), blocks = Json::array();
    for (const SectionFacts& section : facts.sections) {
        sections.push_back(
            {{"name", section.name}, {"variables", section.variables}, {"records", section.records}});
    }
    for (const BlockFacts& block : facts.blocks) {
        blocks.push_back({{"name", block.name},
                          {"records", block.records},
                          {"anonymous", block.is_anonymous},
                          {"external", block.external}});
    }
    Json units = {{"insunits", nullptr}, {"measurement", nullptr}, {"name", nullptr}};
    if (facts.insunits) {
        units["insunits"] = *facts.insunits;
        units["name"] = std::string(unit_label(*facts.insunits));
    }
    if (facts.measurement) units["measurement"] = *facts.measurement;
    return {{"file", info.drawing.file()},
            {"version", facts.version},
            {"release", std::string(release_label(facts.version))},
            {"units", std::move(units)},
            {"code_page", facts.code_page},
            {"line_ends", info.drawing.line_ends()},
            {"extents", extents_json(info)},
            {"sections", std::move(sections)},
            {"layers", layers_json(facts)},
            {"blocks", std::move(blocks)},
            {"records", facts.records()},
            {"carried_through", facts.carried_through()},
            {"types", types_json(facts)},
            {"reading", to_json(info.reading)}};
}

ExitCode run_info(const InfoOptions& options, Console& console) {
    Drawing drawing(options.file, console);
    Info info{drawing, gather_facts(drawing.model()), summarize_reading(drawing.model()), std::nullopt};
    if (!options.skip_measuring) {
        drawing.translate(console);
        info.measured = measure_extents(drawing);
    }
    if (options.common.json) {
        console.out() << to_json(info).dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    } else {
        print_text(console.out(), info, options.common.verbose);
    }
    return ExitCode::Done;
}

}  // namespace

Command declare_info(CLI::App& application) {
    const auto options = std::make_shared<InfoOptions>();
    CLI::App* parser = application.add_subcommand("info", "Tell what a drawing is and what it holds");
    parser->add_option("FILE", options->file, "The drawing, an ASCII DXF file")->required()->type_name("");
    parser->add_flag("--no-measure", options->skip_measuring,
                     "Do not translate the drawing to measure its extents");
    add_common_options(*parser, options->common);
    parser->footer(
        "Prints version, units, code page, line ends, extents, sections, layers, blocks, records by type,\n"
        "and what reading had to complain about, with the first line of each kind.\n\n"
        "Examples:\n"
        "  vdxf info plan.dxf\n"
        "  vdxf info -v plan.dxf                    all layers, blocks and messages\n"
        "  vdxf info --json plan.dxf | jq '.types'");
    return {parser, [options]() -> const CommonOptions& { return options->common; },
            [options](Console& console) { return run_info(*options, console); }};
}

}  // namespace veltrane::tool
