#include "veltrane/file/drawing_compare.hpp"

#include "veltrane/file/record_name.hpp"
#include "veltrane/file/record_pairing.hpp"

#include <algorithm>
#include <charconv>
#include <map>
#include <string_view>
#include <utility>

namespace veltrane {

namespace {

/// The values of a variable's groups; with their codes where the values alone do not tell what changed.
std::string value_text(const DxfSection_Variable& variable, bool with_codes) {
    std::string text;
    for (int number = 1; number <= length(variable.Value); ++number) {
        const DxfSection_DxfGroup& group = variable.Value->Value(number);
        if (number > 1) text += ", ";
        if (with_codes) text += std::to_string(group.Code) + " ";
        text += group.Value.view();
    }
    return length(variable.Value) > 1 ? "(" + text + ")" : text;
}

/// True for the versions that want a handle on every record; false also for a drawing without a version.
bool are_handles_required(const DxfSection_Model& model) {
    constexpr int kR13 = 1012;
    const Text text = model.GetVariableString("$ACADVER");
    int version = 0;
    const std::string_view digits = text.view().substr(std::min<std::size_t>(2, text.view().size()));
    std::from_chars(digits.data(), digits.data() + digits.size(), version);
    return version >= kR13;
}

bool do_handles_matter(const DxfSection_Model& before, const DxfSection_Model& after, Handles handles) {
    if (handles == Handles::WhereRequired) {
        return are_handles_required(before) && are_handles_required(after);
    }
    return handles == Handles::Always;
}

/// A piece differs in lines of its dump; without blanks and its label such a line is a value like others.
void make_value(const std::string& label, std::string& line) {
    const std::string shown_label = label.substr(label.rfind('.') + 1) + ": \t";
    if (line.starts_with(shown_label)) line.erase(0, shown_label.size());
    line.erase(0, line.find_first_not_of(' '));
    if (line.empty()) line = "<NOT SET>";
}

class DrawingComparison {
public:
    DrawingComparison(const DxfSection_Model& before, const DxfSection_Model& after,
                      const CompareOptions& options)
        : before_(before),
          after_(after),
          with_handles_(do_handles_matter(before, after, options.handles)),
          filter_(options.ignored, with_handles_ ? HandleRule::Bound : HandleRule::Any) {
        pair_records(before_, after_, options.ignored);
        bind_handles();
        compare_comments(before.DxfFile()->Comment, after.DxfFile()->Comment);
        for (int a = 1; a < before_.size(); ++a) compare(a);
        for (int b = 1; b < after_.size(); ++b) tell_added(b);
    }
    DrawingDifferences take() { return std::move(found_); }

private:
    void bind_handles();
    void compare(int a);
    void tell_added(int b);
    std::vector<FieldDifference> differences(int a, int b) const;
    void compare_variables(const DxfSection_Section& before, const DxfSection_Section& after);
    void compare_comments(const Ref<Sequence<Text>>& before, const Ref<Sequence<Text>>& after);

    /// True for a record that goes or comes with the one around it.
    static bool is_inside_told(const RecordTree& tree, int place) {
        const int container = tree[place].container;
        return container > 0 && !tree.is_paired(container);
    }
    static PlacedRecord placed(const RecordTree& tree, int place) {
        return {tree[place].record, tree[tree[place].container].record, tree[tree.section_of(place)].record};
    }
    static std::size_t count_contents(const RecordTree& tree, int place);
    static std::string container_label(const RecordTree& tree, int place);

