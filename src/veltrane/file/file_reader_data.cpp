// The reader's operations on data that is spread over many groups: binary data and SAT text.
#include "veltrane/file/file_reader.hpp"
#include "veltrane/file/number_text.hpp"

#include <algorithm>
#include <istream>
#include <sstream>

namespace veltrane {

namespace {

constexpr std::size_t kLongestSatValue = 509;

int hex_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

/// As a conversion of a two-character string: it ends at the first character that is no digit.
std::uint8_t byte_of(char first, char second) {
    const int high = hex_digit(first), low = hex_digit(second);
    if (high < 0) return 0;
    return static_cast<std::uint8_t>(low < 0 ? high : high * 16 + low);
}

/// The SAT text of one value: every character but white space is mirrored at 159, and a blank after '^'
/// belongs to that character.
std::string decoded(std::string_view value) {
    std::string line;
    line.reserve(value.size() + 1);
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char c = value[i];
        line += is_space(c) ? c : static_cast<char>(159 - c);
        if (c == '^' && i + 1 < value.size() && value[i + 1] == ' ') ++i;
    }
    return line;
}

}  // namespace

Ref<Sequence<std::uint8_t>> DxfFile_FileReader::ReadBinData(std::istream& stream) {
    const auto stated = integer_of(value_);
    if (!stated) SendFail("Group value is not an integer value");
    if (!stated || *stated <= 0) return nullptr;
    const auto count = static_cast<std::size_t>(*stated);

    std::vector<std::uint8_t> bytes;  // grows with what comes: the count may be anything
    for (Next(stream); has_group_ && code_ == 310 && bytes.size() < count; Next(stream)) {
        for (std::size_t i = 0; i + 1 < value_.size() && bytes.size() < count; i += 2) {
            bytes.push_back(byte_of(value_[i], value_[i + 1]));
        }
    }
    PushBack();
    if (bytes.size() < count) return nullptr;
    return make<Sequence<std::uint8_t>>(std::move(bytes));
}

std::string DxfFile_FileReader::ReadSatText(std::istream& stream, SatLines lines) {
    std::string text;
    for (; has_group_ && (code_ == 1 || code_ == 3); Next(stream)) {
        if (value_.size() > kLongestSatValue) {
            if (lines == SatLines::UpToTheLongest) break;
            SendWarning({"ACIS data of %d characters in one group at line %d: the format allows 509",
                         static_cast<int>(value_.size()), line_number_});
        }
        if (value_.empty()) {
            if (!text.empty() && text.back() == '#') text += '\n';
            continue;
        }
        text += decoded(value_);
        if (code_ == 1) text += '\n';  // a 3 holds a piece of a line that the next group goes on with
    }
    PushBack();
    return text;
}

Ref<acis::SatModel> DxfFile_FileReader::ReadSatData(std::istream& stream) {
    std::istringstream in(ReadSatText(stream, SatLines::UpToTheLongest));
    auto model = make<acis::SatModel>();
    model->read(in);
    return model;
}

}  // namespace veltrane
