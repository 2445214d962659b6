#include "veltrane/file/content_hash.hpp"

#include "veltrane/file/common.hpp"
#include "veltrane/file/object_registrator.hpp"
#include "veltrane/file/record_table.hpp"

#include <algorithm>
#include <charconv>
#include <functional>
#include <locale>

namespace veltrane {

namespace {

constexpr int kAllLevels = 100;

/// The shortest text of a real that reads back as the same one, at a fraction of the usual cost.
class ShortReals : public std::num_put<char> {
    iter_type do_put(iter_type out, std::ios_base&, char_type, double value) const override {
        char digits[32];
        return std::copy(digits, std::to_chars(digits, digits + sizeof digits, value + 0.0).ptr, out);
    }
};

void add_handle_labels(const RecordTable& table, std::unordered_set<std::string>& labels) {
    for (const Row& row : table.rows()) {
        if (row.label && is_handle_code(row.code)) labels.insert(row.label);
        if (row.records.table && row.records.table != &table) add_handle_labels(*row.records.table, labels);
    }
    if (table.base()) add_handle_labels(*table.base(), labels);
}

std::string_view next_line(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return line;
}

}  // namespace

ContentHash::ContentHash(const DifferenceFilter& filter) : filter_(filter) {
    for (const auto* registrator : DxfFile_ObjectRegistrator::All()) {
        add_handle_labels(registrator->Table(), handle_labels_);
    }
    dump_.imbue(std::locale(std::locale::classic(), new ShortReals));
}

/// "Owner: \t31" and the group "  {330, 1F}"; of a list that is left out, the items stay.
bool ContentHash::is_left_out(std::string_view line) const {
    if (const std::size_t end = line.find(": \t"); end != std::string_view::npos) {
        const std::string label(line.substr(0, end));
        return handle_labels_.contains(label) || filter_.is_ignored(label);
    }
    int code = 0;
    return line.starts_with("  {") &&
           std::from_chars(line.data() + 3, line.data() + line.size(), code).ec == std::errc() &&
           is_handle_code(code);
}

std::size_t ContentHash::operator()(const DxfSection_Object& record) {
    dump_.seekp(0);
    DxfFile_RWObject::Dump(dump_, record, kAllLevels);
    std::string_view rest = dump_.view().substr(0, static_cast<std::size_t>(dump_.tellp()));
    std::size_t hash = 0;
    while (!rest.empty()) {
        const std::string_view line = next_line(rest);
        if (!is_left_out(line)) hash = hash * 1099511628211u ^ std::hash<std::string_view>()(line);
    }
    return hash;
}

}  // namespace veltrane
