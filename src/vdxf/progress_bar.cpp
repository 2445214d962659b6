#include "vdxf/progress_bar.hpp"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace veltrane::tool {

namespace {

constexpr int kWidth = 40;

volatile std::sig_atomic_t interrupted = 0;

/// A bar needs a terminal that can return to the start of its line.
bool is_terminal() {
    const char* kind = std::getenv("TERM");
    return ::isatty(STDERR_FILENO) && kind && std::string_view(kind) != "dumb";
}

}  // namespace

ProgressBar::ProgressBar(const Console& console, std::string title)
    : visible_(console.detail() != Detail::Quiet && is_terminal()), title_(std::move(title)) {
    struct sigaction action {};
    action.sa_handler = [](int) { interrupted = 1; };
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    ::sigaction(SIGINT, &action, nullptr);
}

ProgressBar::~ProgressBar() {
    std::signal(SIGINT, SIG_DFL);
    if (visible_ && shown_percent_ >= 0) std::fputs("\r\033[K", stderr);
}

void ProgressBar::Show(double done, std::string_view /*scope*/) {
    const int percent = static_cast<int>(done * 100);
    if (!visible_ || percent == shown_percent_) return;
    shown_percent_ = percent;
    const auto filled = static_cast<std::size_t>(percent * kWidth / 100);
    const std::string bar = std::string(filled, '#') + std::string(kWidth - filled, '.');
    std::fprintf(stderr, "\r%s [%s] %3d%%", title_.c_str(), bar.c_str(), percent);
    std::fflush(stderr);
}

bool ProgressBar::UserBreak() {
    return interrupted != 0;
}

}  // namespace veltrane::tool
