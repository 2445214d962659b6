// The format of a record as a table: one row per field, read, written and dumped by one interpreter each.
#pragma once

#include "veltrane/base/chunk_pool.hpp"
#include "veltrane/base/sequence.hpp"
#include "veltrane/base/text.hpp"
#include "veltrane/kernel/math/vector.hpp"
#include "veltrane/section/object.hpp"

#include <array>
#include <climits>
#include <cstdint>
#include <iosfwd>
#include <vector>

namespace veltrane {

class DxfFile_FileReader;
class DxfFile_FileWriter;
class RecordTable;

/// How the groups of a row become the value of a field, and back.
enum class ValueKind : std::uint8_t {
    Real,
    Integer,
    Boolean,
    Handle,
    String,
    Point,        ///< groups c, c+10, c+20, directly after each other
    Point2,       ///< groups c, c+10
    Coordinates,  ///< groups c, c+10, c+20, each on its own and in any place
    Reals,        ///< each group appends to a list
    Integers,
    Handles,
    Points,
    Points2,
    Strings,
    BinData,   ///< a run of groups c, kept as text
    Counted,   ///< a count and, directly after it, that many elements
    Record,    ///< group c begins a sub-record, which has a table of its own
    Records,   ///< the same for a list of them
    Groups,    ///< every group that no other row takes, kept as it is
    Marker,    ///< accepted and dropped, written with the row's text
    Constant,  ///< accepted and dropped, written with the row's number
    Base,      ///< the fields of the base record
    Piece,     ///< read, written and dumped by functions
};

/// When a row's groups are left out.
enum class Omit : std::uint8_t {
    Never,
    IfEqual,           ///< to the row's number or text
    IfZAxis,           ///< a direction within 1e-10 of (0, 0, 1) in every co-ordinate
    IfUndefined,       ///< -1, -1e100, or a point of these
    EmptyIfUndefined,  ///< written as an empty value, which files are better off without
    Always,            ///< a field that is read and dumped only
};

/// A pointer to a field of any record class, held as one of the common root.
union Field {
    Field() : real(nullptr) {}
    Field(double Transient::*member) : real(member) {}
    Field(std::int32_t Transient::*member) : integer(member) {}
    Field(bool Transient::*member) : boolean(member) {}
    Field(Text Transient::*member) : text(member) {}
    Field(kernel::Point Transient::*member) : point(member) {}
    Field(kernel::Point2 Transient::*member) : point2(member) {}
    Field(Ref<Sequence<double>> Transient::*member) : reals(member) {}
    Field(Ref<Sequence<std::int32_t>> Transient::*member) : integers(member) {}
    Field(Ref<Sequence<kernel::Point>> Transient::*member) : points(member) {}
    Field(Ref<Sequence<kernel::Point2>> Transient::*member) : points2(member) {}
    Field(Ref<Sequence<Text>> Transient::*member) : texts(member) {}
    Field(Ref<DxfSection_BinData> Transient::*member) : bin_data(member) {}
    Field(Ref<DxfSection_HSequenceOfDxfGroup> Transient::*member) : groups(member) {}

