#include "vdxf/console.hpp"

#include "vdxf/drawing_text.hpp"
#include "vdxf/exit_code.hpp"
#include "veltrane/exchange/message_channel.hpp"

#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace veltrane::tool {

namespace {

/// One write per line, so that lines of several processes do not mix.
void print_line(std::string_view line) {
    const std::string text = without_controls(std::string(line), "\n\t") + '\n';
    (void)!std::fwrite(text.data(), 1, text.size(), stderr);
}

/// True when standard output is a pipe that nobody reads any more.
bool reader_has_gone() {
    pollfd output{STDOUT_FILENO, 0, 0};
    return ::poll(&output, 1, 0) > 0 && (output.revents & POLLERR) != 0;
}

}  // namespace

void complain(std::string_view message) {
    print_line("vdxf: " + std::string(message));
}

Console::Console(Detail detail) : detail_(detail) {
    default_message_channel()->SetSink([this](std::string_view text, Gravity gravity) {
        if (gravity >= Gravity::Warning) {
            note(text);
        } else {
            remark(text);
        }
    });
}

Console::~Console() {
    default_message_channel()->SetSink(nullptr);
}

std::ostream& Console::out() {
    if (!out_) out_ = std::make_unique<OutputFile>("/dev/stdout");
    return *out_;
}

void Console::note(std::string_view line) const {
    if (detail_ != Detail::Quiet) print_line(line);
}

void Console::remark(std::string_view line) const {
    if (detail_ == Detail::Verbose) print_line(line);
}

void Console::finish() {
    if (!out_ || out_->Close() || reader_has_gone()) return;
    throw Failure(ExitCode::Failed, out_->problem());
}

}  // namespace veltrane::tool
