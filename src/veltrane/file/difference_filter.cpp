#include "veltrane/file/difference_filter.hpp"

#include "veltrane/section/handle_text.hpp"

#include <algorithm>
#include <charconv>

namespace veltrane {

namespace {

constexpr int kApplicationData = 102;  // the code of its braces

std::string_view without_quotes(std::string_view text) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') return text;
    return text.substr(1, text.size() - 2);
}

/// "Objects[2].Elements[1].Length" is the field "Elements.Length" of a contained record.
std::string field_path(std::string_view label) {
    constexpr std::string_view kContained = "Objects.";
    std::string path;
    bool is_number = false;
    for (const char c : label) {
        if (c == '[') is_number = true;
        if (!is_number) path += c;
        if (c == ']') is_number = false;
    }
    while (path.starts_with(kContained)) path.erase(0, kContained.size());
    return path;
}

/// Takes a group shown as `330, "2F"` apart; false for any other text.
bool split_group(std::string_view text, int& code, std::string_view& value) {
    const std::size_t comma = text.find(", ");
    if (comma == std::string_view::npos) return false;
    if (std::from_chars(text.data(), text.data() + comma, code).ptr != text.data() + comma) return false;
    value = text.substr(comma + 2);
    return true;
}

}  // namespace

bool is_handle_code(int code) {
    return code == 5 || code == 105 || (code >= 320 && code <= 369) || (code >= 390 && code <= 399) ||
           code == 480 || code == 481 || code == 1005;
}

bool DifferenceFilter::is_ignored(std::string_view label) const {
    if (ignored_.empty()) return false;
    const std::string path = field_path(label);
    return std::any_of(ignored_.begin(), ignored_.end(), [&](const std::string& ignored) {
        return label == ignored || path == ignored || path.starts_with(ignored + ".");
    });
}

bool DifferenceFilter::same_handle(std::string_view before, std::string_view after) const {
    if (rule_ == HandleRule::Any) return true;
    // What is not set, or no handle at all, reads as none.
    const std::int32_t old_handle = std::max(DxfSection::StringToHex(without_quotes(before)), 0);
    const std::int32_t new_handle = std::max(DxfSection::StringToHex(without_quotes(after)), 0);
    const auto bound = rule_ == HandleRule::Bound ? handles_.find(old_handle) : handles_.end();
    return bound == handles_.end() ? old_handle == new_handle : bound->second == new_handle;
}

bool DifferenceFilter::same_groups(const Ref<DxfSection_HSequenceOfDxfGroup>& before,
                                   const Ref<DxfSection_HSequenceOfDxfGroup>& after) const {
    if (!before || !after) return before == after;
    return std::equal(before->begin(), before->end(), after->begin(), after->end(),
                      [&](const DxfSection_DxfGroup& a, const DxfSection_DxfGroup& b) {
                          if (a.Code != b.Code) return false;
                          return a.Value == b.Value ||
                                 (is_handle_code(a.Code) && same_handle(a.Value, b.Value));
                      });
}

bool DifferenceFilter::same_application_data(const DxfSection_Object& before,
                                             const DxfSection_Object& after) const {
    const auto* a = as<const DxfSection_HandledObject>(&before);
    const auto* b = as<const DxfSection_HandledObject>(&after);
    if (!a || !b || !a->AppData || !b->AppData) return false;
    return std::equal(
        a->AppData->begin(), a->AppData->end(), b->AppData->begin(), b->AppData->end(),
        [&](const auto& x, const auto& y) { return x->Name == y->Name && same_groups(x->Value, y->Value); });
}

bool DifferenceFilter::matters(const FieldDifference& difference, const DxfSection_Object& before,
                               const DxfSection_Object& after) const {
    if (is_ignored(difference.label)) return false;
    if (is_handle_code(difference.code)) return !same_handle(difference.before, difference.after);
    if (difference.code == kApplicationData && difference.label.find('.') == std::string::npos) {
        return !same_application_data(before, after);
    }
    int code = 0, other_code = 0;
    std::string_view value, other_value;
    const bool is_reference = difference.code < 0 && split_group(difference.before, code, value) &&
                              split_group(difference.after, other_code, other_value) && code == other_code &&
                              is_handle_code(code);
    return !is_reference || !same_handle(value, other_value);
}

}  // namespace veltrane
