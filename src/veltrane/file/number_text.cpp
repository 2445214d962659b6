#include "veltrane/file/number_text.hpp"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>

namespace veltrane {

namespace {

constexpr int kDecimals = 20;
constexpr double kLargestFixed = 1e234;

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

/// Too large and too small numbers are one error to from_chars; only the large ones are no numbers here.
std::optional<double> out_of_range_real(std::string_view text) {
    const double value = std::strtod(std::string(text).c_str(), nullptr);
    if (std::isinf(value)) return std::nullopt;
    return value;
}

}  // namespace

std::optional<std::int32_t> integer_of(std::string_view line) {
    const char* at = line.data();
    const char* const end = at + line.size();
    while (at != end && is_space(*at)) ++at;
    const bool negative = at != end && *at == '-';
    if (negative || (at != end && *at == '+')) ++at;
    if (at == end || !is_digit(*at)) return std::nullopt;

    std::int64_t number = 0;
    for (; at != end && is_digit(*at); ++at) {
        number = number * 10 + (*at - '0');
        if (number > INT64_C(0x80000000)) return std::nullopt;
    }
    if (at != end && std::memchr(at, '.', static_cast<std::size_t>(end - at))) return std::nullopt;
    if (negative) number = -number;
    if (number > INT32_MAX) return std::nullopt;
    return static_cast<std::int32_t>(number);
}

std::optional<double> real_of(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end && is_space(*at)) ++at;
    if (at != end && *at == '+') ++at;
    // from_chars also takes "inf" and "nan", which no drawing means.
    const char* first = at != end && *at == '-' ? at + 1 : at;
    if (first == end || (!is_digit(*first) && *first != '.')) return std::nullopt;

    double value = 0;
    const auto result = std::from_chars(at, end, value);
    if (result.ec == std::errc()) return value;
    if (result.ec != std::errc::result_out_of_range) return std::nullopt;
    return out_of_range_real({at, static_cast<std::size_t>(result.ptr - at)});
}

char* format_real(double value, char* out) {
    if (value == 0) {  // by far the most frequent number of a flat drawing
        std::memcpy(out, std::signbit(value) ? "-0.0" : "0.0", 4);
        return out + (std::signbit(value) ? 4 : 3);
    }
    if (std::fabs(value) >= kLargestFixed) {
        return std::to_chars(out, out + kLongestReal, value, std::chars_format::scientific).ptr;
    }
    char* end = std::to_chars(out, out + kLongestReal, value, std::chars_format::fixed, kDecimals).ptr;
    while (end[-1] == '0' && end[-2] != '.') --end;
    return end;
}

}  // namespace veltrane
