#include "veltrane/file/file_reader.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/ent/curves.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

/// Every group as "code|value|line", up to where the reader ends.
std::string groups_of(TextReader& from) {
    std::string groups;
    for (from.next(); from.reader.HasGroup(); from.next()) {
        groups += std::to_string(from.reader.Code()) + "|" + std::string(from.reader.View()) + "|" +
                  std::to_string(from.reader.LineNumber()) + " ";
    }
    return groups;
}

constexpr const char* kNoCode = "fail: Group code is not an integer value";
constexpr const char* kCutShort = "fail: Unexpected end of file or I/O failure";

TEST(FileReader, GroupsOfAText) {
    struct Row {
        const char* what;
        std::string text;
        std::string groups;
        Texts messages;
        bool no_error;
    };
    const std::string longest(2039, 'x'), too_long(2040, 'x');
    const Row rows[] = {
        {"plain",
         "  0\nSECTION\n 10\n1.5\n1000\nx\n",
         "0|SECTION|2 10|1.5|4 1000|x|6 -1|x|7 ",
         {kNoCode},
         false},
        {"no delimiter at the end", "0\nEOF", "0|EOF|2 ", {}, true},
        {"blanks stay", "0\n  a b  \n5\n\n", "0|  a b  |2 5||4 -1||5 ", {kNoCode}, false},
        {"CRLF", "  0\r\nEOF\r\n5\r\n1F\r\r", "0|EOF|2 5|1F|4 ", {}, true},
        {"byte order mark", "\xEF\xBB\xBF  0\nEOF", "0|EOF|2 ", {}, true},
        {"bad code", "ABC\n0\nLINE\n5\n1", "-1||1 0|LINE|3 5|1|5 ", {kNoCode}, false},
        {"a real is no code", "10.5\n0\nEOF", "-1||1 0|EOF|3 ", {kNoCode}, false},
        {"a code of many digits", "0000000010\n1\n-7\nx", "10|1|2 -7|x|4 ", {}, true},
        {"a code beyond 32 bits", "9999999999\n0\nEOF", "-1||1 0|EOF|3 ", {kNoCode}, false},
        {"cut after a code", "5\n1F\n10", "5|1F|2 10|1F|3 ", {kCutShort}, false},
        {"cut after a code's line end", "5\n", "5||2 ", {}, true},
        {"empty", "", "-1||1 ", {kNoCode}, false},
        {"a mark alone", "\xEF\xBB\xBF", "-1||1 ", {kNoCode}, false},
        {"longest value", "1\n" + longest + "\n0\nEOF", "1|" + longest + "|2 0|EOF|4 ", {}, true},
        {"too long a value",
         "1\n" + too_long + "\n0\nEOF",
         "1|" + longest + "|2 ",
         {"fail: Line 2 is longer than 2039 characters; reading ends there"},
         true},
        {"too long a code",
         std::string(2040, ' ') + "\nEOF\n",
         "-1||1 ",
         {"fail: Line 1 is longer than 2039 characters; reading ends there", kNoCode},
         false},
        {"NUL inside", std::string("1\na\0b\n0\nEOF", 11), std::string("1|a\0b|2 0|EOF|4 ", 16), {}, true},
    };
    for (const Row& row : rows) {
        TextReader from(row.text);
        EXPECT_EQ(groups_of(from), row.groups) << row.what;
        EXPECT_EQ(from.global(), row.messages) << row.what;
        EXPECT_EQ(from.reader.NoError(), row.no_error) << row.what;
        from.next();
        EXPECT_FALSE(from.reader.HasGroup()) << row.what;
    }
}

TEST(FileReader, LinesMayEndWithCarriageReturnsAlone) {
    TextReader from("  0\rSECTION\r  2\rHEADER\r  0\rEOF", '\r');
    EXPECT_EQ(groups_of(from), "0|SECTION|2 2|HEADER|4 0|EOF|6 ");
    EXPECT_EQ(from.reader.Delimiter(), '\r');
}

