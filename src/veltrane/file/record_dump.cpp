// Dumping by record tables.
#include "veltrane/file/common.hpp"
#include "veltrane/file/dump_text.hpp"
#include "veltrane/file/record_io.hpp"

namespace veltrane {

bool begin_list(std::ostream& stream, const char* label, int count, int level) {
    dump_label(stream, label);
    if (count < 0) {
        stream << "<NOT DEFINED>\n";
        return false;
    }
    if (level < 1) {
        stream << "{ [array of " << count << " items] }\n";
        return false;
    }
    stream << "{\n";
    return true;
}

namespace {

void dump_sub_records(const Row& row, std::ostream& stream, const Transient& record, int level) {
    const int count = row.records.count(record);
    if (!begin_list(stream, row.label, count, level)) return;
    for (int number = 1; number <= count; ++number) {
        const Transient& item = row.records.item(record, number);
        dump_element(stream, item.DynamicType().name(),
                     [&] { dump_fields(*row.records.table, stream, item, level - 1); });
    }
    end_list(stream);
}

void dump_sub_record(const Row& row, std::ostream& stream, const Transient& record, int level) {
    if (row.records.count(record) < 0) {
        dump_label(stream, row.label) << "<NOT DEFINED>\n";
        return;
    }
    const Transient& item = row.records.item(record, 1);
    if (level < 1) {
        dump_label(stream, row.label) << '[' << item.DynamicType().name() << "]\n";
        return;
    }
    const bool bracketed = row.records.closing_code >= 0;  // and shown as it stands in the file
    if (bracketed) {
        stream << row.label << " {\n";
    } else {
        dump_label(stream, row.label) << '{' << item.DynamicType().name() << '\n';
    }
    dump_fields(*row.records.table, stream, item, level - 1);
    stream << (bracketed ? "}\n" : "  }\n");
}

void dump_row(const Row& row, std::ostream& stream, const Transient& record, int level) {
    const Field& field = row.field;
    switch (row.kind) {
        case ValueKind::Real:
            dump_label(stream, row.label) << record.*field.real << '\n';
            return;
        case ValueKind::Integer:
        case ValueKind::Handle:
            dump_label(stream, row.label) << record.*field.integer << '\n';
            return;
        case ValueKind::Boolean:
            dump_label(stream, row.label) << (record.*field.boolean ? "Yes" : "No") << '\n';
            return;
        case ValueKind::String:
            if ((record.*field.text).is_null()) return;
            dump_label(stream, row.label) << '"' << record.*field.text << "\"\n";
            return;
        case ValueKind::Point:
        case ValueKind::Coordinates:
            dump_point(dump_label(stream, row.label), record.*field.point);
            stream << '\n';
            return;
        case ValueKind::Point2:
            dump_point(dump_label(stream, row.label), record.*field.point2);
            stream << '\n';
            return;
        case ValueKind::Reals:
            return dump_list(stream, row.label, record.*field.reals, level);
        case ValueKind::Integers:
        case ValueKind::Handles:
            return dump_list(stream, row.label, record.*field.integers, level);
        case ValueKind::Points2:
            return dump_list(stream, row.label, record.*field.points2, level);
        case ValueKind::Points:
            return dump_list(stream, row.label, record.*field.points, level);
        case ValueKind::Strings:
            return dump_list(stream, row.label, record.*field.texts, level);
        case ValueKind::BinData:
            return dump_piece(stream, row.label, record.*field.bin_data, row.opens_in_dump ? level : 0,
                              [&](const DxfSection_BinData& data, int depth) {
                                  DxfFile_RWBinData::Dump(stream, data, depth);
                              });
        case ValueKind::Counted:
            dump_label(stream, row.label) << record.*field.integer << '\n';
            return dump_row(row.elements_row(), stream, record, level);
        case ValueKind::Record:
            return dump_sub_record(row, stream, record, level);
        case ValueKind::Records:
            return dump_sub_records(row, stream, record, level);
        case ValueKind::Groups:
            return dump_list(stream, row.label, record.*field.groups, level);
        case ValueKind::Marker:
            if (row.label) dump_label(stream, row.label) << row.text << '\n';
            return;
        case ValueKind::Constant:
            if (row.label) dump_label(stream, row.label) << row.number << '\n';
            return;
        case ValueKind::Base:  // stands before all rows
            return;
        case ValueKind::Piece:
            if (row.piece.dump) row.piece.dump(stream, record, level);
            return;
    }
}

}  // namespace

void dump_fields(const RecordTable& table, std::ostream& stream, const Transient& record, int level) {
    if (table.base() && table.dumps_base()) {
        stream << "Inherits " << table.base()->class_name() << '\n';
        if (level > 0) {
            stream << "{\n";
            dump_fields(*table.base(), stream, record, level - 1);
            stream << "}\n";
        }
    }
    for (const Row& row : table.rows()) {
        if (row.is_dumped) dump_row(row, stream, record, level);
    }
}

}  // namespace veltrane
