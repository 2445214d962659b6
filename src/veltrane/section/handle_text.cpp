#include "veltrane/section/handle_text.hpp"

#include <charconv>

namespace veltrane {

Text DxfSection::HexToString(std::int32_t handle) {
    char digits[8];
    char* end = std::to_chars(digits, digits + 8, static_cast<std::uint32_t>(handle), 16).ptr;
    for (char* digit = digits; digit != end; ++digit) {
        if (*digit >= 'a') *digit = static_cast<char>(*digit - 'a' + 'A');
    }
    return Text(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

std::int32_t DxfSection::StringToHex(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n\v\f");
    if (first == std::string_view::npos) return -1;
    text.remove_prefix(first);
    const bool prefixed = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    auto result = std::from_chars(text.data() + (prefixed ? 2 : 0), end, number, 16);
    if (result.ec == std::errc::invalid_argument && prefixed) return 0;  // "0x" alone: the digit 0
    if (result.ec != std::errc()) return -1;
    return static_cast<std::int32_t>(number);
}

}  // namespace veltrane