    double Transient::*real;
    std::int32_t Transient::*integer;
    bool Transient::*boolean;
    Text Transient::*text;
    kernel::Point Transient::*point;
    kernel::Point2 Transient::*point2;
    Ref<Sequence<double>> Transient::*reals;
    Ref<Sequence<std::int32_t>> Transient::*integers;
    Ref<Sequence<kernel::Point>> Transient::*points;
    Ref<Sequence<kernel::Point2>> Transient::*points2;
    Ref<Sequence<Text>> Transient::*texts;
    Ref<DxfSection_BinData> Transient::*bin_data;
    Ref<DxfSection_HSequenceOfDxfGroup> Transient::*groups;
};

/// The functions of a row that no table can say. A null function does nothing.
struct PieceFunctions {
    /// Takes the reader's current group into the record; false when the record has ended.
    bool (*read)(std::istream&, DxfFile_FileReader&, Transient&) = nullptr;
    void (*write)(std::ostream&, DxfFile_FileWriter&, const Transient&) = nullptr;
    /// Writes whole lines, the label included.
    void (*dump)(std::ostream&, const Transient&, int level) = nullptr;
};

/// Access to the sub-records of one field.
struct SubRecords {
    /// A new sub-record in `memory`: at the end of the list, or in place of the one that was there.
    Transient& (*append)(Transient& record, ChunkPool& memory) = nullptr;
    int (*count)(const Transient& record) = nullptr;  ///< -1 when there is none, or no list
    const Transient& (*item)(const Transient& record, int number) = nullptr;
    const RecordTable* table = nullptr;
    const char* opening = nullptr;   ///< value of the group that begins one; null for any
    std::int16_t closing_code = -1;  ///< of the group "}" that ends one; -1 when none does
};

/// The elements of a Counted row.
struct CountedElements {
    ValueKind kind = ValueKind::Points;  ///< of the list: Reals, Integers, Points or BinData
    std::int16_t code = 0;               ///< of each element
    std::int16_t per_count = 1;
    Field field;
    const char* label = nullptr;
};

/// One row. Made by the functions below; the chained members state when it is written.
struct Row {
    std::int16_t code = 0;
    ValueKind kind = ValueKind::Piece;
    Omit omit = Omit::Never;
    std::int16_t since_version = 0;
    std::int16_t below_version = INT16_MAX;
    bool is_dumped = true;
    bool opens_in_dump = true;
    bool keeps_last = false;
    bool is_read = true;
    bool (*applies)(const Transient& record) = nullptr;
    Field field;
    const char* label = nullptr;
    double absent = 0;  ///< what a drawing means that lacks the group, if `has_absent`
    bool has_absent = false;
    double number = 0;           ///< of Constant, or to compare with
    const char* text = nullptr;  ///< of Marker, or to compare with
    const RecordTable* base = nullptr;
    PieceFunctions piece;
    SubRecords records;
    CountedElements elements;

    /// The list of a Counted row as a row of its own.
    Row elements_row() const {
        Row row;
        row.code = elements.code;
        row.kind = elements.kind;
        row.field = elements.field;
        row.label = elements.label;
        row.opens_in_dump = opens_in_dump;
        return row;
    }

