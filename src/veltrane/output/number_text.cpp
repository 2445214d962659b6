#include "veltrane/output/number_text.hpp"

#include <charconv>

namespace veltrane {

std::string number_text(double value, int digits) {
    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits).ptr;
    return std::string(text, end);
}

}  // namespace veltrane
