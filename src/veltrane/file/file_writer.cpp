#include "veltrane/file/file_writer.hpp"

#include "veltrane/base/undefined.hpp"
#include "veltrane/file/number_text.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/file/structure.hpp"
#include "veltrane/section/handle_text.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <ostream>
#include <string>

namespace veltrane {

namespace {

constexpr std::size_t kBufferSize = 256 * 1024;
constexpr std::size_t kLongestCode = 16;  // with its line end
constexpr std::size_t kSatPiece = 255;
constexpr std::size_t kLongestSatValue = 509;  // what readers take as one value

constexpr std::string_view kRecordsOfR12[] = {
    "3DFACE", "APPID", "ARC",  "ATTDEF", "ATTRIB", "BLOCK",    "CIRCLE",  "DIMENSION", "DIMSTYLE", "ENDBLK",
    "INSERT", "LAYER", "LINE", "LTYPE",  "POINT",  "POLYLINE", "SECTION", "SEQEND",    "SHAPE",    "SOLID",
    "STYLE",  "TABLE", "TEXT", "TRACE",  "UCS",    "VERTEX",   "VIEW",    "VIEWPORT",  "VPORT"};

/// Right-aligned in `width` columns, as by "%*d".
char* aligned(char* out, int value, int width) {
    char digits[16];
    const char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    const auto length = end - digits;
    for (auto pad = length; pad < width; ++pad) *out++ = ' ';
    std::memcpy(out, digits, static_cast<std::size_t>(length));
    return out + length;
}

/// Moves the next piece of a SAT line out of `line` as an encoded value: every character but white space
/// mirrored at 159, and '^', which stands for 'A', with a blank after it, which readers take with it.
std::string next_sat_value(std::string_view& line) {
    std::string value;
    std::size_t taken = 0;
    for (; taken < std::min(line.size(), kSatPiece) && value.size() + 2 <= kLongestSatValue; ++taken) {
        const char c = line[taken];
        value += is_space(c) ? c : static_cast<char>(159 - c);
        if (c == 'A') value += ' ';
    }
    line.remove_prefix(taken);
    return value;
}

}  // namespace

DxfFile_FileWriter::DxfFile_FileWriter(const Ref<DxfSection_Model>& model)
    : model_(model), status_(static_cast<bool>(model)), buffer_(new char[kBufferSize]), at_(buffer_.get()) {
    const auto version = model ? model->FindVariable("$ACADVER", false) : nullptr;
    if (!version || !version->Value) return;
    for (const DxfSection_DxfGroup& group : *version->Value) {
        if (group.Code != 1 || group.Value.view().size() < 3) continue;
        version_ = integer_of(group.Value.view().substr(2)).value_or(version_);
        states_version_ = true;
    }
}

DxfFile_FileWriter::~DxfFile_FileWriter() = default;

/// Writes the code line and makes room for a value of that length and its line end.
char* DxfFile_FileWriter::begin_group(std::ostream& stream, int code, std::size_t value_length) {
    const std::size_t needed = kLongestCode + value_length + 1;
    if (needed > kBufferSize - static_cast<std::size_t>(at_ - buffer_.get())) Flush(stream);
    char* out = aligned(at_, code, 3);
    *out++ = '\n';
    return out;
}

void DxfFile_FileWriter::end_value(char* end) {
    *end++ = '\n';
    at_ = end;
}

void DxfFile_FileWriter::Flush(std::ostream& stream) {
    stream.write(buffer_.get(), at_ - buffer_.get());
    at_ = buffer_.get();
    if (!stream.good()) status_ = false;
}

void DxfFile_FileWriter::WriteString(std::ostream& stream, int code, std::string_view text) {
    if (code == 100 && !marks_record_) return;
    if (text.size() > kBufferSize / 2) {  // longer than the buffer is meant for
        at_ = begin_group(stream, code, 0);
        Flush(stream);
        stream.write(text.data(), static_cast<std::streamsize>(text.size()));
        end_value(at_);
        return;
    }
    char* out = begin_group(stream, code, text.size());
    end_value(std::copy(text.begin(), text.end(), out));  // the text may be null
}

void DxfFile_FileWriter::WriteText(std::ostream& stream, int code, const Text& text) {
    if (text.is_null()) SendFail("Handle on string is null during writing string group");
    WriteString(stream, code, text.view());
    if (!stream.good()) status_ = false;
}

void DxfFile_FileWriter::WriteInteger(std::ostream& stream, int code, std::int32_t value) {
    if (is_undefined(value)) return WriteString(stream, code, "");
    WriteNumber(stream, code, value);
}

void DxfFile_FileWriter::WriteNumber(std::ostream& stream, int code, std::int32_t value) {
    end_value(aligned(begin_group(stream, code, kLongestCode), value, 4));
}

void DxfFile_FileWriter::WriteBoolean(std::ostream& stream, int code, bool value) {
    WriteNumber(stream, code, value ? 1 : 0);
}

void DxfFile_FileWriter::WriteReal(std::ostream& stream, int code, double value) {
    if (!std::isfinite(value)) {
        SendFail("A number that is not finite is written as 0");
        value = 0;
    }
    char* out = begin_group(stream, code, kLongestReal);
    end_value(is_undefined(value) ? out : format_real(value, out));
}

void DxfFile_FileWriter::WriteHex(std::ostream& stream, int code, std::int32_t handle) {
    WriteString(stream, code, is_undefined(handle) ? Text("") : DxfSection::HexToString(handle));
}

void DxfFile_FileWriter::WriteXY(std::ostream& stream, int code, const kernel::Point2& point) {
    WriteReal(stream, code, point[0]);
    WriteReal(stream, code + 10, point[1]);
}

void DxfFile_FileWriter::WriteXYZ(std::ostream& stream, int code, const kernel::Point& point) {
    WriteReal(stream, code, point[0]);
    WriteReal(stream, code + 10, point[1]);
    WriteReal(stream, code + 20, point[2]);
}

void DxfFile_FileWriter::WriteGroups(std::ostream& stream,
                                     const Ref<DxfSection_HSequenceOfDxfGroup>& groups) {
    if (!groups) return;
    for (const DxfSection_DxfGroup& group : *groups) WriteText(stream, group.Code, group.Value);
}

void DxfFile_FileWriter::WriteSatData(std::ostream& stream, const Text& text) {
    std::string_view rest = text.view();
    // A line that begins with '$' is the text's own end mark.
    while (!rest.empty() && rest.front() != '$') {
        std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        do {
            const std::string value = next_sat_value(line);
            WriteString(stream, line.empty() ? 1 : 3, value);
        } while (!line.empty());
    }
}

/// Programs that know a record of a later version want its markers, whatever the drawing states.
bool DxfFile_FileWriter::wants_markers(std::string_view record_name) const {
    constexpr int kFirstWithMarkers = 1012;
    if (writes_markers_ || (states_version_ && version_ >= kFirstWithMarkers)) return true;
    return std::find(std::begin(kRecordsOfR12), std::end(kRecordsOfR12), record_name) ==
           std::end(kRecordsOfR12);
}

void DxfFile_FileWriter::WriteObject(std::ostream& stream, const DxfSection_Object& record) {
    const bool enclosing = marks_record_;
    if (const auto* unknown = as<const DxfSection_UnrecognizedObject>(&record)) {
        marks_record_ = true;
        WriteText(stream, 0, unknown->Type);
        DxfFile_RWUnrecognizedObject::Write(stream, *this, *unknown);
    } else if (const auto* registrator = DxfFile_ObjectRegistrator::Find(record.DynamicType())) {
        const std::string_view name = registrator->NameOf(record);
        marks_record_ = wants_markers(name);
        WriteString(stream, 0, name);
        registrator->Write(stream, *this, record);
    }
    marks_record_ = enclosing;
    if (!stream.good()) status_ = false;
}

Check* DxfFile_FileWriter::current_check() {
    if (!model_) return nullptr;
    Check* reported = model_->CheckOf(model_->Number(current_));
    return reported ? reported : &model_->GlobalCheck();
}

void DxfFile_FileWriter::SendFail(const Message& message) {
    if (Check* check = current_check()) check->AddFail(message);
}

void DxfFile_FileWriter::SendWarning(const Message& message) {
    if (Check* check = current_check()) check->AddWarning(message);
}

}  // namespace veltrane
