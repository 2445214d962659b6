// What every sub-command takes.
#pragma once

#include "vdxf/console.hpp"
#include "vdxf/exit_code.hpp"

#include <CLI/App.hpp>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane::tool {

struct CommonOptions {
    bool json = false;
    bool quiet = false;
    bool verbose = false;
    std::vector<std::string> settings;  ///< NAME=VALUE

    Detail detail() const { return quiet ? Detail::Quiet : verbose ? Detail::Verbose : Detail::Normal; }
    /// True when the user has given this parameter a value.
    bool sets(std::string_view parameter) const;
};

void add_common_options(CLI::App& command, CommonOptions& options);

/// Sets the named parameters. Throws Failure for a name or a value that is not known.
void apply_settings(const CommonOptions& options);

/// A sub-command: how its arguments are told apart, and its work.
struct Command {
    CLI::App* parser = nullptr;
    std::function<const CommonOptions&()> common;
    std::function<ExitCode(Console&)> run;
};

/// A check for an option that takes one of a few words; the complaint lists them.
std::function<std::string(const std::string&)> one_of(std::vector<std::string> words);
/// A check for an option that takes an integer from `first` to `last`.
std::function<std::string(const std::string&)> integer_in(int first, int last);
/// A check for an option that takes a number from `first` to `last`.
std::function<std::string(const std::string&)> real_in(double first, double last);

}  // namespace veltrane::tool
