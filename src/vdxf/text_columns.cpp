#include "vdxf/text_columns.hpp"

#include <algorithm>

namespace veltrane::tool {

std::string padded(const std::string& text, std::size_t width) {
    const auto characters = static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
    return text + std::string(characters < width ? width - characters : 0, ' ');
}

std::string count_text(std::size_t count) {
    return count == 0 ? "." : std::to_string(count);
}

}  // namespace veltrane::tool
