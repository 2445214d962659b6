#include "vdxf/drawing.hpp"

#include "vdxf/exit_code.hpp"
#include "vdxf/progress_bar.hpp"
#include "veltrane/exchange/file_stream.hpp"
#include "veltrane/file/file_probe.hpp"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

namespace veltrane::tool {

namespace {

[[noreturn]] void cannot_read(const std::string& message) {
    throw Failure(ExitCode::Unreadable, message);
}

/// What is no drawing is told apart by its first bytes, before anybody reads megabytes of it.
FileProbe probe(const std::string& file) {
    std::error_code ignored;
    const auto type = std::filesystem::status(file, ignored).type();
    if (type == std::filesystem::file_type::fifo || type == std::filesystem::file_type::character ||
        type == std::filesystem::file_type::socket) {
        cannot_read(file +
                    " is no regular file. A drawing is looked at more than once, so it cannot come through "
                    "a pipe or a device.");
    }
    const FileProbe found = probe_file(file);
    if (found.content == FileContent::Unreadable) cannot_read(found.problem + ".");
    if (found.content != FileContent::Text) cannot_read(file + " " + found.problem + ".");
    return found;
}

const char* line_ends_of(const std::string& file, char delimiter) {
    if (delimiter == '\r') return "CR";
    const auto stream = open_input_file(file);
    std::array<char, 4096> start{};
    if (stream) stream->read(start.data(), start.size());
    const std::string_view text(start.data(), stream ? static_cast<std::size_t>(stream->gcount()) : 0);
    const std::size_t end = text.find('\n');
    return end != std::string_view::npos && end > 0 && text[end - 1] == '\r' ? "CRLF" : "LF";
}

bool is_section(const Ref<DxfSection_Object>& record) {
    return bool(as<DxfSection_Section>(record));
}

/// A file in which there is no section, and whose very structure was complained about.
bool is_no_drawing(const DxfSection_Model& model) {
    const auto& records = model.DxfFile()->Sections;
    if (records && std::any_of(records->begin(), records->end(), is_section)) return false;
    const Check& check = model.GlobalCheck();
    return check.HasFailed() || check.HasWarnings();
}

}  // namespace

Drawing::Drawing(const std::string& file, const Console& console) : file_(file) {
    const FileProbe probed = probe(file);
    line_ends_ = line_ends_of(file, probed.delimiter);
    console.remark("Reading " + file);
    if (reader_.ReadFile(file) != ExchangeStatus::Done) cannot_read(reader_.Problem() + ".");
    model_ = as<DxfSection_Model>(reader_.Model());
    if (is_no_drawing(*model_)) {
        cannot_read(file +
                    " is no DXF file: it holds no section, and its lines are not pairs of a group code and "
                    "a value.");
    }
}

void Drawing::translate(const Console& console) {
    ProgressBar bar(console, "Translating");
    reader_.TransferRoots(Progress(bar));
    if (bar.UserBreak()) throw Failure(ExitCode::Failed, "Stopped; nothing was written.");
}

}  // namespace veltrane::tool