    Row unless(double value) const { return with(&Row::number, value, Omit::IfEqual); }
    Row unless(int value) const { return unless(static_cast<double>(value)); }
    Row unless(const char* value) const { return with(&Row::text, value, Omit::IfEqual); }
    Row unless_z_axis() const { return with(&Row::number, 0.0, Omit::IfZAxis); }
    Row unless_undefined() const { return with(&Row::number, 0.0, Omit::IfUndefined); }
    /// An undefined value is written as an empty one, or left out if the writer does so.
    Row empty_if_undefined() const { return with(&Row::number, 0.0, Omit::EmptyIfUndefined); }
    Row never_written() const { return with(&Row::number, 0.0, Omit::Always); }
    /// Written for drawings of this version number and later.
    Row since(int version) const {
        return with(&Row::since_version, static_cast<std::int16_t>(version), omit);
    }
    /// Written for drawings before this version number.
    Row below(int version) const {
        return with(&Row::below_version, static_cast<std::int16_t>(version), omit);
    }
    /// In drawings the absence of the group stands for this value, whatever a new record has.
    Row absent_as(double value) const {
        Row row = with(&Row::absent, value, omit);
        row.has_absent = true;
        return row;
    }
    Row not_dumped() const { return with(&Row::is_dumped, false, omit); }
    /// Binary data is told as being there, whatever the level of the dump.
    Row dumped_closed() const { return with(&Row::opens_in_dump, false, omit); }
    /// Left to another row of the same code to read.
    Row not_read() const { return with(&Row::is_read, false, omit); }
    /// Written for the records for which `condition` is true.
    Row only_if(bool (*condition)(const Transient& record)) const {
        return with(&Row::applies, condition, omit);
    }
    /// For a field with room for one of what the format has many: the reader warns when the group comes
    /// again.
    Row last_of_many() const { return with(&Row::keeps_last, true, omit); }
    /// Sub-records begin at a group of this value only.
    Row opened_by(const char* value) const {
        Row row = *this;
        row.records.opening = value;
        return row;
    }
    /// Sub-records stand between a group of this value and a group `closing` with the value "}".
    Row between(const char* value, int closing) const {
        Row row = opened_by(value);
        row.records.closing_code = static_cast<std::int16_t>(closing);
        return row;
    }

private:
    template <class Value>
    Row with(Value Row::*member, Value value, Omit rule) const {
        Row row = *this;
        row.*member = value;
        row.omit = rule;
        return row;
    }
};

namespace rows {

inline Row row(int code, ValueKind kind, const char* label) {
    Row result;
    result.code = static_cast<std::int16_t>(code);
    result.kind = kind;
    result.label = label;
    return result;
}

/// A row whose value is a field of the record.
template <class Record, class Value>
Row field(int code, ValueKind kind, const char* label, Value Record::*member) {
    Row result = row(code, kind, label);
    result.field = Field(static_cast<Value Transient::*>(member));
    return result;
}

template <class Record>
Row real(int code, const char* label, double Record::*member) {
    return field(code, ValueKind::Real, label, member);
}
template <class Record>
Row integer(int code, const char* label, std::int32_t Record::*member) {
    return field(code, ValueKind::Integer, label, member);
}
template <class Record>
Row boolean(int code, const char* label, bool Record::*member) {
    return field(code, ValueKind::Boolean, label, member);
}
template <class Record>
Row handle(int code, const char* label, std::int32_t Record::*member) {
    return field(code, ValueKind::Handle, label, member);
}
/// A text; never written when it is not set.
template <class Record>
Row string(int code, const char* label, Text Record::*member) {
    return field(code, ValueKind::String, label, member);
}
template <class Record>
Row point(int code, const char* label, kernel::Point Record::*member) {
    return field(code, ValueKind::Point, label, member);
}
template <class Record>
Row coordinates(int code, const char* label, kernel::Point Record::*member) {
    return field(code, ValueKind::Coordinates, label, member);
}
template <class Record>
Row point2(int code, const char* label, kernel::Point2 Record::*member) {
    return field(code, ValueKind::Point2, label, member);
}
template <class Record>
Row reals(int code, const char* label, Ref<Sequence<double>> Record::*member) {
    return field(code, ValueKind::Reals, label, member);
}
template <class Record>
Row integers(int code, const char* label, Ref<Sequence<std::int32_t>> Record::*member) {
    return field(code, ValueKind::Integers, label, member);
}
template <class Record>
Row handles(int code, const char* label, Ref<Sequence<std::int32_t>> Record::*member) {
    return field(code, ValueKind::Handles, label, member);
}
template <class Record>
Row points2(int code, const char* label, Ref<Sequence<kernel::Point2>> Record::*member) {
    return field(code, ValueKind::Points2, label, member);
}
template <class Record>
Row points(int code, const char* label, Ref<Sequence<kernel::Point>> Record::*member) {
    return field(code, ValueKind::Points, label, member);
}
template <class Record>
Row strings(int code, const char* label, Ref<Sequence<Text>> Record::*member) {
    return field(code, ValueKind::Strings, label, member);
}
template <class Record>
Row bin_data(int code, const char* label, Ref<DxfSection_BinData> Record::*member) {
    return field(code, ValueKind::BinData, label, member);
}
/// Every group without a row of its own.
template <class Record>
Row groups(const char* label, Ref<DxfSection_HSequenceOfDxfGroup> Record::*member) {
    return field(-1, ValueKind::Groups, label, member);
}

/// A subclass marker, dumped under `label`.
inline Row marker(const char* text, const char* label = "@SubclassMarker") {
    Row result = row(100, ValueKind::Marker, label);
    result.text = text;
    return result;
}

/// A text that is always the same and not kept; null as `label` leaves it out of the dump.
inline Row constant(int code, const char* label, const char* text) {
    Row result = row(code, ValueKind::Marker, label);
    result.text = text;
    return result;
}

/// A number that is always the same and not kept.
inline Row constant(int code, const char* label, int value) {
    Row result = row(code, ValueKind::Constant, label);
    result.number = value;
    return result;
}

/// The base record's fields, written at this place.
inline Row base(const RecordTable& table) {
    Row result = row(-1, ValueKind::Base, nullptr);
    result.base = &table;
    return result;
}

inline Row piece(int code, const PieceFunctions& functions) {
    Row result = row(code, ValueKind::Piece, nullptr);
    result.piece = functions;
    return result;
}

namespace detail {

template <auto List>
struct ListOf;
template <class Record, class Element, Ref<Sequence<Ref<Element>>> Record::*List>
struct ListOf<List> {
    static const Ref<Sequence<Ref<Element>>>& of(const Transient& record) {
        return static_cast<const Record&>(record).*List;
    }
    static Transient& append(Transient& record, ChunkPool& memory) {
        auto& list = static_cast<Record&>(record).*List;
        if (!list) list = make_in<Sequence<Ref<Element>>>(memory);
        list->Append(make_in<Element>(memory));
        return *list->items().back();
    }
    static int count(const Transient& record) { return of(record) ? of(record)->Length() : -1; }
    static const Transient& item(const Transient& record, int number) { return *of(record)->Value(number); }
};

template <auto Member>
struct SingleOf;
template <class Record, class Element, Ref<Element> Record::*Single>
struct SingleOf<Single> {
    static const Ref<Element>& of(const Transient& record) {
        return static_cast<const Record&>(record).*Single;
    }
    static Transient& append(Transient& record, ChunkPool& memory) {
        auto& element = static_cast<Record&>(record).*Single;
        element = make_in<Element>(memory);
        return *element;
    }
    static int count(const Transient& record) { return of(record) ? 1 : -1; }
    static const Transient& item(const Transient& record, int) { return *of(record); }
};

template <class Access>
Row sub_records(int code, ValueKind kind, const char* label, const RecordTable& table) {
    Row result = row(code, kind, label);
    result.records = {&Access::append, &Access::count, &Access::item, &table, nullptr, -1};
    return result;
}

}  // namespace detail

/// A list of sub-records: every group `code` begins one, which lasts to the first group that is not its own.
template <auto List>
Row records(int code, const char* label, const RecordTable& table) {
    return detail::sub_records<detail::ListOf<List>>(code, ValueKind::Records, label, table);
}

/// The same for one sub-record: another group `code` begins one that takes its place.
template <auto Member>
Row record(int code, const char* label, const RecordTable& table) {
    return detail::sub_records<detail::SingleOf<Member>>(code, ValueKind::Record, label, table);
}

/// A count, kept in a field of its own, with its elements directly after it: `per_count` groups
/// `element_code` for each. The list has that length also when fewer came, its other elements being 0.
template <class Record, class List>
Row counted(int code, const char* label, std::int32_t Record::*count, ValueKind list_kind, int element_code,
            const char* elements_label, List Record::*list, int per_count = 1) {
    Row result = field(code, ValueKind::Counted, label, count);
    result.elements = {list_kind, static_cast<std::int16_t>(element_code),
                       static_cast<std::int16_t>(per_count), Field(static_cast<List Transient::*>(list)),
                       elements_label};
    return result;
}

}  // namespace rows

/// The rows of one record class, in the order in which they are written.
class RecordTable {
public:
    /// `class_name` is the record's, for dumps.
    RecordTable(const char* class_name, std::vector<Row> rows);
    RecordTable(const RecordTable&) = delete;
    RecordTable& operator=(const RecordTable&) = delete;

