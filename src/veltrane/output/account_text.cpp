// The account as people read it.
#include "veltrane/output/account.hpp"
#include "veltrane/section/handle_text.hpp"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace veltrane {
namespace {

using Stage = MessageAccount::Stage;

std::string left(std::string_view text, std::size_t width) {
    return std::string(text) + std::string(width - std::min(width, text.size()), ' ');
}

/// A count for a column; a dot for none lets the others stand out.
std::string right(std::size_t count, std::size_t width) {
    const std::string text = count == 0 ? "." : std::to_string(count);
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string row(const TypeAccount& type, std::size_t width) {
    return "  " + left(type.type, width) + right(type.read, 10) + right(type.shape, 10) +
           right(type.nothing, 10) + right(type.no_translator, 15) + "\n";
}

std::string types_text(const Account& account) {
    if (account.types.empty()) return "No records in the ENTITIES section\n";
    std::size_t width = 5;
    for (const TypeAccount& type : account.types) width = std::max(width, type.type.size());
    std::string text = "Records of the ENTITIES section\n  " + left("", width) +
                       "      read     shape   nothing  no translator\n";
    for (const TypeAccount& type : account.types) text += row(type, width);
    if (account.types.size() > 1) text += row(account.total(), width);
    return text;
}

std::string lost_record_text(const LostRecord& record) {
    std::string text = record.handle > 0 ? "#" + DxfSection::HexToString(record.handle).str() : "";
    if (record.line > 0) text += (text.empty() ? "line " : " line ") + std::to_string(record.line);
    return text.empty() ? "one without handle" : text;
}

std::string lost_text(const Account& account, std::size_t examples) {
    if (account.lost.empty()) return {};
    struct Group {
        std::size_t count = 0;
        std::string shown;
    };
    std::map<std::pair<std::size_t, std::size_t>, Group> groups;  // by type and reason
    for (const LostRecord& record : account.lost) {
        Group& group = groups[{record.type, record.reason}];
        if (group.count++ < examples) group.shown += "    " + lost_record_text(record) + "\n";
    }
    std::string text = "\nGave no shape\n";
    for (const auto& [key, group] : groups) {
        text += "  " + account.types[key.first].type + ", " + std::to_string(group.count) + ": " +
                account.reasons[key.second] + "\n" + group.shown;
        if (group.count > examples) {
            text += "    and " + std::to_string(group.count - examples) + " more\n";
        }
    }
    return text;
}

/// A list of items after a title, broken into lines of readable length.
class WrappedList {
public:
    explicit WrappedList(std::string_view title) : line_("  " + std::string(title) + ":") {}

    void add(const std::string& item) {
        if (has_items_) line_ += ',';
        if (line_.size() + 1 + item.size() > kWidth) {
            text_ += line_ + '\n';
            line_ = "     ";
        }
        line_ += ' ' + item;
        has_items_ = true;
    }
    std::string text() const { return text_ + line_ + '\n'; }

private:
    static constexpr std::size_t kWidth = 100;

    std::string text_;
    std::string line_;
    bool has_items_ = false;
};

std::string elsewhere_text(const Account& account) {
    if (account.elsewhere.empty()) return {};
    std::string text = "\nNot drawn here: " + std::to_string(account.read_elsewhere()) + " records\n";
    for (std::size_t i = 0; i < account.elsewhere.size();) {
        const std::string& place = account.elsewhere[i].place;
        WrappedList list(place.empty() ? "outside of sections" : place);
        for (; i < account.elsewhere.size() && account.elsewhere[i].place == place; ++i) {
            list.add(account.elsewhere[i].type + ' ' + std::to_string(account.elsewhere[i].read));
        }
        text += list.text();
    }
    return text;
}

std::string plural(std::size_t count, const char* noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string message_text(const MessageAccount& message) {
    std::string text = std::string("  ") + (message.is_fail ? "fail: " : "warning: ") + message.example;
    std::string where = message.record;
    if (message.line > 0) where += (where.empty() ? "line " : " line ") + std::to_string(message.line);
    if (!where.empty()) text += " (" + where + ")";
    if (message.count > 1) text += ", and " + std::to_string(message.count - 1) + " more of this kind";
    return text + "\n";
}

std::string messages_text(const Account& account, Stage stage, const char* title) {
    const std::size_t fails = account.count_messages(stage, true);
    const std::size_t warnings = account.count_messages(stage, false);
    if (fails + warnings == 0) return {};
    std::string text =
        std::string("\n") + title + ": " + plural(fails, "fail") + ", " + plural(warnings, "warning") + "\n";
    for (const MessageAccount& message : account.messages) {
        if (message.stage == stage) text += message_text(message);
    }
    return text;
}

}  // namespace

std::string account_text(const Account& account, std::size_t examples) {
    return types_text(account) + lost_text(account, examples) + elsewhere_text(account) +
           messages_text(account, Stage::Reading, "Reading") +
           messages_text(account, Stage::Transfer, "Making shapes");
}

}  // namespace veltrane
