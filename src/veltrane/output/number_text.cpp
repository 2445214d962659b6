#include "veltrane/output/number_text.hpp"

#include <charconv>

namespace veltrane {

std::string number_text(double value) {
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 12).ptr;
    return std::string(digits, end);
}

}  // namespace veltrane
