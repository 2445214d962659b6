#include "vdxf/params_command.hpp"

#include "vdxf/suggest.hpp"
#include "veltrane/exchange/parameters.hpp"

#include <fmt/format.h>
#include <fmt/ostream.h>

#include <nlohmann/json.hpp>

#include <memory>

namespace veltrane::tool {

namespace {

using Json = nlohmann::ordered_json;

const char* type_label(char type) {
    return type == 'e' ? "enumeration" : type == 'r' ? "real" : "text";
}

std::string legal_values(const ParameterInfo& info) {
    if (info.type == 'r') return "any real number";
    if (info.type == 't') return "any text";
    return list_of(info.value_names);
}

void print_text(std::ostream& out, const std::vector<ParameterInfo>& parameters) {
    for (const ParameterInfo& info : parameters) {
        fmt::print(out, "{} = {}\n    {}, default {}: {}\n", info.name, info.value, type_label(info.type),
                   info.default_value, legal_values(info));
    }
    fmt::print(out,
               "\nvdxf convert leaves a drawing its version unless write.dxf.version is set, and writes "
               "no\nsubclass markers for R12 and before unless write.dxf.r12.markers is On.\n");
}

Json to_json(const std::vector<ParameterInfo>& parameters) {
    Json list = Json::array();
    for (const ParameterInfo& info : parameters) {
        list.push_back({{"name", info.name},
                        {"family", info.family},
                        {"type", type_label(info.type)},
                        {"values", info.value_names},
                        {"default", info.default_value},
                        {"value", info.value}});
    }
    return list;
}

ExitCode run_params(const CommonOptions& options, Console& console) {
    const std::vector<ParameterInfo> parameters = StaticParameters::List();
    if (options.json) {
        console.out() << to_json(parameters).dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    } else {
        print_text(console.out(), parameters);
    }
    return ExitCode::Done;
}

}  // namespace

Command declare_params(CLI::App& application) {
    const auto options = std::make_shared<CommonOptions>();
    CLI::App* parser =
        application.add_subcommand("params", "List the named parameters, their legal values and defaults");
    add_common_options(*parser, *options);
    parser->footer(
        "Every sub-command takes --set NAME=VALUE for each of them.\n\n"
        "Examples:\n"
        "  vdxf params\n"
        "  vdxf params --set write.dxf.version=R12      see what a setting does");
    return {parser, [options]() -> const CommonOptions& { return *options; },
            [options](Console& console) { return run_params(*options, console); }};
}

}  // namespace veltrane::tool
