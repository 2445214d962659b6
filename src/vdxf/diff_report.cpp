#include "vdxf/diff_report.hpp"

#include "vdxf/census.hpp"
#include "veltrane/file/record_name.hpp"

#include <fmt/format.h>
#include <fmt/ostream.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace veltrane::tool {

namespace {

constexpr std::size_t kShownFields = 10;  // of one record
constexpr std::size_t kShownLength = 60;  // of one value, in bytes

std::string plural(std::size_t count, const char* noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

bool is_inside_character(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// A stretch of a UTF-8 text, with dots for what is left out.
std::string stretch(std::string_view text, std::size_t first) {
    first = std::min(first, text.size());
    while (first > 0 && first < text.size() && is_inside_character(text[first])) --first;
    std::size_t end = std::min(first + kShownLength, text.size());
    while (end > first && end < text.size() && is_inside_character(text[end])) --end;
    return (first > 0 ? "..." : "") + std::string(text.substr(first, end - first)) +
           (end < text.size() ? "..." : "");
}

/// Where to begin, so that the first character that differs is among those shown.
std::size_t shown_from(std::string_view before, std::string_view after) {
    const auto differing = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    const auto same = static_cast<std::size_t>(differing - before.begin());
    const bool fits = std::max(before.size(), after.size()) <= kShownLength;
    return fits || same < kShownLength / 2 ? 0 : same - kShownLength / 3;
}

class TextReport {
public:
    TextReport(std::ostream& out, const DiffReport& report, const DiffTextOptions& options)
        : out_(out), report_(report), options_(options) {}

    void print() {
        print_values("Comments", report_.differences.comments);
        print_values("Header variables", report_.differences.variables);
        for (const auto& [place, differences] : places()) print_place(place.second, differences);
        print_renumbered();
    }

private:
    using Differences = std::vector<const RecordDifference*>;
    /// By the section's place in the file, and by the name of table, block or polyline.
    using Places = std::map<std::pair<std::size_t, std::string>, Differences>;

    Places places() const;
    std::string place_label(const RecordDifference& difference) const;
    void print_values(const char* title, const std::vector<ValueDifference>& values);
    void print_place(const std::string& place, const Differences& differences);
    void print_record(const RecordDifference& difference);
    std::string elsewhere(const DxfSection_Object& before, const DxfSection_Object& after) const;
    void print_fields(const std::vector<FieldDifference>& fields);
    void print_change(const std::string& label, std::string_view before, std::string_view after);
    void print_renumbered();

    std::ostream& out_;
    const DiffReport& report_;
    const DiffTextOptions& options_;
};

std::string TextReport::place_label(const RecordDifference& difference) const {
    const DiffSide& side = report_.side_of(difference);
    const PlacedRecord& placed = difference.before.record ? difference.before : difference.after;
    const std::string section = side.name_of(*placed.section);
    if (!placed.container || placed.container == placed.section) {
        return section.empty() ? dxf_name(*placed.section) : section;
    }
    const std::string name = side.name_of(*placed.container);
    const std::string type = dxf_name(*placed.container);
    return section + ", " + (name.empty() ? type + " #" + handle_of(*placed.container) : type + " " + name);
}

TextReport::Places TextReport::places() const {
    std::map<std::string, std::size_t> ranks;  // of the sections
    const auto rank = [&](const DiffSide& side) {
        const auto& sections = side.drawing().model().DxfFile()->Sections;
        if (!sections) return;
        for (const auto& section : *sections) {
            if (section) ranks.try_emplace(side.name_of(*section), ranks.size());
        }
    };
    rank(report_.before);
    rank(report_.after);
    Places found;
    for (const RecordDifference& difference : report_.differences.records) {
        const PlacedRecord& placed = difference.before.record ? difference.before : difference.after;
        const std::string section = report_.side_of(difference).name_of(*placed.section);
        found[{ranks[section], place_label(difference)}].push_back(&difference);
    }
    return found;
}

/// `""` for a value without a character, which would look like none.
std::string visible(std::string text) {
    return text.empty() ? "\"\"" : text;
}

void TextReport::print_change(const std::string& label, std::string_view before, std::string_view after) {
    std::string old_text = report_.before.shown(before), new_text = report_.after.shown(after);
    if (!options_.in_full) {
        const std::size_t first = shown_from(old_text, new_text);
        old_text = stretch(old_text, first);
        new_text = stretch(new_text, first);
    }
    fmt::print(out_, "{}: {} -> {}\n", label, visible(old_text), visible(new_text));
}

void TextReport::print_values(const char* title, const std::vector<ValueDifference>& values) {
    if (values.empty()) return;
    fmt::print(out_, "{}\n", title);
    for (const ValueDifference& value : values) {
        const std::string name = report_.before.shown(value.name);
        if (value.before && value.after) {
            print_change("  ~ " + name, *value.before, *value.after);
            continue;
        }
        const DiffSide& side = value.before ? report_.before : report_.after;
        const std::string text = side.shown(value.before ? *value.before : *value.after);
        fmt::print(out_, "  {} {}: {}\n", value.before ? '-' : '+', name,
                   visible(options_.in_full ? text : stretch(text, 0)));
    }
}

void TextReport::print_place(const std::string& place, const Differences& differences) {
    fmt::print(out_, "{}\n", place);
    std::size_t shown = 0;
    for (const RecordDifference* difference : differences) {
        if (!out_.good()) return;
        if (options_.limit > 0 && shown++ == options_.limit) {
            fmt::print(out_, "  ... and {} more\n", differences.size() - options_.limit);
            return;
        }
        print_record(*difference);
    }
}

/// " (B: #31, line 140)": how the same record is found in the second drawing, where that differs.
std::string TextReport::elsewhere(const DxfSection_Object& before, const DxfSection_Object& after) const {
    std::vector<std::string> parts;
    const std::string handle = handle_of(after);
    if (handle != handle_of(before)) parts.push_back(handle.empty() ? "no handle" : "#" + handle);
    const int line = report_.after.line_of(after);
    if (line != report_.before.line_of(before)) parts.push_back(fmt::format("line {}", line));
    return parts.empty() ? "" : fmt::format(" (B: {})", fmt::join(parts, ", "));
}

/// "LAYER WALLS #2F, line 120".
void TextReport::print_record(const RecordDifference& difference) {
    const DxfSection_Object* before = difference.before.record;
    const DxfSection_Object* after = difference.after.record;
    const DxfSection_Object& record = before ? *before : *after;
    const DiffSide& side = report_.side_of(difference);
    std::string label = dxf_name(record);
    if (const std::string name = side.name_of(record); !name.empty()) label += " " + name;

    if (const std::string handle = handle_of(record); !handle.empty()) label += " #" + handle;
    if (const std::string layer = side.layer_of(record); !layer.empty()) label += ", layer " + layer;
    if (const int line = side.line_of(record)) label += fmt::format(", line {}", line);
    if (before && after) label += elsewhere(*before, *after);
    if (difference.contents > 0) label += ", with " + plural(difference.contents, "record") + " inside";
    fmt::print(out_, "  {} {}\n", !after ? '-' : !before ? '+' : '~', label);
    print_fields(difference.fields);
}

void TextReport::print_fields(const std::vector<FieldDifference>& fields) {
    std::size_t shown = 0;
    for (const FieldDifference& field : fields) {
        if (!options_.in_full && shown++ == kShownFields) {
            fmt::print(out_, "      ... and {} more\n", plural(fields.size() - kShownFields, "field"));
            return;
        }
        print_change("      " + report_.before.shown(field.label), field.before, field.after);
    }
}

void TextReport::print_renumbered() {
    if (!options_.in_full || report_.differences.renumbered.empty()) return;
    fmt::print(out_, "Other handles\n");
    for (const RecordDifference& difference : report_.differences.renumbered) print_record(difference);
}

}  // namespace

std::string DiffSide::shown(std::string_view text) const {
    std::string line = text_.lines(text.substr(std::min(text.find_first_not_of(" \t"), text.size())));
    std::replace(line.begin(), line.end(), '\t', ' ');
    return without_controls(std::move(line));
}

std::string DiffSide::name_of(const DxfSection_Object& record) const {
    return text_.name(record_name(record));
}

std::string DiffSide::layer_of(const DxfSection_Object& record) const {
    return text_.name(tool::layer_of(record));
}

int DiffSide::line_of(const DxfSection_Object& record) const {
    const DxfSection_Model& model = drawing_.model();
    const int number = model.Number(&record);
    return number > 0 ? model.Line(number) : 0;
}

DiffCounts count(const DrawingDifferences& differences) {
    DiffCounts counts;
    for (const RecordDifference& difference : differences.records) {
        const bool is_changed = difference.before.record && difference.after.record;
        std::size_t& kind = is_changed                 ? counts.changed
                            : difference.before.record ? counts.removed
                                                       : counts.added;
        kind += 1 + difference.contents;
    }
    counts.renumbered = differences.renumbered.size();
    counts.same = differences.pairs - counts.changed - counts.renumbered;
    return counts;
}

void print_diff_summary(std::ostream& out, const DiffReport& report) {
    const DrawingDifferences& found = report.differences;
    const DiffCounts counts = count(found);
    std::string records;
    const auto add = [&](std::size_t number, const char* what) {
        if (number > 0) records += fmt::format("{} {}, ", number, what);
    };
    add(counts.added, "added");
    add(counts.removed, "removed");
    add(counts.changed, "changed");
    add(counts.renumbered, "with another handle only");
    fmt::print(out, "Records: {}{} unchanged", records, counts.same);
    if (!found.variables.empty()) fmt::print(out, "; header variables: {} changed", found.variables.size());
    if (!found.comments.empty()) fmt::print(out, "; comments: {} changed", found.comments.size());
    fmt::print(out, "\n");
}

void print_diff(std::ostream& out, const DiffReport& report, const DiffTextOptions& options) {
    if (report.differences.empty()) {
        fmt::print(out, "No differences in {}\n", plural(report.differences.pairs, "record"));
        return;
    }
    TextReport(out, report, options).print();
    print_diff_summary(out, report);
}

}  // namespace veltrane::tool
