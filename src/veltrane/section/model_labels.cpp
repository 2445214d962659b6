// How the framework names a drawing's records, and the summary of its header.
#include "veltrane/section/block.hpp"
#include "veltrane/section/handle_text.hpp"
#include "veltrane/section/model.hpp"
#include "veltrane/section/tables.hpp"

#include <algorithm>
#include <charconv>
#include <ostream>

namespace veltrane {

namespace {

/// The name by which a record without or beside a handle is known; null when it has none.
Text record_name(const Transient* record) {
    if (const auto* section = as<const DxfSection_Section>(record)) return section->Name;
    if (const auto* table = as<const DxfSection_Table>(record)) return table->Name;
    if (const auto* definition = as<const DxfSection_Class>(record)) return definition->DXFName;
    if (const auto* block = as<const DxfSection_Block>(record)) return block->BlockName1;
    return {};
}

std::string_view version_label(std::string_view version) {
    static constexpr std::pair<std::string_view, std::string_view> kLabels[] = {
        {"AC1003", "previous to DXF-R10"}, {"AC1006", "DXF-R10"}, {"AC1008", "DXF-R11 (?)"},
        {"AC1009", "DXF-R11/R12"},         {"AC1012", "DXF-R13"}, {"AC1014", "DXF-R14"},
        {"AC1015", "DXF-2000/2000i"}};
    for (const auto& [code, label] : kLabels) {
        if (code == version) return label;
    }
    return " (unknown)";
}

std::string_view unit_label(std::string_view measurement) {
    const std::size_t digits = measurement.find_first_not_of(" \t");
    if (digits != std::string_view::npos) measurement.remove_prefix(digits);
    int value = -1;
    if (measurement.find('.') == std::string_view::npos) {  // a real is no unit
        std::from_chars(measurement.data(), measurement.data() + measurement.size(), value);
    }
    if (value == 0) return " : English i.e. INCH";
    if (value == 1) return " : Metric  i.e. MM";
    return " unknown, assumed Metric i.e. MM";
}

}  // namespace

Text DxfSection_Model::StringLabel(const Transient* record) const {
    if (const auto* variable = as<const DxfSection_Variable>(record)) return Text("$" + variable->Name.str());

    const auto* handled = as<const DxfSection_HandledObject>(record);
    const bool has_handle = handled && handled->Handle != kUndefinedInteger;
    const Text name = record_name(record);
    if (!has_handle) return name.is_null() ? Text("") : name;
    const std::string handle = "#" + DxfSection::HexToString(handled->Handle).str();
    if (name.is_null()) return Text(handle);
    return Text("(" + handle + ", " + name.str() + ")");
}

void DxfSection_Model::PrintLabel(const Transient* record, std::ostream& out) const {
    if (as<const DxfSection_Object>(record)) out << StringLabel(record);
}

int DxfSection_Model::NextNumberForLabel(std::string_view label, int last, bool /*exact*/) const {
    if (label.empty()) return 0;
    const char kind = label[0];
    const std::string_view rest = label.substr(1);
    const std::int32_t handle = kind == '#' ? DxfSection::StringToHex(rest) : 0;
    const auto matches = [&](const Transient* record) {
        if (kind == '$' || kind == '%') {
            const auto* variable = as<const DxfSection_Variable>(record);
            return variable && variable->Name == rest;
        }
        if (kind == '#') {
            const auto* handled = as<const DxfSection_HandledObject>(record);
            return handled && handled->Handle == handle;
        }
        return record_name(record) == label;
    };
    for (int number = std::max(last, 0); number < NbEntities(); ++number) {
        if (matches(Value(number + 1).get())) return number + 1;
    }
    return 0;
}

void DxfSection_Model::DumpHeader(std::ostream& out, int /*level*/) const {
    if (DxfFile()->Comment) {
        out << "        **  COMMENTS :\n";
        for (const Text& comment : *DxfFile()->Comment) out << comment << '\n';
        out << "        **\n";
    }
    if (const Text version = GetVariableString("$ACADVER"); !version.is_null()) {
        out << "        Version Code : " << version << " i.e. " << version_label(version) << '\n';
    }
    if (const Text measurement = GetVariableString("$MEASUREMENT"); !measurement.is_null()) {
        out << "        Measurement Unit" << unit_label(measurement);
    }
}

}  // namespace veltrane
