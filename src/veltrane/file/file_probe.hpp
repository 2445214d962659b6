// What a file is, told from its first bytes.
#pragma once

#include <string>

namespace veltrane {

enum class FileContent {
    Unreadable,  ///< cannot be opened or read
    Empty,
    BinaryDxf,
    Text,  ///< anything else: whether it is a drawing shows when it is read
};

struct FileProbe {
    FileContent content = FileContent::Unreadable;
    char delimiter = '\n';  ///< the character that ends a line
    /// Why the file cannot be read as a drawing: for Unreadable with the file's name, otherwise to be put
    /// after it; empty for Text.
    std::string problem;
};

/// `name` is taken as UTF-8.
FileProbe probe_file(const std::string& name);

}  // namespace veltrane
