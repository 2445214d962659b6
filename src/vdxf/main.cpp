// The command line tool vdxf.
#include "vdxf/application.hpp"

#include <csignal>

int main(int argc, char** argv) {
    // A reader that goes away shows as a failed write, so that a conversion at work is still finished.
    std::signal(SIGPIPE, SIG_IGN);
    return veltrane::tool::run({argv + (argc > 0 ? 1 : 0), argv + argc});
}
