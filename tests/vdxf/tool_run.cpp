#include "vdxf/tool_run.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace veltrane::tool {

namespace {

/// In the child: replaces a descriptor by a file.
void redirect(int descriptor, const std::string& file) {
    const int opened = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (opened < 0 || ::dup2(opened, descriptor) < 0) ::_exit(126);
}

[[noreturn]] void become_tool(const std::vector<std::string>& arguments, const std::string& out,
                              const std::string& err) {
    redirect(STDOUT_FILENO, out);
    redirect(STDERR_FILENO, err);
    std::vector<char*> pointers{const_cast<char*>(VDXF_EXECUTABLE)};
    for (const std::string& argument : arguments) pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    ::execv(VDXF_EXECUTABLE, pointers.data());
    ::_exit(127);
}

}  // namespace

Outcome run_tool(const std::vector<std::string>& arguments, const std::string& output_file) {
    const TemporaryFolder folder;
    const std::string out = output_file.empty() ? folder.file("out") : output_file;
    const std::string err = folder.file("err");
    const pid_t child = ::fork();
    if (child == 0) become_tool(arguments, out, err);
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) throw std::runtime_error("cannot run the tool");
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            output_file.empty() ? read_file(out) : std::string(), read_file(err)};
}

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vdxf-test-XXXXXX").string();
    if (!::mkdtemp(name.data())) throw std::runtime_error("cannot make a folder like " + name);
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::write(const std::string& name, std::string_view content) const {
    const std::string path = file(name);
    std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
    return path;
}

std::size_t TemporaryFolder::count_files() const {
    const std::filesystem::directory_iterator files(path_);
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

std::string read_file(const std::string& name) {
    std::ifstream stream(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string drawing_of(std::string_view groups, std::string_view line_end) {
    std::istringstream words{std::string(groups)};
    std::string result, word;
    while (words >> word) result.append(word).append(line_end);
    return result;
}

std::string drawing_with(std::string_view entities, std::string_view version) {
    return drawing_of("0 SECTION 2 HEADER 9 $ACADVER 1 " + std::string(version) +
                      " 0 ENDSEC 0 SECTION 2 ENTITIES " + std::string(entities) + " 0 ENDSEC 0 EOF");
}

}  // namespace veltrane::tool
