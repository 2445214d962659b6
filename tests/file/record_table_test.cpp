// Every registered record's table: codes and kinds fit the format, values survive a write and a read, and a
// record that is cut short anywhere is read to its end.
#include "veltrane/file/record_table.hpp"

#include "support/dxf_text.hpp"
#include "veltrane/ent/hatch.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/file/record_compare.hpp"
#include "veltrane/file/record_io.hpp"
#include "veltrane/section/block.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <set>

namespace veltrane {
namespace {

const std::vector<const DxfFile_ObjectRegistrator*>& registered() {
    DxfFile::Init();
    return DxfFile_ObjectRegistrator::All();
}

/// Calls `visit` with each table that belongs to a record: its own, its bases' and those of its sub-records.
void visit_tables(const RecordTable& table, const std::function<void(const RecordTable&)>& visit) {
    visit(table);
    if (table.base()) visit_tables(*table.base(), visit);
    for (const Row& row : table.rows()) {
        if (row.records.table) visit_tables(*row.records.table, visit);
    }
}

// Rows

struct CodeRange {
    int first, last;
    char kind;
};
constexpr CodeRange kRanges[] = {
    {0, 4, 's'},      {5, 5, 'h'},       {6, 9, 's'},      {10, 59, 'r'},   {60, 79, 'i'},   {90, 99, 'i'},
    {100, 104, 's'},  {105, 105, 'h'},   {110, 149, 'r'},  {160, 179, 'i'}, {210, 239, 'r'}, {270, 299, 'i'},
    {300, 319, 's'},  {320, 369, 'h'},   {370, 389, 'i'},  {390, 399, 'h'}, {400, 409, 'i'}, {410, 419, 's'},
    {420, 429, 'i'},  {430, 439, 's'},   {440, 459, 'i'},  {460, 469, 'r'}, {470, 479, 's'}, {480, 481, 'h'},
    {999, 1009, 's'}, {1010, 1059, 'r'}, {1060, 1071, 'i'}};

char kind_of_code(int code) {
    for (const CodeRange& range : kRanges) {
        if (code >= range.first && code <= range.last) return range.kind;
    }
    return '?';
}

/// The letters of the ranges whose codes a row of that kind may have.
const char* kinds_of(ValueKind kind) {
    switch (kind) {
        case ValueKind::Real:
        case ValueKind::Point:
        case ValueKind::Point2:
        case ValueKind::Coordinates:
        case ValueKind::Reals:
        case ValueKind::Points:
        case ValueKind::Points2:
            return "r";
        case ValueKind::Integer:
        case ValueKind::Integers:
        case ValueKind::Boolean:
        case ValueKind::Counted:
        case ValueKind::Constant:
            return "i";
        case ValueKind::Handle:
        case ValueKind::Handles:
            return "h";
        case ValueKind::String:
        case ValueKind::Strings:
        case ValueKind::BinData:
        case ValueKind::Marker:
            return "s";
        default:
            return nullptr;
    }
}

TEST(RecordTables, CodesFitTheirKindsAndComeOnce) {
    for (const auto* registrator : registered()) {
        visit_tables(registrator->Table(), [&](const RecordTable& table) {
            std::set<int> codes;
            std::set<std::string> labels;
            for (const Row& row : table.rows()) {
                SCOPED_TRACE(std::string(table.class_name()) + " " + std::to_string(row.code));
                const bool field = row.kind != ValueKind::Marker && row.label;
                EXPECT_TRUE(!field || labels.insert(row.label).second) << row.label;
                if (row.code < 0) continue;
                const char* kinds = kinds_of(row.kind);
                // Entries of dictionaries have a handle under a code of numbers.
                const bool entry = row.code == 370 && row.kind == ValueKind::Handle &&
                                   std::string_view(table.class_name()) == "DxfEnt_DictionaryEntry";
                EXPECT_TRUE(!kinds || entry || std::strchr(kinds, kind_of_code(row.code)));
                EXPECT_LT(row.since_version, row.below_version);
                if (!row.is_read) continue;
                const Row* reading = table.find(row.code);
                ASSERT_TRUE(reading);
                // Several rows share a code where a function or the value decides between them.
                const bool shared = row.code == 100 || reading->kind == ValueKind::Piece ||
                                    (reading->records.opening && reading != &row);
                EXPECT_TRUE(codes.insert(row.code).second || shared) << "twice";
            }
        });
    }
}

TEST(RecordTables, EveryRecordEndsInTheCommonFields) {
    for (const auto* registrator : registered()) {
        const auto record = record_of(std::string("0 ") + registrator->Name());
        if (!as<DxfSection_HandledObject>(record.get())) continue;
        const RecordTable& table = registrator->Table();
        const bool dimension_style = table.find(105) != nullptr;  // 5 is a variable there
        for (int code : {dimension_style ? 105 : 5, 102, 330, 1000, 1001}) {
            EXPECT_TRUE(table.find(code)) << registrator->Name() << " " << code;
        }
        EXPECT_EQ(registrator->RecordType().name(), table.class_name());
    }
}

// Values

class Filler {
public:
    explicit Filler(unsigned seed) : random_(seed) {}

