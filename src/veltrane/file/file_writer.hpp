// The group writer: groups as lines of DXF text.
#pragma once

#include "veltrane/base/ref.hpp"
#include "veltrane/base/text.hpp"
#include "veltrane/exchange/message.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/model.hpp"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string_view>

namespace veltrane {

/// Writes one file. The same stream is given to every operation; text is gathered and handed to it in blocks,
/// the last of them by Flush().
class DxfFile_FileWriter : public Typed<DxfFile_FileWriter, Transient> {
public:
    static constexpr const char* kTypeName = "DxfFile_FileWriter";

    /// The version number is taken from the model's $ACADVER.
    explicit DxfFile_FileWriter(const Ref<DxfSection_Model>& model);
    ~DxfFile_FileWriter() override;

    const Ref<DxfSection_Model>& Model() const { return model_; }
    const DxfSection_Object* CurrentObject() const { return current_; }
    void SetCurrentObject(const DxfSection_Object* record) { current_ = record; }
    /// True while there is a model and the output is good.
    bool Status() const { return status_; }
    /// 1009 for R12, 1012 R13, 1014 R14, 1015 R2000, 1018 R2004, 1021 R2007, 1024 R2010.
    int Version() const { return version_; }
    /// True for a whole file, which other programs are to read: undefined values are left out and extended
    /// data goes back as it came. False, as at first, for the groups that make up a record and no more;
    /// undefined values are then written as empty ones.
    bool IsPortable() const { return is_portable_; }
    void SetPortable(bool portable) { is_portable_ = portable; }
    /// False to leave out subclass markers, the groups 100, where readers do not know them: in records that
    /// R12 has, in drawings that state a version before R13 or none.
    void WriteMarkers(bool write) { writes_markers_ = write; }

    void WriteString(std::ostream& stream, int code, std::string_view text);
    /// A null text is written as an empty value, with a fail.
    void WriteText(std::ostream& stream, int code, const Text& text);
    /// -1, the undefined integer, is written as an empty value.
    void WriteInteger(std::ostream& stream, int code, std::int32_t value);
    /// The same for a number of which -1 is a value like others.
    void WriteNumber(std::ostream& stream, int code, std::int32_t value);
    void WriteBoolean(std::ostream& stream, int code, bool value);
    /// Fixed point with up to twenty decimals. -1e100, the undefined real, is written as an empty value.
    void WriteReal(std::ostream& stream, int code, double value);
    void WriteHex(std::ostream& stream, int code, std::int32_t handle);
    void WriteXY(std::ostream& stream, int code, const kernel::Point2& point);
    void WriteXYZ(std::ostream& stream, int code, const kernel::Point& point);
    /// Groups with their codes and texts as they are; a null list has none.
    void WriteGroups(std::ostream& stream, const Ref<DxfSection_HSequenceOfDxfGroup>& groups);
    /// SAT text as groups 1 and, for long lines, 3.
    void WriteSatData(std::ostream& stream, const Text& text);
    /// One record, its group 0 first. A record whose class is not registered is left out.
    void WriteObject(std::ostream& stream, const DxfSection_Object& record);
    /// Hands over what is gathered.
    void Flush(std::ostream& stream);

    void SendFail(const Message& message);
    void SendWarning(const Message& message);

private:
    char* begin_group(std::ostream& stream, int code, std::size_t value_length);
    void end_value(char* end);
    bool wants_markers(std::string_view record_name) const;
    Check* current_check();

    Ref<DxfSection_Model> model_;
    const DxfSection_Object* current_ = nullptr;
    bool status_;
    int version_ = 1015;
    bool states_version_ = false;
    bool is_portable_ = false;
    bool writes_markers_ = true;
    bool marks_record_ = true;  // the record at hand has its markers
    std::unique_ptr<char[]> buffer_;
    char* at_;
};

}  // namespace veltrane
