#include "vdxf/diff_command.hpp"

#include "vdxf/diff_report.hpp"
#include "vdxf/message_summary.hpp"

#include <fmt/format.h>

#include <limits>
#include <memory>

namespace veltrane::tool {

namespace {

struct DiffOptions {
    CommonOptions common;
    std::string before;
    std::string after;
    std::vector<std::string> ignored;
    bool ignore_handles = false;
    int limit = 0;
};

/// Groups that reading skips are in neither model, so what changed in them cannot be told.
void tell_reading(const Drawing& drawing, const Console& console) {
    const std::string counts = summarize_reading(drawing.model()).counts();
    if (counts.empty()) return;
    console.note(fmt::format("{}: {} in reading. What was skipped is not compared; 'vdxf info' tells more.",
                             drawing.file(), counts));
}

ExitCode run_diff(const DiffOptions& options, Console& console) {
    const Drawing before(options.before, console), after(options.after, console);
    tell_reading(before, console);
    tell_reading(after, console);
    const CompareOptions compared{options.ignored,
                                  options.ignore_handles ? Handles::Never : Handles::WhereRequired};
    const DiffReport report{DiffSide(before), DiffSide(after),
                            compare_drawings(before.model(), after.model(), compared)};
    const bool is_equal = report.differences.empty();
    if (options.common.json) {
        print_diff_json(console.out(), report);
    } else if (!options.common.quiet) {
        print_diff(console.out(), report, {static_cast<std::size_t>(options.limit), options.common.verbose});
    } else if (!is_equal) {
        print_diff_summary(console.out(), report);
    }
    return is_equal ? ExitCode::Done : ExitCode::Different;
}

}  // namespace

Command declare_diff(CLI::App& application) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* parser = application.add_subcommand("diff", "Tell what changed between two drawings");
    parser->add_option("A", options->before, "The first drawing, an ASCII DXF file")
        ->required()
        ->type_name("");
    parser->add_option("B", options->after, "The second drawing")->required()->type_name("");
    parser
        ->add_option("--ignore", options->ignored,
                     "A field or header variable that does not matter, named as it is shown; may be repeated")
        ->type_name("FIELD")
        ->allow_extra_args(false);
    parser->add_flag("--ignore-handles", options->ignore_handles,
                     "Handles and references by handle do not matter; the rule for drawings before R13");
    parser
        ->add_option("--limit", options->limit,
                     "Show no more records of each section, table or block; 0 for all")
        ->check(integer_in(0, std::numeric_limits<int>::max()))
        ->type_name("N")
        ->capture_default_str();
    add_common_options(*parser, options->common);
    parser->footer(
        "+ stands before what only B has, - before what only A has, ~ before what differs.\n"
        "Records are paired by name, content and handle; their order is not compared. A record\n"
        "of which only the handle is another is counted; -v lists it. -v shortens nothing; with\n"
        "-q there is a line with the counts when the drawings differ, and none otherwise.\n\n"
        "Exit codes: 0 the drawings are equal, 1 they differ (or the result could not be written),\n"
        "            2 wrong usage, 3 input unreadable.\n\n"
        "Examples:\n"
        "  vdxf diff old.dxf new.dxf\n"
        "  vdxf diff old.dxf new.dxf --ignore '$TDUPDATE' --ignore Layer\n"
        "  vdxf diff -q old.dxf new.dxf && echo equal\n"
        "  vdxf diff --json old.dxf new.dxf | jq '.records[] | select(.change == \"added\")'");
    return {parser, [options]() -> const CommonOptions& { return options->common; },
            [options](Console& console) { return run_diff(*options, console); }};
}

}  // namespace veltrane::tool
