// How a run of the tool ends.
#pragma once

#include <stdexcept>
#include <string>

namespace veltrane::tool {

enum class ExitCode {
    Done = 0,
    Failed = 1,      ///< the work could not be done: nothing was written
    Different = 1,   ///< of a comparison, as other tools that compare have it
    WrongUsage = 2,  ///< the arguments make no sense
    Unreadable = 3,  ///< the input is missing, empty or no drawing that can be read
    Lost = 4,        ///< done, but something was lost and the user asked to be told so
};

/// Ends the run. The message is a sentence for the user.
class Failure : public std::runtime_error {
public:
    Failure(ExitCode code, const std::string& message) : std::runtime_error(message), code_(code) {}
    ExitCode code() const { return code_; }

private:
    ExitCode code_;
};

}  // namespace veltrane::tool
