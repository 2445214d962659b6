// Where the tool's texts go: results to standard output, narration to standard error.
#pragma once

#include "veltrane/exchange/file_stream.hpp"

#include <memory>
#include <ostream>
#include <string_view>

namespace veltrane::tool {

enum class Detail { Quiet, Normal, Verbose };

/// Prints a complaint on standard error; it is never held back.
void complain(std::string_view message);

class Console {
public:
    explicit Console(Detail detail);
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    ~Console();

    Detail detail() const { return detail_; }
    /// The results. Not good any more once nobody reads them, or once they cannot be written.
    std::ostream& out();
    /// A line of narration, left out when the user wants it quiet.
    void note(std::string_view line) const;
    /// A line for those who want all of it.
    void remark(std::string_view line) const;
    /// Hands over what is left of the results. Throws Failure when they could not be written; a reader that
    /// has gone away, as `head` does, has had what it wanted.
    void finish();

private:
    Detail detail_;
    std::unique_ptr<OutputFile> out_;
};

}  // namespace veltrane::tool
