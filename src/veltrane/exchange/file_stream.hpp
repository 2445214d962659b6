// Streams opened for a file name.
#pragma once

#include <istream>
#include <memory>
#include <ostream>
#include <string>

namespace veltrane {

/// An input stream of bytes; null when there is no such file, when it may not be read, or when it is a
/// directory. A reason is then put in `problem`, if given.
std::unique_ptr<std::istream> open_input_file(const std::string& name, std::string* problem = nullptr);

/// An output stream to a file that appears whole or not at all: the bytes go to a new file beside the
/// target, which takes the target's name at Close. What is no regular file (a device, a pipe, /dev/stdout)
/// is written directly. Flushes are gathered.
class OutputFile : public std::ostream {
public:
    /// On failure the stream is bad and problem() tells why.
    explicit OutputFile(const std::string& name);
    /// Without an earlier Close, the file is given up: the target stays as it was.
    ~OutputFile() override;

    /// Writes what is left and gives the file its name. False when this or any earlier write failed or
    /// the stream is in a failed state; nothing then remains of the file.
    bool Close();
    /// Why the file could not be written; empty while all is well.
    const std::string& problem() const;

private:
    class Buffer;
    std::unique_ptr<Buffer> buffer_;
};

}  // namespace veltrane
