#include "veltrane/file/file_probe.hpp"

#include "veltrane/exchange/file_stream.hpp"

#include <algorithm>
#include <string_view>

namespace veltrane {

namespace {

constexpr std::size_t kProbedLine = 1999;
constexpr std::string_view kBinarySentinel("AutoCAD Binary DXF\r\n\x1A\0", 22);

/// Lines end with CR alone when the first line, as LF ends it, holds a CR that is not merely its end.
char delimiter_of(std::string_view start) {
    const std::string_view line = start.substr(0, std::min(start.find('\n'), kProbedLine));
    const std::size_t carriage_return = line.find('\r');
    return carriage_return != std::string_view::npos && carriage_return + 2 < line.size() ? '\r' : '\n';
}

}  // namespace

FileProbe probe_file(const std::string& name) {
    FileProbe probe;
    const auto stream = open_input_file(name, &probe.problem);
    if (!stream) return probe;
    std::string start(kProbedLine + 1, '\0');
    stream->read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(stream->gcount()));
    if (stream->bad()) {
        probe.problem = name + " cannot be read";
    } else if (start.empty()) {
        probe.content = FileContent::Empty;
        probe.problem = "is empty";
    } else if (std::string_view(start).substr(0, kBinarySentinel.size()) == kBinarySentinel) {
        probe.content = FileContent::BinaryDxf;
        probe.problem = "is a binary DXF file; only ASCII DXF is read";
    } else {
        probe.content = FileContent::Text;
        probe.delimiter = delimiter_of(start);
    }
    return probe;
}

}  // namespace veltrane