    void fill(const RecordTable& table, Transient& record) {
        for (const Row& row : table.rows()) fill(row, record);
    }

private:
    double real() { return static_cast<double>(static_cast<int>(random_() % 2'000'000) - 1'000'000) / 1024; }
    std::int32_t integer() { return static_cast<std::int32_t>(random_() % 70'000) + 1; }
    Text text() {
        std::string characters(random_() % 20, '\0');
        for (char& c : characters) c = static_cast<char>(' ' + random_() % 95);
        return Text(characters);
    }
    kernel::Point point() { return {real(), real(), real()}; }
    template <class T, class Make>
    Ref<Sequence<T>> list(Make make_item) {
        auto items = make<Sequence<T>>();
        for (unsigned count = 1 + random_() % 4; count > 0; --count) items->Append(make_item());
        return items;
    }
    void fill(const Row& row, Transient& record);
    void fill_counted(const Row& row, Transient& record);

    std::mt19937 random_;
    ChunkPool memory_;
};

void Filler::fill(const Row& row, Transient& record) {
    const Field& field = row.field;
    switch (row.kind) {
        case ValueKind::Real:
            record.*field.real = real();
            return;
        case ValueKind::Integer:
        case ValueKind::Handle:
            record.*field.integer = integer();
            return;
        case ValueKind::Boolean:
            record.*field.boolean = random_() % 2 == 0;
            return;
        case ValueKind::String:
            record.*field.text = text();
            return;
        case ValueKind::Point:
        case ValueKind::Coordinates:
            record.*field.point = point();
            return;
        case ValueKind::Point2:
            record.*field.point2 = kernel::Point2(real(), real());
            return;
        case ValueKind::Reals:
            record.*field.reals = list<double>([&] { return real(); });
            return;
        case ValueKind::Integers:
        case ValueKind::Handles:
            record.*field.integers = list<std::int32_t>([&] { return integer(); });
            return;
        case ValueKind::Points2:
            record.*field.points2 = list<kernel::Point2>([&] { return kernel::Point2(real(), real()); });
            return;
        case ValueKind::Counted:
            return fill_counted(row, record);
        case ValueKind::Points:
            record.*field.points = list<kernel::Point>([&] { return point(); });
            return;
        case ValueKind::Strings:
            record.*field.texts = list<Text>([&] { return text(); });
            return;
        case ValueKind::BinData:
            record.*field.bin_data = make<DxfSection_BinData>();
            (record.*field.bin_data)->Value = list<Text>([&] { return text(); });
            return;
        case ValueKind::Record: {
            Transient& made = row.records.append(record, memory_);
            fill(*row.records.table, made);
            // What keeps the text that begins it has to keep the right one.
            const Row* kept = row.records.opening ? row.records.table->find(row.code) : nullptr;
            if (kept && kept->kind == ValueKind::String) made.*kept->field.text = row.records.opening;
            return;
        }
        case ValueKind::Records:
            for (unsigned count = 1 + random_() % 3; count > 0; --count) {
                fill(*row.records.table, row.records.append(record, memory_));
            }
            return;
        case ValueKind::Groups:
            record.*field.groups = list<DxfSection_DxfGroup>([&] {
                return DxfSection_DxfGroup{integer() % 1071 + 1, text()};
            });
            return;
        case ValueKind::Base:
            return row.omit == Omit::Always ? void() : fill(*row.base, record);
        default:
            return;
    }
}

void Filler::fill_counted(const Row& row, Transient& record) {
    const Field& list = row.elements.field;
    std::int32_t& count = record.*row.field.integer;
    fill(row.elements_row(), record);
    if (row.elements.kind == ValueKind::BinData) {
        count = integer();
    } else if (row.elements.kind == ValueKind::Reals) {
        count = length(record.*list.reals);
    } else if (row.elements.kind == ValueKind::Points) {
        count = length(record.*list.points);
    } else {
        auto& items = (record.*list.integers)->items();
        items.resize(items.size() * static_cast<std::size_t>(row.elements.per_count), 7);
        count = static_cast<std::int32_t>(items.size()) / row.elements.per_count;
    }
}

/// True when a field, told by its path, is one that the version does not write, or that is never written.
bool is_left_out(const RecordTable& table, std::string_view path, int version) {
    const auto is_unwritten = [&](const Row& row) {
        return row.omit == Omit::Always || version < row.since_version || version >= row.below_version;
    };
    const std::size_t inside = path.find("].");
    bool base_is_unwritten = false;
    for (const Row& row : table.rows()) {
        if (row.kind == ValueKind::Base) base_is_unwritten = is_unwritten(row);
        if (!row.label || path.substr(0, path.find('[')) != row.label) continue;
        if (is_unwritten(row) || inside == std::string_view::npos || !row.records.table) {
            return is_unwritten(row);
        }
        return is_left_out(*row.records.table, path.substr(inside + 2), version);
    }
    return table.base() && (base_is_unwritten || is_left_out(*table.base(), path, version));
}

/// Leaves of a loop and of an edge the one thing that it may be.
void make_legal(DxfEnt_Hatch& hatch) {
    for (const auto& loop : *hatch.BoundaryLoops) {
        if (hatch.Style % 2) {
            loop->Edges = nullptr;
            continue;
        }
        loop->Polyline = nullptr;
        for (const auto& edge : *loop->Edges->BoundaryEdges) {
            if (edge->EdgeType % 2) {
                edge->ElementaryEdge = nullptr;
            } else {
                edge->SplineEdge = nullptr;
            }
        }
    }
}

/// A record of the type, its fields filled with numbers and texts.
Ref<DxfSection_Object> filled(const DxfFile_ObjectRegistrator& registrator, unsigned seed) {
    const auto record = record_of(std::string("0 ") + registrator.Name());
    Filler(seed).fill(registrator.Table(), *record);
    if (auto* hatch = as<DxfEnt_Hatch>(record.get())) make_legal(*hatch);
    if (auto* block = as<DxfSection_Block>(record.get())) block->EndMarker = make<DxfSection_EndBlk>();
    return record;
}

constexpr int kVersions[] = {1009, 1012, 1014, 1015, 1016, 1018, 1021, 1024};

/// Reads what was written of a record and expects its fields.
void expect_same(const DxfFile_ObjectRegistrator& registrator, const DxfSection_Object& before,
                 const std::string& text, int version) {
    SCOPED_TRACE(std::string(registrator.Name()) + " for " + std::to_string(version));
    TextReader from(text + "0\nEOF\n");
    const auto after = record_of(from);
    for (const FieldDifference& difference : compare_records(before, *after)) {
        EXPECT_TRUE(is_left_out(registrator.Table(), difference.label, version))
            << difference.label << ": " << difference.before << " became " << difference.after;
    }
    EXPECT_EQ(from.global(), Texts());
    EXPECT_EQ(from.of(after.get()), Texts());
    from.next();  // pushed back, or what follows an end that was consumed
    EXPECT_EQ(from.reader.View(), "EOF");
}

TEST(RecordTables, ValuesSurviveAWriteAndARead) {
    for (const auto* registrator : registered()) {
        for (unsigned seed = 0; seed < 40; ++seed) {
            const auto record = filled(*registrator, seed);
            const int version = kVersions[seed % std::size(kVersions)];
            expect_same(*registrator, *record, written(*record, version), version);
        }
    }
}

/// True for a row whose groups may stand anywhere: values, lists of them, and what is dropped. A marker that
/// is kept is the last one of its record.
bool may_stand_anywhere(const Row& row) {
    if (row.code == 100 && row.kind == ValueKind::String) return false;
    return row.kind <= ValueKind::Strings || row.kind == ValueKind::Marker ||
           row.kind == ValueKind::Constant || row.kind == ValueKind::Base;
}

TEST(RecordTables, PlainValuesComeInAnyOrder) {
    std::mt19937 random(1);
    int plain = 0;
    for (const auto* registrator : registered()) {
        const RecordTable& table = registrator->Table();
        if (!table.base() || !std::all_of(table.rows().begin(), table.rows().end(), may_stand_anywhere))
            continue;
        ++plain;
        for (unsigned seed = 0; seed < 20; ++seed) {
            const auto record = filled(*registrator, seed);
            std::vector<Row> rows = table.rows();  // the base's come first, at the head of the record
            const auto own = std::stable_partition(
                rows.begin(), rows.end(), [](const Row& row) { return row.kind == ValueKind::Base; });
            std::shuffle(own, rows.end(), random);
            const RecordTable shuffled(table.class_name(), rows);
            const int version = kVersions[seed % std::size(kVersions)];
            const std::string text = written_by(version, [&](std::ostream& out, DxfFile_FileWriter& writer) {
                writer.WriteString(out, 0, registrator->Name());
                write_record(shuffled, out, writer, *record);
            });
            expect_same(*registrator, *record, text, version);
        }
    }
    EXPECT_GT(plain, 10);
}

/// Expects that a record nobody changed writes none of the rows that leave a value out.
void expect_left_out(const RecordTable& table, Transient& record) {
    ChunkPool memory;
    for (const Row& row : table.rows()) {
        if (row.base) expect_left_out(*row.base, record);
        if (row.records.table) expect_left_out(*row.records.table, row.records.append(record, memory));
        if (row.omit != Omit::IfEqual && row.omit != Omit::IfZAxis) continue;
        const RecordTable alone(table.class_name(), {row});
        const auto write = [&](std::ostream& out, DxfFile_FileWriter& writer) {
            write_fields(alone, out, writer, record);
        };
        EXPECT_EQ(written_by(1024, write), "") << table.class_name() << " " << row.label;
    }
}

TEST(RecordTables, WhatIsLeftOutIsTheDefault) {
    for (const auto* registrator : registered()) {
        const auto record = record_of(std::string("0 ") + registrator->Name());
        expect_left_out(registrator->Table(), *record);
    }
}

TEST(RecordTables, ARecordCutShortAnywhereIsReadToItsEnd) {
    for (const auto* registrator : registered()) {
        const std::string text = written(*filled(*registrator, 1), 1024);
        std::size_t step = text.size() / 400 + 1;
        for (std::size_t length = 0; length < text.size(); length += step) {
            TextReader from(text.substr(0, length));
            record_of(from);
            from.next();
            ASSERT_FALSE(from.reader.HasGroup()) << registrator->Name() << " cut at " << length;
        }
    }
}

}  // namespace
}  // namespace veltrane
