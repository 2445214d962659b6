// Writing by record tables.
#include "veltrane/base/undefined.hpp"
#include "veltrane/file/common.hpp"
#include "veltrane/file/record_io.hpp"

#include <cmath>
#include <utility>

namespace veltrane {

namespace {

constexpr double kSameDirection = 1e-10;

bool is_z_axis(const kernel::Vector& direction) {
    return std::fabs(direction[0]) <= kSameDirection && std::fabs(direction[1]) <= kSameDirection &&
           std::fabs(direction[2] - 1) <= kSameDirection;
}

bool is_equal(const Row& row, const Transient& record) {
    switch (row.kind) {
        case ValueKind::Real:
            return record.*row.field.real == row.number;
        case ValueKind::Integer:
        case ValueKind::Handle:
            return record.*row.field.integer == row.number;
        case ValueKind::String:
            return row.text && record.*row.field.text == row.text;
        default:
            return false;
    }
}

bool is_undefined_field(const Row& row, const Transient& record) {
    switch (row.kind) {
        case ValueKind::Real:
            return is_undefined(record.*row.field.real);
        case ValueKind::Integer:
        case ValueKind::Handle:
            return is_undefined(record.*row.field.integer);
        case ValueKind::Point:
        case ValueKind::Coordinates:
            return all_undefined(record.*row.field.point);
        case ValueKind::Point2:
            return all_undefined(record.*row.field.point2);
        default:
            return false;
    }
}

bool is_omitted(const Row& row, const Transient& record, const DxfFile_FileWriter& writer) {
    const int version = writer.Version();
    if (version < row.since_version || version >= row.below_version) return true;
    if (row.applies && !row.applies(record)) return true;
    switch (row.omit) {
        case Omit::Never:
            return false;
        case Omit::IfEqual:
            return is_equal(row, record);
        case Omit::IfZAxis:
            return is_z_axis(record.*row.field.point);
        case Omit::IfUndefined:
            return is_undefined_field(row, record);
        case Omit::EmptyIfUndefined:
            return writer.IsPortable() && is_undefined_field(row, record);
        case Omit::Always:
            return true;
    }
    return false;
}

template <class List, class WriteItem>
void write_list(const List& list, WriteItem write_item) {
    if (!list) return;
    for (const auto& item : *list) write_item(item);
}

void write_sub_records(const Row& row, std::ostream& stream, DxfFile_FileWriter& writer,
                       const Transient& record) {
    const SubRecords& records = row.records;
    const bool closed = records.closing_code >= 0;
    const auto write = [&](const Transient* item) {
        if (closed) writer.WriteString(stream, row.code, records.opening);
        if (item) write_fields(*records.table, stream, writer, *item);
        if (closed) writer.WriteString(stream, records.closing_code, "}");
    };
    const int count = records.count(record);
    for (int number = 1; number <= count; ++number) write(&records.item(record, number));
    // Readers expect the brackets of a single one also when there is nothing to stand between them.
    if (row.kind == ValueKind::Record && count < 0) write(nullptr);
}

void write_row(const Row& row, std::ostream& stream, DxfFile_FileWriter& writer, const Transient& record) {
    const Field& field = row.field;
    switch (row.kind) {
        case ValueKind::Real:
            return writer.WriteReal(stream, row.code, record.*field.real);
        case ValueKind::Integer:
            if (row.omit == Omit::EmptyIfUndefined) {
                return writer.WriteInteger(stream, row.code, record.*field.integer);
            }
            return writer.WriteNumber(stream, row.code, record.*field.integer);
        case ValueKind::Boolean:
            return writer.WriteBoolean(stream, row.code, record.*field.boolean);
        case ValueKind::Handle:
            return writer.WriteHex(stream, row.code, record.*field.integer);
        case ValueKind::String:
            if (!(record.*field.text).is_null()) writer.WriteText(stream, row.code, record.*field.text);
            return;
        case ValueKind::Point:
        case ValueKind::Coordinates:
            return writer.WriteXYZ(stream, row.code, record.*field.point);
        case ValueKind::Point2:
            return writer.WriteXY(stream, row.code, record.*field.point2);
        case ValueKind::Reals:
            return write_list(record.*field.reals,
                              [&](double value) { writer.WriteReal(stream, row.code, value); });
        case ValueKind::Integers:
            return write_list(record.*field.integers,
                              [&](std::int32_t value) { writer.WriteNumber(stream, row.code, value); });
        case ValueKind::Handles:
            return write_list(record.*field.integers,
                              [&](std::int32_t handle) { writer.WriteHex(stream, row.code, handle); });
        case ValueKind::Points2:
            return write_list(record.*field.points2,
                              [&](const kernel::Point2& point) { writer.WriteXY(stream, row.code, point); });
        case ValueKind::Points:
            return write_list(record.*field.points,
                              [&](const kernel::Point& point) { writer.WriteXYZ(stream, row.code, point); });
        case ValueKind::Strings:
            return write_list(record.*field.texts,
                              [&](const Text& text) { writer.WriteText(stream, row.code, text); });
        case ValueKind::BinData:
            if (record.*field.bin_data) DxfFile_RWBinData::Write(stream, writer, *(record.*field.bin_data));
            return;
        case ValueKind::Counted:
            if (row.omit != Omit::IfUndefined || !is_undefined(record.*field.integer)) {
                writer.WriteInteger(stream, row.code, record.*field.integer);
            }
            return write_row(row.elements_row(), stream, writer, record);
        case ValueKind::Record:
        case ValueKind::Records:
            return write_sub_records(row, stream, writer, record);
        case ValueKind::Groups:
            return writer.WriteGroups(stream, record.*field.groups);
        case ValueKind::Marker:
            return writer.WriteString(stream, row.code, row.text);
        case ValueKind::Constant:
            return writer.WriteInteger(stream, row.code, static_cast<std::int32_t>(row.number));
        case ValueKind::Base:
            return write_fields(*row.base, stream, writer, record);
        case ValueKind::Piece:
            if (row.piece.write) row.piece.write(stream, writer, record);
            return;
    }
}

}  // namespace

void write_fields(const RecordTable& table, std::ostream& stream, DxfFile_FileWriter& writer,
                  const Transient& record) {
    for (const Row& row : table.rows()) {
        if (!is_omitted(row, record, writer)) write_row(row, stream, writer, record);
    }
}

void write_record(const RecordTable& table, std::ostream& stream, DxfFile_FileWriter& writer,
                  const DxfSection_Object& record) {
    const DxfSection_Object* enclosing = writer.CurrentObject();
    writer.SetCurrentObject(&record);
    const Row* extended = table.find(1001);
    bool writes_extended = writer.IsPortable() && extended && !extended->piece.write;
    for (const Row& row : table.rows()) {
        if (row.code == 0 && std::exchange(writes_extended, false)) {  // before the records that it contains
            write_extended_data(stream, writer, record);
        }
        if (!is_omitted(row, record, writer)) write_row(row, stream, writer, record);
    }
    if (writes_extended) write_extended_data(stream, writer, record);
    writer.SetCurrentObject(enclosing);
}

}  // namespace veltrane
