// Digits are taken eight at a time and divided by multiplying with an inverse, as in D. Lemire, Number
// parsing at a gigabyte per second (2021). Other than there, what an inverse of 64 bits cannot decide is left
// undecided.
#include "veltrane/file/plain_decimal.hpp"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace veltrane {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kMostDigits = 19;                       // that 64 bits hold whatever they are
constexpr int kWord = 8;                              // characters that are taken at a time
constexpr std::uint64_t kZeros = 0x3030303030303030;  // a word of the digit 0

constexpr std::array<std::uint64_t, kMostDigits + 1> powers_of_ten() {
    std::array<std::uint64_t, kMostDigits + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
    return powers;
}
constexpr auto kPowers = powers_of_ten();

/// The inverse of a power of ten: factor / 2^scale, the factor rounded down and its highest bit set.
struct Inverse {
    std::uint64_t factor;
    int scale;
};
constexpr std::array<Inverse, kPowers.size()> inverses() {
    std::array<Inverse, kPowers.size()> result{};
    for (std::size_t i = 0; i < result.size(); ++i) {
        const int scale = 63 + std::bit_width(kPowers[i] - 1);
        result[i] = {static_cast<std::uint64_t>((Wide{1} << scale) / kPowers[i]), scale};
    }
    return result;
}
constexpr auto kInverses = inverses();

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

std::uint64_t load_word(const char* at) {
    std::uint64_t word;
    std::memcpy(&word, at, kWord);
    return word;
}

/// Appends the digits of a word, the first in its lowest byte, to a number; false when it holds others.
bool append_word(std::uint64_t word, std::uint64_t power, std::uint64_t& number) {
    if (((word + 0x4646464646464646) | (word - kZeros)) & 0x8080808080808080) return false;
    word -= kZeros;
    word = word * 10 + (word >> 8);  // pairs, in every other byte
    constexpr std::uint64_t kPairs = 0x000000FF000000FF;
    const std::uint64_t first_and_third = (word & kPairs) * (100 + (std::uint64_t{1000000} << 32));
    const std::uint64_t others = (word >> 16 & kPairs) * (1 + (std::uint64_t{10000} << 32));
    number = number * power + static_cast<std::uint32_t>((first_and_third + others) >> 32);
    return true;
}

/// Appends the digits from `at` on; false when there is anything else. Characters from `first` on may be
/// read.
bool append_digits(const char* first, const char* at, const char* end, std::uint64_t& number) {
    for (; end - at >= kWord; at += kWord) {
        if (!append_word(load_word(at), kPowers[kWord], number)) return false;
    }
    if (at != end && end - first >= kWord) {  // the last word, what was taken already replaced by zeros
        const std::uint64_t left = ~std::uint64_t{0} << 8 * (kWord - (end - at));
        const std::uint64_t word = (load_word(end - kWord) & left) | (kZeros & ~left);
        return append_word(word, kPowers[static_cast<std::size_t>(end - at)], number);
    }
    for (; at != end && is_digit(*at); ++at) number = number * 10 + static_cast<std::uint64_t>(*at - '0');
    return at == end;
}

/// digits / 10^decimals.
bool divide(std::uint64_t digits, std::ptrdiff_t decimals, double& quotient) {
    if (digits == 0) {
        quotient = 0;
        return true;
    }
    const Inverse& inverse = kInverses[static_cast<std::size_t>(decimals)];
    const int shift = std::countl_zero(digits);
    const auto product = static_cast<std::uint64_t>(Wide{digits << shift} * inverse.factor >> 64);
    // The whole product is below product + 2. Halved, for processors convert signed integers only.
    const auto half = static_cast<std::int64_t>(product >> 1);
    const auto nearest = static_cast<double>(half);
    if (nearest != static_cast<double>(half + 2)) return false;
    constexpr int kBias = 1023, kFraction = 52;
    const auto exponent = static_cast<std::uint64_t>(kBias + 1 + 64 - shift - inverse.scale);
    quotient = nearest * std::bit_cast<double>(exponent << kFraction);
    return true;
}

}  // namespace

bool read_plain_decimal(const char* first, const char* end, double& value) {
    std::uint64_t number = 0;
    const char* at = first;
    for (; at != end && is_digit(*at); ++at) number = number * 10 + static_cast<std::uint64_t>(*at - '0');
    const bool has_point = at != end && *at == '.';
    const std::ptrdiff_t decimals = has_point ? end - at - 1 : 0, count = end - first - has_point;
    if (count == 0 || count > kMostDigits) return false;
    if (has_point ? !append_digits(first, at + 1, end, number) : at != end) return false;
    return divide(number, decimals, value);
}

}  // namespace veltrane
