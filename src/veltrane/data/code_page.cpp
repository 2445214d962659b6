#include "veltrane/data/code_page.hpp"

#include "veltrane/base/letter_case.hpp"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <memory>

namespace veltrane {
namespace {

struct Name {
    std::string_view name;
    CodePage page;
};
constexpr Name kNames[] = {{"ANSI_932", CodePage::ShiftJis}, {"ANSI_936", CodePage::Gbk},
                           {"ANSI_950", CodePage::Big5},     {"BIG5", CodePage::Big5},
                           {"GB2312", CodePage::Gb2312},     {"ASCII", CodePage::Ascii},
                           {"DOS850", CodePage::Dos850}};

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr std::string_view kEscape = "\\U+";
constexpr std::size_t kEscapeDigits = 4;

CodePage numbered(CodePage first, char digit, char first_digit) {
    return static_cast<CodePage>(static_cast<int>(first) + (digit - first_digit));
}

std::string_view without_blanks(std::string_view text) {
    const auto is_blank = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// What iconv calls the character set. The sets of Windows stand for the East Asian ones: they hold all of
/// their characters and leave ASCII alone, while Shift-JIS proper turns a backslash into a yen sign, and
/// with it every format code of a text into nonsense.
std::string iconv_name(CodePage page) {
    switch (page) {
        case CodePage::ShiftJis:
            return "CP932";
        case CodePage::Gbk:
            return "CP936";
        case CodePage::Big5:
            return "CP950";
        case CodePage::Gb2312:
            return "EUC-CN";
        case CodePage::Ascii:
            return {};
        case CodePage::Dos850:
            return "CP850";
        default:
            break;
    }
    const int number = static_cast<int>(page);
    const int iso = number - static_cast<int>(CodePage::Iso8859_1);
    if (iso >= 0) return "ISO-8859-" + std::to_string(iso + 1);
    return "CP" + std::to_string(1250 + number - static_cast<int>(CodePage::Windows1250));
}

/// An open conversion to UTF-8.
class Converter {
public:
    explicit Converter(CodePage page) : handle_(::iconv_open("UTF-8", iconv_name(page).c_str())) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (is_open()) ::iconv_close(handle_);
    }

    bool is_open() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

    std::string convert(std::string_view text) {
        std::string result;
        flush(result);
        result.clear();                             // left over from a text that threw
        char* in = const_cast<char*>(text.data());  // iconv does not write to it
        std::size_t left = text.size();
        while (left > 0) {
            char piece[512];
            char* out = piece;
            std::size_t room = sizeof piece;
            const bool done = ::iconv(handle_, &in, &left, &out, &room) != static_cast<std::size_t>(-1);
            result.append(piece, out);
            if (done || out != piece) continue;  // out of room, or stopped before a byte to be looked at next
            flush(result);
            result += kReplacement;
            ++in;
            --left;
        }
        flush(result);
        return result;
    }

private:
    /// Some sets combine characters: the converter keeps one back until it knows what follows.
    void flush(std::string& result) {
        char piece[32];
        char* out = piece;
        std::size_t room = sizeof piece;
        ::iconv(handle_, nullptr, nullptr, &out, &room);
        result.append(piece, out);
    }

    iconv_t handle_;
};

/// The thread's conversion of a character set, opened once; null when the system does not know the set.
Converter* converter(CodePage page) {
    constexpr std::size_t kCount = static_cast<std::size_t>(CodePage::Iso8859_9) + 1;
    thread_local std::array<std::unique_ptr<Converter>, kCount> converters;
    const auto index = static_cast<std::size_t>(page);
    if (index >= kCount) return nullptr;
    if (!converters[index]) converters[index] = std::make_unique<Converter>(page);
    return converters[index]->is_open() ? converters[index].get() : nullptr;
}

void append_utf8(std::string& text, std::uint32_t character) {
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        tail(0);
    } else {
        text += static_cast<char>(0xE0 | character >> 12);
        tail(6);
        tail(0);
    }
}

bool ends_with_escape(const std::string& text) {
    return text.size() >= kEscape.size() &&
           text.compare(text.size() - kEscape.size(), kEscape.size(), kEscape) == 0;
}

/// Takes one character off UTF-8 text; U+FFFD and one byte for what is none.
std::uint32_t take_utf8(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    std::uint32_t character = length == 1 ? lead : lead & (0xFFu >> (length + 1));
    bool good = length == 1 || (lead >= 0xC0 && lead < 0xF8 && length <= text.size());
    for (std::size_t i = 1; good && i < length; ++i) {
        good = (byte(i) & 0xC0) == 0x80;
        character = character << 6 | (byte(i) & 0x3F);
    }
    good = good && character >= kSmallest[length] && character <= 0x10FFFF &&
           !(character >= 0xD800 && character <= 0xDFFF);
    text.remove_prefix(good ? length : 1);
    return good ? character : 0xFFFD;
}

void append_escape(std::string& text, std::uint32_t unit) {
    char escape[16];
    std::snprintf(escape, sizeof escape, "\\U+%04x", unit);
    text += escape;
}

}  // namespace

