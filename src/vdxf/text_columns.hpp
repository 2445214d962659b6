// Columns of text.
#pragma once

#include <cstddef>
#include <string>

namespace veltrane::tool {

/// The text with blanks up to `width`. Terminal columns are counted by characters of UTF-8, not by bytes.
std::string padded(const std::string& text, std::size_t width);

/// A count; a dot for none lets the others stand out.
std::string count_text(std::size_t count);

}  // namespace veltrane::tool
