// Letter case of names, in ASCII: whatever the locale, and without touching other bytes.
#pragma once

#include <string>
#include <string_view>

namespace veltrane {

inline std::string upper_case(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return result;
}

inline std::string lower_case(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

}  // namespace veltrane
