#include "veltrane/file/file_reader.hpp"

#include "veltrane/exchange/model.hpp"
#include "veltrane/file/number_text.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/file/structure.hpp"
#include "veltrane/section/handle_text.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <istream>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace veltrane {

namespace {

constexpr std::size_t kPadding = 32;  // bytes past a block that may be read, whatever they hold
constexpr std::size_t kLongestLine = 2039;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Groups whose values are reals or points: they seldom repeat, so their texts are not looked up.
bool holds_real(std::int32_t code) {
    return (code >= 10 && code <= 59) || (code >= 110 && code <= 149) || (code >= 210 && code <= 239) ||
           (code >= 1010 && code <= 1059);
}

/// The code line's integer. Codes are short and plain, so these need no general conversion.
bool read_code(std::string_view line, std::int32_t& result) {
    const char* at = line.data();
    const char* const end = at + line.size();
    while (at != end && *at == ' ') ++at;
    std::int32_t code = 0;
    const char* const first = at;
    while (at != end && *at >= '0' && *at <= '9' && at - first < 6) code = code * 10 + (*at++ - '0');
    if (at == first || (at != end && (*at != '\r' || at + 1 != end))) return read_integer(line, result);
    result = code;
    return true;
}

/// Offset of `delimiter` in the first `size` bytes, or `size`. Lines of drawings are short: most end within
/// the first words, where a call would cost more than the search. Bytes up to kPadding past `size` are read.
inline std::size_t find_delimiter(const char* bytes, std::size_t size, char delimiter) {
#if defined(__SSE2__)
    const __m128i pattern = _mm_set1_epi8(delimiter);
    for (std::size_t at = 0; at < kPadding; at += sizeof pattern) {
        const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + at));
        const auto equal = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, pattern)));
        if (equal) return std::min(at + static_cast<std::size_t>(std::countr_zero(equal)), size);
    }
    constexpr std::size_t kSearched = kPadding;
#else
    constexpr std::size_t kSearched = 0;
#endif
    if (size <= kSearched) return size;
    const void* found = std::memchr(bytes + kSearched, delimiter, size - kSearched);
    return found ? static_cast<std::size_t>(static_cast<const char*>(found) - bytes) : size;
}

}  // namespace

/// Counts the records that are open around the reader.
class NestingLevel {
public:
    explicit NestingLevel(DxfFile_FileReader& reader) : reader_(reader) { ++reader_.nesting_; }
    ~NestingLevel() { --reader_.nesting_; }
    NestingLevel(const NestingLevel&) = delete;
    NestingLevel& operator=(const NestingLevel&) = delete;

private:
    DxfFile_FileReader& reader_;
};

DxfFile_FileReader::DxfFile_FileReader(const Ref<ExchangeModel>& model, std::size_t block_size)
    : model_(model),
      block_size_(std::max(block_size, kLongestLine + 1)),
      buffer_(new char[block_size_ + kPadding]()) {
    at_ = end_ = buffer_.get();
}

DxfFile_FileReader::~DxfFile_FileReader() = default;

Text DxfFile_FileReader::Value() {
    return holds_real(code_) ? texts_.unique(value_) : texts_.shared(value_);
}

// Lines

/// Keeps what is left of the buffer and fills up the rest. False when nothing more came.
bool DxfFile_FileReader::refill(std::istream& stream) {
    if (source_empty_) return false;
    const bool at_start = line_number_ <= 1 && end_ == buffer_.get();
    kept_value_.assign(value_);  // the current value outlives its place in the buffer
    value_ = kept_value_;
    const auto left = static_cast<std::size_t>(end_ - at_);
    std::memmove(buffer_.get(), at_, left);
    stream.read(buffer_.get() + left, static_cast<std::streamsize>(block_size_ - left));
    const auto came = static_cast<std::size_t>(stream.gcount());
    if (!stream) source_empty_ = true;
    if (stream.bad()) {
        SendFail({"Input failed at line %d", line_number_});
        no_error_ = false;
    }
    at_ = buffer_.get();
    end_ = at_ + left + came;
    if (at_start && std::string_view(at_, came).substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        at_ += kByteOrderMark.size();
    }
    return came > 0;
}

/// The common case of next_line: the line ends within the block.
inline bool DxfFile_FileReader::take_line(std::istream& stream, std::string_view& line) {
    const auto window = std::min(static_cast<std::size_t>(end_ - at_), kLongestLine + 1);
    const std::size_t length = find_delimiter(at_, window, delimiter_);
    if (length == window) return next_line(stream, line);
    line = {at_, length};
    at_ += length + 1;
    return true;
}

/// One line without its delimiter. False when it is the input's last: the input then ended within it.
bool DxfFile_FileReader::next_line(std::istream& stream, std::string_view& line) {
    for (;;) {
        const auto available = static_cast<std::size_t>(end_ - at_);
        const auto window = std::min(available, kLongestLine + 1);
        const std::size_t length = find_delimiter(at_, window, delimiter_);
        if (length < window) {
            line = {at_, length};
            at_ += length + 1;
            return true;
        }
        if (available > kLongestLine) {
            line = {at_, kLongestLine};
            SendFail({"Line %d is longer than 2039 characters; reading ends there", line_number_});
            return false;
        }
        if (refill(stream)) continue;
        line = {at_, available};
        at_ = end_;
        return false;
    }
}

