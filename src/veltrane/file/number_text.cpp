#include "veltrane/file/number_text.hpp"

#include "veltrane/file/plain_decimal.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <system_error>

namespace veltrane {

namespace {

constexpr int kDecimals = 20;
constexpr double kLargestFixed = 1e234;

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

/// True when the first digit of a number that is not 0 stands before the point, the exponent applied.
bool is_large(std::string_view number) {
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    const auto point = static_cast<std::int64_t>(std::min(number.find('.'), e));
    const auto first = static_cast<std::int64_t>(number.find_first_of("123456789"));
    std::int64_t exponent = 0;
    const bool negative = e + 1 < number.size() && number[e + 1] == '-';
    for (std::size_t at = e + 1; at < number.size(); ++at) {
        if (is_digit(number[at]) && exponent < INT32_MAX) exponent = exponent * 10 + (number[at] - '0');
    }
    return point - first + (negative ? -exponent : exponent) > 0;
}

}  // namespace

bool read_integer(std::string_view line, std::int32_t& value) {
    const char* at = line.data();
    const char* const end = at + line.size();
    while (at != end && is_space(*at)) ++at;
    const bool negative = at != end && *at == '-';
    if (negative || (at != end && *at == '+')) ++at;
    if (at == end || !is_digit(*at)) return false;

    std::int64_t number = 0;
    for (; at != end && is_digit(*at); ++at) {
        number = number * 10 + (*at - '0');
        if (number > INT64_C(0x80000000)) return false;
    }
    if (at != end && std::memchr(at, '.', static_cast<std::size_t>(end - at))) return false;
    if (negative) number = -number;
    if (number > INT32_MAX) return false;
    value = static_cast<std::int32_t>(number);
    return true;
}

bool read_real(std::string_view text, double& value) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end && is_space(*at)) ++at;
    const bool negative = at != end && *at == '-';
    const char* const first = at + (negative || (at != end && *at == '+'));
    // from_chars also takes "inf" and "nan", which no drawing means.
    if (first == end || (!is_digit(*first) && *first != '.')) return false;

    double number = 0;
    if (read_plain_decimal(first, end, number)) {
        value = negative ? -number : number;
        return true;
    }
    const auto result = std::from_chars(first, end, number);
    // Too large and too small are one error to from_chars; only what is too large is no number here.
    if (result.ec == std::errc::result_out_of_range) {
        if (is_large({first, static_cast<std::size_t>(result.ptr - first)})) return false;
        number = 0;
    } else if (result.ec != std::errc()) {
        return false;
    }
    value = negative ? -number : number;
    return true;
}

std::optional<std::int32_t> integer_of(std::string_view line) {
    std::int32_t value = 0;
    return read_integer(line, value) ? std::optional(value) : std::nullopt;
}

std::optional<double> real_of(std::string_view text) {
    double value = 0;
    return read_real(text, value) ? std::optional(value) : std::nullopt;
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
