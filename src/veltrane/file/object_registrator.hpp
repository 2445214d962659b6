// The registry of record types: by DXF name for reading, by record class for writing and dumping.
#pragma once

#include "veltrane/section/object.hpp"

#include <iosfwd>
#include <string_view>
#include <vector>

namespace veltrane {

class DxfFile_FileReader;
class DxfFile_FileWriter;
class RecordTable;

/// Reads, writes and dumps records of one type. Bound under its DXF name and its record class for the
/// process; binding a key again replaces the earlier registrator. Registration happens in DxfFile::Init.
class DxfFile_ObjectRegistrator : public Typed<DxfFile_ObjectRegistrator, Transient> {
public:
    static constexpr const char* kTypeName = "DxfFile_ObjectRegistrator";

    DxfFile_ObjectRegistrator(const char* name, const Type& record_type);

    const char* Name() const { return name_; }
    const Type& RecordType() const { return record_type_; }

    virtual Ref<DxfSection_Object> Read(std::istream& stream, DxfFile_FileReader& reader) const = 0;
    virtual void Write(std::ostream& stream, DxfFile_FileWriter& writer,
                       const DxfSection_Object& record) const = 0;
    virtual void Dump(std::ostream& stream, const DxfSection_Object& record, int level) const = 0;
    /// The DXF name under which the record is written.
    virtual std::string_view NameOf(const DxfSection_Object& /*record*/) const { return Name(); }
    /// The table on which the three stand.
    virtual const RecordTable& Table() const = 0;

    /// Null when no registrator is bound.
    static const DxfFile_ObjectRegistrator* Find(std::string_view name);
    static const DxfFile_ObjectRegistrator* Find(const Type& record_type);
    /// All that are bound by name, in the order of their registration.
    static const std::vector<const DxfFile_ObjectRegistrator*>& All();

private:
    const char* name_;
    const Type& record_type_;
};

}  // namespace veltrane