TEST(FileReader, ValuesAcrossTheEndsOfBlocks) {
    // Lines of odd lengths, so that every kind of line meets the end of some block of 256 KiB.
    std::string text;
    Texts values;
    for (std::size_t length = 0; text.size() < 3'000'000; length = (length * 7 + 13) % 2039) {
        values.emplace_back(length, static_cast<char>('a' + length % 26));
        text += "  1\n" + values.back() + "\n";
    }
    TextReader from(text);
    for (std::size_t i = 0; i < values.size(); ++i) {
        from.next();
        ASSERT_EQ(from.reader.Code(), 1);
        ASSERT_EQ(from.reader.View(), values[i]) << "value " << i;
    }
    // The code line at the end is empty; the value before it outlives the block it stood in.
    const std::string last = values.back();
    from.next();
    EXPECT_EQ(from.reader.Code(), -1);
    EXPECT_EQ(from.reader.View(), last);
}

TEST(FileReader, WithoutAModelThereAreNoGroups) {
    std::istringstream stream("0\nEOF\n");
    DxfFile_FileReader reader(nullptr);
    reader.Next(stream);
    EXPECT_FALSE(reader.HasGroup());
    EXPECT_FALSE(reader.NoError());
    reader.SendFail("reaches nowhere");
}

TEST(FileReader, Conversions) {
    constexpr const char* kInteger = "fail: Group value is not an integer value";
    constexpr const char* kReal = "fail: Group value is not a real value";
    constexpr const char* kHex = "fail: Group value is not a hex value";
    struct Row {
        const char* value;
        char conversion;
        double result;
        Texts messages;
    };
    const Row rows[] = {{"  62", 'i', 62, {}},
                        {"1.0", 'i', 0, {kInteger}},
                        {"", 'i', 0, {kInteger}},
                        {"2147483648", 'i', 0, {kInteger}},
                        {"0", 'b', 0, {}},
                        {"-3", 'b', 1, {}},
                        {"yes", 'b', 0, {kInteger}},
                        {" 2.5e1", 'r', 25, {}},
                        {"1e400", 'r', 0, {kReal}},
                        {"", 'r', 0, {kReal}},
                        {"1F", 'h', 31, {}},
                        {"1f", 'h', 31, {}},
                        {"", 'h', -1, {}},
                        {"  ", 'h', 0, {kHex}},
                        {"ZZ", 'h', 0, {kHex}},
                        {"7FFFFFFF", 'h', INT32_MAX, {}},
                        {"80000000", 'h', 0, {kHex}},
                        {"FFFFFFFFFF", 'h', 0, {kHex}}};
    for (const Row& row : rows) {
        TextReader from("5\n" + std::string(row.value) + "\n0\nEOF");
        from.next();
        auto& reader = from.reader;
        double result = 0;
        if (row.conversion == 'i') result = reader.ReadInteger(from.stream);
        if (row.conversion == 'b') result = reader.ReadBoolean(from.stream);
        if (row.conversion == 'r') result = reader.ReadReal(from.stream);
        if (row.conversion == 'h') result = reader.ReadHex(from.stream);
        EXPECT_EQ(result, row.result) << row.value;
        EXPECT_EQ(from.global(), row.messages) << row.value;
        EXPECT_TRUE(reader.NoError()) << "only the input itself clears it";
        EXPECT_EQ(reader.View(), row.value) << "a conversion does not advance";
    }
}

