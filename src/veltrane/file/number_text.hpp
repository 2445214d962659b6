// Numbers as the format writes them: independent of the locale, and told apart from what is no number.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace veltrane {

/// White space as the C locale has it.
constexpr bool is_space(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The integer with which a line begins after optional white space and sign, provided that no '.' follows
/// the digits anywhere in the line. Nothing when there is none, or when it does not fit in 32 bits.
std::optional<std::int32_t> integer_of(std::string_view line);

/// The decimal number with which a text begins after optional white space. Nothing when there is none, or
/// when it is too large for a double.
std::optional<double> real_of(std::string_view text);

/// The same into `value`, which stays when there is nothing; true when there was. Readers call these for each
/// group: an optional goes through memory in a way that makes processors wait.
bool read_integer(std::string_view line, std::int32_t& value);
bool read_real(std::string_view text, double& value);

/// Longest text that format_real makes.
inline constexpr int kLongestReal = 352;

/// Writes a finite number in fixed point with up to twenty decimals, trailing zeros removed but for one
/// after the point; from 1e234 on, where that text would pass 255 characters, in exponent form. Returns the
/// end. `out` has room for kLongestReal characters.
char* format_real(double value, char* out);

}  // namespace veltrane