    const char* class_name() const { return class_name_; }
    const std::vector<Row>& rows() const { return rows_; }
    /// The base record's table; null when there is none.
    const RecordTable* base() const { return base_; }
    bool dumps_base() const { return dumps_base_; }
    /// The row that takes a group code, of this table or else of its bases; null when there is none.
    const Row* find(int code) const {
        return code >= 0 && code < kCodes && index_[static_cast<std::size_t>(code)] != kNoRow
                   ? readers_[index_[static_cast<std::size_t>(code)]]
                   : nullptr;
    }

    /// The row that takes every group without a row of its own, but for the group 0; null when there is none.
    const Row* rest() const { return rest_; }
    /// True for the code of a row, and for every code but 0 when there is a row for the rest.
    bool takes(int code) const { return find(code) || (rest_ && code != 0); }
    /// The row that takes the code of `row` when the value is not the one that `row` wants; null for none.
    const Row* alternative_to(const Row& row) const;
    /// The table at the end of the bases: this one when it has none.
    const RecordTable& root() const { return base_ ? base_->root() : *this; }
    /// The rows, those of the bases included, whose absence in drawings stands for a value.
    const std::vector<const Row*>& with_absent() const { return with_absent_; }
    /// True for one of its bases, and for itself.
    bool stands_on(const RecordTable& base) const {
        return this == &base || (base_ && base_->stands_on(base));
    }
    /// True when some field keeps the last of many values.
    bool keeps_last() const { return keeps_last_; }

    static constexpr int kCodes = 1072;  ///< the format's codes end at 1071

private:
    static constexpr std::uint8_t kNoRow = 255;
    void index(const Row& row);
    void index(const Row& row, int code);

    const char* class_name_;
    std::vector<Row> rows_;
    const RecordTable* base_ = nullptr;
    bool dumps_base_ = true;
    const Row* rest_ = nullptr;
    bool keeps_last_ = false;
    std::vector<const Row*> readers_;
    std::vector<const Row*> with_absent_;
    std::array<std::uint8_t, kCodes> index_;
};

/// The table of a record class; specialised beside each table.
template <class Record>
const RecordTable& record_table();

}  // namespace veltrane
