// The command line: sub-commands, their arguments, and what is said when they make no sense.
#pragma once

#include <string>
#include <vector>

namespace veltrane::tool {

/// Runs the tool on its arguments, the program's name set aside, and returns the exit code. Throws nothing.
int run(std::vector<std::string> arguments);

}  // namespace veltrane::tool
