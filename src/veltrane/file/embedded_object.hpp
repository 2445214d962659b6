// Objects that texts of later versions have embedded in them: columns of an MTEXT, the MTEXT of an attribute.
#pragma once

#include "veltrane/file/file_reader.hpp"
#include "veltrane/file/file_writer.hpp"
#include "veltrane/file/record_table.hpp"

namespace veltrane {

/// The row of a field `EmbeddedObject`: every group from the 101 to the record's extended data or end. These
/// have the codes of the record's own, and are none of them. They go back into files of versions that know
/// them.
template <class Record>
struct EmbeddedObject {
    static Row row() { return rows::piece(101, {&read, &write, nullptr}); }

private:
    static constexpr int kFirstVersion = 1032;  // R2018

    static bool read(std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
        auto& groups = static_cast<Record&>(record).EmbeddedObject;
        for (; reader.HasGroup() && reader.Code() != 0 && reader.Code() != 1001; reader.Next(stream)) {
            append(groups, DxfSection_DxfGroup{reader.Code(), reader.Value()});
        }
        reader.PushBack();
        return true;
    }

    static void write(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
        const auto& groups = static_cast<const Record&>(record).EmbeddedObject;
        if (writer.IsPortable() && writer.Version() >= kFirstVersion) writer.WriteGroups(stream, groups);
    }
};

}  // namespace veltrane
