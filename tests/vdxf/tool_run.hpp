// Runs the built tool as a user would.
#pragma once

#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane::tool {

struct Outcome {
    int code = -1;  ///< exit code; -1 when a signal ended the tool
    std::string out;
    std::string err;

    nlohmann::json json() const { return nlohmann::json::parse(out); }
};

/// Runs `vdxf` with these arguments and waits for it. Standard output goes to `output_file` when one is
/// given.
Outcome run_tool(const std::vector<std::string>& arguments, const std::string& output_file = {});

/// A folder of its own that goes away with the object.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    /// Writes a file and returns its name.
    std::string write(const std::string& name, std::string_view content) const;
    std::size_t count_files() const;

private:
    std::filesystem::path path_;
};

std::string read_file(const std::string& name);

/// A drawing of one value per line: "0 SECTION" becomes the lines "0" and "SECTION".
std::string drawing_of(std::string_view groups, std::string_view line_end = "\n");

/// A header of this version, and these records as ENTITIES.
std::string drawing_with(std::string_view entities, std::string_view version = "AC1015");

}  // namespace veltrane::tool