    RecordTree before_;
    RecordTree after_;
    bool with_handles_;
    DifferenceFilter filter_;
    DrawingDifferences found_;
};

void DrawingComparison::bind_handles() {
    filter_.bind(0, 0);
    for (int a = 1; a < before_.size(); ++a) {
        if (before_.is_paired(a)) filter_.bind(before_[a].handle, after_[before_[a].partner].handle);
    }
}

/// Those that were moved elsewhere are not counted.
std::size_t DrawingComparison::count_contents(const RecordTree& tree, int place) {
    std::size_t count = 0;
    std::vector<int> pending{place};
    while (!pending.empty()) {
        const TreeRecord& around = tree[pending.back()];
        pending.pop_back();
        for (int inside = around.first; inside < around.first + around.count; ++inside) {
            if (tree.is_paired(inside)) continue;
            ++count;
            pending.push_back(inside);
        }
    }
    return count;
}

std::string DrawingComparison::container_label(const RecordTree& tree, int place) {
    const TreeRecord& container = tree[tree[place].container];
    if (!container.record) return "file";
    const Text name = record_name(*container.record);
    return std::string(container.type) + (name.is_null() ? "" : " \"" + name.str() + '"');
}

std::vector<FieldDifference> DrawingComparison::differences(int a, int b) const {
    const DxfSection_Object& before = *before_[a].record;
    const DxfSection_Object& after = *after_[b].record;
    std::vector<FieldDifference> fields;
    if (!before_[a].is_identical) fields = compare_records(before, after);
    const bool is_section = before.is_kind(DxfSection_Section::type());
    std::erase_if(fields, [&](const FieldDifference& difference) {
        // Records inside and header variables are compared one by one.
        const bool is_content = difference.code == 0 && difference.label != "class";
        const bool is_variables = difference.code == 9 && is_section;
        return is_content || is_variables || !filter_.matters(difference, before, after);
    });
    for (FieldDifference& field : fields) {
        make_value(field.label, field.before);
        make_value(field.label, field.after);
    }
    if (before_[before_[a].container].partner != after_[b].container) {
        fields.push_back({"(place)", -1, container_label(before_, a), container_label(after_, b)});
    }
    return fields;
}

void DrawingComparison::compare(int a) {
    const int b = before_[a].partner;
    if (b < 0) {
        if (!is_inside_told(before_, a)) {
            found_.records.push_back({placed(before_, a), {}, {}, count_contents(before_, a)});
        }
        return;
    }
    ++found_.pairs;
    const auto* before = as<const DxfSection_Section>(before_[a].record);
    const auto* after = as<const DxfSection_Section>(after_[b].record);
    if (before && after) compare_variables(*before, *after);
    std::vector<FieldDifference> fields = differences(a, b);
    if (!fields.empty()) {
        found_.records.push_back({placed(before_, a), placed(after_, b), std::move(fields), 0});
    } else if (before_[a].handle != after_[b].handle && with_handles_) {
        found_.renumbered.push_back({placed(before_, a), placed(after_, b), {}, 0});
    }
}

void DrawingComparison::tell_added(int b) {
    if (after_.is_paired(b) || is_inside_told(after_, b)) return;
    found_.records.push_back({{}, placed(after_, b), {}, count_contents(after_, b)});
}

void DrawingComparison::compare_variables(const DxfSection_Section& before, const DxfSection_Section& after) {
    // A broken file may have a variable twice, so the name alone is no key.
    using Key = std::pair<std::string, int>;
    std::map<Key, const DxfSection_Variable*> added;
    const auto visit = [](const DxfSection_Section& section, auto visitor) {
        if (!section.Variables) return;
        std::map<std::string, int> times;
        for (const auto& variable : *section.Variables) {
            const std::string name = variable->Name.str();
            visitor(Key(name, ++times[name]), *variable);
        }
    };
    const auto tell = [&](const std::string& name, std::optional<std::string> old_value,
                          std::optional<std::string> new_value) {
        if (!filter_.is_ignored(name)) {
            found_.variables.push_back({name, std::move(old_value), std::move(new_value)});
        }
    };
    visit(after, [&](const Key& key, const DxfSection_Variable& variable) { added[key] = &variable; });
    visit(before, [&](const Key& key, const DxfSection_Variable& variable) {
        const auto other = added.find(key);
        if (other == added.end()) return tell(key.first, value_text(variable, false), std::nullopt);
        if (!filter_.same_groups(variable.Value, other->second->Value)) {
            const std::string old_value = value_text(variable, false);
            const std::string new_value = value_text(*other->second, false);
            const bool with_codes = old_value == new_value;
            tell(key.first, with_codes ? value_text(variable, true) : old_value,
                 with_codes ? value_text(*other->second, true) : new_value);
        }
        added.erase(other);
    });
    visit(after, [&](const Key& key, const DxfSection_Variable& variable) {
        if (added.contains(key)) tell(key.first, std::nullopt, value_text(variable, false));
    });
}

void DrawingComparison::compare_comments(const Ref<Sequence<Text>>& before,
                                         const Ref<Sequence<Text>>& after) {
    const auto comment = [](const Ref<Sequence<Text>>& comments, int number) -> std::optional<std::string> {
        if (number > length(comments)) return std::nullopt;
        return comments->Value(number).str();
    };
    if (filter_.is_ignored("Comment")) return;
    for (int number = 1; number <= std::max(length(before), length(after)); ++number) {
        auto old_text = comment(before, number), new_text = comment(after, number);
        if (old_text == new_text) continue;
        found_.comments.push_back(
            {"comment " + std::to_string(number), std::move(old_text), std::move(new_text)});
    }
}

}  // namespace

DrawingDifferences compare_drawings(const DxfSection_Model& before, const DxfSection_Model& after,
                                    const CompareOptions& options) {
    return DrawingComparison(before, after, options).take();
}

}  // namespace veltrane
