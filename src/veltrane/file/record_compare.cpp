#include "veltrane/file/record_compare.hpp"

#include "veltrane/file/object_registrator.hpp"
#include "veltrane/file/record_table.hpp"
#include "veltrane/section/handle_text.hpp"

#include <algorithm>
#include <charconv>
#include <limits>
#include <sstream>
#include <string_view>
#include <utility>

namespace veltrane {

namespace {

constexpr const char* kNotSet = "<NOT SET>";
constexpr int kAllLevels = 100;  // deeper than any piece is nested
constexpr int kCountsOnly = 0;

// Values as text. Two values are equal when their texts are.

std::string text_of(std::int32_t value) {
    return std::to_string(value);
}

std::string text_of(double value) {
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

std::string text_of(const Text& value) {
    return value.is_null() ? kNotSet : '"' + value.str() + '"';
}

std::string text_of(const DxfSection_DxfGroup& group) {
    return std::to_string(group.Code) + ", " + text_of(group.Value);
}

template <int Dimension, int Options>
std::string text_of(const Eigen::Matrix<double, Dimension, 1, Options>& point) {
    std::string text = "(";
    for (int axis = 0; axis < Dimension; ++axis) text += (axis ? ", " : "") + text_of(point[axis]);
    return text + ")";
}

std::string handle_text_of(std::int32_t handle) {
    return handle == kUndefinedInteger ? kNotSet : DxfSection::HexToString(handle).str();
}

std::string numbered(const char* label, int number) {
    return std::string(label) + "[" + std::to_string(number) + "]";
}

/// Gathers the differences of one pair of records.
class Comparison {
public:
    explicit Comparison(std::vector<FieldDifference>& found) : found_(found) {}

    void fields(const RecordTable& table, const Transient& before, const Transient& after) {
        for (const Row& row : table.rows()) compare_row(row, before, after);
    }
    void values(const std::string& label, int code, const std::string& before, const std::string& after) {
        if (before != after) found_.push_back({prefix_ + label, code, before, after});
    }
    /// False, and a difference, unless both lists have one length; -1 stands for a list that is not set.
    bool lengths(const char* label, int code, int before, int after) {
        const auto text = [](int length) { return length < 0 ? kNotSet : std::to_string(length) + " items"; };
        values(label, code, text(before), text(after));
        return before == after;
    }
    /// Compares what is inside the field `label`: `compare` adds its differences with the path to it.
    template <class Compare>
    void inside(const std::string& label, Compare compare) {
        const std::string enclosing = std::exchange(prefix_, prefix_ + label + ".");
        compare();
        prefix_ = enclosing;
    }

private:
    void compare_row(const Row& row, const Transient& before, const Transient& after);
    void sub_records(const Row& row, const Transient& before, const Transient& after);
    void piece(const Row& row, const Transient& before, const Transient& after);

    template <class T, class ToText>
    void list(const Row& row, const Ref<Sequence<T>>& before, const Ref<Sequence<T>>& after, ToText text) {
        if (before == after) return;
        if (!lengths(row.label, row.code, before ? before->Length() : -1, after ? after->Length() : -1))
            return;
        for (int number = 1; number <= length(before); ++number) {
            values(numbered(row.label, number), row.code, text(before->Value(number)),
                   text(after->Value(number)));
        }
    }

    std::vector<FieldDifference>& found_;
    std::string prefix_;
};

void Comparison::compare_row(const Row& row, const Transient& before, const Transient& after) {
    const Field& field = row.field;
    const auto value = [&](auto member, auto text) {
        values(row.label, row.code, text(before.*member), text(after.*member));
    };
    const auto plain = [](const auto& item) { return text_of(item); };
    switch (row.kind) {
        case ValueKind::Real:
            if (before.*field.real == after.*field.real) return;  // 0 and -0 are one number
            return value(field.real, plain);
        case ValueKind::Integer:
            return value(field.integer, plain);
        case ValueKind::Boolean:
            return value(field.boolean, [](bool is_set) { return std::string(is_set ? "Yes" : "No"); });
        case ValueKind::Handle:
            return value(field.integer, handle_text_of);
        case ValueKind::String:
            return value(field.text, plain);
        case ValueKind::Point:
        case ValueKind::Coordinates:
            if (before.*field.point == after.*field.point) return;
            return value(field.point, plain);
        case ValueKind::Point2:
            if (before.*field.point2 == after.*field.point2) return;
            return value(field.point2, plain);
        case ValueKind::Reals:
            return list(row, before.*field.reals, after.*field.reals, plain);
        case ValueKind::Integers:
            return list(row, before.*field.integers, after.*field.integers, plain);
        case ValueKind::Handles:
            return list(row, before.*field.integers, after.*field.integers, handle_text_of);
        case ValueKind::Points:
            return list(row, before.*field.points, after.*field.points, plain);
        case ValueKind::Points2:
            return list(row, before.*field.points2, after.*field.points2, plain);
        case ValueKind::Strings:
            return list(row, before.*field.texts, after.*field.texts, plain);
        case ValueKind::BinData: {
            const auto lines = [](const Ref<DxfSection_BinData>& data) {
                return data ? data->Value : Ref<Sequence<Text>>();
            };
            return list(row, lines(before.*field.bin_data), lines(after.*field.bin_data), plain);
        }
        case ValueKind::Groups:
            return list(row, before.*field.groups, after.*field.groups, plain);
        case ValueKind::Counted:
            value(field.integer, plain);
            return compare_row(row.elements_row(), before, after);
        case ValueKind::Record:
        case ValueKind::Records:
            return sub_records(row, before, after);
        case ValueKind::Base:
            return fields(*row.base, before, after);
        case ValueKind::Piece:
            return piece(row, before, after);
        case ValueKind::Marker:
        case ValueKind::Constant:
            return;  // hold nothing
    }
}

void Comparison::sub_records(const Row& row, const Transient& before, const Transient& after) {
    const int count = row.records.count(before);
    if (!lengths(row.label, row.code, count, row.records.count(after))) return;
    for (int number = 1; number <= count; ++number) {
        inside(numbered(row.label, number), [&] {
            fields(*row.records.table, row.records.item(before, number), row.records.item(after, number));
        });
    }
}

/// The next line of a text, without its end.
std::string next_line(std::string_view& text) {
    const std::string line(text.substr(0, text.find('\n')));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

/// A piece is known by its functions alone, so its dump has to speak for it: the first line in which the two
/// dumps differ, under the label that was written last.
void Comparison::piece(const Row& row, const Transient& before, const Transient& after) {
    if (!row.piece.read || !row.piece.dump) return;
    const int level = row.code == 0 ? kCountsOnly : kAllLevels;  // a group 0 begins a contained record
    const auto dump = [&](const Transient& record) {
        std::ostringstream out;
        out.precision(std::numeric_limits<double>::max_digits10);
        row.piece.dump(out, record, level);
        return out.str();
    };
    const std::string old_dump = dump(before), new_dump = dump(after);
    if (old_dump == new_dump) return;

    std::string_view old_rest = old_dump, new_rest = new_dump;
    std::string label;
    while (!old_rest.empty() || !new_rest.empty()) {
        const std::string old_line = next_line(old_rest), new_line = next_line(new_rest);
        const std::string& labelled = old_line.empty() ? new_line : old_line;
        if (const auto end = labelled.find(": \t"); end != std::string::npos) label = labelled.substr(0, end);
        if (old_line == new_line) continue;
        return values(label, row.code, old_line, new_line);
    }
}

void compare_contained(Comparison& comparison, const DxfSection_Object& before,
                       const DxfSection_Object& after, ContainedRecords contained);

void compare(Comparison& comparison, const DxfSection_Object& before, const DxfSection_Object& after,
             ContainedRecords contained) {
    const auto* registrator = DxfFile_ObjectRegistrator::Find(before.DynamicType());
    if (!registrator || &before.DynamicType() != &after.DynamicType()) {
        comparison.values("class", 0, std::string(before.DynamicType().name()),
                          std::string(after.DynamicType().name()));
        return;
    }
    comparison.fields(registrator->Table(), before, after);
    if (contained == ContainedRecords::Compare) compare_contained(comparison, before, after, contained);
}

void compare_contained(Comparison& comparison, const DxfSection_Object& before,
                       const DxfSection_Object& after, ContainedRecords contained) {
    const auto old_items = before.GetSubObjects(), new_items = after.GetSubObjects();
    if (length(old_items) != length(new_items)) return;  // told as a difference of the field
    for (int number = 1; number <= length(old_items); ++number) {
        const auto& old_item = old_items->Value(number);
        const auto& new_item = new_items->Value(number);
        if (!old_item || !new_item) continue;
        comparison.inside(numbered("Objects", number),
                          [&] { compare(comparison, *old_item, *new_item, contained); });
    }
}

}  // namespace

std::vector<FieldDifference> compare_records(const DxfSection_Object& before, const DxfSection_Object& after,
                                             ContainedRecords contained) {
    std::vector<FieldDifference> found;
    Comparison comparison(found);
    compare(comparison, before, after, contained);
    return found;
}

std::vector<FieldDifference> compare_fields(const RecordTable& table, const Transient& before,
                                            const Transient& after) {
    std::vector<FieldDifference> found;
    Comparison(found).fields(table, before, after);
    return found;
}

}  // namespace veltrane
