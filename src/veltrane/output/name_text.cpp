#include "veltrane/output/name_text.hpp"

#include <cstddef>

namespace veltrane {
namespace {

/// Length of the UTF-8 sequence that a text begins with; 0 when it begins with none.
std::size_t utf8_length(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    const std::size_t length = lead < 0x80    ? 1
                               : lead < 0xC2  ? 0
                               : lead < 0xE0  ? 2
                               : lead < 0xF0  ? 3
                               : lead <= 0xF4 ? 4
                                              : 0;
    if (length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
    }
    const bool is_overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool is_no_character = (lead == 0xED && byte(1) >= 0xA0) || (lead == 0xF4 && byte(1) >= 0x90) ||
                                 (lead == 0xEF && byte(1) == 0xBF && byte(2) >= 0xBE);
    return is_overlong || is_no_character ? 0 : length;
}

/// Puts escapes in place of some characters.
template <class Escape>
std::string escaped(std::string_view text, const Escape& escape) {
    std::string result;
    for (const char c : utf8_name(text)) {
        if (const char* instead = escape(c)) {
            result += instead;
        } else {
            result += c;
        }
    }
    return result;
}

}  // namespace

std::string utf8_name(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto lead = static_cast<unsigned char>(text[0]);
        const std::size_t length = utf8_length(text);
        if (length == 0) {
            result += static_cast<char>(0xC0 | lead >> 6);
            result += static_cast<char>(0x80 | (lead & 0x3F));
        } else if (lead < 0x20 || lead == 0x7F) {
            result += ' ';
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

std::string xml_name(std::string_view text) {
    return escaped(text, [](char c) {
        return c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '"' ? "&quot;" : nullptr;
    });
}

std::string json_name(std::string_view text) {
    return escaped(text, [](char c) { return c == '"' ? "\\\"" : c == '\\' ? "\\\\" : nullptr; });
}

}  // namespace veltrane
