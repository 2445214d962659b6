// Reading by record tables.
#include "veltrane/exchange/model.hpp"
#include "veltrane/file/common.hpp"
#include "veltrane/file/record_io.hpp"

#include <algorithm>
#include <istream>
#include <iterator>
#include <string_view>
#include <vector>

namespace veltrane {

namespace {

constexpr std::string_view kClosing = "}";

/// Warns when a field that keeps one value gets another.
class Repeats {
public:
    explicit Repeats(const RecordTable& table) : table_(table.keeps_last() ? &table : nullptr) {}

    void note(DxfFile_FileReader& reader) {
        if (!table_) return;
        const Row* row = table_->find(reader.Code());
        if (!row || !row->keeps_last) return;
        if (std::find(met_.begin(), met_.end(), row) == met_.end()) return met_.push_back(row);
        reader.SendWarning(
            {"The value of group %d at line %d replaces an earlier one", reader.Code(), reader.LineNumber()});
    }

private:
    const RecordTable* table_;
    std::vector<const Row*> met_;
};

/// Lasts to the first group that is not the sub-record's own; the group that began it begins the next one.
void read_unclosed(const Row& row, std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    const RecordTable& table = *row.records.table;
    Repeats repeats(table);
    do {
        repeats.note(reader);
        read_field(table, stream, reader, record);
        reader.Next(stream);
    } while (reader.HasGroup() && table.takes(reader.Code()) && (reader.Code() != row.code || table.rest()));
    reader.PushBack();
}

/// Lasts to its closing group, which it takes.
void read_closed(const Row& row, std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    Repeats repeats(*row.records.table);
    for (reader.Next(stream); reader.HasGroup(); reader.Next(stream)) {
        if (reader.Code() == row.records.closing_code && reader.View() == kClosing) return;
        repeats.note(reader);
        if (!read_field(*row.records.table, stream, reader, record)) return;
    }
}

void read_sub_record(const Row& row, std::istream& stream, DxfFile_FileReader& reader, Transient& owner) {
    if (row.kind == ValueKind::Record && row.records.count(owner) > 0) {
        reader.SendWarning({"What begins with group %d at line %d replaces an earlier one", reader.Code(),
                            reader.LineNumber()});
    }
    Transient& record = row.records.append(owner);
    const auto read = row.records.closing_code < 0 ? &read_unclosed : &read_closed;
    read(row, stream, reader, record);
}

/// Takes the elements that directly follow their count, and fills the list up to that count.
template <class T, class ReadElement>
void read_elements(const Row& row, std::istream& stream, DxfFile_FileReader& reader, std::int32_t& count,
                   Ref<Sequence<T>>& list, const T& zero, ReadElement read_element) {
    // A count may be anything: memory is taken for what comes, and for no more than this beyond it.
    constexpr std::int64_t kMostMissing = 1 << 16;
    const std::int64_t wanted = std::int64_t{row.elements.per_count} * std::max(count, 0);
    list = wanted > 0 ? make<Sequence<T>>() : nullptr;
    std::int64_t came = 0;
    reader.Next(stream);
    for (; came < wanted && reader.HasGroup() && reader.Code() == row.elements.code; ++came) {
        list->Append(read_element());
        reader.Next(stream);
    }
    reader.PushBack();
    if (came == wanted) return;
    reader.SendWarning({"A list ends %d elements before its count, at line %d",
                        static_cast<int>(std::min<std::int64_t>(wanted - came, INT32_MAX)),
                        reader.LineNumber()});
    if (wanted - came > kMostMissing) count = static_cast<std::int32_t>(came / row.elements.per_count);
    list->items().resize(static_cast<std::size_t>(count) * static_cast<std::size_t>(row.elements.per_count),
                         zero);
}

void read_counted(const Row& row, std::istream& stream, DxfFile_FileReader& reader, Transient& record) {
    std::int32_t& count = record.*row.field.integer;
    count = reader.ReadInteger(stream);
    const Field& list = row.elements.field;
    const auto elements = [&](auto& field, auto zero, auto read_element) {
        read_elements(row, stream, reader, count, field, zero, read_element);
    };
    switch (row.elements.kind) {
        case ValueKind::Reals:
            return elements(record.*list.reals, 0.0, [&] { return reader.ReadReal(stream); });
        case ValueKind::Integers:
            return elements(record.*list.integers, 0, [&] { return reader.ReadInteger(stream); });
        case ValueKind::Points:
            return elements(record.*list.points, kernel::Point(0, 0, 0),
                            [&] { return reader.ReadXYZ(stream); });
        default:  // the bytes that a group of binary data holds are not counted here
            reader.Next(stream);
            if (reader.HasGroup() && reader.Code() == row.elements.code) {
                record.*list.bin_data = DxfFile_RWBinData::Read(stream, reader);
            }
            return reader.PushBack();
    }
}

bool read_by(const RecordTable& table, const Row* row, std::istream& stream, DxfFile_FileReader& reader,
             Transient& record);

bool read_row(const RecordTable& table, const Row& row, std::istream& stream, DxfFile_FileReader& reader,
              Transient& record) {
    const Field& field = row.field;
    switch (row.kind) {
        case ValueKind::Real:
            record.*field.real = reader.ReadReal(stream);
            return true;
        case ValueKind::Integer:
            record.*field.integer = reader.ReadInteger(stream);
            return true;
        case ValueKind::Boolean:
            record.*field.boolean = reader.ReadBoolean(stream);
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
        case ValueKind::Integers:
            append(record.*field.integers, reader.ReadInteger(stream));
            return true;
        case ValueKind::Handles:
            append(record.*field.integers, reader.ReadHex(stream));
            return true;
        case ValueKind::Points:
            append(record.*field.points, reader.ReadXYZ(stream));
            return true;
        case ValueKind::Points2:
            append(record.*field.points2, reader.ReadXY(stream));
            return true;
        case ValueKind::Strings:
            append(record.*field.texts, reader.Value());
            return true;
        case ValueKind::BinData:
            record.*field.bin_data = DxfFile_RWBinData::Read(stream, reader);
            return true;
        case ValueKind::Counted:
            read_counted(row, stream, reader, record);
            return true;
        case ValueKind::Record:
        case ValueKind::Records:
            if (row.records.opening && reader.View() != row.records.opening) {
                return read_by(table, table.alternative_to(row), stream, reader, record);
            }
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

/// Takes the current group by its row; null when the table has none.
bool read_by(const RecordTable& table, const Row* row, std::istream& stream, DxfFile_FileReader& reader,
             Transient& record) {
    if (row) return read_row(table, *row, stream, reader, record);
    if (reader.Code() == 0) {
        reader.PushBack();
        return false;
    }
    if (const Row* rest = table.rest()) return read_row(table, *rest, stream, reader, record);
    reader.SendUnrecognized();
    return true;
}

/// Takes the groups with which every record begins: handle, application data, owner. A record may give their
/// codes a meaning of its own, which they have only after the first other group.
void read_head(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
               Transient& record) {
    const RecordTable& root = table.root();
    reader.Next(stream);
    if (&root == &table) return;
    while (reader.HasGroup() && root.find(reader.Code()) && read_field(root, stream, reader, record)) {
        reader.Next(stream);
    }
}

/// Reads the fields of a record that keeps every other group. These are gathered first, so that the record's
/// list is made once and at its right size: in drawings of many such records it is most of what is kept.
void read_with_rest(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                    Transient& record) {
    std::vector<DxfSection_DxfGroup>& gathered = reader.GroupBuffer();
    const auto first = static_cast<std::ptrdiff_t>(gathered.size());
    for (; reader.HasGroup(); reader.Next(stream)) {
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
    return read_by(table, table.find(reader.Code()), stream, reader, record);
}

void read_record(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                 const Ref<DxfSection_Object>& record) {
    DxfSection_Object* const enclosing = reader.CurrentObject();
    if (reader.Model()) reader.Model()->AddEntity(record, reader.LineNumber());
    reader.SetCurrentObject(record.get());
    read_head(table, stream, reader, *record);
    if (table.rest()) {
        read_with_rest(table, stream, reader, *record);
    } else {
        Repeats repeats(table);
        for (; reader.HasGroup(); reader.Next(stream)) {
            repeats.note(reader);
            if (!read_field(table, stream, reader, *record)) break;
        }
    }
    reader.SetCurrentObject(enclosing);
}

}  // namespace veltrane
