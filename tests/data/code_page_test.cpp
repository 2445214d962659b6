#include "veltrane/data/code_page.hpp"

#include <gtest/gtest.h>

namespace veltrane {
namespace {

TEST(CodePage, NamesOfDwgcodepage) {
    struct Row {
        const char* name;
        bool known;
        CodePage page;
    };
    const Row rows[] = {
        {"ANSI_932", true, CodePage::ShiftJis},
        {"ANSI_936", true, CodePage::Gbk},
        {"ANSI_950", true, CodePage::Big5},
        {"BIG5", true, CodePage::Big5},
        {"gb2312", true, CodePage::Gb2312},
        {"ascii", true, CodePage::Ascii},
        {"dos850", true, CodePage::Dos850},
        {" \tansi_1251  ", true, static_cast<CodePage>(7)},
        {"ANSI_1250", true, CodePage::Windows1250},
        {"ANSI_1258", true, CodePage::Windows1258},
        {"ISO8859_1", true, CodePage::Iso8859_1},
        {"iso8859_9", true, CodePage::Iso8859_9},
        {"ANSI_1259", false, {}},
        {"ISO8859_0", false, {}},
        {"ISO8859-1", false, {}},
        {"ISO8859_15", false, {}},
        {"ANSI_949", false, {}},
        {"ANSI_125", false, {}},
        {"", false, {}},
        {"   ", false, {}},
        {"ANSI_125\xB1", false, {}},
    };
    for (const Row& row : rows) {
        const auto untouched = static_cast<CodePage>(-1);
        CodePage page = untouched;
        EXPECT_EQ(DxfData::IndicateCodePage(row.name, page), row.known) << row.name;
        EXPECT_EQ(page, row.known ? row.page : untouched) << row.name;
    }
}

TEST(CodePage, TextToUnicode) {
    struct Row {
        CodePage page;
        std::string bytes;
        std::string utf8;
    };
    const auto windows = [](int number) { return static_cast<CodePage>(6 + number - 1250); };
    const Row rows[] = {
        {CodePage::Iso8859_1, "caf\xE9", "café"},
        {static_cast<CodePage>(15 + 4), "\xBF", "П"},  // ISO 8859-5
        {windows(1251), "\xCF\xF0\xE8", "При"},
        {windows(1252), "\x80 \x99", "€ ™"},
        {windows(1253), "\xE1", "α"},
        {windows(1258), "a\xCC-", "à-"},  // combines, and needs to look ahead
        {windows(1255), "\xE0\xD9", "א\uFFFD"},
        {CodePage::Dos850, "\x81\xF8", "ü°"},
        {CodePage::ShiftJis, "\x93\xFA\x96\x7B", "日本"},
        {CodePage::ShiftJis, "a\\P~\xB1", "a\\P~ｱ"},  // format codes survive
        {CodePage::Gbk, "\xD6\xD0\x81\x40", "中丂"},
        {CodePage::Gb2312, "\xD6\xD0", "中"},
        {CodePage::Big5, "\xA4\xA4", "中"},
        {CodePage::Ascii, "\x93\xFA", "\x93\xFA"},
        // What means nothing is shown, and what follows is kept.
        {windows(1252), "a\x81z", "a\uFFFDz"},
        {CodePage::ShiftJis, "a\x93", "a\uFFFD"},
        {CodePage::Gb2312, "\xFFz\xD6\xD0", "\uFFFDz中"},
        {CodePage::Gbk, "", ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(DxfData::TextToUnicode(row.page, row.bytes), row.utf8) << static_cast<int>(row.page);
    }
    // Longer than any buffer, cut within characters.
    std::string bytes;
    std::string utf8;
    for (int i = 0; i < 3000; ++i) {
        bytes += "\x93\xFA";
        utf8 += "日";
        if (i % 7 == 0) bytes += "\xFF", utf8 += "\uFFFD";
    }
    EXPECT_EQ(DxfData::TextToUnicode(CodePage::ShiftJis, bytes), utf8);
}

TEST(CodePage, EveryByteOfEverySetGivesSomething) {
    for (int page = 0; page <= static_cast<int>(CodePage::Iso8859_9); ++page) {
        for (int byte = 0; byte < 256; ++byte) {
            const std::string text(1, static_cast<char>(byte));
            const std::string unicode = DxfData::TextToUnicode(static_cast<CodePage>(page), text);
            EXPECT_FALSE(unicode.empty()) << page << ' ' << byte;
            if (byte < 128) {
                EXPECT_EQ(unicode, text) << page << ' ' << byte;
            }
        }
    }
}

TEST(CodePage, ReplaceUnicodeSymbol) {
    struct Row {
        std::string text;
        std::string replaced;
    };
    const Row rows[] = {
        {"", ""},
        {"plain \\P text", "plain \\P text"},
        {"20\\U+00B0C", "20°C"},
        {"\\U+4E2D", "中"},
        {"\\U+0041\\U+0042", "AB"},
        {"a\\U+D800b", "ab"},
        {"a\\U+zzzzb", "ab"},
        {"\\U+4xyz!", "\x04!"},
        {"end \\U+41", "end \\U+41"},
        {"\\U+0041 \\U+", "A \\U+"},
        {"\\u+0041", "\\u+0041"},
        {"\\U+005CU+0041", "A"},       // the backslash completes another escape
        {"\\U\\U+D800+0042", "B"},     // and so does a removal
        {"\\U+U+0041rest", "41rest"},  // the four characters are taken whatever they are
    };
    for (const Row& row : rows) {
        std::string text = row.text;
        EXPECT_TRUE(DxfData::ReplaceUnicodeSymbol(text));
        EXPECT_EQ(text, row.replaced) << row.text;
    }
    std::string large;
    for (int i = 0; i < 100'000; ++i) large += "\\U+00B0";
    EXPECT_TRUE(DxfData::ReplaceUnicodeSymbol(large));
    EXPECT_EQ(large.size(), 200'000u);
}

TEST(CodePage, TextToASCII) {
    EXPECT_EQ(DxfData::TextToASCII("AéB"), "A\\U+00e9B");
    EXPECT_EQ(DxfData::TextToASCII("中😀"), "\\U+4e2d\\U+d83d\\U+de00");
    EXPECT_EQ(DxfData::TextToASCII("a\xC0\xAF\xE4z\xF0"), "a\\U+fffd\\U+fffd\\U+fffdz\\U+fffd");
    std::string back = DxfData::TextToASCII("20 °C, 中");
    DxfData::ReplaceUnicodeSymbol(back);
    EXPECT_EQ(back, "20 °C, 中");
}

}  // namespace
}  // namespace veltrane
