// Records that hold the records after them, up to an end record of their own: BLOCK to ENDBLK, POLYLINE to
// SEQEND.
#pragma once

#include "veltrane/file/common.hpp"
#include "veltrane/file/dump_text.hpp"

#include <string_view>

namespace veltrane {

/// The row of the group 0 in a record with the fields `Objects` and `EndMarker`. `Kind` tells the class of
/// the record as `Record`, that of its end as `End`, the DXF name of the end as `kEndName`, and
/// `ends_without_it`: which records show that the end is missing.
template <class Kind>
struct ContainedRecords {
    using Record = typename Kind::Record;
    using End = typename Kind::End;

    static Row row() { return rows::piece(0, {&read, &write, &dump}); }

private:
    static bool read(std::istream& stream, DxfFile_FileReader& reader, Transient& owner) {
        auto& record = static_cast<Record&>(owner);
        if (reader.View() == Kind::kEndName) {
            record.EndMarker = DxfFile_RecordRW<End>::Read(stream, reader);
            return false;
        }
        if (Kind::ends_without_it(reader.View())) {
            reader.SendFail({"The record that ends this one is missing at line %d", reader.LineNumber()});
            reader.PushBack();
            return false;
        }
        append(record.Objects, reader.ReadObject(stream));
        return true;
    }

    static void write(std::ostream& stream, DxfFile_FileWriter& writer, const Transient& owner) {
        const auto& record = static_cast<const Record&>(owner);
        if (record.Objects) {
            for (const auto& item : *record.Objects) {
                if (item) writer.WriteObject(stream, *item);
            }
        }
        writer.WriteString(stream, 0, Kind::kEndName);
        // A record that was cut short may have no end; the groups of an empty one keep the file well formed.
        const Ref<End> end = record.EndMarker ? record.EndMarker : make<End>();
        DxfFile_RecordRW<End>::Write(stream, writer, *end);
    }

    static void dump(std::ostream& stream, const Transient& owner, int level) {
        const auto& record = static_cast<const Record&>(owner);
        dump_elements(
            stream, "Objects", record.Objects, level,
            [&](const DxfSection_Object& item, int depth) { DxfFile_RWObject::Dump(stream, item, depth); });
        dump_piece(stream, "EndMarker", record.EndMarker, level,
                   [&](const End& end, int depth) { DxfFile_RecordRW<End>::Dump(stream, end, depth); });
    }
};

/// Names of group 0 that cannot stand inside a record of a block or section.
inline bool ends_a_section(std::string_view name) {
    return name == "ENDSEC" || name == "SECTION" || name == "EOF";
}

}  // namespace veltrane
