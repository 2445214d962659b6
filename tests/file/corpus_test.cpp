// Every drawing of a folder is read, written and read again; what comes back is compared with what was there,
// record by record. What may differ, and why, stands in the table of rules; anything else is a failure.
#include "support/dxf_text.hpp"
#include "veltrane/exchange/parameters.hpp"
#include "veltrane/file/drawing_compare.hpp"
#include "veltrane/file/file_probe.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/file/record_table.hpp"
#include "veltrane/file/work_library.hpp"
#include "veltrane/section/block.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <iostream>
#include <map>

namespace veltrane {
namespace {

namespace fs = std::filesystem;

/// The row of a field by its label, among the table's own and those of its bases.
const Row* row_of(const RecordTable& table, const std::string& label) {
    for (const Row& row : table.rows()) {
        if (row.label && row.label == label) return &row;
    }
    return table.base() ? row_of(*table.base(), label) : nullptr;
}

/// The numbers in a field's text.
std::vector<double> numbers_in(const std::string& text) {
    std::vector<double> numbers;
    for (std::size_t at = 0; (at = text.find_first_of("-0123456789", at)) != std::string::npos;) {
        double number = 0;
        const char* end = text.data() + text.size();
        const auto result = std::from_chars(text.data() + at, end, number);
        if (result.ec == std::errc()) numbers.push_back(number);
        at = std::max(at + 1, static_cast<std::size_t>(result.ptr - text.data()));
    }
    return numbers;
}

bool within(const std::string& before, const std::string& after, double tolerance) {
    const auto a = numbers_in(before), b = numbers_in(after);
    return !a.empty() && std::equal(a.begin(), a.end(), b.begin(), b.end(),
                                    [&](double x, double y) { return std::fabs(x - y) <= tolerance; });
}

constexpr const char* kAdded = "added";
constexpr const char* kRemoved = "removed";
constexpr const char* kRenumbered = "has another handle";

/// One field of one record, before and after; or a record, header variable or comment as a whole.
struct Difference {
    const DxfSection_Object* record;  ///< null for header variables and comments
    const FieldDifference& field;
    const Row* row;  ///< null for a field that no row of the record's own names
    int version;
};

template <class Record>
bool is_a(const DxfSection_Object* record) {
    return record && record->is_kind(Record::type());
}

struct Rule {
    const char* name;
    bool (*holds)(const Difference&);
};

const Rule kRules[] = {
    {"a vertex without a marker gets the one of its class",
     [](const Difference& d) {
         return d.field.label == "VertexMarker" && d.field.before == "<NOT SET>" &&
                d.field.after == "\"AcDbVertex\"";
     }},
    {"a field of other versions is left out",
     [](const Difference& d) {
         return d.row && (d.version < d.row->since_version || d.version >= d.row->below_version);
     }},
    {"a direction within 1e-10 of the z axis is left out",
     [](const Difference& d) {
         return d.row && d.row->omit == Omit::IfZAxis && within(d.field.before, d.field.after, 1e-10);
     }},
    {"a block that was cut short gets its end",
     [](const Difference& d) { return d.field.label == kAdded && is_a<DxfSection_EndBlk>(d.record); }},
    {"a record that was made raises $HANDSEED",
     [](const Difference& d) { return d.field.label == "$HANDSEED"; }},
    {"the table of dimension styles gets its second marker",
     [](const Difference& d) { return d.field.label == "DimStyleMarker" && d.field.before == "<NOT SET>"; }},
    {"a dimension without subclass markers gets its first",
     [](const Difference& d) {
         return d.field.label == "SubclassMarker" && d.field.before == "<NOT SET>" &&
                d.field.after == "\"AcDbDimension\"";
     }},
    {"a multileader without a leader gets an empty one",
     [](const Difference& d) {
         return d.field.label == "Context Data[1].Leader Data" && d.field.before == "<NOT SET>";
     }},
    {"common fields and break points of a multileader's lines are read and not written",
     [](const Difference& d) {
         return d.field.label.starts_with("Context Data[1].Leader Data[1].LeaderLines[") &&
                (d.field.label.ends_with("].ImageLength") || d.field.label.ends_with("].BreakPointIndex"));
     }},
    {"a real has twenty decimals",
     [](const Difference& d) { return within(d.field.before, d.field.after, 1e-20); }},
};
constexpr const char* kSkippedGroup = "a group that no record has is skipped with a warning";
constexpr const char* kMixedLineEnds = "values of a drawing with mixed line ends hold line ends, and break";
constexpr const char* kUnreadable = "a binary drawing is not read";

class Corpus {
public:
    void check(const fs::path& path);
    void print(std::ostream& out) const {
        out << drawings_ << " drawings, " << records_ << " records compared\n";
        for (const auto& [rule, count] : counts_) out << "  " << count << "  " << rule << '\n';
    }
    int drawings() const { return drawings_; }

private:
    void compare(const DxfSection_Model& before, const DxfSection_Model& after);
    void account_for(const Difference& difference, int line);
    void check_messages(const DxfSection_Model& before, const DxfSection_Model& after);
    const char* rule_of(const Difference& difference) const {
        const auto found = std::find_if(std::begin(kRules), std::end(kRules),
                                        [&](const Rule& rule) { return rule.holds(difference); });
        return found == std::end(kRules) ? nullptr : found->name;
    }

