#include "vdxf/dump_command.hpp"

#include "vdxf/census.hpp"
#include "vdxf/drawing.hpp"
#include "vdxf/record_dumper.hpp"
#include "veltrane/file/work_library.hpp"
#include "veltrane/section/handle_text.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <string_view>

namespace veltrane::tool {

namespace {

struct DumpOptions {
    CommonOptions common;
    std::string file;
    int level = 0;
    std::string handle;
};

/// The records inside a container follow it in the list, so it shows how many they are and no more.
void dump_all(const DxfSection_Model& model, RecordDumper& dumper, const std::ostream& out) {
    for (const Ref<Transient>& listed : model.records()) {
        if (!out.good()) return;
        const auto* record = as<const DxfSection_Object>(listed.get());
        if (record)
            dumper.dump(*record, length(record->GetSubObjects()) > 0 ? Contents::Counted : Contents::Shown);
    }
}

std::int32_t parse_handle(std::string_view text) {
    std::string_view digits = text;
    if (!digits.empty() && digits.front() == '#') digits.remove_prefix(1);
    const bool is_hex = !digits.empty() && std::all_of(digits.begin(), digits.end(),
                                                       [](unsigned char c) { return std::isxdigit(c) != 0; });
    const std::int32_t handle = is_hex ? DxfSection::StringToHex(digits) : kUndefinedInteger;
    if (handle > 0) return handle;
    throw Failure(
        ExitCode::WrongUsage,
        fmt::format("--record takes a handle in hexadecimal, as in --record 2F, not \"{}\".", text));
}

Ref<DxfSection_Object> find_record(const DxfSection_Model& model, std::int32_t handle) {
    if (const auto record = model.FindByHandle(handle)) return record;
    const std::string wanted = DxfSection::HexToString(handle).str();  // a record kept whole is in no map
    for (const Ref<Transient>& listed : model.records()) {
        const auto* record = as<const DxfSection_UnrecognizedObject>(listed.get());
        if (record && handle_of(*record) == wanted) return as<DxfSection_Object>(listed);
    }
    throw Failure(ExitCode::Failed, "No record has the handle " + wanted + ".");
}

ExitCode run_dump(const DumpOptions& options, Console& console) {
    const std::int32_t handle = options.handle.empty() ? 0 : parse_handle(options.handle);
    const Drawing drawing(options.file, console);
    const DxfSection_Model& model = drawing.model();
    const Ref<DxfSection_Object> single = handle > 0 ? find_record(model, handle) : nullptr;

    std::ostream& out = console.out();
    const auto dumper = options.common.json ? json_dumper(out, model, options.level, options.file)
                                            : text_dumper(out, model, options.level);
    if (single) {
        dumper->dump(*single, Contents::Shown);
    } else {
        dump_all(model, *dumper, out);
    }
    return ExitCode::Done;
}

std::string levels_text(const DxfFile_WorkLibrary& library) {
    static constexpr const char* kMeanings[] = {
        "type, handle and line", "layer and name as well",
        "the fields of the record, without those of its base",
        "the fields of its base as well, lists inside them not opened", "everything"};
    std::string text = "Levels:\n";
    for (int level = 0; level <= library.MaxDumpLevel(); ++level) {
        text += fmt::format("  {}  {}\n", level, kMeanings[level]);
    }
    return text;
}

}  // namespace

Command declare_dump(CLI::App& application) {
    const auto options = std::make_shared<DumpOptions>();
    const DxfFile_WorkLibrary library;
    options->level = library.DefaultDumpLevel();
    CLI::App* parser = application.add_subcommand("dump", "Print the records of a drawing, readable");
    parser->add_option("FILE", options->file, "The drawing, an ASCII DXF file")->required()->type_name("");
    parser->add_option("--level", options->level, "How much of each record: 0 to 4")
        ->check(integer_in(0, library.MaxDumpLevel()))
        ->type_name("N")
        ->capture_default_str();
    parser->add_option("--record", options->handle, "Only the record with this handle, in hexadecimal")
        ->type_name("HANDLE");
    add_common_options(*parser, options->common);
    parser->footer(levels_text(library) +
                   "\nExamples:\n"
                   "  vdxf dump plan.dxf --level 0 | less\n"
                   "  vdxf dump plan.dxf --record 2F --level 4\n"
                   "  vdxf dump plan.dxf --json | jq '.records[] | select(.type == \"LINE\")'");
    return {parser, [options]() -> const CommonOptions& { return options->common; },
            [options](Console& console) { return run_dump(*options, console); }};
}

}  // namespace veltrane::tool
