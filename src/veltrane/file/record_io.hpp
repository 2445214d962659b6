// The interpreters of record tables, and the reader/writer classes that stand on them.
#pragma once

#include "veltrane/file/file_reader.hpp"
#include "veltrane/file/file_writer.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/file/record_table.hpp"

#include <iosfwd>

namespace veltrane {

/// Takes the reader's current group into the record; false when the record has ended. A code that no row
/// takes is skipped with a warning; a group 0 that no row takes ends the record and is pushed back.
bool read_field(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                Transient& record);

/// Reads a whole record, from the group after the current one: adds it to the model, makes it the reader's
/// current record and reads its fields up to its end.
void read_record(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                 const Ref<DxfSection_Object>& record);

/// Reads a sub-record that begins at the current group. It lasts to the first group that is not its own,
/// which is pushed back; the code that began it begins the next one.
void read_sub_record(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                     Transient& record);

/// Writes the groups of the record's fields, those of its base included.
void write_fields(const RecordTable& table, std::ostream& stream, DxfFile_FileWriter& writer,
                  const Transient& record);

/// The same as the writer's current record, to which fails are attached.
void write_record(const RecordTable& table, std::ostream& stream, DxfFile_FileWriter& writer,
                  const DxfSection_Object& record);

/// One labelled line per field; lists and pieces are opened while `level` is above 0.
void dump_fields(const RecordTable& table, std::ostream& stream, const Transient& record, int level);

/// The reader/writer of one record class: four operations without state.
template <class Record>
struct DxfFile_RecordRW {
    /// Reads the record whose group 0 is current. The group 0 after it is pushed back.
    static Ref<Record> Read(std::istream& stream, DxfFile_FileReader& reader) {
        auto record = make_in<Record>(reader.Memory());
        read_record(record_table<Record>(), stream, reader, record);
        return record;
    }
    static bool ReadField(std::istream& stream, DxfFile_FileReader& reader, Record& record) {
        return read_field(record_table<Record>(), stream, reader, record);
    }
    /// Writes the record without its group 0.
    static void Write(std::ostream& stream, DxfFile_FileWriter& writer, const Record& record) {
        write_record(record_table<Record>(), stream, writer, record);
    }
    static void Dump(std::ostream& stream, const Record& record, int level) {
        dump_fields(record_table<Record>(), stream, record, level);
    }
};

/// The same for a sub-record, which is no record of the model: Read() starts at the current group.
template <class Record>
struct DxfFile_SubRecordRW {
    static Ref<Record> Read(std::istream& stream, DxfFile_FileReader& reader) {
        auto record = make_in<Record>(reader.Memory());
        read_sub_record(record_table<Record>(), stream, reader, *record);
        return record;
    }
    static bool ReadField(std::istream& stream, DxfFile_FileReader& reader, Record& record) {
        return read_field(record_table<Record>(), stream, reader, record);
    }
    static void Write(std::ostream& stream, DxfFile_FileWriter& writer, const Record& record) {
        write_fields(record_table<Record>(), stream, writer, record);
    }
    static void Dump(std::ostream& stream, const Record& record, int level) {
        dump_fields(record_table<Record>(), stream, record, level);
    }
};

/// Registers a record class under its DXF name.
template <class Record>
class DxfFile_RecordRegistrator : public Typed<DxfFile_RecordRegistrator<Record>, DxfFile_ObjectRegistrator> {
public:
    static constexpr const char* kTypeName = "DxfFile_RecordRegistrator";

    explicit DxfFile_RecordRegistrator(const char* name)
        : Typed<DxfFile_RecordRegistrator, DxfFile_ObjectRegistrator>(name, Record::type()) {}

    Ref<DxfSection_Object> Read(std::istream& stream, DxfFile_FileReader& reader) const override {
        return DxfFile_RecordRW<Record>::Read(stream, reader);
    }
    void Write(std::ostream& stream, DxfFile_FileWriter& writer,
               const DxfSection_Object& record) const override {
        DxfFile_RecordRW<Record>::Write(stream, writer, static_cast<const Record&>(record));
    }
    void Dump(std::ostream& stream, const DxfSection_Object& record, int level) const override {
        DxfFile_RecordRW<Record>::Dump(stream, static_cast<const Record&>(record), level);
    }
    const RecordTable& Table() const override { return record_table<Record>(); }
};

}  // namespace veltrane