void DxfFile_FileReader::Next(std::istream& stream) {
    if (pushed_back_) {
        pushed_back_ = false;
        return;
    }
    if (!model_) {
        no_error_ = has_group_ = false;
        return;
    }
    if (!stream_good_) {
        has_group_ = false;
        return;
    }
    std::string_view line;  // each line is done with before the next moves the buffer
    if (line_number_++ == 0 && !stream.good()) {
        stream_good_ = has_group_ = false;
        return;
    }
    stream_good_ = take_line(stream, line);
    std::int32_t code = 0;
    if (!read_code(line, code)) {
        code_ = -1;
        SendFail("Group code is not an integer value");
        no_error_ = false;
        return;
    }
    code_ = code;
    if (!stream_good_) {
        SendFail("Unexpected end of file or I/O failure");
        no_error_ = false;
        return;
    }
    ++line_number_;
    stream_good_ = take_line(stream, line);
    // Taken apart, for the line has just been put together and copying it whole would wait for that.
    const char* const text = line.data();
    std::size_t length = line.size();
    while (length > 0 && (text[length - 1] == '\r' || text[length - 1] == '\n')) --length;
    value_ = {text, length};
    has_group_ = true;
    if (copies_) copy_group();
}

void DxfFile_FileReader::CopyGroups(DxfSection_HSequenceOfDxfGroup* groups, std::int32_t lowest_code) {
    copies_ = groups;
    lowest_copied_ = lowest_code;
}

void DxfFile_FileReader::copy_group() {
    if (code_ < lowest_copied_ || code_ == 1001) {
        copies_ = nullptr;
    } else {
        copies_->Append({code_, Value()});
    }
}

// Values

std::int32_t DxfFile_FileReader::ReadInteger(std::istream& /*stream*/) {
    std::int32_t value = 0;
    if (read_integer(value_, value)) return value;
    SendFail("Group value is not an integer value");
    return 0;
}

bool DxfFile_FileReader::ReadBoolean(std::istream& stream) {
    return ReadInteger(stream) != 0;
}

double DxfFile_FileReader::ReadReal(std::istream& /*stream*/) {
    double value = 0;
    if (read_real(value_, value)) return value;
    SendFail("Group value is not a real value");
    return 0;
}

std::int32_t DxfFile_FileReader::ReadHex(std::istream& /*stream*/) {
    if (value_.empty()) return kUndefinedInteger;
    const std::int32_t handle = DxfSection::StringToHex(value_);
    if (handle >= 0) return handle;
    SendFail("Group value is not a hex value");
    return 0;
}

template <int Dimension, class Coordinates>
Coordinates DxfFile_FileReader::read_point(std::istream& stream) {
    Coordinates point = Coordinates::Zero();
    const std::int32_t family = code_ - code_ / 10 % 10 * 10;  // the code without its tens digit
    for (int taken = 0; taken < Dimension && has_group_; ++taken) {
        const std::int32_t axis = code_ / 10 % 10;
        if (code_ - axis * 10 != family || axis < 1 || axis > Dimension) break;
        point[axis - 1] = ReadReal(stream);
        Next(stream);
    }
    PushBack();
    return point;
}

kernel::Point2 DxfFile_FileReader::ReadXY(std::istream& stream) {
    return read_point<2, kernel::Point2>(stream);
}

kernel::Point DxfFile_FileReader::ReadXYZ(std::istream& stream) {
    return read_point<3, kernel::Point>(stream);
}

// Records

const DxfFile_ObjectRegistrator* DxfFile_FileReader::registrator_of(std::string_view name) {
    const std::size_t place = name.empty() ? 0 : (name.size() + static_cast<unsigned char>(name.back()));
    FoundRegistrator& found = found_[place % found_.size()];
    if (found.name != name) found = {Text(name), DxfFile_ObjectRegistrator::Find(name)};
    return found.registrator;
}

Ref<DxfSection_Object> DxfFile_FileReader::ReadObject(std::istream& stream) {
    if (!has_group_ || code_ != 0) return nullptr;
    const DxfFile_ObjectRegistrator* registrator = registrator_of(value_);
    if (registrator && nesting_ >= kDeepestNesting) {
        SendFail(
            {"Records are nested too deep at line %d: this one is kept without its structure", line_number_});
        registrator = nullptr;
    }
    const NestingLevel level(*this);
    if (registrator) return registrator->Read(stream, *this);
    const Text type = Value();
    const auto unknown = DxfFile_RWUnrecognizedObject::Read(stream, *this);
    unknown->Type = type;
    return unknown;
}

// Reports

Check* DxfFile_FileReader::current_check() {
    if (!model_) return nullptr;
    const int number = model_->Number(current_);
    return number ? &model_->ChangeCheck(number) : &model_->GlobalCheck();
}

void DxfFile_FileReader::SendFail(const Message& message) {
    if (Check* check = current_check()) check->AddFail(message);
}

void DxfFile_FileReader::SendWarning(const Message& message) {
    if (Check* check = current_check()) check->AddWarning(message);
}

void DxfFile_FileReader::SendUnrecognized() {
    if (copies_) return;  // it is kept there
    SendWarning({"DxfFile_RWObject: Unrecognized group (code %d) skipped at line %d", code_, line_number_});
}

}  // namespace veltrane
