#include "vdxf/census.hpp"
#include "vdxf/diff_report.hpp"

#include <nlohmann/json.hpp>

namespace veltrane::tool {

namespace {

using Json = nlohmann::ordered_json;

std::string text_of(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json value_json(const DiffSide& side, const std::optional<std::string>& value) {
    return value ? Json(side.shown(*value)) : Json();
}

Json to_json(const DiffReport& report, const ValueDifference& difference) {
    return {{"name", report.before.shown(difference.name)},
            {"before", value_json(report.before, difference.before)},
            {"after", value_json(report.after, difference.after)}};
}

/// Where the record stands in one of the files; null when it does not.
Json place_json(const DiffSide& side, const PlacedRecord& placed) {
    if (!placed.record) return {};
    Json json = {{"handle", handle_of(*placed.record)},
                 {"line", side.line_of(*placed.record)},
                 {"section", side.name_of(*placed.section)}};
    if (placed.container && placed.container != placed.section) {
        json["inside"] = {{"type", dxf_name(*placed.container)},
                          {"name", side.name_of(*placed.container)},
                          {"handle", handle_of(*placed.container)}};
    }
    return json;
}

Json to_json(const DiffReport& report, const RecordDifference& difference) {
    const DxfSection_Object* before = difference.before.record;
    const DxfSection_Object* after = difference.after.record;
    const DiffSide& side = report.side_of(difference);
    const DxfSection_Object& record = before ? *before : *after;
    Json json = {{"change", !before                     ? "added"
                            : !after                    ? "removed"
                            : difference.fields.empty() ? "renumbered"
                                                        : "changed"},
                 {"type", dxf_name(record)},
                 {"name", side.name_of(record)},
                 {"layer", side.layer_of(record)},
                 {"before", place_json(report.before, difference.before)},
                 {"after", place_json(report.after, difference.after)}};
    if (!before || !after) {
        json["contents"] = difference.contents;
        return json;
    }
    Json fields = Json::array();
    for (const FieldDifference& field : difference.fields) {
        fields.push_back({{"field", side.shown(field.label)},
                          {"code", field.code < 0 ? Json() : Json(field.code)},
                          {"before", report.before.shown(field.before)},
                          {"after", report.after.shown(field.after)}});
    }
    json["fields"] = std::move(fields);
    return json;
}

/// One element a line, so that no more than one is held.
template <class Element>
void print_list(std::ostream& out, const char* name, const DiffReport& report,
                const std::vector<Element>& elements) {
    out << ",\n\"" << name << "\": [";
    bool is_first = true;
    for (const Element& element : elements) {
        if (!out.good()) return;
        out << (is_first ? "\n" : ",\n") << text_of(to_json(report, element));
        is_first = false;
    }
    out << (is_first ? "]" : "\n]");
}

}  // namespace

void print_diff_json(std::ostream& out, const DiffReport& report) {
    const DrawingDifferences& found = report.differences;
    const DiffCounts counts = count(found);
    const Json numbers = {{"added", counts.added},
                          {"removed", counts.removed},
                          {"changed", counts.changed},
                          {"renumbered", counts.renumbered},
                          {"same", counts.same},
                          {"variables", found.variables.size()},
                          {"comments", found.comments.size()}};
    out << "{\"before\": " << text_of(report.before.drawing().file())
        << ",\n\"after\": " << text_of(report.after.drawing().file())
        << ",\n\"equal\": " << (found.empty() ? "true" : "false") << ",\n\"counts\": " << text_of(numbers);
    print_list(out, "comments", report, found.comments);
    print_list(out, "variables", report, found.variables);
    print_list(out, "records", report, found.records);
    print_list(out, "renumbered", report, found.renumbered);
    out << "\n}\n";
}

}  // namespace veltrane::tool
