// The character sets of drawings, and the escapes for characters outside them.
#pragma once

#include <string>
#include <string_view>

namespace veltrane {

/// The character sets that $DWGCODEPAGE can name.
enum class CodePage : int {
    ShiftJis = 0,
    Gbk,
    Big5,
    Gb2312,
    Ascii,
    Dos850,
    Windows1250,  ///< up to Windows1258 in order
    Windows1258 = Windows1250 + 8,
    Iso8859_1 = 15,  ///< up to Iso8859_9 in order
    Iso8859_9 = Iso8859_1 + 8,
};

/// True for the sets whose characters a western font does not hold.
bool is_east_asian(CodePage page);

namespace DxfData {

/// The character set of a $DWGCODEPAGE value, in whatever case and with blanks around it. False, and
/// `page` untouched, for a name that is not known.
bool IndicateCodePage(std::string_view name, CodePage& page);

/// Text of a drawing as UTF-8. Bytes that mean nothing in the character set become U+FFFD, one each. Text
/// in CodePage::Ascii is returned byte for byte.
std::string TextToUnicode(CodePage page, std::string_view text);

/// Replaces every escape "\U+" with four hexadecimal digits by the UTF-8 form of its character. What a
/// replacement builds together with its neighbours is replaced, too. A surrogate, and four characters that
/// do not begin with a digit, are removed; an escape cut short by the end of the text stays, with all that
/// follows it. Always true.
bool ReplaceUnicodeSymbol(std::string& text);

/// UTF-8 text with every character outside ASCII as an escape of lower-case digits; characters above
/// U+FFFF as the two escapes of their surrogates. Bytes that are no UTF-8 become the escape of U+FFFD.
std::string TextToASCII(std::string_view text);

}  // namespace DxfData
}  // namespace veltrane
