// The group reader: lines of an ASCII DXF stream as groups, one at a time.
#pragma once

#include "veltrane/acis/sat_model.hpp"
#include "veltrane/base/sequence.hpp"
#include "veltrane/base/text.hpp"
#include "veltrane/exchange/message.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

#include <array>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane {

class DxfFile_ObjectRegistrator;
class Check;
class ExchangeModel;

/// Reads one file. The same stream is given to every operation; the reader takes it in blocks and so stands
/// further in it than the group it shows.
///
/// Next() makes a group current. The conversions look at the current group and do not advance; the consuming
/// operations (ReadXY, ReadXYZ, ReadBinData, ReadSatData) take the groups of one value, load the group after
/// them and push it back, so that the caller's following Next() delivers it.
class DxfFile_FileReader : public Typed<DxfFile_FileReader, Transient> {
public:
    static constexpr const char* kTypeName = "DxfFile_FileReader";

    static constexpr std::size_t kBlockSize = 256 * 1024;

    /// Records, fails and warnings go to `model`. The stream is read in blocks of `block_size` bytes, at
    /// least those of a line.
    explicit DxfFile_FileReader(const Ref<ExchangeModel>& model, std::size_t block_size = kBlockSize);
    ~DxfFile_FileReader() override;

    const Ref<ExchangeModel>& Model() const { return model_; }
    /// The record being read, to which fails and warnings are attached; null between records.
    DxfSection_Object* CurrentObject() const { return current_; }
    void SetCurrentObject(DxfSection_Object* record) { current_ = record; }

    /// True while Next() delivers groups.
    bool HasGroup() const { return has_group_; }
    /// Code of the current group; -1 after a code line that is no integer.
    std::int32_t Code() const { return code_; }
    /// Value line of the current group, without CR and LF at its end. Valid until the next Next().
    std::string_view View() const { return value_; }
    /// The value as a text that may be kept.
    Text Value();
    /// Lines consumed so far: the 1-based number of the current group's value line.
    std::int32_t LineNumber() const { return line_number_; }
    /// False once the input itself was faulty.
    bool NoError() const { return no_error_; }

    bool PushedBack() const { return pushed_back_; }
    /// Makes the next Next() keep the current group.
    void PushBack() { pushed_back_ = true; }

    char Delimiter() const { return delimiter_; }
    void SetDelimiter(char delimiter) { delimiter_ = delimiter; }

    void Next(std::istream& stream);

    /// 0 and a fail when the value is no integer of 32 bits.
    std::int32_t ReadInteger(std::istream& stream);
    bool ReadBoolean(std::istream& stream);
    /// 0.0 and a fail when the value does not begin with a number, or with one too large for a double.
    double ReadReal(std::istream& stream);
    /// A handle: -1 for an empty value; 0 and a fail for what is no handle.
    std::int32_t ReadHex(std::istream& stream);
    kernel::Point2 ReadXY(std::istream& stream);
    kernel::Point ReadXYZ(std::istream& stream);
    /// The current group holds a byte count; takes the groups 310 that follow. Null unless all bytes came.
    Ref<Sequence<std::uint8_t>> ReadBinData(std::istream& stream);
    enum class SatLines { UpToTheLongest, OfAnyLength };
    /// Takes the groups 1 and 3 of encoded SAT text and decodes it. A value of more than 509 characters,
    /// which the format does not allow, ends it, or is taken with a warning.
    std::string ReadSatText(std::istream& stream, SatLines lines);
    /// The same as a model, up to the first such value. Never null.
    Ref<acis::SatModel> ReadSatData(std::istream& stream);
    /// Reads the whole record that begins at the current group 0; null when there is none.
    Ref<DxfSection_Object> ReadObject(std::istream& stream);

    /// From the next group on, groups are also appended to `groups`, as long as their codes are `lowest_code`
    /// or above: up to the next record, and to the next 1001. Ends an earlier copying; null only does that.
    void CopyGroups(DxfSection_HSequenceOfDxfGroup* groups, std::int32_t lowest_code = 1);

    /// True to give a record that lacks a group the value that its absence stands for in drawings; false, as
    /// at first, to leave it the value of a new record.
    bool FillsAbsent() const { return fills_absent_; }
    void FillAbsent(bool fill) { fills_absent_ = fill; }

    /// Where what is read is to stand.
    ChunkPool& Memory() { return memory_; }

    /// Where a record that keeps groups gathers them; each takes its own away when it ends.
    std::vector<DxfSection_DxfGroup>& GroupBuffer() { return groups_; }

    void SendFail(const Message& message);
    void SendWarning(const Message& message);

    /// The warning of a group that no reader takes, with its code and line.
    void SendUnrecognized();

    /// A container that opens inside this many others is kept as a plain record. Sections, tables, blocks
    /// and polylines nest four deep in any drawing that a program wrote.
    static constexpr int kDeepestNesting = 64;

private:
    friend class NestingLevel;

    void copy_group();
    bool take_line(std::istream& stream, std::string_view& line);
    bool next_line(std::istream& stream, std::string_view& line);
    bool refill(std::istream& stream);
    template <int Dimension, class Coordinates>
    Coordinates read_point(std::istream& stream);
    Check* current_check();
    const DxfFile_ObjectRegistrator* registrator_of(std::string_view name);

    Ref<ExchangeModel> model_;
    DxfSection_Object* current_ = nullptr;
    std::int32_t code_ = -1;
    std::int32_t line_number_ = 0;
    std::string_view value_;
    std::string kept_value_;  // holds value_ once its block is gone
    bool has_group_ = true;
    bool no_error_ = true;
    bool pushed_back_ = false;
    bool stream_good_ = true;    // as seen line by line: false once the end was met inside a line
    bool source_empty_ = false;  // the stream has nothing more to give
    char delimiter_ = '\n';
    bool fills_absent_ = false;
    int nesting_ = 0;
    std::int32_t lowest_copied_ = 1;
    DxfSection_HSequenceOfDxfGroup* copies_ = nullptr;

    std::size_t block_size_;
    std::unique_ptr<char[]> buffer_;
    const char* at_ = nullptr;
    const char* end_ = nullptr;
    ChunkPool memory_;
    TextPool texts_{memory_};
    std::vector<DxfSection_DxfGroup> groups_;

    // The registrators found last: a drawing has few types of records, and they come again and again.
    struct FoundRegistrator {
        Text name;
        const DxfFile_ObjectRegistrator* registrator = nullptr;
    };
    std::array<FoundRegistrator, 16> found_;
};

}  // namespace veltrane
