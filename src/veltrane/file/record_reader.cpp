// Reading by record tables.
#include "veltrane/exchange/model.hpp"
#include "veltrane/file/common.hpp"
#include "veltrane/file/record_io.hpp"

#include <istream>
#include <iterator>
#include <vector>

namespace veltrane {

namespace {

/// A sub-record lasts to the first group that is not its own; the group that began it begins the next one.
void read_sub_record(const Row& row, std::istream& stream, DxfFile_FileReader& reader, Transient& owner) {
    const RecordTable& table = *row.records.table;
    Transient& record = row.records.append(owner);
    do {
        read_field(table, stream, reader, record);
        reader.Next(stream);
    } while (reader.HasGroup() && reader.Code() != row.code && table.find(reader.Code()));
    reader.PushBack();
}

bool read_row(const Row& row, std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    const Field& field = row.field;
    switch (row.kind) {
        case ValueKind::Real:
            record.*field.real = reader.ReadReal(stream);
            return true;
        case ValueKind::Integer:
            record.*field.integer = reader.ReadInteger(stream);
            return true;
        case ValueKind::Handle:
            record.*field.integer = reader.ReadHex(stream);
            return true;
        case ValueKind::String:
            record.*field.text = reader.Value();
            return true;
        case ValueKind::Point:
            record.*field.point = reader.ReadXYZ(stream);
            return true;
        case ValueKind::Point2:
            record.*field.point2 = reader.ReadXY(stream);
            return true;
        case ValueKind::Coordinates:
            (record.*field.point)[reader.Code() / 10 - row.code / 10] = reader.ReadReal(stream);
            return true;
        case ValueKind::Reals:
            append(record.*field.reals, reader.ReadReal(stream));
            return true;
        case ValueKind::Points:
            append(record.*field.points, reader.ReadXYZ(stream));
            return true;
        case ValueKind::Strings:
            append(record.*field.texts, reader.Value());
            return true;
        case ValueKind::BinData:
            record.*field.bin_data = DxfFile_RWBinData::Read(stream, reader);
            return true;
        case ValueKind::Records:
            read_sub_record(row, stream, reader, record);
            return true;
        case ValueKind::Piece:
            return row.piece.read(stream, reader, record);
        case ValueKind::Groups:
            append(record.*field.groups, DxfSection_DxfGroup{reader.Code(), reader.Value()});
            return true;
        case ValueKind::Marker:
        case ValueKind::Constant:
        case ValueKind::Base:
            return true;
    }
    return true;
}

/// Reads the fields of a record that keeps every other group. These are gathered first, so that the record's
/// list is made once and at its right size: in drawings of many such records it is most of what is kept.
void read_with_rest(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                    Transient& record) {
    std::vector<DxfSection_DxfGroup>& gathered = reader.GroupBuffer();
    const auto first = static_cast<std::ptrdiff_t>(gathered.size());
    for (reader.Next(stream); reader.HasGroup(); reader.Next(stream)) {
        if (reader.Code() != 0 && !table.find(reader.Code())) {
            gathered.push_back({reader.Code(), reader.Value()});
        } else if (!read_field(table, stream, reader, record)) {
            break;
        }
    }
    const auto begin = gathered.begin() + first;
    if (begin == gathered.end()) return;
    record.*table.rest()->field.groups =
        make<DxfSection_HSequenceOfDxfGroup>(std::vector<DxfSection_DxfGroup>(
            std::make_move_iterator(begin), std::make_move_iterator(gathered.end())));
    gathered.erase(begin, gathered.end());
}

}  // namespace

bool read_field(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                Transient& record) {
    if (const Row* row = table.find(reader.Code())) return read_row(*row, stream, reader, record);
    if (reader.Code() == 0) {
        reader.PushBack();
        return false;
    }
    if (const Row* rest = table.rest()) return read_row(*rest, stream, reader, record);
    reader.SendUnrecognized();
    return true;
}

void read_record(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                 const Ref<DxfSection_Object>& record) {
    DxfSection_Object* const enclosing = reader.CurrentObject();
    if (reader.Model()) reader.Model()->AddEntity(record, reader.LineNumber());
    reader.SetCurrentObject(record.get());
    if (table.rest()) {
        read_with_rest(table, stream, reader, *record);
    } else {
        for (reader.Next(stream); reader.HasGroup(); reader.Next(stream)) {
            if (!read_field(table, stream, reader, *record)) break;
        }
    }
    reader.SetCurrentObject(enclosing);
}

}  // namespace veltrane
