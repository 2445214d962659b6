#include "vdxf/options.hpp"

#include "vdxf/suggest.hpp"
#include "veltrane/exchange/parameters.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace veltrane::tool {

namespace {

std::vector<std::string> parameter_names() {
    std::vector<std::string> names;
    for (const ParameterInfo& info : StaticParameters::List()) names.push_back(info.name);
    return names;
}

void apply(const std::string& setting) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string::npos || equals == 0) {
        throw Failure(
            ExitCode::WrongUsage,
            fmt::format("--set takes NAME=VALUE, as in --set write.dxf.version=R12, not \"{}\".", setting));
    }
    const std::string name = setting.substr(0, equals);
    if (!StaticParameters::IsKnown(name)) {
        throw Failure(ExitCode::WrongUsage,
                      fmt::format("--set: there is no parameter \"{}\".{} 'vdxf params' lists them.", name,
                                  did_you_mean(name, parameter_names())));
    }
    const std::string problem = StaticParameters::SetText(name, setting.substr(equals + 1));
    if (!problem.empty()) throw Failure(ExitCode::WrongUsage, "--set: " + problem + ".");
}

}  // namespace

bool CommonOptions::sets(std::string_view parameter) const {
    return std::any_of(settings.begin(), settings.end(), [&](const std::string& setting) {
        return setting.size() > parameter.size() && setting[parameter.size()] == '=' &&
               setting.compare(0, parameter.size(), parameter) == 0;
    });
}

void add_common_options(CLI::App& command, CommonOptions& options) {
    command
        .add_option("--set", options.settings,
                    "Give a named parameter a value; may be repeated ('vdxf params' lists them)")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    command.add_flag("--json", options.json, "Print the result as JSON");
    auto* quiet = command.add_flag("-q,--quiet", options.quiet, "Tell nothing but results and failures");
    command
        .add_flag("-v,--verbose", options.verbose, "Tell everything, each message with its record and line")
        ->excludes(quiet);
    command.set_help_flag("-h,--help", "Show this help");
}

void apply_settings(const CommonOptions& options) {
    for (const std::string& setting : options.settings) apply(setting);
}

std::function<std::string(const std::string&)> one_of(std::vector<std::string> words) {
    return [words = std::move(words)](const std::string& word) -> std::string {
        if (std::find(words.begin(), words.end(), word) != words.end()) return {};
        return fmt::format("\"{}\" is not one of {}.{}", word, list_of(words), did_you_mean(word, words));
    };
}

namespace {

template <class Number>
std::function<std::string(const std::string&)> number_in(const char* kind, Number first, Number last) {
    return [kind, first, last](const std::string& text) -> std::string {
        Number value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        const bool whole = error == std::errc() && end == text.data() + text.size();
        if (whole && value >= first && value <= last) return {};
        return fmt::format("\"{}\" is not {} from {} to {}", text, kind, first, last);
    };
}

}  // namespace

std::function<std::string(const std::string&)> integer_in(int first, int last) {
    return number_in("an integer", first, last);
}

std::function<std::string(const std::string&)> real_in(double first, double last) {
    return number_in("a number", first, last);
}

}  // namespace veltrane::tool