TEST(FileReader, Points) {
    struct Row {
        const char* groups;
        int dimension;
        kernel::Point point;
        int next_code;
        std::size_t fails;
    };
    const Row rows[] = {
        {"10 1|20 2|30 3|0 EOF", 3, {1, 2, 3}, 0, 0},
        {"10 1|20 2|0 EOF", 3, {1, 2, 0}, 0, 0},
        {"10 1|21 2|0 EOF", 3, {1, 0, 0}, 21, 0},
        {"30 3|10 1|20 2|10 9", 3, {1, 2, 3}, 10, 0},
        {"10 1|10 2|10 3|20 4", 3, {3, 0, 0}, 20, 0},
        {"10 1|20 2|30 3|30 4", 2, {1, 2, 0}, 30, 0},
        {"10 1|30 3|20 2", 2, {1, 0, 0}, 30, 0},
        {"210 0|220 0|230 1|10 5", 3, {0, 0, 1}, 10, 0},
        {"110 1|120 2|130 3|140 4", 3, {1, 2, 3}, 140, 0},
        {"1010 1|1020 2|1030 3|1040 4", 3, {1, 2, 3}, 1040, 0},
        {"10 x|20 2|30 |40 7", 3, {0, 2, 0}, 40, 2},
        {"40 4|20 2", 3, {0, 0, 0}, 40, 0},
        {"-1 4|20 2", 3, {0, 0, 0}, -1, 0},
    };
    for (const Row& row : rows) {
        TextReader from(dxf(row.groups));
        from.next();
        kernel::Point point(0, 0, 0);
        if (row.dimension == 3) point = from.reader.ReadXYZ(from.stream);
        if (row.dimension == 2) point.head<2>() = from.reader.ReadXY(from.stream);
        EXPECT_EQ(point, row.point) << row.groups;
        EXPECT_TRUE(from.reader.PushedBack());
        from.next();
        EXPECT_EQ(from.reader.Code(), row.next_code) << row.groups;
        EXPECT_EQ(from.global().size(), row.fails) << row.groups;
    }
    TextReader ends("10\n1\n20\n2");
    ends.next();
    EXPECT_EQ(ends.reader.ReadXYZ(ends.stream), kernel::Point(1, 2, 0));
    ends.next();
    EXPECT_FALSE(ends.reader.HasGroup());
}

TEST(FileReader, ReadObject) {
    struct Row {
        const char* groups;
        const char* class_name;
        const char* next_value;
    };
    const Row rows[] = {{"0 LINE|5 1F|0 EOF", "DxfEnt_Line", "EOF"},
                        {"0 line|5 1F|0 EOF", "DxfSection_UnrecognizedObject", "EOF"},
                        {"0 LINES|5 1F|0 EOF", "DxfSection_UnrecognizedObject", "EOF"},
                        {"0 |5 1F|0 EOF", "DxfSection_UnrecognizedObject", "EOF"},
                        {"0 ENDSEC|0 EOF", "DxfSection_UnrecognizedObject", "EOF"},
                        {"5 1F|0 EOF", nullptr, "1F"}};
    for (const Row& row : rows) {
        TextReader from(dxf(row.groups));
        const auto record = record_of(from);
        ASSERT_EQ(record ? record->DynamicType().name() : "", row.class_name ? row.class_name : "");
        EXPECT_EQ(from.reader.View(), row.next_value) << row.groups;
        EXPECT_EQ(from.reader.PushedBack(), record != nullptr);
        EXPECT_EQ(from.reader.CurrentObject(), nullptr);
        EXPECT_EQ(from.model->Number(record.get()), record ? 1 : 0);
        EXPECT_EQ(from.model->Line(1), record ? 2 : 0);
    }
    TextReader from(dxf("0 lINE|10 5|20 |0 EOF"));
    const auto unknown = as<DxfSection_UnrecognizedObject>(record_of(from));
    EXPECT_EQ(unknown->Type, "lINE");
    ASSERT_EQ(length(unknown->Data), 2);
    EXPECT_EQ(unknown->Data->Value(2).Value, "");
}