bool is_east_asian(CodePage page) {
    return page == CodePage::ShiftJis || page == CodePage::Gbk || page == CodePage::Big5 ||
           page == CodePage::Gb2312;
}

namespace DxfData {

bool IndicateCodePage(std::string_view name, CodePage& page) {
    const std::string plain = upper_case(without_blanks(name));
    for (const Name& known : kNames) {
        if (known.name != plain) continue;
        page = known.page;
        return true;
    }
    if (plain.empty()) return false;
    const char digit = plain.back();
    const std::string_view family(plain.data(), plain.size() - 1);
    if (family == "ANSI_125" && digit >= '0' && digit <= '8') {
        page = numbered(CodePage::Windows1250, digit, '0');
        return true;
    }
    if (family == "ISO8859_" && digit >= '1' && digit <= '9') {
        page = numbered(CodePage::Iso8859_1, digit, '1');
        return true;
    }
    return false;
}

std::string TextToUnicode(CodePage page, std::string_view text) {
    if (page == CodePage::Ascii || is_ascii(text)) return std::string(text);
    if (Converter* conversion = converter(page)) return conversion->convert(text);
    std::string result;  // the system lacks this set
    for (char c : text) {
        if (static_cast<unsigned char>(c) < 0x80) {
            result += c;
        } else {
            result += kReplacement;
        }
    }
    return result;
}

/// One pass: text before the place of a replacement holds no escape, so that only its last characters can
/// take part in a new one.
bool ReplaceUnicodeSymbol(std::string& text) {
    std::size_t from = text.find(kEscape);
    if (from == std::string::npos) return true;
    std::string result = text.substr(0, from);
    while (from < text.size()) {
        result += text[from++];
        while (ends_with_escape(result)) {
            if (text.size() - from < kEscapeDigits) {
                text = result + text.substr(from);
                return true;
            }
            result.resize(result.size() - kEscape.size());
            std::uint32_t character = 0;
            const char* digits = text.data() + from;
            const auto [end, error] = std::from_chars(digits, digits + kEscapeDigits, character, 16);
            from += kEscapeDigits;
            if (error == std::errc() && (character < 0xD800 || character > 0xDFFF)) {
                append_utf8(result, character);
            }
        }
    }
    text = std::move(result);
    return true;
}

std::string TextToASCII(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::uint32_t character = take_utf8(text);
        if (character < 0x80) {
            result += static_cast<char>(character);
        } else if (character < 0x10000) {
            append_escape(result, character);
        } else {
            append_escape(result, 0xD800 + ((character - 0x10000) >> 10));
            append_escape(result, 0xDC00 + ((character - 0x10000) & 0x3FF));
        }
    }
    return result;
}

}  // namespace DxfData
}  // namespace veltrane
