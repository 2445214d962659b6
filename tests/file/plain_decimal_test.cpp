#include "veltrane/file/plain_decimal.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

namespace veltrane {
namespace {

bool read(const std::string& text, double& value) {
    return read_plain_decimal(text.data(), text.data() + text.size(), value);
}

/// Expects the double that the C library finds, to the bit, or none; returns whether there was one.
bool expect_nearest(const std::string& text) {
    double value = -1;
    if (!read(text, value)) {
        EXPECT_EQ(value, -1) << text;
        return false;
    }
    const double expected = std::strtod(text.c_str(), nullptr);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expected)) << text;
    return true;
}

TEST(PlainDecimal, NearestDoubles) {
    std::mt19937_64 random(1);
    int decided = 0;
    constexpr int kCount = 200'000;
    for (int i = 0; i < kCount; ++i) {
        std::string text(1 + random() % 19, '0');
        for (char& c : text) c = static_cast<char>('0' + random() % 10);
        if (random() % 8) text.insert(random() % (text.size() + 1), 1, '.');
        decided += expect_nearest(text);
    }
    EXPECT_GT(decided, kCount / 100 * 98);
}

TEST(PlainDecimal, HalfWayBetweenDoubles) {
    std::mt19937_64 random(2);
    for (int i = 0; i < 20'000; ++i) {
        // 2^53 to 2^63: whole numbers here have doubles in the middle of two, and beside that
        const int bits = 1 + static_cast<int>(random() % 10);
        const std::uint64_t half = std::uint64_t{1} << (bits - 1);
        const std::uint64_t middle = (((std::uint64_t{1} << 52) | random() >> 12) << bits) + half;
        for (const std::uint64_t number : {middle - 1, middle, middle + 1}) {
            expect_nearest(std::to_string(number));
            expect_nearest(std::to_string(number / 1000) + "." +
                           std::to_string(1000 + number % 1000).substr(1));
        }
    }
}

TEST(PlainDecimal, WhatIsPlain) {
    for (const char* text : {"0", "0.0", "7", "2.5", ".5", "5.", "0.1", "00000000000000000.1", "127.25",
                             "12345678", "0.12345678", "1.234567", "1234567.8", "9999999999999999999"}) {
        EXPECT_TRUE(expect_nearest(text)) << text;
    }
    for (const char* text : {"", ".", "-1", "1e5", "1.5e5", "1.5 ", "1..5", "1.2.3", "1,5", "12345678/",
                             "0.1234567:", "0.1234567x", "0.12345678x", "1.2345678\xB9",
                             "0.123456789012345678901", "99999999999999999999", "inf"}) {
        EXPECT_FALSE(expect_nearest(text)) << text;
    }
}

}  // namespace
}  // namespace veltrane
