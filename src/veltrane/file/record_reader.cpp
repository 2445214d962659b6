// Reading by record tables.
#include "veltrane/base/undefined.hpp"
#include "veltrane/exchange/model.hpp"
#include "veltrane/file/common.hpp"
#include "veltrane/file/gathered_groups.hpp"
#include "veltrane/file/record_io.hpp"

#include <algorithm>
#include <istream>
#include <string_view>
#include <vector>

namespace veltrane {

namespace {

constexpr std::string_view kClosing = "}";
constexpr std::int32_t kMarkerCode = 100;
constexpr std::string_view kEntityMarker = "AcDbEntity";

void send_replaced(DxfFile_FileReader& reader) {
    reader.SendWarning(
        {"The value of group %d at line %d replaces an earlier one", reader.Code(), reader.LineNumber()});
}

/// Warns when a field that keeps one value gets another.
class Repeats {
public:
    explicit Repeats(const RecordTable& table) : table_(table.keeps_last() ? &table : nullptr) {}

    void note(DxfFile_FileReader& reader) {
        if (table_) note_group(reader);
    }

private:
    void note_group(DxfFile_FileReader& reader) {
        const Row* row = table_->find(reader.Code());
        if (!row || !row->keeps_last) return;
        if (std::find(met_.begin(), met_.end(), row) == met_.end()) return met_.push_back(row);
        send_replaced(reader);
    }

    const RecordTable* table_;
    std::vector<const Row*> met_;
};

/// A handle that is undefined until it comes tells by itself that it came before.
void read_handle(const Row& row, std::istream& stream, DxfFile_FileReader& reader, std::int32_t& handle) {
    const std::int32_t before = handle;
    handle = reader.ReadHex(stream);
    if (row.omit != Omit::IfUndefined || row.keeps_last) return;
    if (!is_undefined(before) && before != handle) send_replaced(reader);
}

void read_bin_data(std::istream& stream, DxfFile_FileReader& reader, Ref<DxfSection_BinData>& data) {
    if (data) send_replaced(reader);
    data = DxfFile_RWBinData::Read(stream, reader);
}

/// The constant is written again; any other value is lost.
void drop_constant(DxfFile_FileReader& reader, bool is_same) {
    if (is_same) return;
    reader.SendWarning({"The value of group %d at line %d is dropped for the usual one", reader.Code(),
                        reader.LineNumber()});
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

void read_row_record(const Row& row, std::istream& stream, DxfFile_FileReader& reader, Transient& owner) {
    if (row.kind == ValueKind::Record && row.records.count(owner) > 0) {
        reader.SendWarning({"What begins with group %d at line %d replaces an earlier one", reader.Code(),
                            reader.LineNumber()});
    }
    Transient& record = row.records.append(owner, reader.Memory());
    if (row.records.closing_code >= 0) return read_closed(row, stream, reader, record);
    read_sub_record(*row.records.table, stream, reader, record);
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
                read_bin_data(stream, reader, record.*list.bin_data);
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
            read_handle(row, stream, reader, record.*field.integer);
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
            read_bin_data(stream, reader, record.*field.bin_data);
            return true;
        case ValueKind::Counted:
            read_counted(row, stream, reader, record);
            return true;
        case ValueKind::Record:
        case ValueKind::Records:
            if (row.records.opening && reader.View() != row.records.opening) {
                return read_by(table, table.alternative_to(row), stream, reader, record);
            }
            read_row_record(row, stream, reader, record);
            return true;
        case ValueKind::Piece:
            return row.piece.read(stream, reader, record);
        case ValueKind::Groups:
            append(record.*field.groups, DxfSection_DxfGroup{reader.Code(), reader.Value()});
            return true;
        case ValueKind::Marker:  // those of a subclass are told apart by nobody
            drop_constant(reader, row.code == kMarkerCode || reader.View() == row.text);
            return true;
        case ValueKind::Constant:
            drop_constant(reader, reader.ReadInteger(stream) == row.number);
            return true;
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

/// Gives the fields whose absence stands for a value that value, to be kept unless their groups come.
void fill_absent(const RecordTable& table, Transient& record) {
    for (const Row* row : table.with_absent()) {
        if (row->kind == ValueKind::Real) {
            record.*row->field.real = row->absent;
        } else {
            record.*row->field.integer = static_cast<std::int32_t>(row->absent);
        }
    }
}

/// Takes the groups that belong to the base: handle, application data and owner, and what stands between the
/// marker of the entities and the next one. Further on, a record may give their codes a meaning of its own.
void read_head(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
               Transient& record) {
    const RecordTable& root = table.root();
    reader.Next(stream);
    if (&root == &table) return;
    const Row* last_handle = nullptr;  // a second one is the record's own
    while (reader.HasGroup()) {
        const Row* row = root.find(reader.Code());
        if (!row || row == last_handle) break;
        if (row->kind == ValueKind::Handle) last_handle = row;
        read_field(root, stream, reader, record);
        reader.Next(stream);
    }
    if (!reader.HasGroup() || reader.Code() != kMarkerCode || reader.View() != kEntityMarker) return;
    const RecordTable& entity = record_table<DxfSection_Entity>();
    if (!table.stands_on(entity)) return;
    do {
        read_field(entity, stream, reader, record);
        reader.Next(stream);
    } while (reader.HasGroup() && reader.Code() != kMarkerCode && entity.find(reader.Code()));
}

/// Reads the fields of a record that keeps every other group.
void read_with_rest(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                    Transient& record) {
    GatheredGroups rest(reader);
    for (; reader.HasGroup(); reader.Next(stream)) {
        if (reader.Code() != 0 && !table.find(reader.Code())) {
            rest.take();
        } else if (!read_field(table, stream, reader, record)) {
            break;
        }
    }
    record.*table.rest()->field.groups = rest.list();
}

}  // namespace

bool read_field(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                Transient& record) {
    return read_by(table, table.find(reader.Code()), stream, reader, record);
}

void read_sub_record(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                     Transient& record) {
    const std::int32_t first_code = reader.Code();
    Repeats repeats(table);
    do {
        repeats.note(reader);
        read_field(table, stream, reader, record);
        reader.Next(stream);
    } while (reader.HasGroup() && table.takes(reader.Code()) &&
             (reader.Code() != first_code || table.rest()));
    reader.PushBack();
}

void read_record(const RecordTable& table, std::istream& stream, DxfFile_FileReader& reader,
                 const Ref<DxfSection_Object>& record) {
    DxfSection_Object* const enclosing = reader.CurrentObject();
    if (reader.Model()) reader.Model()->AddEntity(record, reader.LineNumber());
    reader.SetCurrentObject(record.get());
    if (reader.FillsAbsent()) fill_absent(table, *record);
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
