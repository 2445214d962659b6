#include "veltrane/file/number_text.hpp"

#include <gtest/gtest.h>
#include <locale.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace veltrane {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

TEST(NumberText, Integers) {
    struct Row {
        const char* text;
        bool legal;
        std::int32_t value;
    };
    const Row rows[] = {{"0", true, 0},
                        {"  0", true, 0},
                        {"1001", true, 1001},
                        {"0\r", true, 0},
                        {" \t\v+7", true, 7},
                        {"-12", true, -12},
                        {"12abc", true, 12},
                        {"5 ,", true, 5},
                        {"2147483647", true, INT32_MAX},
                        {"-2147483648", true, INT32_MIN},
                        {"2147483648", false, 0},
                        {"-2147483649", false, 0},
                        {"99999999999999999999", false, 0},
                        {"10.5", false, 0},
                        {"10 and 0.5", false, 0},
                        {"ABC", false, 0},
                        {"-", false, 0},
                        {"+-5", false, 0},
                        {".5", false, 0},
                        {"", false, 0},
                        {"   ", false, 0}};
    for (const Row& row : rows) {
        const auto value = integer_of(row.text);
        EXPECT_EQ(value.has_value(), row.legal) << row.text;
        EXPECT_EQ(value.value_or(0), row.value) << row.text;
    }
}

TEST(NumberText, Reals) {
    struct Row {
        const char* text;
        double value;
    };
    const Row rows[] = {{"1.5", 1.5},
                        {" \t+2", 2},
                        {"-0.25", -0.25},
                        {".5", .5},
                        {"-.5e1x", -5},
                        {"5.", 5},
                        {"1e3", 1000},
                        {"1E-3", 1e-3},
                        {"1e", 1},
                        {"1e+", 1},
                        {"0x10", 0},
                        {"2,5", 2},
                        {"1e308", 1e308},
                        {"1e400", kNone},
                        {"-1e400", kNone},
                        {"1e-400", 0},
                        {"-1.5e-400", -0.0},
                        {"1.5e400", kNone},
                        {"5e-324", 5e-324},
                        {"0e999", 0},
                        {"", kNone},
                        {"  ", kNone},
                        {"abc", kNone},
                        {"-", kNone},
                        {".", kNone},
                        {"+-5", kNone},
                        {"inf", kNone},
                        {"nan", kNone},
                        {"-inf", kNone},
                        {"e5", kNone},
                        {"1e99999999999999999999", kNone},
                        {"1e-99999999999999999999", 0}};
    for (const Row& row : rows) {
        const auto value = real_of(row.text);
        EXPECT_EQ(value.has_value(), !std::isnan(row.value)) << row.text;
        if (!value) continue;
        EXPECT_EQ(*value, row.value) << row.text;
        EXPECT_EQ(std::signbit(*value), std::signbit(row.value)) << row.text;
    }
    EXPECT_EQ(real_of("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(real_of(std::string(400, '9')), std::nullopt);
    EXPECT_EQ(real_of("0." + std::string(400, '0') + "1e800"), std::nullopt);
    EXPECT_EQ(real_of("1" + std::string(400, '0') + "e-800"), 0.0);
}

TEST(NumberText, RealsDoNotDependOnTheLocale) {
    const locale_t german = ::newlocale(LC_ALL_MASK, "de_DE.UTF-8", nullptr);
    if (!german) GTEST_SKIP() << "there is no German locale here";
    const locale_t earlier = ::uselocale(german);
    EXPECT_EQ(real_of("1.5"), 1.5);
    EXPECT_EQ(real_of("1.5e-400"), 0.0);
    EXPECT_EQ(real_of("1.5e400"), std::nullopt);
    ::uselocale(earlier);
    ::freelocale(german);
}

std::string formatted(double value) {
    char text[kLongestReal];
    return {text, format_real(value, text)};
}

/// The rule in other words: "%.20f" and trailing zeros off, one by one, but for one after the point.
std::string expected_fixed(double value) {
    char text[400];
    const int length = std::snprintf(text, sizeof text, "%.20f", value);
    std::string result(text, static_cast<std::size_t>(length));
    while (result.back() == '0' && result[result.size() - 2] != '.') result.pop_back();
    return result;
}

TEST(NumberText, FormatsReals) {
    struct Row {
        double value;
        const char* text;
    };
    const Row rows[] = {{0, "0.0"},
                        {-0.0, "-0.0"},
                        {1.5, "1.5"},
                        {2, "2.0"},
                        {-0.25, "-0.25"},
                        {0.1, "0.10000000000000000555"},
                        {1e-3, "0.00100000000000000002"},
                        {100, "100.0"},
                        {1e-30, "0.0"},
                        {-1e-30, "-0.0"},
                        {1e22, "10000000000000000000000.0"},
                        {1e300, "1e+300"},
                        {-1.5e300, "-1.5e+300"}};
    for (const Row& row : rows) EXPECT_EQ(formatted(row.value), row.text);
}

TEST(NumberText, FormatsAsPrintfDoesAndReadsBack) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> coordinates(-1e5, 1e5);
    for (int i = 0; i < 60'000; ++i) {
        double value = std::bit_cast<double>(random());  // any exponent
        if (i % 3 == 1) value = coordinates(random);
        if (i % 3 == 2) value = std::round(coordinates(random) * 1000) / 1000;
        if (!std::isfinite(value)) continue;
        const std::string text = formatted(value);
        ASSERT_LE(text.size(), 256u);
        ASSERT_TRUE(std::fabs(value) >= 1e234 || text == expected_fixed(value)) << text;
        const double back = real_of(text).value();
        ASSERT_LE(std::fabs(back - value), std::fabs(value) < 1e-3 ? 1e-20 : 0) << text;
    }
}

}  // namespace
}  // namespace veltrane
