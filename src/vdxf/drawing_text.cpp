#include "vdxf/drawing_text.hpp"

#include <algorithm>
#include <charconv>
#include <utility>

namespace veltrane::tool {

namespace {

constexpr int kFirstUtf8Version = 1021;

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The number in $ACADVER; a drawing that states none is taken for a recent one.
int version_of(const DxfSection_Model& model) {
    const Text text = model.GetVariableString("$ACADVER");
    int version = kFirstUtf8Version;
    const std::string_view digits = text.view().substr(std::min<std::size_t>(2, text.view().size()));
    std::from_chars(digits.data(), digits.data() + digits.size(), version);
    return version;
}

}  // namespace

std::string without_controls(std::string text, std::string_view kept) {
    std::replace_if(
        text.begin(), text.end(),
        [&](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return (byte < 0x20 || byte == 0x7F) && kept.find(c) == std::string_view::npos;
        },
        '?');
    return text;
}

DrawingText::DrawingText(const DxfSection_Model& model) : is_utf8_(version_of(model) >= kFirstUtf8Version) {
    DxfData::IndicateCodePage(model.GetVariableString("$DWGCODEPAGE"), page_);
}

std::string DrawingText::name(std::string_view text) const {
    std::string result = decoded(text);
    DxfData::ReplaceUnicodeSymbol(result);
    return without_controls(std::move(result));
}

std::string DrawingText::lines(std::string_view text) const {
    return without_controls(decoded(text), "\n\t");
}

std::string DrawingText::decoded(std::string_view text) const {
    if (is_utf8_ || is_ascii(text)) return std::string(text);
    return DxfData::TextToUnicode(page_, text);
}

}  // namespace veltrane::tool
