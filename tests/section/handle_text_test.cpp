#include "veltrane/section/handle_text.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

TEST(HandleText, FromText) {
    struct Row {
        const char* text;
        std::int32_t handle;
    };
    const Row rows[] = {{"1F", 0x1F},
                        {"1f", 0x1F},
                        {" \t1F", 0x1F},
                        {"0x1F", 0x1F},
                        {"0X1f", 0x1F},
                        {"0", 0},
                        {"0x", 0},
                        {"00002F", 0x2F},
                        {"1F.5", 0x1F},
                        {"12G", 0x12},
                        {"7FFFFFFF", INT32_MAX},
                        {"80000000", INT32_MIN},
                        {"FFFFFFFF", -1},
                        {"100000000", -1},
                        {"", -1},
                        {"   ", -1},
                        {"ZZ", -1},
                        {"-5", -1}};
    for (const Row& row : rows) EXPECT_EQ(DxfSection::StringToHex(row.text), row.handle) << row.text;
}

TEST(HandleText, ToText) {
    EXPECT_EQ(DxfSection::HexToString(0), "0");
    EXPECT_EQ(DxfSection::HexToString(255), "FF");
    EXPECT_EQ(DxfSection::HexToString(INT32_MAX), "7FFFFFFF");
    EXPECT_EQ(DxfSection::HexToString(-1), "FFFFFFFF");
    for (std::int32_t handle = 1; handle < 0x2000'0000; handle = handle * 3 + 1) {
        EXPECT_EQ(DxfSection::StringToHex(DxfSection::HexToString(handle)), handle);
    }
}

}  // namespace
}  // namespace veltrane