    std::map<std::string, long> counts_;
    int drawings_ = 0;
    long records_ = 0;
    TemporaryFolder folder_;
};

Ref<DxfSection_Model> read(const std::string& name) {
    Ref<ExchangeModel> model;
    if (DxfFile_WorkLibrary().ReadFile(name, model, DxfFile::Protocol()) != 0) return nullptr;
    return as<DxfSection_Model>(model);
}

void Corpus::check(const fs::path& path) {
    const auto before = read(path.string());
    if (!before) {
        EXPECT_EQ(probe_file(path.string()).content, FileContent::BinaryDxf);
        ++counts_[kUnreadable];
        return;
    }
    WriteContext context;
    context.FileName = folder_.file("written.dxf");
    context.Model = before;
    ASSERT_TRUE(DxfFile_WorkLibrary().WriteFile(context)) << messages(&context.Report).front();
    const auto after = read(context.FileName);
    ASSERT_TRUE(after);
    if (probe_file(path.string()).delimiter == '\r' &&
        TemporaryFolder::content(path.string()).find('\n') != std::string::npos) {
        ++counts_[kMixedLineEnds];
        return;
    }
    ++drawings_;
    compare(*before, *after);
    check_messages(*before, *after);
}

void Corpus::compare(const DxfSection_Model& before, const DxfSection_Model& after) {
    const DrawingDifferences found = compare_drawings(before, after, {{}, Handles::Always});
    records_ += static_cast<long>(found.pairs);
    const int version = DxfFile_FileWriter(Ref(const_cast<DxfSection_Model*>(&after))).Version();

    const auto whole = [&](const PlacedRecord& placed, const char* what) {
        const FieldDifference field{what, -1, "", ""};
        account_for({placed.record, field, nullptr, version}, before.Line(before.Number(placed.record)));
    };
    for (const auto& values : {found.comments, found.variables}) {
        for (const ValueDifference& value : values) {
            const FieldDifference field{value.name, -1, value.before.value_or(""), value.after.value_or("")};
            account_for({nullptr, field, nullptr, version}, 0);
        }
    }
    for (const RecordDifference& pair : found.renumbered) whole(pair.before, kRenumbered);
    for (const RecordDifference& pair : found.records) {
        if (!pair.before.record || !pair.after.record) {
            whole(pair.before.record ? pair.before : pair.after, pair.before.record ? kRemoved : kAdded);
            continue;
        }
        const DxfSection_Object* record = pair.before.record;
        const auto* registrator = DxfFile_ObjectRegistrator::Find(record->DynamicType());
        for (const FieldDifference& field : pair.fields) {
            const Row* row = registrator ? row_of(registrator->Table(), field.label) : nullptr;
            account_for({record, field, row, version}, before.Line(before.Number(record)));
        }
    }
}

void Corpus::account_for(const Difference& difference, int line) {
    if (const char* rule = rule_of(difference)) {
        ++counts_[rule];
        return;
    }
    const FieldDifference& field = difference.field;
    ADD_FAILURE() << (difference.record ? difference.record->DynamicType().name() : "") << " " << field.label
                  << " (" << field.code << ") at line " << line << ": " << field.before << " became "
                  << field.after;
}

/// Our own files hold nothing that we do not read.
void Corpus::check_messages(const DxfSection_Model& before, const DxfSection_Model& after) {
    for (int number = 0; number <= before.NbEntities(); ++number) {
        const Check* check = number ? before.CheckOf(number) : &before.GlobalCheck();
        counts_[kSkippedGroup] += check ? static_cast<long>(check->Warnings().size()) : 0;
    }
    for (int number = 0; number <= after.NbEntities(); ++number) {
        const Check* check = number ? after.CheckOf(number) : &after.GlobalCheck();
        for (const std::string& message : messages(check)) {
            ADD_FAILURE() << "record " << number << ": " << message;
        }
    }
}

bool is_drawing(const fs::directory_entry& entry) {
    std::string extension = entry.path().extension().string();
    for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return entry.is_regular_file() && extension == ".dxf";
}

TEST(Corpus, WhatIsReadIsWrittenAndReadAgain) {
    const std::string folder = VELTRANE_SAMPLES_DIR;
    if (folder.empty()) {
        GTEST_SKIP() << "NO DRAWINGS WERE READ: configure with -DVELTRANE_SAMPLES_DIR=<a folder of drawings>";
    }
    DxfFile::Init();
    const std::string version = StaticParameters::TextValue("write.dxf.version");
    StaticParameters::SetText("write.dxf.version", "Undef");
    Corpus corpus;
    std::vector<fs::path> paths;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (is_drawing(entry)) paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    for (const fs::path& path : paths) {
        SCOPED_TRACE(path.string());
        corpus.check(path);
    }
    StaticParameters::SetText("write.dxf.version", version);
    corpus.print(std::cout);
    EXPECT_GT(corpus.drawings(), 0) << "no drawing below " << folder;
}

}  // namespace
}  // namespace veltrane
