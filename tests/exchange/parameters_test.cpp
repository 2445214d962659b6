#include "veltrane/exchange/parameters.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace veltrane {
namespace {

/// The table lives for the process: every test uses names of its own.
void register_version(const std::string& name) {
    ASSERT_TRUE(StaticParameters::Register(kCommonFamily, name, 'e', ""));
    for (const char* part : {"enum 11", "eval Undef", "eval R12", "eval R13", "eval R14"}) {
        ASSERT_TRUE(StaticParameters::Register(kCommonFamily, name, '&', part)) << part;
    }
    ASSERT_EQ(StaticParameters::SetText(name, "R14"), "");
}

ParameterInfo info_of(const std::string& name) {
    const auto list = StaticParameters::List();
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const auto& info) { return info.name == name; });
    return found == list.end() ? ParameterInfo{} : *found;
}

TEST(Parameters, SettingAnEnumeration) {
    register_version("test.version");
    struct Row {
        const char* given;
        bool legal;
        int integer;
        const char* text;
    };
    const Row rows[] = {{"R12", true, 12, "R12"},     {"r13", false, 12, "R12"},
                        {"14", true, 14, "R14"},      {"15", false, 14, "R14"},
                        {"10", false, 14, "R14"},     {"-2147483648", false, 14, "R14"},
                        {"", false, 14, "R14"},       {"12x", false, 14, "R14"},
                        {"Undef", true, 11, "Undef"}, {"2147483647", false, 11, "Undef"}};
    for (const Row& row : rows) {
        const std::string problem = StaticParameters::SetText("test.version", row.given);
        EXPECT_EQ(problem.empty(), row.legal) << row.given;
        if (!row.legal) {
            EXPECT_NE(problem.find("Undef (11), R12 (12), R13 (13), R14 (14)"), std::string::npos) << problem;
        }
        EXPECT_EQ(StaticParameters::IntegerValue("test.version"), row.integer) << row.given;
        EXPECT_EQ(StaticParameters::RealValue("test.version"), row.integer) << row.given;
        EXPECT_EQ(StaticParameters::TextValue("test.version"), row.text) << row.given;
    }
    EXPECT_EQ(info_of("test.version").default_value, "R14");
}

TEST(Parameters, SettingARealRefusesWhatIsNone) {
    ASSERT_TRUE(StaticParameters::Register("family", "test.factor", 'r', "0.05"));
    for (const char* bad : {"abc", "", "1e999", "nan", "inf", "1,5", "0.1 "}) {
        EXPECT_NE(StaticParameters::SetText("test.factor", bad), "") << bad;
        EXPECT_EQ(StaticParameters::RealValue("test.factor"), 0.05) << bad;
    }
    EXPECT_NE(StaticParameters::SetReal("test.factor", std::numeric_limits<double>::infinity()), "");
    EXPECT_EQ(StaticParameters::SetReal("test.factor", 0.1), "");
    EXPECT_EQ(StaticParameters::RealValue("test.factor"), 0.1);
    EXPECT_EQ(StaticParameters::SetInteger("test.factor", -3), "");
    EXPECT_EQ(StaticParameters::RealValue("test.factor"), -3);
    EXPECT_EQ(info_of("test.factor").default_value, "0.05");
}

TEST(Parameters, ASecondRegistrationKeepsTheValue) {
    ASSERT_TRUE(StaticParameters::Register("family", "test.text", 't', "DXF"));
    EXPECT_EQ(StaticParameters::SetText("test.text", "mine"), "");
    EXPECT_FALSE(StaticParameters::Register("family", "test.text", 't', "DXF"));
    EXPECT_EQ(StaticParameters::TextValue("test.text"), "mine");
}

TEST(Parameters, SenselessRegistrationsAreRefused) {
    EXPECT_FALSE(StaticParameters::Register("family", "test.bad.real", 'r', "many"));
    EXPECT_FALSE(StaticParameters::Register("family", "test.bad.type", 'x', ""));
    EXPECT_FALSE(StaticParameters::Register("family", "test.bad.missing", '&', "eval On"));
    for (const char* name : {"test.bad.real", "test.bad.type", "test.bad.missing"}) {
        EXPECT_FALSE(StaticParameters::IsKnown(name)) << name;
    }
    ASSERT_TRUE(StaticParameters::Register("family", "test.bad.enum", 'e', ""));
    for (const char* part : {"enum", "enum x", "eval", "eval ", "On"}) {
        EXPECT_FALSE(StaticParameters::Register("family", "test.bad.enum", '&', part)) << part;
    }
}

TEST(Parameters, AnUnknownNameTellsTheKnownOnes) {
    StaticParameters::Register("family", "test.known", 't', "");
    const std::string problem = StaticParameters::SetInteger("test.unknown", 1);
    EXPECT_NE(problem.find("\"test.unknown\""), std::string::npos) << problem;
    EXPECT_NE(problem.find("test.known"), std::string::npos) << problem;
    EXPECT_EQ(StaticParameters::IntegerValue("test.unknown"), 0);
    EXPECT_EQ(StaticParameters::TextValue("test.unknown"), "");
}

}  // namespace
}  // namespace veltrane
