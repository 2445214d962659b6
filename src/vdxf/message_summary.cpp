#include "vdxf/message_summary.hpp"

#include "vdxf/census.hpp"
#include "vdxf/drawing_text.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <string_view>
#include <utility>

namespace veltrane::tool {

namespace {

using Visitor = std::function<void(const PlacedMessage&)>;

void visit_check(const Check& check, const DxfSection_Object* record, int line, const Visitor& visitor) {
    for (const Message& fail : check.Fails()) visitor({record, line, true, fail.text()});
    for (const Message& warning : check.Warnings()) visitor({record, line, false, warning.text()});
}

/// Takes "line 120" out of a message and puts its number, which is nearer than the record's, in `line`.
std::string without_line(std::string text, int& line) {
    for (std::string_view mark : {" at line ", "Line "}) {
        const std::size_t start = text.find(mark);
        if (start == std::string::npos) continue;
        const char* const end = text.data() + text.size();
        const char* digits = text.data() + start + mark.size();
        const auto [after, error] = std::from_chars(digits, end, line);
        if (error != std::errc()) continue;
        const bool is_end = mark.front() == ' ';
        return text.replace(start, static_cast<std::size_t>(after - text.data()) - start,
                            is_end ? "" : "A line");
    }
    return text;
}

class Summarizer {
public:
    void add(const PlacedMessage& message) {
        int line = message.line;
        Key key{message.is_fail ? 0 : 1, message.record ? dxf_name(*message.record) : std::string(),
                without_line(message.text, line)};
        Place& place = places_[std::move(key)];
        ++place.count;
        if (line > 0 && (place.first_line == 0 || line < place.first_line)) place.first_line = line;
    }
    MessageSummary summary() const {
        MessageSummary result;
        for (const auto& [key, place] : places_) {
            const auto& [rank, type, text] = key;
            (rank == 0 ? result.fails : result.warnings) += place.count;
            result.kinds.push_back({type, text, rank == 0, place.count, place.first_line});
        }
        std::stable_sort(result.kinds.begin(), result.kinds.end(), [](const auto& a, const auto& b) {
            return a.is_fail != b.is_fail ? a.is_fail : a.count > b.count;
        });
        return result;
    }

private:
    using Key = std::tuple<int, std::string, std::string>;
    struct Place {
        std::size_t count = 0;
        int first_line = 0;
    };
    std::map<Key, Place> places_;
};

std::string counted(std::size_t count, const char* what) {
    return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

}  // namespace

void visit_messages(const DxfSection_Model& model, const Visitor& visitor) {
    visit_check(model.GlobalCheck(), nullptr, 0, visitor);
    for (int number = 1; number <= model.NbEntities(); ++number) {
        const Check* check = model.CheckOf(number);
        if (!check) continue;
        const auto* record = as<const DxfSection_Object>(model.Value(number).get());
        visit_check(*check, record, model.Line(number), visitor);
    }
}

void visit_messages(const DxfSection_Model& model, const ReadProcess& process, const Visitor& visitor) {
    for (const RecordReport& report : process.Reports()) {
        const auto* record = as<const DxfSection_Object>(report.Record.get());
        visit_check(report.Messages, record, model.Line(model.Number(report.Record.get())), visitor);
    }
}

std::string MessageSummary::counts() const {
    if (is_empty()) return {};
    if (fails == 0) return counted(warnings, "warning");
    if (warnings == 0) return counted(fails, "fail");
    return counted(fails, "fail") + " and " + counted(warnings, "warning");
}

MessageSummary summarize_reading(const DxfSection_Model& model) {
    Summarizer summarizer;
    visit_messages(model, [&](const PlacedMessage& message) { summarizer.add(message); });
    return summarizer.summary();
}

MessageSummary summarize_translation(const DxfSection_Model& model, const ReadProcess& process) {
    Summarizer summarizer;
    visit_messages(model, process, [&](const PlacedMessage& message) { summarizer.add(message); });
    return summarizer.summary();
}

std::string plain(std::string_view text) {
    const std::size_t colon = text.find(": ");
    const bool is_class = text.substr(0, 3) == "Dxf" && colon < text.find(' ');
    if (is_class) text.remove_prefix(colon + 2);
    return std::string(text);
}

std::string line_of(const MessageKind& kind) {
    std::string line = fmt::format("{:>7} x {} {}: {}", kind.count, kind.is_fail ? "fail" : "warning",
                                   kind.type.empty() ? "drawing" : kind.type, plain(kind.text));
    if (kind.first_line > 0) line += fmt::format(" (first at line {})", kind.first_line);
    return line;
}

std::string line_of(const PlacedMessage& message, const DrawingText& text) {
    std::string line = message.is_fail ? "fail: " : "warning: ";
    if (message.record) {
        line += dxf_name(*message.record);
        const std::string handle = handle_of(*message.record);
        if (!handle.empty()) line += " #" + handle;
        if (message.line > 0) line += fmt::format(", line {}", message.line);
        line += ": ";
    }
    return line + text.name(plain(message.text));
}

nlohmann::ordered_json to_json(const MessageSummary& summary) {
    auto kinds = nlohmann::ordered_json::array();
    for (const MessageKind& kind : summary.kinds) {
        kinds.push_back({{"gravity", kind.is_fail ? "fail" : "warning"},
                         {"type", kind.type},
                         {"text", kind.text},
                         {"count", kind.count},
                         {"first_line", kind.first_line}});
    }
    return {{"fails", summary.fails}, {"warnings", summary.warnings}, {"kinds", std::move(kinds)}};
}

}  // namespace veltrane::tool