TEST(FileReader, MessagesReachTheRecordBeingRead) {
    TextReader from(dxf("0 LINE|999 note|10 x|ABC|62 7|0 EOF"));
    const auto line = as<DxfEnt_Line>(record_of(from));
    EXPECT_EQ(line->Color, 7);
    EXPECT_EQ(from.global(), Texts());
    EXPECT_EQ(from.of(line.get()),
              (Texts{"fail: Group value is not a real value", kNoCode, kNoCode,
                     "warning: DxfFile_RWObject: Unrecognized group (code 999) skipped at line 4",
                     "warning: DxfFile_RWObject: Unrecognized group (code -1) skipped at line 7",
                     "warning: DxfFile_RWObject: Unrecognized group (code -1) skipped at line 8"}));
}

TEST(FileReader, BinaryData) {
    using Bytes = std::vector<std::uint8_t>;
    struct Row {
        const char* groups;
        Bytes bytes;
        int next_code;
        Texts messages;
    };
    const Row rows[] = {
        {"94 3|310 0A0B0C0D|1 x", {10, 11, 12}, 1, {}},
        {"94 5|310 0A0B0C0D|1 x", {}, 1, {}},
        {"94 4|310 0a0B|310 FFfe|310 00|1 x", {10, 11, 255, 254}, 310, {}},
        {"94 3|310 0A0|310 0B0C|1 x", {10, 11, 12}, 1, {}},
        {"94 3|310 GA1G F|1 x", {0, 1, 0}, 1, {}},
        {"94 0|310 0A|1 x", {}, 94, {}},
        {"94 -5|310 0A|1 x", {}, 94, {}},
        {"94 x|310 0A|1 x", {}, 94, {"fail: Group value is not an integer value"}},
        {"94 2147483647|310 0A|1 x", {}, 1, {}},
    };
    for (const Row& row : rows) {
        TextReader from(dxf(row.groups));
        from.next();
        const auto bytes = from.reader.ReadBinData(from.stream);
        EXPECT_EQ(bytes ? bytes->items() : Bytes(), row.bytes) << row.groups;
        EXPECT_EQ(static_cast<bool>(bytes), !row.bytes.empty()) << row.groups;
        EXPECT_EQ(from.reader.Code(), row.next_code) << row.groups;
        EXPECT_EQ(from.reader.PushedBack(), row.next_code != 94) << row.groups;
        EXPECT_EQ(from.global(), row.messages) << row.groups;
    }
}

TEST(FileReader, SatText) {
    // 'n' stands for '1', 'm' for '2', '|' for '#'; the notation needs its bar, so lines are given plainly.
    struct Row {
        const char* what;
        std::string text;
        const char* sat;
        int next_code;
    };
    const std::string too_long(510, 'n');
    const Row rows[] = {
        {"a piece is joined to what follows", "1\nn\n3\nm\n1\nn n\n0\nEOF", "1\n21 1\n", 0},
        {"'^' takes the blank after it", "1\n^ ^n^\n0\nEOF", "AA1A\n", 0},
        {"white space stays", "1\n \tn \n0\nEOF", " \t1 \n", 0},
        {"an empty value is dropped", "1\nn\n1\n\n1\nn\n0\nEOF", "1\n1\n", 0},
        {"but ends a piece at a record's end", "3\nn|\n1\n\n1\nn\n0\nEOF", "1#\n1\n", 0},
        {"none", "5\n1F\n0\nEOF", "", 5},
        {"a value too long ends it", "1\nn\n1\n" + too_long + "\n0\nEOF", "1\n", 1},
        {"at the end of the input", "1\nn", "1\n", 1},
    };
    for (const Row& row : rows) {
        TextReader from(row.text);
        from.next();
        const auto sat = from.reader.ReadSatData(from.stream);
        ASSERT_TRUE(sat) << row.what;
        EXPECT_EQ(sat->text(), row.sat) << row.what;
        EXPECT_EQ(from.reader.Code(), row.next_code) << row.what;
        EXPECT_TRUE(from.reader.PushedBack()) << row.what;
    }
}

}  // namespace
}  // namespace veltrane
